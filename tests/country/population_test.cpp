// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/population.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <sstream>
#include <streambuf>

#include "tests/country/rolls.h"

namespace {

constexpr float kWeek = 604800.0f;
constexpr float kLongAfterGrace = 40000000.0f;

/// A population with a middle distance between crime and justice, so that justice changes nothing
/// and does not roll. Its messages are collected.
class PopulationTest : public testing::Test {
protected:
    PopulationTest() {
        people.SetMessageStream(&said);
        people.justice.justiceLevel = people.justice.crimeLevel - 0.07f;
    }

    void EndGrace() { people.elapsed = kLongAfterGrace; }
    void StartRebellion() { people.rebellion = true; }

    /// Runs a tick with the rolls of `seed`.
    void Tick(float seconds, unsigned seed = 1) {
        std::srand(seed);
        people.Process(seconds);
    }

    float Share(Profession profession) const { return people.Share(profession); }

    Population people{38685};
    std::ostringstream said;
};

TEST_F(PopulationTest, NewOneHasTheFiguresOfTheStart) {
    const Population fresh(38685);
    EXPECT_EQ(fresh.population, 38685.0f);
    EXPECT_EQ(fresh.justice.crimeLevel, 0.6f);
    EXPECT_EQ(fresh.justice.justiceLevel, 0.4f);
    EXPECT_EQ(fresh.education.firstValue, 0.0f);
    EXPECT_EQ(fresh.education.secondValue, 0.0f);
    EXPECT_EQ(fresh.education.educators, 0.0f);
    EXPECT_EQ(fresh.morale, 0.5f);
    EXPECT_EQ(fresh.opinion, 0.5f);
    EXPECT_EQ(fresh.famineChance, 0.0f);
    EXPECT_EQ(fresh.famineTime, 0.0f);
    EXPECT_EQ(fresh.plagueTime, 0.0f);
    EXPECT_FALSE(fresh.rebellion);
    EXPECT_FALSE(fresh.revolt);
    EXPECT_EQ(fresh.elapsed, 0.0f);
    EXPECT_EQ(fresh.Share(Profession::Farmers), 0.25f);
    EXPECT_EQ(fresh.Share(Profession::Butchers), 0.5f);
    EXPECT_EQ(fresh.Share(Profession::Educators), 0.0f);
    EXPECT_EQ(fresh.Share(Profession::Warriors), 0.0f);
    EXPECT_EQ(fresh.Share(Profession::Doctors), 0.0f);
}

TEST_F(PopulationTest, CountsFollowTheShares) {
    EXPECT_EQ(people.Count(Profession::Farmers), 0.25f * 38685.0f);
    EXPECT_EQ(people.Count(Profession::Doctors), 0.0f);
    EXPECT_EQ(people.IdleCount(), 0.25f * 38685.0f);
}

TEST_F(PopulationTest, IdleCountIsNegativeWhileTheSharesExceedOne) {
    people.SetShare(Profession::Farmers, 0.75f);
    EXPECT_EQ(people.IdleCount(), -0.25f * 38685.0f);
}

// Normalise

TEST_F(PopulationTest, SharesAboveOneLowerTheOtherFourAndTheSumMayStayAboveOne) {
    people.SetShare(Profession::Farmers, 0.8f);
    people.Normalise(Profession::Farmers);
    EXPECT_EQ(Share(Profession::Farmers), 0.8f);
    EXPECT_NEAR(Share(Profession::Butchers), 0.425f, 1e-6f);
    EXPECT_EQ(Share(Profession::Educators), 0.0f);
    EXPECT_EQ(Share(Profession::Warriors), 0.0f);
    EXPECT_EQ(Share(Profession::Doctors), 0.0f);
    EXPECT_NEAR(people.IdleCount(), -0.225f * 38685.0f, 0.1f);
}

TEST_F(PopulationTest, EachOtherShareLosesAQuarterOfTheExcess) {
    for (const Profession profession : kProfessions)
        people.SetShare(profession, 0.2f);
    people.SetShare(Profession::Educators, 0.6f);
    people.Normalise(Profession::Educators);
    for (const Profession profession : kProfessions)
        EXPECT_NEAR(Share(profession), profession == Profession::Educators ? 0.6f : 0.1f, 1e-6f);
}

TEST_F(PopulationTest, SharesWithASumOfOneDoNotChange) {
    people.SetShare(Profession::Doctors, 0.25f);
    people.Normalise(Profession::Doctors);
    EXPECT_EQ(Share(Profession::Farmers), 0.25f);
    EXPECT_EQ(Share(Profession::Butchers), 0.5f);
    EXPECT_EQ(Share(Profession::Doctors), 0.25f);
}

TEST_F(PopulationTest, NormaliseSetsWorkersEducatorsAndWarriors) {
    people.SetShare(Profession::Educators, 0.1f);
    people.SetShare(Profession::Warriors, 0.05f);
    people.Normalise(Profession::Warriors);
    EXPECT_EQ(people.education.educators, 0.1f * 38685.0f);
    EXPECT_EQ(people.military.warriors, 0.05f * 38685.0f);
    Grain grain;
    grain.SetWorkers(0.25f * 38685.0f);
    EXPECT_EQ(people.grain.production, grain.production);
    Livestock livestock;
    livestock.SetWorkers(0.5f * 38685.0f);
    EXPECT_EQ(people.livestock.production, livestock.production);
}

TEST_F(PopulationTest, NothingIsProducedBeforeTheFirstNormalise) {
    EXPECT_EQ(people.grain.production, 0.0f);
    EXPECT_EQ(people.livestock.production, 0.0f);
}

TEST_F(PopulationTest, RationChangesProductionOnlyAtTheNextNormalise) {
    people.Normalise(Profession::Farmers);
    const float before = people.grain.production;
    people.grain.ration = 0.1f;
    Tick(300.0f);
    EXPECT_EQ(people.grain.production, before);
    people.Normalise(Profession::Farmers);
    EXPECT_GT(people.grain.production, 1.9f * before);
}

TEST_F(PopulationTest, NormaliseWithoutPeopleGivesNoProductionAndNoError) {
    Population nobody(0);
    nobody.SetShare(Profession::Farmers, 1.0f);
    nobody.Normalise(Profession::Farmers);
    EXPECT_EQ(nobody.Share(Profession::Farmers), 1.0f);
    EXPECT_EQ(nobody.Share(Profession::Butchers), 0.5f);
    EXPECT_EQ(nobody.grain.production, 0.0f);
}

TEST_F(PopulationTest, NormaliseRollsNothing) {
    people.SetShare(Profession::Farmers, 0.8f);
    ExpectRolls(0, [&] { people.Normalise(Profession::Farmers); });
}

// Food states

TEST_F(PopulationTest, BaseRationsAndFullStocksGiveNoMessageAndLeaveTheMorale) {
    people.morale = 0.5f;
    ExpectRolls(2, [&] { people.Process(kWeek); });  // one for a famine, one for a plague
    EXPECT_EQ(said.str(), "");
    EXPECT_EQ(people.morale, 0.5f);
    EXPECT_EQ(people.opinion, 0.5f);
}

TEST_F(PopulationTest, EmptyGranaryStarvesThePeopleFast) {
    EndGrace();
    people.grain.amount = 0.0f;
    Replay replay(3);
    const float expected = 0.5f - replay.Step() * 5.0f * 300.0f / kWeek;
    Tick(300.0f, 3);
    EXPECT_EQ(said.str(), "the people are starving fast!\n");
    EXPECT_EQ(people.famineChance, 1.0f);
    EXPECT_EQ(people.morale, expected);
    EXPECT_EQ(people.opinion, 0.5f);
}

TEST_F(PopulationTest, EmptyHerdStarvesThePeopleFast) {
    EndGrace();
    people.livestock.amount = 0.0f;
    Tick(300.0f);
    EXPECT_EQ(said.str(), "the people are starving fast!\n");
    EXPECT_EQ(people.famineChance, 1.0f);
}

TEST_F(PopulationTest, StarvingFastRollsForAFamineChanceThatIsThenSetToOne) {
    people.grain.amount = 0.0f;
    ExpectRolls(4, [&] { people.Process(300.0f); });
}

TEST_F(PopulationTest, FamineChanceStaysZeroDuringTheFirst48Weeks) {
    people.grain.amount = 0.0f;
    Tick(300.0f);
    EXPECT_EQ(said.str(), "the people are starving fast!\n");
    EXPECT_EQ(people.famineChance, 0.0f);
}

TEST_F(PopulationTest, HalfTheBaseRationStarvesThePeopleSlowly) {
    EndGrace();
    people.grain.ration = 0.1f;
    Replay replay(4);
    const float morale = 0.5f - 2.0f * replay.Step() * 300.0f / kWeek;
    const float chance = 2.0f * replay.Step() * 2.5f * 300.0f / kWeek;
    Tick(300.0f, 4);
    EXPECT_EQ(said.str(), "the people are starving slowly!\n");
    EXPECT_EQ(people.morale, morale);
    EXPECT_EQ(people.famineChance, chance);
}

TEST_F(PopulationTest, HungerFactorsMultiplyToSixteenIfBothRationsAreZero) {
    EndGrace();
    people.grain.ration = 0.0f;
    people.livestock.ration = 0.0f;
    Replay replay(4);
    replay.Step();
    const float chance = 2.0f * replay.Step() * 16.0f * 300.0f / kWeek;
    Tick(300.0f, 4);
    EXPECT_EQ(people.famineChance, chance);
}

TEST_F(PopulationTest, ThreeQuartersOfTheBaseRationMakeThePeopleHungry) {
    EndGrace();
    people.livestock.ration = people.livestock.hungryRation;
    Replay replay(5);
    const float hunger = 4.0f - 3.0f * people.livestock.ration / people.livestock.baseRation;
    const float morale = 0.5f - replay.Step() * hunger * 300.0f / kWeek;
    const float chance = replay.Step() * 300.0f / kWeek;
    Tick(300.0f, 5);
    EXPECT_EQ(said.str(), "the people are hungry!\n");
    EXPECT_EQ(people.morale, morale);
    EXPECT_EQ(people.famineChance, chance);
    EXPECT_NEAR(hunger, 1.75f, 1e-6f);
}

TEST_F(PopulationTest, DoubleRationsLetThePeopleGorgeThemselves) {
    EndGrace();
    people.grain.ration = 0.4f;
    people.famineChance = 0.5f;
    Replay replay(6);
    const float morale = 0.5f + 2.0f * replay.Step() * 300.0f / kWeek;
    const float chance = 0.5f - 2.0f * replay.Step() * 300.0f / kWeek;
    Tick(300.0f, 6);
    EXPECT_EQ(said.str(), "the people are gorging themselves!\n");
    EXPECT_EQ(people.morale, morale);
    EXPECT_EQ(people.famineChance, chance);
    EXPECT_EQ(people.opinion, 0.5f);
}

TEST_F(PopulationTest, FourThirdsOfTheBaseRationFeedThePeopleWell) {
    EndGrace();
    people.livestock.ration = people.livestock.wellFedRation;
    people.famineChance = 0.5f;
    Replay replay(7);
    const float morale = 0.5f + replay.Step() * 300.0f / kWeek;
    const float opinion = 0.5f + replay.Step() * 300.0f / kWeek;
    const float chance = 0.5f - replay.Step() * 300.0f / kWeek;
    Tick(300.0f, 7);
    EXPECT_EQ(said.str(), "the people are well fed!\n");
    EXPECT_EQ(people.morale, morale);
    EXPECT_EQ(people.opinion, opinion);
    EXPECT_EQ(people.famineChance, chance);
}

TEST_F(PopulationTest, FamineChanceMayFallBelowZero) {
    EndGrace();
    people.grain.ration = 0.4f;
    Tick(300.0f);
    EXPECT_LT(people.famineChance, 0.0f);
}

TEST_F(PopulationTest, WorstStateThatFitsIsUsed) {
    // A large ration of one stock does not help if the other is too small.
    people.livestock.ration = 0.2f;
    people.grain.ration = 0.15f;
    Tick(300.0f);
    people.grain.ration = 0.1f;
    Tick(300.0f);
    people.grain.amount = 0.0f;
    Tick(300.0f);
    EXPECT_EQ(said.str(),
              "the people are hungry!\n"
              "the people are starving slowly!\n"
              "the people are starving fast!\n");
}

TEST_F(PopulationTest, RationOfOneFoodIsEnoughToChangeWhatThePeopleSay) {
    const auto messageFor = [](float livestockPart, float grainPart) {
        Population other(38685);
        std::ostringstream message;
        other.SetMessageStream(&message);
        other.livestock.ration = livestockPart * other.livestock.baseRation;
        other.grain.ration = grainPart * other.grain.baseRation;
        other.Process(300.0f);
        return message.str();
    };
    EXPECT_EQ(messageFor(0.5f, 1.0f), "the people are starving slowly!\n");
    EXPECT_EQ(messageFor(1.0f, 0.5f), "the people are starving slowly!\n");
    EXPECT_EQ(messageFor(0.7f, 1.0f), "the people are hungry!\n");
    EXPECT_EQ(messageFor(1.0f, 0.7f), "the people are hungry!\n");
    EXPECT_EQ(messageFor(2.0f, 1.0f), "the people are gorging themselves!\n");
    EXPECT_EQ(messageFor(1.0f, 2.0f), "the people are gorging themselves!\n");
    EXPECT_EQ(messageFor(1.5f, 1.0f), "the people are well fed!\n");
    EXPECT_EQ(messageFor(1.0f, 1.5f), "the people are well fed!\n");
    EXPECT_EQ(messageFor(1.0f, 1.0f), "");
    EXPECT_EQ(messageFor(0.8f, 1.3f), "");
}

TEST_F(PopulationTest, StateIsReportedEveryTick) {
    people.grain.ration = 0.1f;
    Tick(300.0f);
    Tick(300.0f);
    EXPECT_EQ(said.str(),
              "the people are starving slowly!\n"
              "the people are starving slowly!\n");
}

TEST_F(PopulationTest, StockBelowZeroIsNotEmpty) {
    people.grain.amount = -700.0f;
    Tick(300.0f);
    EXPECT_EQ(said.str(), "");
}

// Messages

TEST_F(PopulationTest, MessagesGoToTheStandardOutputByDefault) {
    Population fresh(38685);
    fresh.grain.ration = 0.1f;
    testing::internal::CaptureStdout();
    fresh.Process(300.0f);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "the people are starving slowly!\n");
}

TEST_F(PopulationTest, MessagesCanBeDropped) {
    people.SetMessageStream(nullptr);
    people.grain.ration = 0.1f;
    testing::internal::CaptureStdout();
    Tick(300.0f);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(said.str(), "");
}

TEST_F(PopulationTest, EachMessageIsFlushed) {
    class CountingBuffer : public std::stringbuf {
    public:
        int flushes = 0;

    protected:
        int sync() override {
            ++flushes;
            return 0;
        }
    };
    CountingBuffer buffer;
    std::ostream stream(&buffer);
    people.SetMessageStream(&stream);
    people.grain.ration = 0.1f;
    people.justice.crimeLevel = 0.0f;
    Tick(300.0f);
    EXPECT_EQ(buffer.flushes, 2);
}

// Rebellion, morale and opinion

TEST_F(PopulationTest, RebellionBeginsIfTheRollIsMoreThanTenTimesTheMorale) {
    EndGrace();
    for (unsigned seed = 1; seed < 100; ++seed) {
        people.rebellion = false;
        people.morale = 0.05f;
        const double roll = Replay(seed).Unit();
        Tick(300.0f, seed);
        EXPECT_EQ(people.rebellion, roll > 0.5) << roll;
    }
}

TEST_F(PopulationTest, MoraleOfOneTenthNeedsNoRandomNumberForARebellion) {
    EndGrace();
    people.morale = 0.1f;
    ExpectRolls(2, [&] { people.Process(300.0f); });
    EXPECT_FALSE(people.rebellion);
}

TEST_F(PopulationTest, LowMoraleRollsForARebellionEvenDuringTheFirst48Weeks) {
    people.morale = 0.0f;
    ExpectRolls(3, [&] { people.Process(300.0f); });
    EXPECT_FALSE(people.rebellion);
}

TEST_F(PopulationTest, RebellionNeverEnds) {
    EndGrace();
    StartRebellion();
    people.morale = 1.0f;
    for (int week = 0; week < 100; ++week)
        people.Process(kWeek);
    EXPECT_TRUE(people.rebellion);
    EXPECT_FALSE(people.revolt);
}

TEST_F(PopulationTest, RebellionStopsFoodProductionAndTheChangeOfCrime) {
    people.Normalise(Profession::Farmers);
    StartRebellion();
    people.justice.justiceLevel = 0.1f;
    people.livestock.amount = 20000000.0f;  // above the capacity, so production would lower it
    const float grainBefore = people.grain.amount;
    const float eaten = 0.2f * (38685.0f + 0.0075f * people.IdleCount() * 1.0f);
    Tick(kWeek);
    EXPECT_EQ(people.justice.crimeLevel, 0.6f);
    EXPECT_NEAR(people.grain.amount, grainBefore - eaten, 0.1f);
    EXPECT_GT(people.livestock.amount, 10000000.0f);
}

TEST_F(PopulationTest, MoraleAndOpinionBelowZeroAreRaisedToZero) {
    people.morale = -0.5f;
    people.opinion = -0.5f;
    Tick(300.0f);
    EXPECT_EQ(people.morale, 0.0f);
    EXPECT_EQ(people.opinion, 0.0f);
}

TEST_F(PopulationTest, MoraleAndOpinionHaveNoUpperBound) {
    people.morale = 3.0f;
    people.opinion = 4.0f;
    Tick(300.0f);
    EXPECT_EQ(people.morale, 3.0f);
    EXPECT_EQ(people.opinion, 4.0f);
}

TEST_F(PopulationTest, CrimeFarFromJusticeLowersMorale) {
    people.justice.justiceLevel = 0.1f;
    Replay replay(8);
    replay.Raw();  // may start a famine
    replay.Raw();  // may start a plague
    const float expected = 0.5f - replay.Step() * kWeek / kWeek;
    Tick(kWeek, 8);
    EXPECT_EQ(people.morale, expected);
}

TEST_F(PopulationTest, CrimeCloseToJusticeRaisesMorale) {
    people.justice.justiceLevel = 0.6f;
    Replay replay(8);
    replay.Raw();  // may start a famine
    replay.Raw();  // may start a plague
    replay.Raw();  // the drift of crime
    const auto expected =
        static_cast<float>(0.5f + (replay.Unit() * 0.003f + 0.001f) * 300.0f / kWeek);
    Tick(300.0f, 8);
    EXPECT_EQ(people.morale, expected);
}

TEST_F(PopulationTest, MoraleDoesNotRiseInARebellionWhenJusticeFitsCrime) {
    people.justice.justiceLevel = 0.6f;
    StartRebellion();
    ExpectRolls(2, [&] { people.Process(300.0f); });
    EXPECT_EQ(people.morale, 0.5f);
}

TEST_F(PopulationTest, CrimeOfZeroIsCelebratedInEveryTick) {
    people.justice.crimeLevel = 0.0f;
    people.justice.justiceLevel = 0.07f;
    Tick(300.0f);
    Tick(300.0f);
    EXPECT_EQ(said.str(),
              "CEEEEELEEEBRAAAATE GOOD TIMES _COME ON_\n"
              "CEEEEELEEEBRAAAATE GOOD TIMES _COME ON_\n");
}

// The first 48 weeks

TEST_F(PopulationTest, NoDisasterBeginsDuringTheFirst48Weeks) {
    for (unsigned seed = 1; seed < 300; ++seed) {
        Population spared(38685);
        spared.SetMessageStream(nullptr);
        spared.grain.amount = 0.0f;
        spared.grain.ration = 0.0f;
        spared.livestock.amount = 0.0f;
        spared.justice.crimeLevel = 1.0f;
        std::srand(seed);
        for (int week = 0; week < 48; ++week) {
            spared.morale = 0.0f;
            spared.famineChance = 1.0f;
            spared.Process(kWeek);
            ASSERT_EQ(spared.famineTime, 0.0f);
            ASSERT_EQ(spared.plagueTime, 0.0f);
            ASSERT_FALSE(spared.rebellion);
            // At exactly 48 weeks the chance is no longer set to 0, but nothing begins yet.
            ASSERT_EQ(spared.famineChance, week < 47 ? 0.0f : 1.0f);
        }
    }
}

// Famine

TEST_F(PopulationTest, FamineChanceOfOneAlwaysStartsAFamineInAWeekAfterTheFirst48) {
    for (unsigned seed = 1; seed < 300; ++seed) {
        Population struck(38685);
        struck.SetMessageStream(nullptr);
        struck.elapsed = kLongAfterGrace;
        struck.justice.justiceLevel = struck.justice.crimeLevel - 0.07f;
        struck.famineChance = 1.0f;
        Replay replay(seed);
        replay.Raw();
        const auto expected = static_cast<float>((replay.Unit() * 8.0 + 18.0) * kWeek);
        std::srand(seed);
        struck.Process(kWeek);
        ASSERT_EQ(struck.famineTime, expected);
        ASSERT_GE(struck.famineTime, 18.0f * kWeek);
        ASSERT_LE(struck.famineTime, 26.0f * kWeek);
    }
}

TEST_F(PopulationTest, FamineStartsInAShortTickOnlyIfItsChanceIsNearlyOne) {
    EndGrace();
    for (unsigned seed = 1; seed < 300; ++seed) {
        people.famineChance = 0.9994f;  // 300 seconds are less than 0.0005 weeks
        Tick(300.0f, seed);
        ASSERT_EQ(people.famineTime, 0.0f);
    }
    people.famineChance = 1.0f;
    Tick(300.0f);
    EXPECT_GT(people.famineTime, 0.0f);
}

TEST_F(PopulationTest, FamineKillsPeopleAndEnds) {
    EndGrace();
    people.SetShare(Profession::Doctors, 0.25f);  // nobody idle
    people.famineTime = 2.0f * kWeek;
    people.famineChance = 0.5f;
    Replay replay(9);
    const auto expected =
        static_cast<float>(38685.0f - (replay.Unit() * 200.0 + 1000.0) * kWeek / kWeek);
    Tick(kWeek, 9);
    EXPECT_EQ(people.famineTime, kWeek);
    EXPECT_EQ(people.famineChance, 0.0f);
    EXPECT_EQ(people.population, expected);
    people.famineTime = 100.0f;
    Tick(kWeek, 9);
    EXPECT_EQ(people.famineTime, 0.0f);
}

TEST_F(PopulationTest, FamineThatHasEndedDoesNotReturnByItself) {
    people.famineTime = -5.0f;
    ExpectRolls(2, [&] { people.Process(300.0f); });
    EXPECT_EQ(people.famineTime, 0.0f);
}

TEST_F(PopulationTest, FamineMakesThePeopleEatHalfAsMuchAgain) {
    people.SetShare(Profession::Doctors, 0.25f);  // nobody idle
    people.famineTime = 3.0f * kWeek;
    Tick(300.0f);
    const float eaters = people.population * 300.0f / kWeek * 1.5f;
    EXPECT_EQ(people.grain.amount, 24000.0f - 0.2f * eaters);
    EXPECT_EQ(people.livestock.amount, 15000.0f - 0.1f * eaters);
}

TEST_F(PopulationTest, FamineThatStartsDuringAnotherReplacesItsLength) {
    EndGrace();
    // In a tick of two weeks a famine can begin even if its chance is 0.
    const unsigned seed = SeedWhere([](Replay& replay) {
        replay.Raw();
        return replay.Unit() > 0.6;
    });
    people.famineTime = 20.0f * kWeek;
    Tick(2.0f * kWeek, seed);
    Replay replay(seed);
    replay.Raw();
    replay.Raw();
    EXPECT_EQ(people.famineTime, static_cast<float>((replay.Unit() * 8.0 + 18.0) * kWeek));
}

// Plague

TEST_F(PopulationTest, PlagueBeginsInAWeekIfTheRollIsMoreThan99Hundredths) {
    int begun = 0;
    for (unsigned seed = 1; seed <= 2000; ++seed) {
        Population struck(38685);
        struck.elapsed = kLongAfterGrace;
        struck.justice.justiceLevel = struck.justice.crimeLevel - 0.07f;
        Replay replay(seed);
        replay.Raw();
        const double roll = replay.Unit();
        const double length = replay.Unit();
        std::srand(seed);
        struck.Process(kWeek);
        const float expected =
            roll > 0.99f ? static_cast<float>((length * 4.0 + 8.0) * kWeek) : 0.0f;
        ASSERT_EQ(struck.plagueTime, expected);
        begun += expected > 0.0f ? 1 : 0;
    }
    EXPECT_GT(begun, 5);
    EXPECT_LT(begun, 50);
}

TEST_F(PopulationTest, PlagueNeverBeginsInAShortTick) {
    EndGrace();
    std::srand(1);
    for (int tick = 0; tick < 20000; ++tick) {
        people.Process(359.0f);
        ASSERT_EQ(people.plagueTime, 0.0f);
    }
}

TEST_F(PopulationTest, PlagueEndsAtFullSpeedIfAFifthOfThePeopleAreDoctors) {
    people.SetShare(Profession::Doctors, 0.2f);
    people.plagueTime = 10000.0f;
    Tick(300.0f);
    EXPECT_NEAR(people.plagueTime, 9700.0f, 0.01f);
    people.SetShare(Profession::Doctors, 0.1f);
    Tick(300.0f);
    EXPECT_NEAR(people.plagueTime, 9550.0f, 0.01f);
    people.SetShare(Profession::Doctors, 0.9f);
    Tick(300.0f);
    EXPECT_NEAR(people.plagueTime, 9250.0f, 0.01f);
}

TEST_F(PopulationTest, PlagueWithoutDoctorsDoesNotEnd) {
    people.plagueTime = 10000.0f;
    Tick(300.0f);
    EXPECT_EQ(people.plagueTime, 10000.0f);
}

TEST_F(PopulationTest, PlagueKillsNobodyIfHalfOfThePeopleAreDoctors) {
    people.SetShare(Profession::Butchers, 0.75f);  // nobody idle
    people.plagueTime = 10.0f * kWeek;
    Replay replay(10);
    const auto expected =
        static_cast<float>(38685.0f - (replay.Unit() * 100.0 + 300.0) * kWeek / kWeek);
    Tick(kWeek, 10);
    EXPECT_EQ(people.population, expected);

    people.SetShare(Profession::Butchers, 0.25f);
    people.SetShare(Profession::Doctors, 0.5f);
    Tick(kWeek, 10);
    EXPECT_EQ(people.population, expected);
}

TEST_F(PopulationTest, PlagueTimeDoesNotFallBelowZero) {
    people.SetShare(Profession::Doctors, 0.2f);
    people.plagueTime = 100.0f;
    Tick(300.0f);
    EXPECT_EQ(people.plagueTime, 0.0f);
}

TEST_F(PopulationTest, FamineAndPlagueRunAtTheSameTime) {
    people.SetShare(Profession::Doctors, 0.2f);
    people.plagueTime = 1000.0f;
    people.famineTime = 1000.0f;
    ExpectRolls(4, [&] { people.Process(300.0f); });
    EXPECT_LT(people.plagueTime, 1000.0f);
    EXPECT_EQ(people.famineTime, 700.0f);
}

// Growth and eating

TEST_F(PopulationTest, OnlyTheIdleHaveChildren) {
    const float expected = 38685.0f + 0.0075f * (0.25f * 38685.0f) * kWeek / kWeek;
    Tick(kWeek);
    EXPECT_EQ(people.population, expected);
}

TEST_F(PopulationTest, PeopleShrinkWhileTheSharesExceedOne) {
    people.SetShare(Profession::Farmers, 0.75f);
    Tick(kWeek);
    EXPECT_LT(people.population, 38685.0f);
}

TEST_F(PopulationTest, HalfTheBaseRationStopsGrowth) {
    people.grain.ration = 0.1f;
    Tick(kWeek);
    EXPECT_EQ(people.population, 38685.0f);
    people.grain.ration = 0.2f;
    people.livestock.ration = 0.05f;
    Tick(kWeek);
    EXPECT_EQ(people.population, 38685.0f);
}

TEST_F(PopulationTest, PeopleEatTheirRations) {
    people.SetShare(Profession::Doctors, 0.25f);  // nobody idle
    Tick(kWeek);
    EXPECT_EQ(people.grain.amount, 24000.0f - 0.2f * 38685.0f);
    EXPECT_EQ(people.livestock.amount, 15000.0f - 0.1f * 38685.0f);
}

TEST_F(PopulationTest, DisastersMayLowerThePopulationBelowZero) {
    people.population = 500.0f;
    people.famineTime = 10.0f * kWeek;
    Tick(kWeek);
    EXPECT_LT(people.population, 0.0f);
}

TEST_F(PopulationTest, TickOfZeroSecondsChangesNothing) {
    EndGrace();
    people.Normalise(Profession::Farmers);
    people.justice.justiceLevel = 0.1f;
    people.grain.ration = 0.1f;
    people.famineChance = 0.3f;
    people.famineTime = 0.0f;
    Tick(0.0f);
    EXPECT_EQ(people.population, 38685.0f);
    EXPECT_EQ(people.morale, 0.5f);
    EXPECT_EQ(people.opinion, 0.5f);
    EXPECT_EQ(people.famineChance, 0.3f);
    EXPECT_EQ(people.famineTime, 0.0f);
    EXPECT_EQ(people.plagueTime, 0.0f);
    EXPECT_EQ(people.grain.amount, 24000.0f);
    EXPECT_EQ(people.livestock.amount, 15000.0f);
    EXPECT_EQ(people.justice.crimeLevel, 0.6f);
    EXPECT_EQ(people.elapsed, kLongAfterGrace);
}

TEST_F(PopulationTest, NegativeSecondsEndTheProgram) {
    EXPECT_EXIT(people.Process(-1.0f), testing::ExitedWithCode(0),
                "Assert failed on population:[0-9]+ - \"seconds >= 0.0f\"");
}

}  // namespace
