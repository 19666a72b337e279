// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/world.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "country/namegenerator.h"
#include "tests/country/rolls.h"

namespace {

constexpr float kWeek = 604800.0f;

TEST(WorldTest, NewWorldTakes243RollsWithEverySeed) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        std::srand(seed);
        const World world;
        const int next = std::rand();
        std::srand(seed);
        for (int roll = 0; roll < 243; ++roll)
            std::rand();
        ASSERT_EQ(next, std::rand());
    }
}

TEST(WorldTest, NewWorldHasMerovinskaOnThe16thOfMay1358) {
    for (unsigned seed = 1; seed < 20; ++seed) {
        std::srand(seed);
        const World world;
        EXPECT_EQ(world.player.name, "Merovinska");
        EXPECT_EQ(world.player.population, 38685.0f);
        EXPECT_EQ(world.date.Text(), "1358/5/16 0:0:0");
        EXPECT_TRUE(world.newspaper.Stories().empty());
    }
}

TEST(WorldTest, NeighboursAreRolledInOrderAfterThePlayersCountry) {
    for (unsigned seed = 1; seed < 50; ++seed) {
        std::srand(seed);
        const World world;
        std::srand(seed);
        const Country player("Merovinska", 38685);
        ASSERT_EQ(world.player.funds, player.funds);
        ASSERT_EQ(world.player.livestockBuyPrice, player.livestockBuyPrice);
        for (const auto& country : world.countries) {
            const std::string name = NameGenerator(NameGenerator::kCountryPattern).Generate();
            const double roll = std::rand() / 2147483648.0;
            const int people = static_cast<int>(std::round(roll * 50000.0 + 20000.0));
            const Country expected(name, people);
            ASSERT_EQ(country->name, expected.name);
            ASSERT_EQ(country->population, expected.population);
            ASSERT_EQ(country->funds, expected.funds);
            ASSERT_EQ(country->livestockBuyPrice, expected.livestockBuyPrice);
            ASSERT_EQ(country->grainBuyPrice, expected.grainBuyPrice);
            ASSERT_GE(country->population, 20000.0f);
            ASSERT_LE(country->population, 70000.0f);
        }
    }
}

TEST(WorldTest, TwoSeedsGiveDifferentWorlds) {
    std::srand(1);
    const World first;
    std::srand(2);
    const World second;
    int sameNames = 0;
    int samePopulations = 0;
    int samePrices = 0;
    for (std::size_t i = 0; i < start::kNeighbours; ++i) {
        sameNames += first.countries[i]->name == second.countries[i]->name ? 1 : 0;
        samePopulations += first.countries[i]->population == second.countries[i]->population;
        samePrices += first.countries[i]->grainBuyPrice == second.countries[i]->grainBuyPrice;
    }
    EXPECT_LT(sameNames, 2);
    EXPECT_LT(samePopulations, 2);
    EXPECT_LT(samePrices, 2);
    EXPECT_NE(first.player.livestockBuyPrice, second.player.livestockBuyPrice);
}

TEST(WorldTest, FirstThirdAndSixthNeighbourSellFineGoods) {
    World world;
    for (std::size_t i = 0; i < start::kNeighbours; ++i) {
        const Country* const country = world.countries[i].get();
        EXPECT_EQ(world.player.BuyPossible(0.0f, 0.0f, 1.0f, country), i == 0 || i == 2 || i == 5);
        EXPECT_TRUE(country->tradePartners.empty());
    }
}

TEST(WorldTest, EveryCountryKnowsTheContinentWithThePlayerLast) {
    World world;
    std::vector<Country*> continent;
    for (const auto& country : world.countries)
        continent.push_back(country.get());
    continent.push_back(&world.player);
    for (const Country* country : continent)
        EXPECT_EQ(country->continent, continent);
}

TEST(WorldTest, AdvanceRunsThePlayersCountryTheNewspaperAndTheDate) {
    std::srand(1);
    World world;
    world.Advance(kWeek);
    EXPECT_EQ(world.player.elapsed, kWeek);
    EXPECT_EQ(world.newspaper.Stories().size(), 1U);
    EXPECT_EQ(world.date.Text(), "1358/5/23 0:0:0");
}

TEST(WorldTest, NewspaperReportsTheCrimeAtTheEndOfTheTick) {
    std::srand(1);
    World world;
    world.player.justice.justiceLevel = 0.0f;
    const unsigned seed = SeedWhere([](Replay& replay) {
        replay.Raw();  // famine
        replay.Raw();  // plague
        replay.Raw();  // morale
        return replay.Unit() < 0.3;
    });
    std::srand(seed);
    world.Advance(kWeek);
    EXPECT_LT(world.player.justice.crimeLevel, 0.6f);
    EXPECT_EQ(world.newspaper.Stories().at(0), "Smuggling");
}

TEST(WorldTest, AdvanceDoesNotChangeTheNeighbours) {
    World world;
    world.Advance(kWeek);
    for (const auto& country : world.countries) {
        EXPECT_EQ(country->elapsed, 0.0f);
        EXPECT_EQ(country->grain.amount, 24000.0f);
    }
}

TEST(WorldTest, ClockRolls300To359Seconds) {
    float lowest = 1000.0f;
    float highest = 0.0f;
    for (unsigned seed = 1; seed < 2000; ++seed) {
        Replay replay(seed);
        const auto expected = static_cast<float>(replay.Raw() % 60 + 300);
        std::srand(seed);
        const float seconds = World::RollClockSeconds();
        ASSERT_EQ(seconds, expected);
        lowest = std::min(lowest, seconds);
        highest = std::max(highest, seconds);
    }
    EXPECT_EQ(lowest, 300.0f);
    EXPECT_EQ(highest, 359.0f);
    ExpectRolls(1, [] { World::RollClockSeconds(); });
}

TEST(WorldTest, DateAdvancesByTheSecondsOfTheTick) {
    World world;
    world.Advance(359.0f);
    EXPECT_EQ(world.date.Text(), "1358/5/16 0:5:59");
}

}  // namespace
