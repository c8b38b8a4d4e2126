// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/LinedText.h"

namespace marquell::window {

/// Where the characters of a text are, counted as Qt and assistive programs do, in units of UTF-16.
/// The text is counted once, as far as is asked for.
class CharacterOffsets {
public:
    explicit CharacterOffsets(std::shared_ptr<const platform::LinedText> text);

    /// How many characters come before a byte.
    std::size_t charactersBefore(std::size_t offset);
    /// The byte at which a character begins; the end for those that are not there.
    std::size_t offsetOf(std::size_t character);
    std::size_t count() { return charactersBefore(text_->text().size()); }

    const platform::LinedText* text() const { return text_.get(); }

private:
    bool countNextBlock();

    std::shared_ptr<const platform::LinedText> text_;
    std::vector<std::size_t> before_ = {0};  // characters before each block, as far as counted
};

}  // namespace marquell::window
