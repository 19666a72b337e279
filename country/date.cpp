// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/date.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>

#include "country/random.h"
#include "quarn2/trace.h"

namespace {

constexpr int kLastSecond = 59;
constexpr int kLastMinute = 59;
constexpr int kLastHour = 23;
constexpr int kLastMonth = 12;
constexpr int kLastYear = std::numeric_limits<int>::max();
constexpr int kYearsOfLeapCycle = 4;
constexpr long kDaysOfLeapCycle = 4 * 365 + 1;

/// A random whole number from `lowest` to `lowest + range`.
int RollRounded(double range, double lowest) {
    const double roll = RollUnit();
    return static_cast<int>(std::lround(roll * range + lowest));
}

}  // namespace

Date::Date(const std::string& text) {
    TraceFrame frame("Date", "Date");
    if (text == "random") {
        RollFields();
        return;
    }
    // NOLINTNEXTLINE(cert-err34-c): a field that cannot be read keeps its 0
    std::sscanf(text.c_str(), "%d/%d/%d %d:%d:%d", &year, &month, &day, &hour, &minute, &second);
}

void Date::Advance(long seconds) {
    TraceFrame frame("Advance", "Date");
    // One second at a time. Nearly every step changes the seconds alone, so the loop counts them
    // in a local variable, which is faster than the member.
    int counted = second;
    for (; seconds > 0; --seconds) {
        if (counted < kLastSecond) {
            ++counted;
            continue;
        }
        counted = 0;
        CarryMinute();
    }
    second = counted;
}

void Date::CarryMinute() {  // no trace frame: it would slow the one-second step
    if (minute < kLastMinute) {
        ++minute;
        return;
    }
    minute = 0;
    if (hour < kLastHour) {
        ++hour;
        return;
    }
    hour = 0;
    CarryDay();
}

void Date::AdvanceDays(long days) {
    TraceFrame frame("AdvanceDays", "Date");
    // A whole cycle of leap years changes the year alone.
    const long cycles =
        std::min<long>(days / kDaysOfLeapCycle, (kLastYear - long{year}) / kYearsOfLeapCycle);
    year += static_cast<int>(cycles * kYearsOfLeapCycle);
    days -= cycles * kDaysOfLeapCycle;
    while (days > DaysInMonth() - day) {
        days -= DaysInMonth() - day + 1;
        day = 1;
        CarryMonth();
    }
    day += static_cast<int>(days);
}

void Date::CarryDay() {
    if (day < DaysInMonth()) {
        ++day;
        return;
    }
    day = 1;
    CarryMonth();
}

void Date::CarryMonth() {
    if (month < kLastMonth) {
        ++month;
        return;
    }
    month = 1;
    if (year < kLastYear)
        ++year;
}

int Date::DaysInMonth() const {
    switch (month) {
    case 2:
        return year % 4 == 0 ? 29 : 28;
    case 4:
    case 6:
    case 9:
    case 11:
        return 30;
    default:
        return 31;
    }
}

std::string Date::Text() const {
    TraceFrame frame("Text", "Date");
    std::array<char, 80> buffer;  // six numbers of 11 characters and five separators at most
    std::snprintf(buffer.data(), buffer.size(), "%d/%d/%d %d:%d:%d", year, month, day, hour, minute,
                  second);
    return buffer.data();
}

std::string Date::DayText() const {
    TraceFrame frame("DayText", "Date");
    std::array<char, 40> buffer;  // three numbers of 11 characters and two separators at most
    std::snprintf(buffer.data(), buffer.size(), "%d/%d/%d", year, month, day);
    return buffer.data();
}

std::string Date::TimeText() const {
    TraceFrame frame("TimeText", "Date");
    std::array<char, 40> buffer;
    std::snprintf(buffer.data(), buffer.size(), "%02d:%02d:%02d", hour, minute, second);
    return buffer.data();
}

void Date::RollFields() {
    TraceFrame frame("RollFields", "Date");
    // kept: the day can be 0 and the hour can be 24
    year = RollRounded(9999, 1);
    month = RollRounded(11, 1);
    day = RollRounded(31, 0);
    hour = RollRounded(24, 0);
    minute = RollRounded(59, 0);
    second = RollRounded(59, 0);
}
