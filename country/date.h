// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

/// A date and time of day of the game. In its calendar every year that divides by 4 is a leap
/// year.
class Date {
public:
    int year = 0;
    int month = 0;  ///< from 1
    int day = 0;    ///< from 1
    int hour = 0;
    int minute = 0;
    int second = 0;

    /// @param text  "1358/05/16 00:00:00", leading zeros optional; fields that cannot be read
    ///              stay 0. The word "random" gives a random date instead, whose day may be 0 and
    ///              whose hour may be 24.
    explicit Date(const std::string& text);

    /// Adds one second `seconds` times, carrying after each.
    void Advance(long seconds);

    /// The same as advancing by the seconds of so many days, from 0, but fast. The day must be one
    /// of the month.
    void AdvanceDays(long days);

    /// Without leading zeros: "1358/5/16 0:0:0".
    std::string Text() const;

    /// The day alone, without leading zeros: "1358/5/16".
    std::string DayText() const;

    /// The time of day alone, with leading zeros: "09:05:00".
    std::string TimeText() const;

    bool operator==(const Date&) const = default;

private:
    void RollFields();
    void CarryMinute();
    void CarryDay();
    void CarryMonth();
    int DaysInMonth() const;
};
