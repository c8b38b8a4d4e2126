// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "platform/ByteCount.h"
#include "platform/DateFormatter.h"
#include "platform/Locale.h"
#include "platform/Surroundings.h"

namespace marquell::platform {
namespace {

std::string formatted(DateFormatter& formatter, std::int64_t seconds) {
    std::string text = ">";
    formatter.append(text, {seconds, 999'999'999});
    return text.substr(1);
}

std::tm localFields(std::int64_t seconds) {
    const std::time_t moment = seconds;
    std::tm fields = {};
    ::localtime_r(&moment, &fields);
    return fields;
}

/// The moments at which the clocks change, those around them, and the ends of their days.
std::vector<std::int64_t> changes() {
    constexpr std::int64_t day = 86400;
    constexpr std::int64_t week = 7 * day;
    const auto offset = [](std::int64_t moment) { return localFields(moment).tm_gmtoff; };
    std::vector<std::int64_t> moments;
    for (std::int64_t start = -110 * 52 * week; start < 90 * 52 * week; start += week) {
        if (offset(start) == offset(start + week)) continue;
        std::int64_t before = start;
        std::int64_t after = start + week;
        while (after - before > 1) {
            const std::int64_t middle = before + (after - before) / 2;
            (offset(middle) == offset(start) ? before : after) = middle;
        }
        for (const std::int64_t distance : {0, 1, 1800, 3600, 5400, 7200, 86400}) {
            moments.insert(moments.end(), {before - distance, after + distance});
        }
        const std::int64_t midnight = after - (after % day + day) % day;
        moments.insert(moments.end(), {midnight - 1, midnight, midnight + day - 1, midnight + day});
    }
    return moments;
}

class DatesOfZone : public testing::TestWithParam<const char*> {};

TEST_P(DatesOfZone, AreThoseOfTheSystem) {
    const tests::Environment zone{{"TZ", GetParam()}};
    DateFormatter date(DateStyle::date);
    DateFormatter full(DateStyle::dateAndTime);
    DateFormatter half(DateStyle::dateAndTimeWithAmPm);
    std::vector<std::int64_t> moments = changes();
    std::mt19937_64 random(1);
    std::uniform_int_distribution<std::int64_t> fourCenturies(-6'000'000'000, 6'000'000'000);
    std::uniform_int_distribution<std::int64_t> fourDigitYears(-62'135'000'000, 253'402'000'000);
    for (int i = 0; i < 5'000; ++i) moments.push_back(fourCenturies(random));
    for (int i = 0; i < 5'000; ++i) moments.push_back(fourDigitYears(random));
    std::shuffle(moments.begin(), moments.end(), random);
    for (const std::int64_t moment : moments) {
        const std::tm fields = localFields(moment);
        std::array<char, 100> text{};
        std::snprintf(text.data(), text.size(), "%04d", fields.tm_year + 1900);
        std::strftime(text.data() + 4, text.size() - 4, "-%m-%d %H:%M:%S %I:%M:%S %p", &fields);
        const std::string expected = text.data();
        ASSERT_EQ(formatted(date, moment), expected.substr(0, 10)) << moment;
        ASSERT_EQ(formatted(full, moment), expected.substr(0, 19)) << moment;
        ASSERT_EQ(formatted(half, moment), expected.substr(0, 10) + expected.substr(19)) << moment;
    }
}

INSTANTIATE_TEST_SUITE_P(Zones, DatesOfZone,
                         testing::Values("UTC", "Europe/Berlin", "America/St_Johns",
                                         "Australia/Lord_Howe", "Pacific/Apia", "Africa/Monrovia",
                                         "Asia/Kathmandu", "Africa/Casablanca",
                                         "XXX-23:59:58YYY-24,M3.5.0/-20,M10.5.0/30"));

TEST(DateFormatter, GoesOnBeforeAndAfterFourDigitYears) {
    const tests::Environment zone{{"TZ", "UTC"}};
    DateFormatter formatter(DateStyle::dateAndTime);
    for (const auto& [seconds, text] :
         {std::pair<std::int64_t, const char*>{-62'135'596'801, "0000-12-31 23:59:59"},
          {-62'167'219'201, "-0001-12-31 23:59:59"},
          {253'402'300'800, "10000-01-01 00:00:00"},
          {0, "1970-01-01 00:00:00"},
          {-1, "1969-12-31 23:59:59"},
          {67'768'036'191'676'799, "2147485547-12-31 23:59:59"}}) {
        EXPECT_EQ(formatted(formatter, seconds), text);
    }
    DateFormatter medium(DateStyle::mediumDateShortTime);
    for (const std::int64_t seconds : {INT64_MAX, INT64_MIN}) {
        EXPECT_NE(formatted(formatter, seconds), "");
        EXPECT_NE(formatted(medium, seconds), "");
    }
}

TEST(Locale, IsTheFirstOfTheThreeVariablesThatIsSet) {
    struct Row {
        const char* all;
        const char* category;
        const char* language;
        const char* date;
        const char* separator;
    };
    for (const Row& row : {Row{"", "", "", "Mar 9, 2024, 2:05 PM", "."},
                           Row{"", "", "de_DE.UTF-8", "09.03.2024, 14:05", ","},
                           Row{"", "en_GB.UTF-8", "de_DE.UTF-8", "9 Mar 2024, 14:05", "."},
                           Row{"fr_CH.UTF-8", "en_GB", "de_DE", "9 mars 2024, 14:05", ","},
                           Row{"C.UTF-8", "de_DE", "de_DE", "Mar 9, 2024, 2:05 PM", "."},
                           Row{"POSIX", "de_DE", "", "Mar 9, 2024, 2:05 PM", "."},
                           Row{"de_AT@euro", "", "", "09.03.2024, 14:05", ","},
                           Row{"th_TH.UTF-8", "", "", "9 มี.ค. 2567 14:05", "."},
                           Row{"ar_EG.UTF-8", "", "", "٠٩\u200F/٠٣\u200F/٢٠٢٤، ٢:٠٥ م", "٫"}}) {
        const tests::Environment locale{{"TZ", "Asia/Tokyo"},
                                        {"LC_ALL", row.all},
                                        {"LC_TIME", row.category},
                                        {"LC_NUMERIC", row.category},
                                        {"LANG", row.language}};
        DateFormatter formatter(DateStyle::mediumDateShortTime);
        EXPECT_EQ(formatted(formatter, 1'709'960'707), row.date);
        EXPECT_EQ(decimalSeparator(), row.separator);
        DateFormatter fixed(DateStyle::dateAndTimeWithAmPm);
        EXPECT_EQ(formatted(fixed, 1'709'960'707), "2024-03-09 02:05:07 PM");
    }
}

TEST(ByteCount, RoundsHalvesToEvenAndMovesToTheNextUnit) {
    using Row = std::pair<std::int64_t, const char*>;
    for (const auto& [bytes, text] :
         {Row{0, "Zero KB"}, Row{1, "1 byte"}, Row{999, "999 bytes"}, Row{1500, "2 KB"},
          Row{2500, "2 KB"}, Row{2501, "3 KB"}, Row{3500, "4 KB"}, Row{999'499, "999 KB"},
          Row{999'500, "1 MB"}, Row{1'050'000, "1 MB"}, Row{1'050'001, "1,1 MB"},
          Row{1'150'000, "1,2 MB"}, Row{999'949'999, "999,9 MB"}, Row{999'950'000, "1 GB"},
          Row{1'015'000'000, "1,02 GB"}, Row{1'100'000'000, "1,1 GB"}, Row{999'995'000'000, "1 TB"},
          Row{123'456'789'012'345'678, "123,46 PB"}, Row{INT64_MAX, "9,22 EB"}}) {
        EXPECT_EQ(byteCountText(bytes, ","), text) << bytes;
    }
}

}  // namespace
}  // namespace marquell::platform
