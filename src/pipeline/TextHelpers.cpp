// SPDX-License-Identifier: GPL-3.0-or-later
#include "pipeline/TextHelpers.h"

#include <algorithm>
#include <array>

#include "platform/UnicodeText.h"
#include "platform/Utf8.h"

namespace marquell::pipeline {
namespace {

constexpr std::size_t numberWidth = 32;

/// Copies runs of number characters padded and all else as it stands.
class NumberGroupExpander {
public:
    explicit NumberGroupExpander(std::string& result) : result_(result) {}

    void add(std::string_view character, bool isNumber) {
        if (isNumber) {
            run_.append(character);
            ++runLength_;
        } else {
            finishRun();
            result_.append(character);
        }
    }

    void finishRun() {
        if (runLength_ == 0) return;
        result_.append(runLength_ < numberWidth ? numberWidth - runLength_ : 0, '0').append(run_);
        run_.clear();
        runLength_ = 0;
    }

private:
    std::string& result_;
    std::string run_;
    std::size_t runLength_ = 0;
};

constexpr bool isAsciiDigit(char c) { return c >= '0' && c <= '9'; }

void expandAscii(std::string& result, std::string_view text) {
    while (!text.empty()) {
        const bool number = isAsciiDigit(text.front());
        const auto runEnd = std::find_if(text.begin(), text.end(),
                                         [number](char c) { return isAsciiDigit(c) != number; });
        const auto length = static_cast<std::size_t>(runEnd - text.begin());
        if (number && length < numberWidth) result.append(numberWidth - length, '0');
        result.append(text.substr(0, length));
        text.remove_prefix(length);
    }
}

constexpr std::array<std::string_view, 7> newlines = {"\n",     "\v",     "\f",    "\r",
                                                      "\u0085", "\u2028", "\u2029"};

std::string_view withoutNewlinesAround(std::string_view text) {
    const auto trimOnce = [&text] {
        return std::any_of(newlines.begin(), newlines.end(), [&text](std::string_view newline) {
            if (text.starts_with(newline)) {
                text.remove_prefix(newline.size());
                return true;
            }
            if (text.ends_with(newline)) {
                text.remove_suffix(newline.size());
                return true;
            }
            return false;
        });
    };
    while (trimOnce()) {
    }
    return text;
}

}  // namespace

void appendByExpandingAllNumberGroups(std::string& result, std::string_view text) {
    if (platform::isAscii(text)) {
        expandAscii(result, text);
        return;
    }
    NumberGroupExpander expander(result);
    platform::forEachCharacter(text, [&expander](std::string_view character) {
        expander.add(character, platform::isNumberCharacter(character));
    });
    expander.finishRun();
}

std::string stringByExpandingAllNumberGroups(std::string_view text) {
    std::string result;
    appendByExpandingAllNumberGroups(result, text);
    return result;
}

std::string withEncodedLineBreaksAndTabs(std::string_view text) {
    std::string encoded;
    lineBreakAndTabEscapes.append(encoded, text);
    return encoded;
}

std::string asCommaSeparatedString(const std::vector<std::string>& elements) {
    std::string joined;
    for (const std::string& element : elements) {
        if (&element != &elements.front()) joined.append(", ");
        joined.append(withoutNewlinesAround(element));
    }
    return joined;
}

}  // namespace marquell::pipeline
