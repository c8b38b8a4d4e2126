// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/documents/CharacterReferences.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

#include "helpers/common/DecodedText.h"
#include "platform/Utf8.h"

namespace marquell::helpers {
namespace {

/// From U+00A0 on.
constexpr std::array<std::string_view, 96> latinNames = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",
    "copy",   "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn",
    "sup2",   "sup3",   "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",
    "raquo",  "frac14", "frac12", "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde",
    "Auml",   "Aring",  "AElig",  "Ccedil", "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave",
    "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde", "Ograve", "Oacute", "Ocirc",  "Otilde",
    "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",  "Uuml",   "Yacute", "THORN",
    "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",  "aelig",  "ccedil",
    "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",   "eth",
    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};

constexpr std::array<std::pair<std::string_view, char32_t>, 40> otherNames = {{
    {"amp", U'&'},         {"lt", U'<'},          {"gt", U'>'},          {"quot", U'"'},
    {"apos", U'\''},       {"OElig", U'\u0152'},  {"oelig", U'\u0153'},  {"Scaron", U'\u0160'},
    {"scaron", U'\u0161'}, {"Yuml", U'\u0178'},   {"fnof", U'\u0192'},   {"circ", U'\u02C6'},
    {"tilde", U'\u02DC'},  {"ensp", U'\u2002'},   {"emsp", U'\u2003'},   {"thinsp", U'\u2009'},
    {"zwnj", U'\u200C'},   {"zwj", U'\u200D'},    {"lrm", U'\u200E'},    {"rlm", U'\u200F'},
    {"ndash", U'\u2013'},  {"mdash", U'\u2014'},  {"lsquo", U'\u2018'},  {"rsquo", U'\u2019'},
    {"sbquo", U'\u201A'},  {"ldquo", U'\u201C'},  {"rdquo", U'\u201D'},  {"bdquo", U'\u201E'},
    {"dagger", U'\u2020'}, {"Dagger", U'\u2021'}, {"bull", U'\u2022'},   {"hellip", U'\u2026'},
    {"permil", U'\u2030'}, {"prime", U'\u2032'},  {"lsaquo", U'\u2039'}, {"rsaquo", U'\u203A'},
    {"euro", U'\u20AC'},   {"trade", U'\u2122'},  {"rarr", U'\u2192'},   {"minus", U'\u2212'},
}};

std::optional<std::string> namedCharacter(std::string_view name) {
    const auto* const latin = std::ranges::find(latinNames, name);
    if (latin != latinNames.end()) {
        return platform::utf8Text(0xA0 + static_cast<char32_t>(latin - latinNames.begin()));
    }
    const auto* const other =
        std::ranges::find(otherNames, name, &std::pair<std::string_view, char32_t>::first);
    if (other != otherNames.end()) return platform::utf8Text(other->second);
    return std::nullopt;
}

/// What pages write for control characters are those of Windows-1252.
std::string numberedCharacter(std::uint32_t number) {
    if (number < 0x20 || (number >= 0x7F && number < 0xA0)) {
        const char byte = static_cast<char>(number);
        return decodedText({&byte, 1}, Charset::windows1252);
    }
    const bool isCharacter = number < 0xD800 || (number >= 0xE000 && number < 0x110000);
    return platform::utf8Text(isCharacter ? number : 0xFFFD);
}

/// Of "#233" or "#xE9".
std::optional<std::string> characterOf(std::string_view reference) {
    if (!reference.starts_with('#')) return namedCharacter(reference);
    reference.remove_prefix(1);
    const bool isHexadecimal = reference.starts_with('x') || reference.starts_with('X');
    if (isHexadecimal) reference.remove_prefix(1);
    std::uint32_t number = 0;
    const char* const end = reference.data() + reference.size();
    const auto [stop, error] =
        std::from_chars(reference.data(), end, number, isHexadecimal ? 16 : 10);
    if (error != std::errc() || stop != end) return std::nullopt;
    return numberedCharacter(number);
}

}  // namespace

std::string withoutReferences(std::string_view text) {
    constexpr std::size_t longest = 10;
    std::string result;
    while (true) {
        const std::size_t begin = std::min(text.find('&'), text.size());
        result.append(text.substr(0, begin));
        text.remove_prefix(begin);
        if (text.empty()) return result;
        const std::size_t end = text.substr(0, longest + 2).find(';');
        std::optional<std::string> character;
        if (end != std::string_view::npos) character = characterOf(text.substr(1, end - 1));
        result.append(character ? *character : "&");
        text.remove_prefix(character ? end + 1 : 1);
    }
}

}  // namespace marquell::helpers
