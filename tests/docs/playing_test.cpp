// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Tests the calculations and tables in docs/PLAYING.md with the code of the country.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <regex>
#include <sstream>
#include <string>

#include "country/chronicle.h"
#include "country/country.h"
#include "country/date.h"
#include "country/rates.h"
#include "country/start.h"
#include "tools/countrysim/campaign.h"

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

    Country country{start::kName, start::kPeople};
    Country partner{"Veweez", 30000};
};

TEST_F(PlayingTest, QuarterFarmersAndHalfButchersFeedEverybody) {
    EXPECT_NEAR(UnitsPerWeek(), 7737.0f, 0.5f);
    EXPECT_NEAR(country.population * 0.2f, 7737.0f, 0.5f);
    EXPECT_NEAR(HeadsPerWeek(), 3868.5f, 0.5f);
    EXPECT_NEAR(country.population * 0.1f, 3868.5f, 0.5f);
}

TEST_F(PlayingTest, LowerRationsRaiseProductionWhenTheWorkersAreSetAgain) {
    country.grain.ration = start::RationAt(0.38f, country.grain.baseRation);
    country.livestock.ration = start::RationAt(0.38f, country.livestock.baseRation);
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

TEST_F(PlayingTest, PeopleStarveFastOnlyIfAStoreIsEmpty) {
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

std::string Manual() {
    std::ifstream file(PLAYING_MD);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// A row of the manual's table of the start. Numbers are written as a stream writes them.
template <typename... Values>
std::string Row(const char* what, const Values&... values) {
    std::ostringstream row;
    row << "\n| " << what << " | ";
    (row << ... << values);
    row << " |\n";
    return row.str();
}

double Percent(Profession profession) {
    return static_cast<double>(start::Share(profession)) * 100.0;
}

TEST(ManualTest, TableOfTheStartHasTheNumbersOfTheStart) {
    const Population people(start::kPeople);
    const float heads = people.livestock.baseRation;
    const float units = people.grain.baseRation;
    const auto& sellers = start::kSellersOfFineGoods;
    const std::string rows[] = {
        Row("your country", start::kName),
        Row("date", start::kDate),
        Row("people", start::kPeople),
        Row("farmers", Percent(Profession::Farmers), '%'),
        Row("butchers", Percent(Profession::Butchers), '%'),
        Row("educators", Percent(Profession::Educators), '%'),
        Row("warriors", Percent(Profession::Warriors), '%'),
        Row("doctors", Percent(Profession::Doctors), '%'),
        Row("justice", start::kJustice),
        Row("sliders of the rations", start::kRation),
        Row("livestock ration", start::RationAt(start::kRation, heads),
            ", with its slider at the right end ", start::RationAt(1.0f, heads)),
        Row("grain ration", start::RationAt(start::kRation, units),
            ", with its slider at the right end ", start::RationAt(1.0f, units)),
        Row("neighbours", start::kNeighbours, ", each with ", start::kMinNeighbourPeople, " to ",
            start::kMaxNeighbourPeople, " people"),
        Row("neighbours that sell fine goods", sellers[0] + 1, ", ", sellers[1] + 1, " and ",
            sellers[2] + 1),
        Row("neighbour to trade with", start::kPartner + 1),
    };
    const std::string manual = Manual();
    for (const std::string& row : rows)
        EXPECT_THAT(manual, testing::HasSubstr(row));
}

TEST(ManualTest, TableOfTheChronicleHasARowForEveryEvent) {
    const std::string manual = Manual();
    for (std::size_t index = 0; index < Chronicle::kEventCount; ++index) {
        const auto event = static_cast<Chronicle::Event>(index);
        std::string sentence;
        Chronicle::Entry{event, Date(start::kDate), 0, {111.0, 222.0}}.WriteTo(sentence);
        std::string pattern = std::regex_replace(sentence, std::regex("[.!]"), "\\$&");
        pattern = std::regex_replace(pattern, std::regex("111|222"), "[0-9.]+");
        EXPECT_TRUE(std::regex_search(manual, std::regex("\n\\| " + pattern + " \\|"))) << sentence;
    }
}

TEST(ManualTest, TableOfTheAdviceBeginsWithTheResultsOfAThousandCountries) {
    constexpr int kCountries = 1000;
    Campaign campaign;
    campaign.weeks = 200.0;
    campaign.step = kSecondsPerWeek;
    double weeks = 0.0;
    int famines = 0;
    int plagues = 0;
    int rebellions = 0;
    double people = 0.0;
    for (campaign.seed = 1; campaign.seed <= kCountries; ++campaign.seed) {
        const Summary summary = Summarise(campaign);
        weeks += static_cast<double>(summary.weeks) / kCountries;
        famines += summary.famine ? 1 : 0;
        plagues += summary.plague ? 1 : 0;
        rebellions += summary.rebellion ? 1 : 0;
        people += static_cast<double>(summary.people.last) / kCountries;
    }
    char row[200];
    std::snprintf(row, sizeof row, "as the game starts%7.0f%7.1f%%%7.1f%%%10.1f%%%8.0f\n", weeks,
                  famines / 10.0, plagues / 10.0, rebellions / 10.0, std::max(people, 0.0));
    EXPECT_THAT(Manual(), testing::HasSubstr(row));
}

}  // namespace
