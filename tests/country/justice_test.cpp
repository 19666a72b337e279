// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/justice.h"

#include <gtest/gtest.h>

#include "tests/country/rolls.h"

namespace {

constexpr float kWeek = 604800.0f;

Justice Levels(float crime, float level) {
    Justice justice;
    justice.crimeLevel = crime;
    justice.justiceLevel = level;
    return justice;
}

/// The crime level after a tick, computed from the seed's first roll.
float Drifted(float crime, float spread, float lowest, float seconds, unsigned seed) {
    Replay replay(seed);
    return static_cast<float>(crime + (replay.Unit() * spread + lowest) * seconds / kWeek);
}

TEST(JusticeTest, StartsWithMoreCrimeThanJustice) {
    const Justice justice;
    EXPECT_EQ(justice.crimeLevel, 0.6f);
    EXPECT_EQ(justice.justiceLevel, 0.4f);
}

TEST(JusticeTest, CrimeCloseToJusticeFallsSlowly) {
    for (unsigned seed = 1; seed < 100; ++seed) {
        for (const float crime : {0.45f, 0.4f, 0.36f}) {
            const float expected = Drifted(crime, 0.0039999997f, -0.005f, kWeek, seed);
            Justice justice = Levels(crime, 0.4f);
            std::srand(seed);
            justice.Process(kWeek);
            EXPECT_EQ(justice.crimeLevel, expected);
            EXPECT_LE(justice.crimeLevel, crime - 0.00099f);
            EXPECT_GE(justice.crimeLevel, crime - 0.00501f);
        }
    }
}

TEST(JusticeTest, CrimeAtAMiddleDistanceFromJusticeDoesNotChange) {
    for (const float crime : {0.48f, 0.32f}) {
        Justice justice = Levels(crime, 0.4f);
        ExpectRolls(0, [&] { justice.Process(kWeek); });
        EXPECT_EQ(justice.crimeLevel, crime);
    }
}

TEST(JusticeTest, CrimeFarAboveJusticeTendsToRise) {
    for (unsigned seed = 1; seed < 100; ++seed) {
        const float expected = Drifted(0.6f, 0.023f, -0.01f, kWeek, seed);
        Justice justice;
        std::srand(seed);
        justice.Process(kWeek);
        EXPECT_EQ(justice.crimeLevel, expected);
        EXPECT_GE(justice.crimeLevel, 0.59f);
        EXPECT_LE(justice.crimeLevel, 0.613f);
    }
}

TEST(JusticeTest, CrimeFarBelowJusticeTendsToFall) {
    for (unsigned seed = 1; seed < 100; ++seed) {
        const float expected = Drifted(0.2f, 0.023f, -0.013f, kWeek, seed);
        Justice justice = Levels(0.2f, 0.4f);
        std::srand(seed);
        justice.Process(kWeek);
        EXPECT_EQ(justice.crimeLevel, expected);
        EXPECT_GE(justice.crimeLevel, 0.187f);
        EXPECT_LE(justice.crimeLevel, 0.21f);
    }
}

TEST(JusticeTest, ChangeIsProportionalToTheSeconds) {
    const float expected = Drifted(0.6f, 0.023f, -0.01f, 300.0f, 7);
    Justice justice;
    std::srand(7);
    justice.Process(300.0f);
    EXPECT_EQ(justice.crimeLevel, expected);
    EXPECT_NEAR(justice.crimeLevel, 0.6f, 1e-5f);
}

TEST(JusticeTest, CrimeStaysBetweenZeroAndOne) {
    std::srand(1);
    Justice rising = Levels(0.999f, 0.0f);
    Justice falling = Levels(0.001f, 1.0f);
    bool reachedOne = false;
    bool reachedZero = false;
    for (int week = 0; week < 1000; ++week) {
        rising.Process(kWeek);
        falling.Process(kWeek);
        ASSERT_LE(rising.crimeLevel, 1.0f);
        ASSERT_GE(falling.crimeLevel, 0.0f);
        reachedOne = reachedOne || rising.crimeLevel == 1.0f;
        reachedZero = reachedZero || falling.crimeLevel == 0.0f;
    }
    EXPECT_TRUE(reachedOne);
    EXPECT_TRUE(reachedZero);
}

TEST(JusticeTest, ChangeOfCrimeTakesOneRoll) {
    for (const float crime : {0.4f, 0.6f, 0.2f})
        ExpectRolls(1, [=] { Levels(crime, 0.4f).Process(kWeek); });
}

TEST(JusticeTest, NegativeSecondsEndTheProgram) {
    EXPECT_EXIT(Justice().Process(-1.0f), testing::ExitedWithCode(0),
                "Assert failed on justice:[0-9]+ - \"seconds >= 0.0f\"");
}

}  // namespace
