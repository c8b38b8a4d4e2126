// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <string>

#include "platform/InstalledTranslation.h"
#include "platform/Localization.h"

namespace marquell::platform {
namespace {

TEST(Localization, TranslatesByContextAndElseKeepsTheEnglish) {
    const std::string longText(10'000, 'x');
    {
        const tests::InstalledTranslation german{
            {"label", "Format", "Formatierung"},
            {"button title", "Format", "Größe"},
            {"label", longText.c_str(), "kurz"},
            {"label", "", "nichts"},
        };
        EXPECT_EQ(localized("Format", "label"), "Formatierung");
        EXPECT_EQ(localized("Format", "button title"), "Größe");
        EXPECT_EQ(localized(longText, "label"), "kurz");
        EXPECT_EQ(localized("Format", "window title"), "Format");
        EXPECT_EQ(localized("Formats", "label"), "Formats");
        // The part of a longer text, which has no terminating zero of its own.
        EXPECT_EQ(localized(std::string_view("Formats").substr(0, 6), "label"), "Formatierung");
        EXPECT_EQ(localized("", "label"), "");
    }
    EXPECT_EQ(localized("Format", "label"), "Format");
}

}  // namespace
}  // namespace marquell::platform
