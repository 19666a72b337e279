// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/livestock.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace {

/// The production after the herd's rule, with one step at a time.
float LoweredOneByOne(const Livestock& herd, float seconds) {
    float production = herd.production;
    while (herd.amount / herd.growthLimit < production * seconds + herd.amount) {
        const float lowered = production - 0.1f;
        if (!(lowered < production))
            break;
        production = lowered;
    }
    return production;
}

Livestock Herd(float amount, float production) {
    Livestock herd;
    herd.amount = amount;
    herd.production = production;
    return herd;
}

TEST(LivestockTest, NewOneHasTheFiguresOfTheStart) {
    const Livestock herd;
    EXPECT_EQ(herd.amount, 15000.0f);
    EXPECT_EQ(herd.ration, 0.1f);
    EXPECT_EQ(herd.production, 0.0f);
    EXPECT_EQ(herd.baseRation, 0.1f);
    EXPECT_EQ(herd.yield, 0.2f);
    EXPECT_EQ(herd.growthLimit, 0.75f);
    EXPECT_EQ(herd.hungryRation, 0.75f * 0.1f);
    EXPECT_EQ(herd.starvingRation, 0.5f * 0.1f);
    EXPECT_EQ(herd.wellFedRation, 1.3333334f * 0.1f);
    EXPECT_EQ(herd.gorgingRation, 2.0f * 0.1f);
}

TEST(LivestockTest, ButchersProduceTheirYieldPerWeekAtTheBaseRation) {
    Livestock herd;
    herd.SetWorkers(19342.5f);
    EXPECT_NEAR(herd.production * 604800.0f, 3868.5f, 0.1f);
}

TEST(LivestockTest, GrowthWithinTheLimitKeepsTheProduction) {
    Livestock herd = Herd(3000.0f, 0.01f);
    herd.Process(300.0f);
    EXPECT_EQ(herd.production, 0.01f);
    EXPECT_EQ(herd.amount, 3003.0f);
}

TEST(LivestockTest, ProductionOfAnEmptyHerdIsLoweredInStepsOfATenth) {
    Livestock herd = Herd(0.0f, 0.35f);
    herd.Process(1.0f);
    EXPECT_EQ(herd.production, 0.35f - 0.1f - 0.1f - 0.1f - 0.1f);
    EXPECT_NEAR(herd.production, -0.05f, 1e-6f);
    EXPECT_EQ(herd.amount, 0.0f);
}

TEST(LivestockTest, LoweredProductionStaysLow) {
    Livestock herd = Herd(100.0f, 1.0f);
    herd.Process(300.0f);
    const float left = herd.production;
    EXPECT_LT(left, 1.0f);
    herd.amount = 100000.0f;
    herd.Process(300.0f);
    EXPECT_EQ(herd.production, left);
}

TEST(LivestockTest, TickOfZeroSecondsChangesNeitherHerdNorProduction) {
    Livestock herd = Herd(0.0f, 0.35f);
    herd.Process(0.0f);
    EXPECT_EQ(herd.production, 0.35f);
    EXPECT_EQ(herd.amount, 0.0f);
}

TEST(LivestockTest, StockAboveTheCapacityIsLoweredToIt) {
    Livestock herd = Herd(9999000.0f, 10.0f);
    herd.Process(604800.0f);
    EXPECT_EQ(herd.amount, 10000000.0f);
}

TEST(LivestockTest, StockBelowZeroIsRaisedToZeroByATick) {
    Livestock herd = Herd(-700.0f, 0.0f);
    herd.Process(0.0f);
    EXPECT_EQ(herd.amount, 0.0f);
    herd.amount = -700.0f;
    herd.Process(300.0f);
    EXPECT_EQ(herd.amount, 0.0f);
}

TEST(LivestockTest, PeopleEatNothingAtARationOfZero) {
    Livestock herd;
    herd.ration = 0.0f;
    herd.Consume(1e9f);
    EXPECT_EQ(herd.amount, 15000.0f);
}

TEST(LivestockTest, PeopleEatAtMostWhatIsInStore) {
    Livestock herd;
    herd.Consume(38685.0f);
    EXPECT_EQ(herd.amount, 15000.0f - 0.1f * 38685.0f);
    herd.Consume(1e9f);
    EXPECT_TRUE(herd.IsEmpty());
}

TEST(LivestockTest, RationOfZeroGivesAnInfiniteProductionThatFillsTheStore) {
    Livestock herd;
    herd.ration = 0.0f;
    herd.SetWorkers(1000.0f);
    ASSERT_TRUE(std::isinf(herd.production));
    herd.Process(0.0f);
    EXPECT_EQ(herd.amount, 15000.0f);
    herd.Process(300.0f);
    EXPECT_EQ(herd.amount, 10000000.0f);
    EXPECT_TRUE(std::isinf(herd.production));
}

TEST(LivestockTest, WithoutWorkersThereIsNoProductionAtAnyRation) {
    Livestock herd;
    herd.ration = 0.0f;
    herd.SetWorkers(0.0f);
    EXPECT_EQ(herd.production, 0.0f);
}

TEST(LivestockTest, ProductionTooLargeToBeLoweredByATenthStaysAndFillsTheStore) {
    // From 2^21 on, floats are so far apart that subtracting a tenth changes nothing.
    Livestock herd = Herd(15000.0f, 2097153.0f);
    herd.Process(300.0f);
    EXPECT_EQ(herd.production, 2097153.0f);
    EXPECT_EQ(herd.amount, 10000000.0f);
}

TEST(LivestockTest, MillionsOfStepsAtOnceEndWhereSingleStepsDo) {
    for (const float production : {2097151.8f, 2097152.0f, 1500000.0f, 1048576.0f, 1048576.1f,
                                   700000.3f, 65536.0f, 65536.05f, 4096.7f}) {
        for (const float amount : {0.0f, 3.0f, 15000.0f, 9999999.0f}) {
            Livestock herd = Herd(amount, production);
            const float expected = LoweredOneByOne(herd, 331.0f);
            herd.Process(331.0f);
            ASSERT_EQ(herd.production, expected) << production << " with " << amount;
        }
    }
}

TEST(LivestockTest, ProductionOfAHerdBelowZeroIsLoweredAsBySingleSteps) {
    // If the stock is below 0, the production is lowered far below 0.
    for (const float seconds : {0.001f, 0.01f, 1.0f, 300.0f, 604800.0f}) {
        for (const float production : {-1000.0f, -1.0f, 0.0f, 0.3f, 5000.0f}) {
            Livestock herd = Herd(-700.0f, production);
            const float expected = LoweredOneByOne(herd, seconds);
            herd.Process(seconds);
            ASSERT_EQ(herd.production, expected) << production << " in " << seconds;
        }
    }
}

TEST(LivestockTest, ProductionOfRandomHerdsIsLoweredAsBySingleSteps) {
    std::mt19937 random(1358);
    const auto between = [&](float lowest, float highest) {
        return std::uniform_real_distribution<float>(lowest, highest)(random);
    };
    for (int i = 0; i < 20000; ++i) {
        const float amount = std::exp2(between(-3.0f, 23.0f));
        const float production = std::exp2(between(-8.0f, 14.0f));
        const float seconds = between(1.0f, 604800.0f);
        Livestock herd = Herd(amount, production);
        const float expected = LoweredOneByOne(herd, seconds);
        herd.Process(seconds);
        ASSERT_EQ(herd.production, expected) << amount << ' ' << production << ' ' << seconds;
    }
}

TEST(LivestockTest, NegativeSecondsEndTheProgram) {
    EXPECT_EXIT(Livestock().Process(-1.0f), testing::ExitedWithCode(0),
                "Assert failed on livestock:[0-9]+ - \"seconds >= 0.0f\"");
}

}  // namespace
