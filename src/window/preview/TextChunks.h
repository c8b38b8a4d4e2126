// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

#include "platform/LinedText.h"
#include "window/preview/TextRange.h"

namespace marquell::window {

// A line is laid out in chunks of about 512 bytes, so that one that is longer costs no more than
// what is seen of it. Where a chunk begins follows from its number alone; none begins within a
// character. They count from 0, and each line has at least one.

using Line = platform::LinedText::Line;

std::size_t chunkCount(const Line& line);

TextRange chunkOf(const platform::LinedText& text, const Line& line, std::size_t chunk);

/// The chunk that the byte is in; the last one for the end of the line.
std::size_t chunkAt(const platform::LinedText& text, const Line& line, std::size_t offset);

}  // namespace marquell::window
