// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/HtmlText.h"

#include <algorithm>
#include <array>

#include "platform/Escapes.h"
#include "platform/UnicodeText.h"

namespace marquell::formats {
namespace {

/// Escaped by code point: with a mark behind it or a prefix before it, a "<" still opens a tag.
constexpr platform::Escapes markup = {
    {'&', "&amp;"}, {'>', "&gt;"}, {'"', "&quot;"}, {'\'', "&#39;"}, {'<', "&lt;"}};

struct Sign {
    std::string_view character;
    std::string_view entity;
};
constexpr std::array<Sign, 6> signs = {{
    {"\u00A2", "&cent;"},
    {"\u00A3", "&pound;"},
    {"\u00A5", "&yen;"},
    {"\u00A9", "&copy;"},
    {"\u20AC", "&euro;"},
    {"\u00AE", "&reg;"},
}};

bool mayHaveSigns(std::string_view text) {
    // The first bytes of the signs, and of little else in most texts.
    return text.find('\xC2') != std::string_view::npos ||
           text.find('\xE2') != std::string_view::npos;
}

}  // namespace

void appendHtmlEscaped(platform::TextBuffer& html, std::string_view text) {
    if (!mayHaveSigns(text)) {
        markup.append(html, text);
        return;
    }
    platform::forEachCharacter(text, [&html](std::string_view character) {
        const auto sign = std::find_if(signs.begin(), signs.end(), [character](const Sign& row) {
            return row.character == character;
        });
        if (sign != signs.end()) {
            html.append(sign->entity);
        } else {
            markup.append(html, character);
        }
    });
}

}  // namespace marquell::formats
