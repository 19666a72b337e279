// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/grain.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(GrainTest, NewOneHasTheFiguresOfTheStart) {
    const Grain grain;
    EXPECT_EQ(grain.amount, 24000.0f);
    EXPECT_EQ(grain.ration, 0.2f);
    EXPECT_EQ(grain.production, 0.0f);
    EXPECT_EQ(grain.baseRation, 0.2f);
    EXPECT_EQ(grain.yield, 0.8f);
    EXPECT_EQ(grain.hungryRation, 0.75f * 0.2f);
    EXPECT_EQ(grain.starvingRation, 0.5f * 0.2f);
    EXPECT_EQ(grain.wellFedRation, 1.3333334f * 0.2f);
    EXPECT_EQ(grain.gorgingRation, 2.0f * 0.2f);
}

TEST(GrainTest, FarmersProduceTheirYieldPerWeekAtTheBaseRation) {
    Grain grain;
    grain.SetWorkers(9671.25f);
    EXPECT_EQ(grain.production, ((0.2f / 0.2f) * 9671.25f / 604800.0f) / (1.0f / 0.8f));
    EXPECT_NEAR(grain.production * 604800.0f, 7737.0f, 0.1f);
}

TEST(GrainTest, HalvedRationDoublesProductionWhenWorkersAreSet) {
    Grain grain;
    grain.SetWorkers(1000.0f);
    const float atBase = grain.production;
    grain.ration = 0.1f;
    EXPECT_EQ(grain.production, atBase);
    grain.SetWorkers(1000.0f);
    EXPECT_FLOAT_EQ(grain.production, 2.0f * atBase);
}

TEST(GrainTest, WithoutWorkersThereIsNoProductionAtAnyRation) {
    Grain grain;
    grain.SetWorkers(1000.0f);
    grain.ration = 0.0f;
    grain.SetWorkers(0.0f);
    EXPECT_EQ(grain.production, 0.0f);
}

TEST(GrainTest, RationOfZeroGivesAnInfiniteProductionThatFillsTheStore) {
    Grain grain;
    grain.ration = 0.0f;
    grain.SetWorkers(1000.0f);
    EXPECT_TRUE(std::isinf(grain.production));
    grain.Process(300.0f);
    EXPECT_EQ(grain.amount, 20000000.0f);
}

TEST(GrainTest, InfiniteProductionAddsNothingInZeroSeconds) {
    Grain grain;
    grain.ration = 0.0f;
    grain.SetWorkers(1000.0f);
    grain.Process(0.0f);
    EXPECT_EQ(grain.amount, 24000.0f);
}

TEST(GrainTest, TickAddsTheProductionOfItsSeconds) {
    Grain grain;
    grain.production = 0.5f;
    grain.Process(300.0f);
    EXPECT_EQ(grain.amount, 24150.0f);
}

TEST(GrainTest, GrainHasNoGrowthLimit) {
    Grain grain;
    grain.amount = 0.0f;
    grain.production = 10.0f;
    grain.Process(604800.0f);
    EXPECT_EQ(grain.amount, 6048000.0f);
    EXPECT_EQ(grain.production, 10.0f);
}

TEST(GrainTest, StockAboveTheCapacityIsLoweredToIt) {
    Grain grain;
    grain.amount = 20000000.0f;
    grain.production = 1.0f;
    grain.Process(300.0f);
    EXPECT_EQ(grain.amount, 20000000.0f);
}

TEST(GrainTest, StockBelowZeroIsRaisedToZeroByATick) {
    Grain grain;
    grain.amount = -700.0f;
    grain.Process(0.0f);
    EXPECT_EQ(grain.amount, 0.0f);
}

TEST(GrainTest, EveryPersonEatsTheRation) {
    Grain grain;
    grain.Consume(1000.0f);
    EXPECT_EQ(grain.amount, 24000.0f - 0.2f * 1000.0f);
}

TEST(GrainTest, PeopleEatAtMostWhatIsInStore) {
    Grain grain;
    grain.Consume(1e9f);
    EXPECT_EQ(grain.amount, 0.0f);
    EXPECT_TRUE(grain.IsEmpty());
}

TEST(GrainTest, PeopleEatNothingAtARationOfZero) {
    Grain grain;
    grain.ration = 0.0f;
    grain.Consume(1e9f);
    EXPECT_EQ(grain.amount, 24000.0f);
}

TEST(GrainTest, RationEqualToAThresholdCounts) {
    Grain grain;
    grain.ration = grain.starvingRation;
    EXPECT_TRUE(grain.IsStarving());
    grain.ration = std::nextafter(grain.starvingRation, 1.0f);
    EXPECT_FALSE(grain.IsStarving());
    grain.ration = grain.hungryRation;
    EXPECT_TRUE(grain.IsHungry());
    grain.ration = std::nextafter(grain.hungryRation, 1.0f);
    EXPECT_FALSE(grain.IsHungry());
    grain.ration = grain.wellFedRation;
    EXPECT_TRUE(grain.IsWellFed());
    grain.ration = std::nextafter(grain.wellFedRation, 0.0f);
    EXPECT_FALSE(grain.IsWellFed());
    grain.ration = grain.gorgingRation;
    EXPECT_TRUE(grain.IsGorging());
    grain.ration = std::nextafter(grain.gorgingRation, 0.0f);
    EXPECT_FALSE(grain.IsGorging());
}

TEST(GrainTest, HungerFactorIsFourAtARationOfZeroAndOneAtTheBaseRation) {
    Grain grain;
    EXPECT_EQ(grain.HungerFactor(), 1.0f);
    grain.ration = 0.4f;
    EXPECT_EQ(grain.HungerFactor(), 1.0f);
    grain.ration = 0.1f;
    EXPECT_EQ(grain.HungerFactor(), 2.5f);
    grain.ration = 0.0f;
    EXPECT_EQ(grain.HungerFactor(), 4.0f);
}

TEST(GrainTest, NegativeSecondsEndTheProgram) {
    EXPECT_EXIT(Grain().Process(-1.0f), testing::ExitedWithCode(0),
                "Assert failed on grain:[0-9]+ - \"seconds >= 0.0f\"");
}

}  // namespace
