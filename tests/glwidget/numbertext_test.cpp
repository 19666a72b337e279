// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/numbertext.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <string>

namespace {

std::string Text(double value, int decimals = 0) {
    std::array<char, kNumberTextSize> buffer;
    return std::string(NumberText(value, decimals, buffer));
}

TEST(NumberText, CommaSeparatesEveryThreeDigits) {
    EXPECT_EQ(Text(0), "0");
    EXPECT_EQ(Text(999), "999");
    EXPECT_EQ(Text(1000), "1,000");
    EXPECT_EQ(Text(123456), "123,456");
    EXPECT_EQ(Text(987654321), "987,654,321");
    EXPECT_EQ(Text(-1234), "-1,234");
    EXPECT_EQ(Text(-123), "-123");
}

TEST(NumberText, HasTheGivenNumberOfDecimals) {
    EXPECT_EQ(Text(0.556, 2), "0.56");
    EXPECT_EQ(Text(1234.5, 1), "1,234.5");
    EXPECT_EQ(Text(2.5, 0), "2");
    EXPECT_EQ(Text(7, 2), "7.00");
}

TEST(NumberText, NumberThatIsRoundedToZeroHasNoSign) {
    EXPECT_EQ(Text(-0.004, 2), "0.00");
    EXPECT_EQ(Text(-0.0, 0), "0");
    EXPECT_EQ(Text(-0.006, 2), "-0.01");
}

TEST(NumberText, NumberFromABillionOnHasItsUnitAsAWord) {
    EXPECT_EQ(Text(999999999), "999,999,999");
    EXPECT_EQ(Text(1e9), "1.0 billion");
    EXPECT_EQ(Text(-2.46e9), "-2.5 billion");
    EXPECT_EQ(Text(3e12), "3.0 trillion");
    EXPECT_EQ(Text(4e15), "4.0 quadrillion");
    EXPECT_EQ(Text(1.5e18), "1.5e+18");
}

TEST(NumberText, LongestNumbersFitTheBuffer) {
    constexpr float kHighest = std::numeric_limits<float>::max();
    EXPECT_EQ(Text(kHighest, 9), "3.4e+38");
    EXPECT_EQ(Text(-kHighest, 9), "-3.4e+38");
    EXPECT_EQ(Text(-999999999.25, 9), "-999,999,999.250000000");
    EXPECT_EQ(Text(-999.9e15, 9), "-999.9 quadrillion");
}

TEST(NumberText, WhatIsNoFiniteNumberIsAWord) {
    EXPECT_EQ(Text(std::numeric_limits<double>::infinity()), "infinite");
    EXPECT_EQ(Text(-std::numeric_limits<double>::infinity()), "-infinite");
    EXPECT_EQ(Text(std::numeric_limits<double>::quiet_NaN()), "unknown");
}

}  // namespace
