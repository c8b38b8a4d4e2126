// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <csignal>
#include <span>
#include <string_view>

#include "helpers/common/Input.h"

namespace marquell::helpers {

/// The bytes of a document for a library that takes as long over them as the file wants, and can't
/// be stopped: after a second of processor time all of them turn to zeros under its hands, of which
/// it finds the end soon. One at a time in a process of one thread.
class PdfBytes {
public:
    explicit PdfBytes(Input& input);
    ~PdfBytes();
    PdfBytes(const PdfBytes&) = delete;
    PdfBytes& operator=(const PdfBytes&) = delete;

    /// Empty if memory is short.
    std::string_view view() const { return {bytes_.data(), bytes_.size()}; }

    /// Whether time ran out, so that what was read since may be anything.
    bool isBlank() const { return isBlank_ != 0; }

private:
    static void blank(int signal);

    std::span<const char> copy_;  ///< if a small one was read: a mapping of its own
    std::span<const char> bytes_;
    volatile std::sig_atomic_t isBlank_ = 0;
};

}  // namespace marquell::helpers
