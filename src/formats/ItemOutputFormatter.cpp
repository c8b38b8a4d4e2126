// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/ItemOutputFormatter.h"

#include <array>

#include "formats/ModeTable.h"

namespace marquell::formats {
namespace {

using platform::DateStyle;

constexpr std::array<std::string_view, 5> nullTexts = {"", "Null", "n/a", "nil", "none"};

struct BoolTexts {
    std::string_view whenTrue;
    std::string_view whenFalse;
};

constexpr std::array<BoolTexts, 5> boolTexts = {{
    {"true", "false"},
    {"yes", "no"},
    {"TRUE", "FALSE"},
    {"YES", "NO"},
    {"1", "0"},
}};

/// Here, other than in the other tables, an unlisted mode is a choice of its own.
DateStyle dateStyle(int mode) {
    switch (mode) {
        case 0:
            return DateStyle::date;
        case 1:
            return DateStyle::dateAndTime;
        case 2:
            return DateStyle::dateAndTimeWithAmPm;
        default:
            return DateStyle::mediumDateShortTime;
    }
}

}  // namespace

ItemOutputFormatter::ItemOutputFormatter(const pipeline::DataModelSnapshot& snapshot, int dateMode)
    : dateFormatter_(dateStyle(dateMode)),
      nullText_(rowOfMode(nullTexts, snapshot.nullValuesMode)),
      trueText_(rowOfMode(boolTexts, snapshot.boolValuesMode).whenTrue),
      falseText_(rowOfMode(boolTexts, snapshot.boolValuesMode).whenFalse) {}

std::string ItemOutputFormatter::formatDate(const platform::Date& date) {
    std::string text;
    dateFormatter_.append(text, date);
    return text;
}

std::string ItemOutputFormatter::formatBoolValue(bool value) {
    return std::string(value ? trueText_ : falseText_);
}

}  // namespace marquell::formats
