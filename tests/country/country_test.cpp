// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/country.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <sstream>

#include "quarn2/trace.h"
#include "tests/country/plaincountry.h"
#include "tests/country/rolls.h"

namespace {

constexpr float kWeek = 604800.0f;

TEST(CountryTest, ThreeRollsGiveTheTreasuryTheLivestockPriceAndTheGrainPriceInThisOrder) {
    for (unsigned seed = 1; seed < 200; ++seed) {
        Replay replay(seed);
        const auto funds = static_cast<float>(replay.Raw() % 100 + 487);
        const auto livestockPrice = static_cast<float>(replay.Unit() * 0.5 + 1.0);
        const auto grainPrice = static_cast<float>(replay.Unit() * 0.5 + 1.0);
        std::srand(seed);
        const Country country("Merovinska", 38685);
        ASSERT_EQ(country.funds, funds);
        ASSERT_GE(country.funds, 487.0f);
        ASSERT_LE(country.funds, 586.0f);
        ASSERT_EQ(country.livestockBuyPrice, livestockPrice);
        ASSERT_EQ(country.grainBuyPrice, grainPrice);
    }
    ExpectRolls(3, [] { Country("Merovinska", 38685); });
}

TEST(CountryTest, SellPricesAreFourFifthsOfTheBuyPrices) {
    std::srand(1);
    for (int i = 0; i < 1000; ++i) {
        const Country country("Merovinska", 38685);
        ASSERT_EQ(country.livestockSellPrice, country.livestockBuyPrice * 0.8f);
        ASSERT_EQ(country.grainSellPrice, country.grainBuyPrice * 0.8f);
        ASSERT_GE(country.livestockBuyPrice, 1.0f);
        ASSERT_LE(country.grainBuyPrice, 1.5f);
    }
}

TEST(CountryTest, NewOneHasTheFiguresOfTheStart) {
    const Country country("Merovinska", 38685);
    EXPECT_EQ(country.name, "Merovinska");
    EXPECT_EQ(country.population, 38685.0f);
    EXPECT_EQ(country.fineGoodsPrice, 5.0f);
    EXPECT_EQ(country.economy.wealthFactor, 0.05f);
    EXPECT_EQ(country.economy.taxRate, 0.025f);
    EXPECT_EQ(country.economy.upperIncome, 25.0f);
    EXPECT_EQ(country.economy.lowerIncome, 0.5f);
    EXPECT_TRUE(country.continent.empty());
    EXPECT_TRUE(country.tradePartners.empty());
}

TEST(CountryTest, TwoCountriesGetIndependentPricesAndTreasuries) {
    std::srand(1);
    const Country first("First", 100);
    const Country second("Second", 100);
    EXPECT_NE(first.funds, second.funds);
    EXPECT_NE(first.livestockBuyPrice, second.livestockBuyPrice);
    EXPECT_NE(first.grainBuyPrice, second.grainBuyPrice);
    EXPECT_NE(first.livestockBuyPrice, first.grainBuyPrice);
}

TEST(CountryTest, EmptyNameEndsTheProgram) {
    EXPECT_EXIT(Country("", 100), testing::ExitedWithCode(0),
                "Assert failed on country:[0-9]+ - \"n != \"\"\"");
}

TEST(CountryTest, NegativePopulationEndsTheProgram) {
    EXPECT_EXIT(Country("Merovinska", -1), testing::ExitedWithCode(0),
                "Assert failed on country:[0-9]+ - \"population >= 0\"");
}

TEST(CountryTest, NegativeSecondsEndTheProgram) {
    EXPECT_EXIT(Country("Merovinska", 1).Process(-1.0f), testing::ExitedWithCode(0),
                "Assert failed on country:[0-9]+ - \"seconds >= 0.0f\"");
}

TEST(CountryTest, ReportOfAFailedAssertionNamesTheFunctionsOfTheTick) {
    EXPECT_EXIT(
        {
            trace::Start();
            Country country("Merovinska", 1);
            country.Process(std::nanf(""));
        },
        testing::ExitedWithCode(0), "seconds >= 0.0f\"\n#1: Country::Process\n");
}

TEST(CountryTest, WeekAddsTheIncomeToTheFundsAndTakesTheArmysUpkeepFromThem) {
    std::srand(1);
    Country country("Merovinska", 38685);
    const float before = country.funds;
    country.Process(kWeek);
    EXPECT_NEAR(country.funds - before, 104.4f - 32.71f, 0.05f);
}

TEST(CountryTest, CountryWithoutPeopleHasNoIncomeAndEatsNothing) {
    Country country("Nowhere", 0);
    country.military.recruits = 0.0f;
    const float funds = country.funds;
    country.Process(kWeek);
    EXPECT_EQ(country.funds, funds);
    EXPECT_EQ(country.grain.amount, 24000.0f);
    EXPECT_EQ(country.livestock.amount, 15000.0f);
    EXPECT_EQ(country.population, 0.0f);
}

TEST(CountryTest, FundsMayFallBelowZero) {
    Country country("Nowhere", 0);
    country.funds = 1.0f;
    country.Process(kWeek);
    EXPECT_NEAR(country.funds, 1.0f - 32.71f, 0.01f);
}

TEST(CountryTest, TickOfZeroSecondsChangesNoFunds) {
    Country country("Merovinska", 38685);
    const float funds = country.funds;
    country.Process(0.0f);
    EXPECT_EQ(country.funds, funds);
}

TEST(CountryTest, TickNeitherTrainsNorRecruitsTheArmy) {
    Country country("Merovinska", 38685);
    country.military.training = true;
    country.military.recruiting = true;
    country.Process(kWeek);
    EXPECT_EQ(country.military.averageSkill, 0.3f);
    EXPECT_EQ(country.military.recruits, 1350.0f);
}

/// Compares the country with PlainCountry, bit by bit, over whole campaigns.
TEST(CountryTest, CampaignsEqualASecondSimpleImplementationOfTheRules) {
    std::mt19937 random(1358);
    const auto upTo = [&](float highest) {
        return std::uniform_real_distribution<float>(0.0f, highest)(random);
    };
    int famines = 0;
    int plagues = 0;
    int rebellions = 0;
    int celebrations = 0;
    for (unsigned campaign = 1; campaign <= 400; ++campaign) {
        std::srand(campaign);
        Country country("Merovinska", 38685);
        std::ostringstream said;
        country.SetMessageStream(&said);
        for (const Profession profession : kProfessions) {
            country.SetShare(profession, upTo(0.5f));
            country.Normalise(profession);
        }
        country.livestock.ration = upTo(2.0f) * country.livestock.baseRation;
        country.grain.ration = upTo(2.0f) * country.grain.baseRation;
        country.justice.justiceLevel = upTo(1.0f);
        country.justice.crimeLevel = upTo(1.0f);
        PlainCountry plain(country);

        const bool weekly = campaign % 4 != 0;
        const int ticks = weekly ? 200 : 2000;
        if (!weekly)
            country.elapsed = plain.elapsed = 29000000.0f;
        for (int tick = 0; tick < ticks; ++tick) {
            const float seconds = weekly ? kWeek : static_cast<float>(300 + tick % 60);
            const auto seed = static_cast<unsigned>(random());
            std::srand(seed);
            country.Process(seconds);
            const int rolled = std::rand();
            std::srand(seed);
            plain.Tick(seconds);
            ASSERT_EQ(rolled, std::rand()) << "other rolls in tick " << tick;
            ASSERT_EQ(country.funds, plain.funds);
            ASSERT_EQ(country.population, plain.population);
            ASSERT_EQ(country.livestock.amount, plain.livestock);
            ASSERT_EQ(country.livestock.production, plain.livestockProduction);
            ASSERT_EQ(country.grain.amount, plain.grain);
            ASSERT_EQ(country.grain.production, plain.grainProduction);
            ASSERT_EQ(country.justice.crimeLevel, plain.crime);
            ASSERT_EQ(country.morale, plain.morale);
            ASSERT_EQ(country.opinion, plain.opinion);
            ASSERT_EQ(country.famineChance, plain.famineChance);
            ASSERT_EQ(country.famineTime, plain.famineTime);
            ASSERT_EQ(country.plagueTime, plain.plagueTime);
            ASSERT_EQ(country.elapsed, plain.elapsed);
            ASSERT_EQ(country.rebellion, plain.rebellion);
            ASSERT_EQ(country.foodState, plain.food);
            ASSERT_EQ(country.disasters.famines, plain.famines);
            ASSERT_EQ(country.disasters.plagues, plain.plagues);
            ASSERT_EQ(country.disasters.deadOfFamine, plain.deadOfFamine);
            ASSERT_EQ(country.disasters.deadOfPlague, plain.deadOfPlague);
        }
        famines += country.famineTime > 0.0f ? 1 : 0;
        plagues += country.plagueTime > 0.0f ? 1 : 0;
        rebellions += country.rebellion ? 1 : 0;
        celebrations += country.justice.crimeLevel == 0.0f ? 1 : 0;
    }
    // Each kind of event must have happened, or the comparison would not cover it.
    EXPECT_GT(famines, 0);
    EXPECT_GT(plagues, 0);
    EXPECT_GT(rebellions, 0);
    EXPECT_GT(celebrations, 0);
}

// Trade

class TradeTest : public testing::Test {
protected:
    TradeTest() {
        partner.livestockBuyPrice = 1.0f;
        partner.livestockSellPrice = 0.8f;
        partner.grainBuyPrice = 1.25f;
        partner.grainSellPrice = 1.0f;
        player.funds = 500.0f;
    }

    Country player{"Merovinska", 38685};
    Country partner{"Thrakoup", 30000};
};

TEST_F(TradeTest, PurchaseThatPassesTheCheckCanLeaveTheFundsBelowZero) {
    const float order = player.LivestockOrder(partner, 1.0f);
    EXPECT_EQ(order, 625.0f);
    EXPECT_TRUE(player.BuyPossible(order, 0.0f, 0.0f, &partner));
    player.Buy(order, 0.0f, 0.0f, &partner);
    EXPECT_EQ(player.funds, -125.0f);
    EXPECT_EQ(player.livestock.amount, 15625.0f);
}

TEST_F(TradeTest, PurchaseAddsToBothStocksAndPaysThePartnersBuyPrices) {
    player.Buy(100.0f, 200.0f, 0.0f, &partner);
    EXPECT_EQ(player.livestock.amount, 15100.0f);
    EXPECT_EQ(player.grain.amount, 24200.0f);
    EXPECT_EQ(player.funds, 500.0f - 1.0f * 100.0f - 1.25f * 200.0f);
}

TEST_F(TradeTest, FundsOfExactlyTheCheckedPriceAreEnough) {
    EXPECT_TRUE(player.BuyPossible(0.0f, 500.0f, 0.0f, &partner));
    EXPECT_FALSE(player.BuyPossible(0.0f, 500.1f, 0.0f, &partner));
}

TEST_F(TradeTest, RefusedPurchaseChangesNothing) {
    player.Buy(0.0f, 1000.0f, 0.0f, &partner);
    EXPECT_EQ(player.funds, 500.0f);
    EXPECT_EQ(player.grain.amount, 24000.0f);
    EXPECT_EQ(player.livestock.amount, 15000.0f);
}

TEST_F(TradeTest, FineGoodsAreRefusedIfThePartnerDoesNotSellThem) {
    player.funds = 1e9f;
    EXPECT_FALSE(player.BuyPossible(0.0f, 0.0f, 0.01f, &partner));
    player.Buy(10.0f, 0.0f, 0.01f, &partner);
    EXPECT_EQ(player.livestock.amount, 15000.0f);
}

TEST_F(TradeTest, AskingForFineGoodsAddsThePartnerToTheListAsOneThatSellsNone) {
    player.BuyPossible(0.0f, 0.0f, 0.0f, &partner);
    EXPECT_EQ(player.tradePartners.count(&partner), 0U);
    player.BuyPossible(0.0f, 0.0f, 1.0f, &partner);
    ASSERT_EQ(player.tradePartners.count(&partner), 1U);
    EXPECT_FALSE(player.tradePartners[&partner]);
}

TEST_F(TradeTest, FineGoodsOfAPartnerThatSellsThemAreAcceptedAndChangeNothing) {
    player.tradePartners[&partner] = true;
    EXPECT_TRUE(player.BuyPossible(0.0f, 0.0f, 500.0f, &partner));
    player.Buy(0.0f, 0.0f, 500.0f, &partner);
    EXPECT_EQ(player.funds, 500.0f);
    EXPECT_EQ(player.livestock.amount, 15000.0f);
    EXPECT_EQ(player.grain.amount, 24000.0f);
}

TEST_F(TradeTest, FineGoodsAreRefusedIfTheyCostMoreThanTheFunds) {
    player.tradePartners[&partner] = true;
    EXPECT_FALSE(player.BuyPossible(0.0f, 0.0f, 501.0f, &partner));
    EXPECT_TRUE(player.BuyPossible(0.0f, 250.0f, 250.0f, &partner));
    EXPECT_FALSE(player.BuyPossible(0.0f, 251.0f, 250.0f, &partner));
}

TEST_F(TradeTest, SaleIsPaidInFullAtThePartnersSellPrices) {
    player.Sell(100.0f, 200.0f, &partner);
    EXPECT_EQ(player.livestock.amount, 14900.0f);
    EXPECT_EQ(player.grain.amount, 23800.0f);
    EXPECT_EQ(player.funds, 500.0f + 0.8f * 100.0f + 1.0f * 200.0f);
}

TEST_F(TradeTest, SaleOfMoreThanTheStockLeavesItBelowZeroUntilTheNextTick) {
    player.livestock.amount = 300.0f;
    player.Sell(1000.0f, 0.0f, &partner);
    EXPECT_EQ(player.livestock.amount, -700.0f);
    EXPECT_EQ(player.funds, 1300.0f);
    player.SetMessageStream(nullptr);
    player.Process(300.0f);
    EXPECT_EQ(player.livestock.amount, 0.0f);
}

TEST_F(TradeTest, TradeChangesNothingInThePartner) {
    const float funds = partner.funds;
    player.tradePartners[&partner] = true;
    player.Buy(10.0f, 10.0f, 10.0f, &partner);
    player.Sell(10.0f, 10.0f, &partner);
    EXPECT_EQ(partner.funds, funds);
    EXPECT_EQ(partner.livestock.amount, 15000.0f);
    EXPECT_EQ(partner.grain.amount, 24000.0f);
    EXPECT_EQ(partner.livestockBuyPrice, 1.0f);
}

TEST_F(TradeTest, OrderIsWhatTheFundsBuyAtTheLowerPrice) {
    EXPECT_EQ(player.LivestockOrder(partner, 0.5f), 500.0f / 0.8f * 0.5f);
    EXPECT_EQ(player.GrainOrder(partner, 0.5f), 250.0f);
    EXPECT_EQ(player.FineGoodsOrder(0.5f), 250.0f);
    EXPECT_EQ(player.LivestockOrder(partner, 0.0f), 0.0f);
    partner.livestockSellPrice = 2.0f;
    EXPECT_EQ(player.LivestockOrder(partner, 1.0f), 500.0f);
}

TEST_F(TradeTest, TradesOfAllOrdersSinceTheLastTickAreCounted) {
    player.Buy(100.0f, 0.0f, 0.0f, &partner);
    player.Buy(50.0f, 20.0f, 0.0f, &partner);
    player.Sell(30.0f, 40.0f, &partner);
    EXPECT_EQ(player.trades.livestockBought.goods, 150.0);
    EXPECT_NEAR(player.trades.livestockBought.doubloons, 150.0 * 1.0, 1e-4);
    EXPECT_EQ(player.trades.grainBought.goods, 20.0);
    EXPECT_NEAR(player.trades.grainBought.doubloons, 20.0 * 1.25, 1e-4);
    EXPECT_EQ(player.trades.livestockSold.goods, 30.0);
    EXPECT_NEAR(player.trades.livestockSold.doubloons, 30.0 * 0.8, 1e-4);
    EXPECT_EQ(player.trades.grainSold.goods, 40.0);
    EXPECT_NEAR(player.trades.grainSold.doubloons, 40.0 * 1.0, 1e-4);
    player.Process(0.0f);
    EXPECT_EQ(player.trades.livestockBought.goods, 0.0);
    EXPECT_EQ(player.trades.grainSold.doubloons, 0.0);
}

TEST_F(TradeTest, RefusedPurchaseIsNotCounted) {
    player.Buy(10000.0f, 10000.0f, 0.0f, &partner);
    EXPECT_EQ(player.trades.livestockBought.goods, 0.0);
    EXPECT_EQ(player.trades.grainBought.goods, 0.0);
}

TEST_F(TradeTest, NegativePurchaseIsCountedAsASaleAndANegativeSaleAsAPurchase) {
    player.Buy(-10.0f, 0.0f, 0.0f, &partner);
    EXPECT_EQ(player.trades.livestockSold.goods, 10.0);
    EXPECT_NEAR(player.trades.livestockSold.doubloons, 10.0 * 1.0, 1e-4);
    player.Sell(0.0f, -8.0f, &partner);
    EXPECT_EQ(player.trades.grainBought.goods, 8.0);
    EXPECT_NEAR(player.trades.grainBought.doubloons, 8.0 * 1.0, 1e-4);
    EXPECT_EQ(player.trades.livestockBought.goods, 0.0);
    EXPECT_EQ(player.trades.grainSold.goods, 0.0);
}

TEST_F(TradeTest, MissingPartnerEndsTheProgram) {
    const char* const message = "Assert failed on country:[0-9]+ - \"c != 0\"";
    EXPECT_EXIT(player.Sell(1.0f, 1.0f, nullptr), testing::ExitedWithCode(0), message);
    EXPECT_EXIT(player.Buy(1.0f, 1.0f, 1.0f, nullptr), testing::ExitedWithCode(0), message);
    EXPECT_EXIT(player.BuyPossible(1.0f, 1.0f, 1.0f, nullptr), testing::ExitedWithCode(0), message);
}

}  // namespace
