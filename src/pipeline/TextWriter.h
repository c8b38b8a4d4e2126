// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "platform/TextBuffer.h"
#include "platform/TextEncoding.h"

namespace marquell::pipeline {

/// Writes a text to a file beside the thread that it belongs to, for disks may be slow. Destroying
/// it waits for the end of the file: what the user has saved doesn't go when the program ends.
class TextWriter {
public:
    TextWriter() = default;
    ~TextWriter() { wait(); }
    TextWriter(const TextWriter&) = delete;
    TextWriter& operator=(const TextWriter&) = delete;

    /// Writes as platform::writeTextFile does, silently; then calls `finished`, on the writing
    /// thread. If the system refuses a thread, all of it happens here. One text at a time: waits
    /// for one that is not finished.
    void write(std::string path, std::shared_ptr<const platform::TextBuffer> text,
               platform::TextEncoding encoding, std::function<void()> finished);

private:
    void wait();

    std::vector<std::thread> thread_;  // none or one
};

}  // namespace marquell::pipeline
