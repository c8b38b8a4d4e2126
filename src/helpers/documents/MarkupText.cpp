// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/documents/MarkupText.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "helpers/documents/CharacterReferences.h"
#include "helpers/documents/DocumentText.h"

namespace marquell::helpers {
namespace {

constexpr std::array<std::string_view, 34> blockTags = {
    "p",    "div",  "br",         "hr",     "h1",      "h2",      "h3",      "h4",     "h5",
    "h6",   "ul",   "ol",         "li",     "dl",      "dt",      "dd",      "table",  "tr",
    "td",   "th",   "blockquote", "center", "pre",     "section", "article", "header", "footer",
    "html", "head", "body",       "title",  "caption", "thead",   "tbody"};

constexpr std::array<std::string_view, 27> inlineTags = {
    "a",   "b",   "i",    "u",    "s",   "em",   "strong", "span", "small",
    "big", "sub", "sup",  "font", "tt",  "cite", "q",      "code", "strike",
    "del", "ins", "abbr", "img",  "kbd", "mark", "var",    "dfn",  "samp"};

bool isIn(const auto& names, std::string_view name) {
    return std::ranges::any_of(names, [name](auto known) { return isSameName(known, name); });
}

/// A tag at the front of a text; of length 0 if there is none that is known.
struct TagAhead {
    std::size_t length = 0;
    bool isBlock = false;
};

TagAhead tagAhead(std::string_view text) {
    constexpr std::size_t longestName = 10;
    const std::size_t begin = text.starts_with("</") ? 2 : 1;
    std::string_view name = text.substr(begin, longestName + 1);
    name = name.substr(0, name.find_first_of(" \t\r\n/>"));
    const bool isBlock = isIn(blockTags, name);
    if (!isBlock && !isIn(inlineTags, name)) return {};
    const std::size_t end = text.find_first_of("<>", begin);
    if (end == std::string_view::npos || text[end] == '<') return {};
    return {end + 1, isBlock};
}

}  // namespace

std::string textOfMarkup(std::string_view text) {
    std::string plain;
    bool isMarkedUp = false;
    while (true) {
        const std::size_t begin = std::min(text.find('<'), text.size());
        plain.append(text.substr(0, begin));
        text.remove_prefix(begin);
        if (text.empty()) break;
        const TagAhead tag = tagAhead(text);
        if (tag.length == 0) plain.push_back('<');
        if (tag.isBlock) plain.push_back(' ');
        isMarkedUp = isMarkedUp || tag.length > 0;
        text.remove_prefix(std::max<std::size_t>(tag.length, 1));
    }
    const std::string resolved = withoutReferences(plain);
    return isMarkedUp ? collapsed(resolved) : std::string(trimmed(resolved));
}

}  // namespace marquell::helpers
