// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/date.h"

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

/// A whole number from a unit draw spread over `range`.
int DrawRounded(double range, double lowest) {
    const double draw = UnitDraw();
    return static_cast<int>(std::lround(draw * range + lowest));
}

}  // namespace

Date::Date(const std::string& text) {
    TraceFrame frame("Date", "Date");
    if (text == "random") {
        DrawRandom();
        return;
    }
    // NOLINTNEXTLINE(cert-err34-c): a field that cannot be read keeps its 0
    std::sscanf(text.c_str(), "%d/%d/%d %d:%d:%d", &year, &month, &day, &hour, &minute, &second);
}

void Date::Advance(long seconds) {
    TraceFrame frame("Advance", "Date");
    // One second at a time. Nearly every step ends at the seconds, which the loop therefore keeps
    // at hand and writes back only to carry.
    int current = second;
    for (; seconds > 0; --seconds) {
        if (current < kLastSecond) {
            ++current;
            continue;
        }
        current = 0;
        CarryMinute();
    }
    second = current;
}

void Date::CarryMinute() {  // part of the one-second step, hence without a trace frame
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
    if (day < DaysInMonth()) {
        ++day;
        return;
    }
    day = 1;
    if (month < kLastMonth) {
        ++month;
        return;
    }
    month = 1;
    if (year < std::numeric_limits<int>::max())
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

std::string Date::TimeText() const {
    TraceFrame frame("TimeText", "Date");
    std::array<char, 40> buffer;
    std::snprintf(buffer.data(), buffer.size(), "%02d:%02d:%02d", hour, minute, second);
    return buffer.data();
}

void Date::DrawRandom() {
    TraceFrame frame("DrawRandom", "Date");
    // kept: a day 0 and an hour 24 can come out and stay as drawn
    year = DrawRounded(9999, 1);
    month = DrawRounded(11, 1);
    day = DrawRounded(31, 0);
    hour = DrawRounded(24, 0);
    minute = DrawRounded(59, 0);
    second = DrawRounded(59, 0);
}
