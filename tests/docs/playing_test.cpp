// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Tests the calculations in docs/PLAYING.md with the code of the country.

#include <gtest/gtest.h>

#include <iostream>

#include "country/country.h"
#include "country/rates.h"
#include "country/world.h"

namespace {

class PlayingTest : public testing::Test {
protected:
    PlayingTest() {
        country.SetMessageStream(nullptr);
        country.SetShare(Profession::Farmers, 0.25f);
        country.SetShare(Profession::Butchers, 0.5f);
        country.Normalise(Profession::Farmers);
    }

    float HeadsPerWeek() const { return country.livestock.production * kSecondsPerWeek; }
    float UnitsPerWeek() const { return country.grain.production * kSecondsPerWeek; }

    Country country{World::kPlayerName, World::kPlayerPeople};
    Country partner{"Veweez", 30000};
};

TEST_F(PlayingTest, QuarterFarmersAndHalfButchersFeedEverybody) {
    EXPECT_NEAR(UnitsPerWeek(), 7737.0f, 0.5f);
    EXPECT_NEAR(country.population * 0.2f, 7737.0f, 0.5f);
    EXPECT_NEAR(HeadsPerWeek(), 3868.5f, 0.5f);
    EXPECT_NEAR(country.population * 0.1f, 3868.5f, 0.5f);
}

TEST_F(PlayingTest, LowerRationsRaiseProductionWhenTheWorkersAreSetAgain) {
    country.grain.ration = 0.38f * 2.0f * country.grain.baseRation;
    country.livestock.ration = 0.38f * 2.0f * country.livestock.baseRation;
    EXPECT_NEAR(UnitsPerWeek(), 7737.0f, 0.5f);  // until then nothing changes
    country.Normalise(Profession::Farmers);
    EXPECT_NEAR(UnitsPerWeek(), 10180.0f, 0.5f);
    EXPECT_NEAR(HeadsPerWeek(), 5090.0f, 0.5f);
    EXPECT_FALSE(country.grain.IsHungry());
    EXPECT_FALSE(country.livestock.IsHungry());
}

TEST_F(PlayingTest, ProductionStaysHighWhenTheRationIsRaisedAgain) {
    country.grain.ration = 0.02f;
    country.Normalise(Profession::Farmers);
    country.grain.ration = country.grain.baseRation;
    EXPECT_NEAR(UnitsPerWeek(), 77370.0f, 5.0f);

    country.grain.ration = 0.0f;
    country.Normalise(Profession::Farmers);
    country.grain.ration = country.grain.baseRation;
    country.Process(330.0f);
    EXPECT_GT(country.grain.amount, 19999990.0f);
}

TEST_F(PlayingTest, CrimeEndsInFourYearsIfJusticeFollowsIt) {
    for (int week = 0; week < 4 * 52; ++week) {
        country.livestock.amount = 1e6f;
        country.grain.amount = 1e6f;
        country.justice.justiceLevel = country.justice.crimeLevel - 0.04f;
        country.Process(kSecondsPerWeek);
    }
    EXPECT_LT(country.justice.crimeLevel, 0.05f);
    EXPECT_GT(country.morale, 0.9f);
}

TEST_F(PlayingTest, EachOtherProfessionLosesAQuarterOfTheExcess) {
    country.SetShare(Profession::Farmers, 0.8f);
    country.Normalise(Profession::Farmers);
    EXPECT_FLOAT_EQ(country.Share(Profession::Butchers), 0.425f);
    EXPECT_NEAR(country.IdleCount() / country.population, -0.225f, 1e-6f);
}

TEST_F(PlayingTest, HerdDiesIfAWeeksProductionIsMoreThanAThirdOfIt) {
    country.livestock.amount = 11600.0f;
    country.livestock.Process(kSecondsPerWeek);
    EXPECT_EQ(country.livestock.amount, 0.0f);
    EXPECT_LT(country.livestock.production, 0.0f);

    country.Normalise(Profession::Butchers);  // as a move of the slider does
    country.livestock.amount = 11610.0f;
    country.livestock.Process(kSecondsPerWeek);
    EXPECT_NEAR(country.livestock.amount, 11610.0f + 3868.5f, 1.0f);
}

TEST_F(PlayingTest, TreasuryGainsSeventyDoubloonsAWeek) {
    const float before = country.funds;
    country.Process(kSecondsPerWeek);
    EXPECT_NEAR(country.funds - before, 104.4f - 32.7f, 0.1f);
}

TEST_F(PlayingTest, OrderIsCheckedAtTheLowerPriceAndPaidAtTheHigher) {
    country.funds = 500.0f;
    partner.livestockBuyPrice = 1.0f;
    partner.livestockSellPrice = 0.8f;
    const float order = country.LivestockOrder(partner, 1.0f);
    EXPECT_FLOAT_EQ(order, 625.0f);
    country.Buy(order, 0.0f, 0.0f, &partner);
    EXPECT_FLOAT_EQ(country.funds, -125.0f);
}

TEST_F(PlayingTest, FullSaleDoublesTheFundsAndTheNextTickCancelsTheDebtOfGoods) {
    country.funds = 500.0f;
    for (int click = 0; click < 3; ++click)
        country.Sell(0.0f, country.GrainOrder(partner, 1.0f), &partner);
    EXPECT_NEAR(country.funds, 4000.0f, 0.1f);
    country.grain.amount = -1000000.0f;  // many clicks later
    country.Process(330.0f);
    EXPECT_EQ(country.grain.amount, 0.0f);
}

TEST_F(PlayingTest, PeopleDoNotStarveFastWithOneUnitInStore) {
    country.grain.amount = 1.0f;
    testing::internal::CaptureStdout();
    country.SetMessageStream(&std::cout);
    country.Process(kSecondsPerWeek);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    country.grain.amount = 0.0f;
    testing::internal::CaptureStdout();
    country.Process(kSecondsPerWeek);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "the people are starving fast!\n");
}

TEST_F(PlayingTest, TicksOfTheClockNeverStartAPlague) {
    country.elapsed = 2.0f * Population::kGracePeriod;
    for (int tick = 0; tick < 100000; ++tick) {
        country.grain.amount = 24000.0f;
        country.livestock.amount = 15000.0f;
        country.Process(359.0f);
        ASSERT_EQ(country.plagueTime, 0.0f);
    }
}

TEST_F(PlayingTest, PlagueWithoutDoctorsNeverEnds) {
    country.plagueTime = 10.0f * kSecondsPerWeek;
    for (int week = 0; week < 40; ++week)
        country.Process(kSecondsPerWeek);
    EXPECT_EQ(country.plagueTime, 10.0f * kSecondsPerWeek);

    country.SetShare(Profession::Doctors, 0.1f);
    for (int week = 0; week < 20; ++week)
        country.Process(kSecondsPerWeek);
    EXPECT_LT(country.plagueTime, kSecondsPerWeek / 10.0f);
}

}  // namespace
