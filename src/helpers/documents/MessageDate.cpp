// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/documents/MessageDate.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "helpers/common/TagDate.h"
#include "helpers/common/TextList.h"
#include "helpers/documents/DocumentText.h"

namespace marquell::helpers {
namespace {

constexpr std::array<std::string_view, 12> months = {"jan", "feb", "mar", "apr", "may", "jun",
                                                     "jul", "aug", "sep", "oct", "nov", "dec"};

constexpr std::array<std::pair<std::string_view, std::string_view>, 11> zones = {{
    {"UT", "Z"},
    {"GMT", "Z"},
    {"-0000", "Z"},
    {"EST", "-0500"},
    {"EDT", "-0400"},
    {"CST", "-0600"},
    {"CDT", "-0500"},
    {"MST", "-0700"},
    {"MDT", "-0600"},
    {"PST", "-0800"},
    {"PDT", "-0700"},
}};

std::string withoutComments(std::string_view text) {
    std::string result;
    int depth = 0;
    for (const char byte : text) {
        if (byte == '(') ++depth;
        if (depth == 0) result.push_back(byte);
        if (byte == ')' && depth > 0) --depth;
    }
    return result;
}

bool areDigits(std::string_view text, std::size_t least, std::size_t most) {
    return text.size() >= least && text.size() <= most && std::ranges::all_of(text, isDigit);
}

/// Of two digits those from 50 on are of the last century, three count from its begin.
std::string fullYear(const std::string& year) {
    if (year.size() == 4) return year;
    const int number = std::stoi(year);
    return std::to_string(number + (year.size() == 2 && number < 50 ? 2000 : 1900));
}

/// "2024-02-29" of "29", "Feb" and "2024"; empty if they are no date.
std::string dayOf(const std::string& day, const std::string& month, const std::string& year) {
    if (!areDigits(day, 1, 2) || !areDigits(year, 2, 4)) return {};
    const auto* const found = std::ranges::find(months, lowerCase(month.substr(0, 3)));
    if (found == months.end()) return {};
    return fullYear(year) + "-" + std::to_string(found - months.begin() + 1) + "-" + day;
}

}  // namespace

std::string messageDate(std::string_view text) {
    std::vector<std::string> words = listedTexts(withoutComments(text), ", \t\r\n");
    if (!words.empty() && isLetter(words.front().front())) words.erase(words.begin());
    if (words.size() < 4) return {};
    const std::string day = dayOf(words[0], words[1], words[2]);
    if (day.empty()) return {};
    std::string zone = words.size() > 4 ? words[4] : "";
    for (const auto& [name, offset] : zones) {
        if (isSameName(name, zone)) zone = offset;
    }
    return isoDate(day + "T" + words[3] + zone);
}

}  // namespace marquell::helpers
