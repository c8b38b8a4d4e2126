// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/common/TextList.h"

#include <algorithm>

#include "platform/PropertyDictionary.h"

namespace marquell::helpers {

std::vector<std::string> listedTexts(std::string_view text, std::string_view separators) {
    constexpr std::string_view blanks = " \t\r\n";
    std::vector<std::string> members;
    while (!text.empty() && members.size() < platform::maximumListLength) {
        std::string_view member = text.substr(0, text.find_first_of(separators));
        text.remove_prefix(std::min(member.size() + 1, text.size()));
        member.remove_prefix(std::min(member.find_first_not_of(blanks), member.size()));
        member = member.substr(0, member.find_last_not_of(blanks) + 1);
        if (!member.empty()) members.emplace_back(member);
    }
    return members;
}

}  // namespace marquell::helpers
