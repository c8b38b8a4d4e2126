// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace marquell::helpers {

/// What an ID3 frame says, as a text for people.
struct Id3Text {
    std::string description;  ///< what the text is about, or whose it is; mostly empty
    std::string text;

    /// "description: text", or the one of both that there is.
    std::string written() const;
};

/// Whether frames of the (current, not ID3v2.2) identifier can have a text, so that it is worth
/// reading them.
bool canHaveId3Text(std::string_view id);

/// The text of a frame by its current identifier and its content, which is not compressed or the
/// like any more. Absent if it has none.
std::optional<Id3Text> id3Text(std::string_view id, std::string_view content);

/// With a comma and a blank between them; empty ones are left out.
std::string joinedTexts(const std::vector<std::string>& texts);

}  // namespace marquell::helpers
