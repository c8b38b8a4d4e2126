// SPDX-License-Identifier: GPL-3.0-or-later
#include "window/preview/DecodedText.h"

#include <algorithm>

namespace marquell::window {

DecodedText::DecodedText(std::string_view text) {
    text_.reserve(static_cast<qsizetype>(text.size()));
    offsets_.reserve(text.size());
    forEachCodePoint(text, [this](char32_t character, std::size_t, std::size_t length) {
        add(character, length);
    });
}

void DecodedText::add(QStringView shown, std::size_t length) {
    text_ += shown;
    offsets_.resize(static_cast<std::size_t>(text_.size()), end_);
    end_ += static_cast<std::uint32_t>(length);
}

void DecodedText::add(char32_t character, std::size_t length) {
    const auto units = QChar::fromUcs4(character);
    add(QStringView(units), length);
}

std::size_t DecodedText::offsetOf(qsizetype unit) const {
    return unit < text_.size() ? offsets_[static_cast<std::size_t>(unit)] : end_;
}

qsizetype DecodedText::unitOf(std::size_t offset) const {
    if (offset >= end_) return text_.size();
    const auto behind = std::ranges::upper_bound(offsets_, offset);
    const auto first = std::ranges::lower_bound(offsets_, *std::prev(behind));
    return static_cast<qsizetype>(std::distance(offsets_.begin(), first));
}

}  // namespace marquell::window
