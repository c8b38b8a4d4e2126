// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/CharacterOffsets.h"

#include <algorithm>
#include <utility>

namespace marquell::window {
namespace {

constexpr std::size_t blockLength = 16 * 1024;

/// The units that begin with a byte of well-formed UTF-8.
std::size_t unitsAt(char byte) {
    const auto value = static_cast<unsigned char>(byte);
    return static_cast<std::size_t>((value & 0xc0) != 0x80) +
           static_cast<std::size_t>(value >= 0xf0);
}

std::size_t unitsIn(std::string_view text) {
    std::size_t units = 0;
    for (const char each : text) units += unitsAt(each);
    return units;
}

}  // namespace

CharacterOffsets::CharacterOffsets(std::shared_ptr<const platform::LinedText> text)
    : text_(std::move(text)) {}

/// False if there is none.
bool CharacterOffsets::countNextBlock() {
    const std::size_t start = (before_.size() - 1) * blockLength;
    if (start >= text_->text().size()) return false;
    before_.push_back(before_.back() + unitsIn(text_->text().substr(start, blockLength)));
    return true;
}

std::size_t CharacterOffsets::charactersBefore(std::size_t offset) {
    const std::size_t block = offset / blockLength;
    while (before_.size() <= block && countNextBlock()) {
    }
    const std::size_t start = block * blockLength;
    return before_[block] + unitsIn(text_->text().substr(start, offset - start));
}

std::size_t CharacterOffsets::offsetOf(std::size_t character) {
    while (before_.back() <= character && countNextBlock()) {
    }
    const auto behind = std::ranges::upper_bound(before_, character);
    const auto block = static_cast<std::size_t>(std::distance(before_.begin(), behind)) - 1;
    const std::string_view text = text_->text();
    std::size_t offset = block * blockLength;
    std::size_t units = before_[block];
    while (offset < text.size() && units + unitsAt(text[offset]) <= character) {
        units += unitsAt(text[offset++]);
    }
    return std::min(offset, text.size());
}

}  // namespace marquell::window
