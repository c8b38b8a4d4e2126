// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <string>

#include "pipeline/TextHelpers.h"

namespace marquell::pipeline {
namespace {

std::string zeros(std::size_t count) { return std::string(count, '0'); }

struct Texts {
    std::string given;
    std::string expected;
};

TEST(TextHelpers, PadsRunsOfNumberCharacters) {
    const std::string forty = "1234567890123456789012345678901234567890";
    const Texts cases[] = {
        {"", ""},
        {"README", "README"},
        {"a1b22", "a" + zeros(31) + "1b" + zeros(30) + "22"},
        {"22ä1", zeros(30) + "22ä" + zeros(31) + "1"},
        {forty, forty},
        {"é" + forty, "é" + forty},
        {"-1.5", "-" + zeros(31) + "1." + zeros(31) + "5"},
        {"٣٤", zeros(30) + "٣٤"},                                  // Arabic-Indic digits
        {"Ⅷ½", zeros(30) + "Ⅷ½"},                                  // a Roman number, a fraction
        {"第三章②", "第" + zeros(31) + "三章" + zeros(31) + "②"},  // an ideograph, a circled digit
        {"1\u0301\u03022", zeros(30) + "1\u0301\u03022"},          // marks count with their digit
        {"a\u03011", "a\u0301" + zeros(31) + "1"},
    };
    for (const Texts& texts : cases) {
        EXPECT_EQ(stringByExpandingAllNumberGroups(texts.given), texts.expected) << texts.given;
    }
}

TEST(TextHelpers, EncodesLineBreaksAndTabsAndNothingElse) {
    const Texts cases[] = {
        {"", ""},
        {R"(C:\new "folder")", R"(C:\new "folder")"},
        {"a\tb\\c", R"(a\tb\c)"},
        {"one\r\ntwo\n\rthree", R"(one\r\ntwo\n\rthree)"},
        {"\v\f\u0085\u2028", "\v\f\u0085\u2028"},
    };
    for (const Texts& texts : cases) {
        EXPECT_EQ(withEncodedLineBreaksAndTabs(texts.given), texts.expected) << texts.given;
        EXPECT_EQ(hasLineBreakOrTab(texts.given), texts.given != texts.expected) << texts.given;
    }
}

TEST(TextHelpers, JoinsElementsWithoutTheNewlinesAround) {
    EXPECT_EQ(asCommaSeparatedString({}), "");
    EXPECT_EQ(asCommaSeparatedString({"one\n"}), "one");
    EXPECT_EQ(asCommaSeparatedString({"\r\n\v\f\u0085\u2028\u2029a\nb\u2029\n", " c\t", "\n", ""}),
              "a\nb,  c\t, , ");
}

}  // namespace
}  // namespace marquell::pipeline
