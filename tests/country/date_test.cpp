// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/date.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <limits>

#include "tests/country/rolls.h"

namespace {

/// The date's text after that many seconds.
std::string After(const std::string& text, long seconds) {
    Date date(text);
    date.Advance(seconds);
    return date.Text();
}

TEST(DateTest, ReadsTheStartOfTheGame) {
    const Date date("1358/05/16 00:00:00");
    EXPECT_EQ(date.year, 1358);
    EXPECT_EQ(date.month, 5);
    EXPECT_EQ(date.day, 16);
    EXPECT_EQ(date.hour, 0);
    EXPECT_EQ(date.minute, 0);
    EXPECT_EQ(date.second, 0);
}

TEST(DateTest, AdvancingByDaysIsAdvancingByTheirSeconds) {
    for (const std::string begin : {"1358/05/16 10:20:30", "1360/02/29 00:00:00",
                                    "1359/12/31 1:2:3", "1/01/01 00:00:00", "-5/03/01 00:00:00"}) {
        Date bySeconds(begin);
        // up to 3 cycles of leap years, every day of them
        for (long days = 0; days <= 3 * 1461 + 1; ++days) {
            Date byDays(begin);
            byDays.AdvanceDays(days);
            ASSERT_EQ(byDays, bySeconds) << begin << " and " << days << " days";
            bySeconds.Advance(86400);
        }
    }
}

TEST(DateTest, TheLastYearIsNotLeftByDays) {
    Date date("2147483646/01/01 00:00:00");
    date.AdvanceDays(365 + 30 + 365);
    EXPECT_EQ(date.DayText(), "2147483647/1/31");
}

TEST(DateTest, TextHasNoLeadingZeros) {
    EXPECT_EQ(Date("1358/05/16 00:00:00").Text(), "1358/5/16 0:0:0");
    EXPECT_EQ(Date("1358/12/06 23:09:59").Text(), "1358/12/6 23:9:59");
}

TEST(DateTest, ReadsTheTextThatItWrites) {
    const Date date("1358/5/6 7:8:9");
    EXPECT_EQ(Date(date.Text()), date);
    EXPECT_EQ(date, Date("1358/05/06 07:08:09"));
}

TEST(DateTest, FieldsThatCannotBeReadAreZero) {
    EXPECT_EQ(Date("").Text(), "0/0/0 0:0:0");
    EXPECT_EQ(Date("1358/05").Text(), "1358/5/0 0:0:0");
    EXPECT_EQ(Date("1358/05/16 noon").Text(), "1358/5/16 0:0:0");
}

TEST(DateTest, DayTextIsTheDayWithoutLeadingZeros) {
    EXPECT_EQ(Date("1358/05/06 12:34:56").DayText(), "1358/5/6");
}

TEST(DateTest, TimeTextHasLeadingZeros) {
    EXPECT_EQ(Date("1358/5/16 7:8:9").TimeText(), "07:08:09");
    EXPECT_EQ(Date("1358/5/16 17:48:39").TimeText(), "17:48:39");
}

TEST(DateTest, AdvancingByZeroSecondsChangesNothing) {
    EXPECT_EQ(After("1358/5/16 1:2:3", 0), "1358/5/16 1:2:3");
    EXPECT_EQ(After("1358/5/16 1:2:3", -5), "1358/5/16 1:2:3");
}

TEST(DateTest, FullMinutesHoursAndDaysAreCarriedOn) {
    EXPECT_EQ(After("1358/5/16 0:0:58", 1), "1358/5/16 0:0:59");
    EXPECT_EQ(After("1358/5/16 0:0:59", 1), "1358/5/16 0:1:0");
    EXPECT_EQ(After("1358/5/16 0:59:59", 1), "1358/5/16 1:0:0");
    EXPECT_EQ(After("1358/5/16 23:59:59", 1), "1358/5/17 0:0:0");
}

TEST(DateTest, FebruaryHas28DaysInAYearThatDoesNotDivideByFour) {
    EXPECT_EQ(After("1358/02/28 23:59:59", 1), "1358/3/1 0:0:0");
}

TEST(DateTest, FebruaryHas29DaysInAYearThatDividesByFour) {
    EXPECT_EQ(After("1360/02/28 23:59:59", 1), "1360/2/29 0:0:0");
    EXPECT_EQ(After("1360/02/29 23:59:59", 1), "1360/3/1 0:0:0");
    // A year such as 1400 divides by four, so it is a leap year too.
    EXPECT_EQ(After("1500/02/28 23:59:59", 1), "1500/2/29 0:0:0");
}

TEST(DateTest, EveryMonthHasItsLength) {
    const int lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int month = 1; month <= 12; ++month) {
        const std::string prefix = "1358/" + std::to_string(month) + '/';
        const int length = lengths[month - 1];
        EXPECT_EQ(After(prefix + std::to_string(length - 1) + " 23:59:59", 1),
                  prefix + std::to_string(length) + " 0:0:0");
        const std::string next =
            month == 12 ? "1359/1/1" : "1358/" + std::to_string(month + 1) + "/1";
        EXPECT_EQ(After(prefix + std::to_string(length) + " 23:59:59", 1), next + " 0:0:0");
    }
}

TEST(DateTest, YearChangesAfterDecember) {
    EXPECT_EQ(After("1358/12/31 23:59:59", 1), "1359/1/1 0:0:0");
}

TEST(DateTest, LargestYearOfAnIntIsNotExceeded) {
    const std::string last = std::to_string(std::numeric_limits<int>::max());
    EXPECT_EQ(After(last + "/12/31 23:59:59", 1), last + "/1/1 0:0:0");
}

TEST(DateTest, WeekIsSevenDays) {
    EXPECT_EQ(After("1358/05/16 00:00:00", 604800), "1358/5/23 0:0:0");
    EXPECT_EQ(After("1358/05/16 12:34:56", 604800), "1358/5/23 12:34:56");
}

TEST(DateTest, DatesOfManyYearsAgreeWithTheCalendarOfTheStandardLibrary) {
    // The two calendars have the same leap years between 1301 and 1399.
    using namespace std::chrono;
    Date date("1358/05/16 00:00:00");
    sys_days day = year(1358) / May / 16;
    for (int week = 0; week < 52 * 40; ++week) {
        date.Advance(604800);
        day += days(7);
        const year_month_day expected(day);
        ASSERT_EQ(date.year, static_cast<int>(expected.year()));
        ASSERT_EQ(date.month, static_cast<int>(static_cast<unsigned>(expected.month())));
        ASSERT_EQ(date.day, static_cast<int>(static_cast<unsigned>(expected.day())));
        ASSERT_EQ(date.TimeText(), "00:00:00");
    }
}

TEST(DateTest, ManyShortAdvancesEqualOneLongAdvance) {
    Date small("1358/12/31 22:00:00");
    Date large = small;
    for (int i = 0; i < 200; ++i)
        small.Advance(311);
    large.Advance(200L * 311);
    EXPECT_EQ(small, large);
}

TEST(DateTest, RandomDateRollsEachFieldInOrder) {
    for (unsigned seed = 1; seed < 200; ++seed) {
        Replay replay(seed);
        const auto field = [&](double range, double lowest) {
            return static_cast<int>(std::round(replay.Unit() * range + lowest));
        };
        const int year = field(9999, 1);
        const int month = field(11, 1);
        const int day = field(31, 0);
        const int hour = field(24, 0);
        const int minute = field(59, 0);
        const int second = field(59, 0);
        std::srand(seed);
        const Date date("random");
        ASSERT_EQ(date.year, year);
        ASSERT_EQ(date.month, month);
        ASSERT_EQ(date.day, day);
        ASSERT_EQ(date.hour, hour);
        ASSERT_EQ(date.minute, minute);
        ASSERT_EQ(date.second, second);
    }
    ExpectRolls(6, [] { Date("random"); });
}

TEST(DateTest, RandomDateMayHaveTheDay0AndTheHour24) {
    bool dayZero = false;
    bool hour24 = false;
    std::srand(1);
    for (int i = 0; i < 1000; ++i) {
        const Date date("random");
        dayZero = dayZero || date.day == 0;
        hour24 = hour24 || date.hour == 24;
    }
    EXPECT_TRUE(dayZero);
    EXPECT_TRUE(hour24);
}

TEST(DateTest, TextThatOnlyContainsTheWordRandomIsNotRandom) {
    ExpectRolls(0, [] {
        Date("Random");
        Date("random ");
        Date("1358/05/16 00:00:00");
    });
}

}  // namespace
