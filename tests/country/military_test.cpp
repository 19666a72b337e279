// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/military.h"

#include <gtest/gtest.h>

#include "tests/country/rolls.h"

namespace {

constexpr float kWeek = 604800.0f;

TEST(MilitaryTest, NewOneHasTheFiguresOfTheStart) {
    const Military military;
    EXPECT_EQ(military.recruits, 1350.0f);
    EXPECT_EQ(military.warriors, 0.0f);
    EXPECT_EQ(military.averageSkill, 0.3f);
    EXPECT_EQ(military.fourthValue, 1.0f);
    EXPECT_EQ(military.payRate, 0.9f);
    EXPECT_EQ(military.patrolling, 0.4f);
    EXPECT_EQ(military.oppressing, 0.0f);
    EXPECT_FALSE(military.training);
    EXPECT_FALSE(military.recruiting);
}

TEST(MilitaryTest, CostOfZeroSecondsIsZero) {
    EXPECT_EQ(Military().Cost(0.0f), 0.0f);
}

TEST(MilitaryTest, CostOfAWeekIsOneFiftySecondOfTheYearsPay) {
    const float cost = Military().Cost(kWeek);
    EXPECT_EQ(cost, (0.4f + 1.0f) * 0.9f * 1350.0f * kWeek / 31449600.0f);
    EXPECT_NEAR(cost, 32.71f, 0.005f);
}

TEST(MilitaryTest, WarriorsCostNothing) {
    Military military;
    military.SetWarriors(5000.0f);
    EXPECT_EQ(military.warriors, 5000.0f);
    EXPECT_EQ(military.Cost(kWeek), Military().Cost(kWeek));
}

TEST(MilitaryTest, ArmyThatNeitherTrainsNorRecruitsRollsNothingAndDoesNotChange) {
    Military military;
    ExpectRolls(0, [&] { military.Process(kWeek); });
    EXPECT_EQ(military.averageSkill, 0.3f);
    EXPECT_EQ(military.recruits, 1350.0f);
}

TEST(MilitaryTest, TrainingRaisesTheSkillByThePayRate) {
    Replay replay(5);
    const auto expected = static_cast<float>(0.3f + (replay.Unit() * 0.04f + 0.01f) * 0.9f);
    Military military;
    military.training = true;
    std::srand(5);
    military.Process(kWeek);
    EXPECT_EQ(military.averageSkill, expected);
    EXPECT_EQ(military.recruits, 1350.0f);
}

TEST(MilitaryTest, RecruitingAddsTenToThirtyPercent) {
    Replay replay(5);
    const auto expected =
        static_cast<float>(1350.0f + (replay.Unit() * 200.0f + 100.0f) * 1350.0f / 1000.0f);
    Military military;
    military.recruiting = true;
    std::srand(5);
    military.Process(kWeek);
    EXPECT_EQ(military.recruits, expected);
    EXPECT_GE(military.recruits, 1350.0f * 1.1f);
    EXPECT_LE(military.recruits, 1350.0f * 1.3f);
}

TEST(MilitaryTest, TrainingAndRecruitingDoNotDependOnTheSeconds) {
    const auto trained = [](float seconds) {
        Military military;
        military.training = true;
        military.recruiting = true;
        std::srand(9);
        military.Process(seconds);
        return military;
    };
    EXPECT_EQ(trained(0.0f).averageSkill, trained(kWeek).averageSkill);
    EXPECT_EQ(trained(0.0f).recruits, trained(kWeek).recruits);
}

TEST(MilitaryTest, TrainingComesBeforeRecruiting) {
    Replay replay(11);
    const double forSkill = replay.Unit();
    const double forRecruits = replay.Unit();
    Military military;
    military.training = true;
    military.recruiting = true;
    std::srand(11);
    military.Process(kWeek);
    EXPECT_EQ(military.averageSkill, static_cast<float>(0.3f + (forSkill * 0.04f + 0.01f) * 0.9f));
    EXPECT_EQ(military.recruits,
              static_cast<float>(1350.0f + (forRecruits * 200.0f + 100.0f) * 1350.0f / 1000.0f));
}

TEST(MilitaryTest, NegativeSecondsEndTheProgram) {
    EXPECT_EXIT(Military().Cost(-1.0f), testing::ExitedWithCode(0),
                "Assert failed on military:[0-9]+ - \"seconds >= 0.0f\"");
    EXPECT_EXIT(Military().Process(-1.0f), testing::ExitedWithCode(0),
                "Assert failed on military:[0-9]+ - \"seconds >= 0.0f\"");
}

}  // namespace
