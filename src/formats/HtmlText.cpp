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

/// What begins a sign, and much else such as dashes and typographic quotes.
constexpr platform::Escapes signStarts = {{'\xC2', ""}, {'\xE2', ""}};
/// What a text without passes as it is, as nearly all do.
constexpr platform::Escapes special = markup.with({{'\xC2', ""}, {'\xE2', ""}});

/// Finding the characters takes a hundred times as long as all the rest.
bool hasSigns(std::string_view text) {
    return signStarts.concerns(text) &&
           std::any_of(signs.begin(), signs.end(), [text](const Sign& sign) {
               return text.find(sign.character) != std::string_view::npos;
           });
}

}  // namespace

void appendHtmlEscaped(platform::TextBuffer& html, std::string_view text) {
    if (!special.concerns(text)) return html.append(text);
    if (!hasSigns(text)) return markup.append(html, text);
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
