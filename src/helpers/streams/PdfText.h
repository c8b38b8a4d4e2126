// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <poppler-global.h>

#include <string>

namespace marquell::helpers {

// The PDF library hands out what is no UTF-16 byte by byte, each as a character of its own.

/// The text for people, clean UTF-8.
std::string pdfText(const poppler::ustring& text);

/// The bytes behind characters that are bytes; empty if there are others among them.
std::string pdfBytes(const poppler::ustring& text);

}  // namespace marquell::helpers
