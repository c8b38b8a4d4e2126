// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/TextWriter.h"

#include <utility>

#include "platform/TextFile.h"
#include "platform/Workers.h"

namespace marquell::pipeline {

void TextWriter::write(std::string path, std::shared_ptr<const platform::TextBuffer> text,
                       platform::TextEncoding encoding, std::function<void()> finished) {
    wait();
    const auto work = [path = std::move(path), text = std::move(text), encoding,
                       finished = std::move(finished)] {
        static_cast<void>(platform::writeTextFile(path, text->view(), encoding));
        finished();
    };
    if (!platform::startThread(thread_, work)) work();
}

void TextWriter::wait() {
    for (std::thread& thread : thread_) thread.join();
    thread_.clear();
}

}  // namespace marquell::pipeline
