// SPDX-License-Identifier: GPL-3.0-or-later
#include "Messages.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <numeric>
#include <utility>
#include <vector>

#include "platform/DescriptorIo.h"
#include "platform/DiagnosticText.h"
#include "platform/UnicodeText.h"
#include "platform/Utf8.h"

namespace marquell::apps {

void printMessage(std::string_view message) {
    std::string line = "marquell-list: ";
    line.append(message).push_back('\n');
    // Nothing is left to tell when standard error itself fails.
    static_cast<void>(platform::writeAll(STDERR_FILENO, line));
}

std::string quoted(std::string_view text) { return '"' + platform::diagnosticText(text) + '"'; }

std::string characterName(char32_t character) {
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "U+%04X ", static_cast<unsigned>(character));
    return number.data() + quoted(platform::utf8Text(character));
}

std::size_t editDistance(std::string_view word, std::string_view other) {
    std::string a;
    std::string b;
    platform::appendCaseInsensitiveKey(a, platform::displayText(word));
    platform::appendCaseInsensitiveKey(b, platform::displayText(other));
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (std::size_t i = 0; i < a.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row[b.size()];
}

}  // namespace marquell::apps
