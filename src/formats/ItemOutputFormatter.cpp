// SPDX-License-Identifier: GPL-3.0-or-later
#include "formats/ItemOutputFormatter.h"

#include <array>

#include "formats/ModeTable.h"
#include "platform/ByteCount.h"

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

void ItemOutputFormatter::formatDate(std::string& text, const platform::Date& date) {
    dateFormatter_.append(text, date);
}

void ItemOutputFormatter::formatNullValue(std::string& text) { text.append(nullText_); }

void ItemOutputFormatter::formatBoolValue(std::string& text, bool value) {
    text.append(value ? trueText_ : falseText_);
}

void ItemOutputFormatter::formatNumber(std::string& text, std::int64_t number) {
    text.append(std::to_string(number));
}

void ItemOutputFormatter::formatSize(std::string& text, std::int64_t bytes) {
    text.append(platform::byteCountText(bytes));
}

}  // namespace marquell::formats
