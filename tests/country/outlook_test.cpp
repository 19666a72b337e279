// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/outlook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>
#include <random>
#include <string>

#include "country/country.h"
#include "country/rates.h"
#include "tests/country/rolls.h"
#include "tests/support/allocations.h"

namespace {

using Trend = Outlook::Trend;
using Butchers = HerdOutlook::Butchers;

constexpr float kWeek = kSecondsPerWeek;

template <typename Any>
std::string Text(const Any& outlook) {
    std::string text;
    outlook.WriteTo(text);
    return text;
}

class OutlookTest : public testing::Test {
protected:
    OutlookTest() {
        country.SetMessageStream(nullptr);
        country.SetShare(Profession::Farmers, 0.25f);
        country.SetShare(Profession::Butchers, 0.5f);
        country.SetShare(Profession::Doctors, 0.25f);  // nobody is idle, so nobody is born
        country.Normalise(Profession::Doctors);
    }

    std::string Grain() const { return Text(GrainOutlook(country)); }
    std::string Herd() const { return Text(LivestockOutlook(country)); }

    Country country{"Merovinska", 38685};
};

TEST_F(OutlookTest, StoreThatLosesAsMuchAsItGetsHardlyChanges) {
    EXPECT_EQ(Grain(), "hardly changes");
}

TEST_F(OutlookTest, StoreThatGetsMoreThanItLosesGrows) {
    country.grain.production *= 1.1f;
    EXPECT_EQ(Grain(), "grows");
}

TEST_F(OutlookTest, StoreLastsForTheWholeWeeksThatTheSimulationConfirms) {
    country.grain.production = 0.0f;  // 7737 units a week of 24000
    EXPECT_EQ(Grain(), "lasts 3 weeks");
    EXPECT_NEAR(GrainOutlook(country).weeks, 24000.0f / 7737.0f, 1e-4f);
    for (const char* const expected : {"lasts 2 weeks", "lasts 1 week", "lasts less than a week"}) {
        country.Process(kWeek);
        EXPECT_EQ(Grain(), expected);
    }
    country.Process(kWeek);
    EXPECT_EQ(country.grain.amount, 0.0f);
    EXPECT_EQ(Grain(), "is empty");
}

TEST_F(OutlookTest, EmptyStoreThatIsFilledInTheWeekGrows) {
    country.grain.production *= 2.0f;
    country.grain.amount = 0.0f;
    EXPECT_EQ(Grain(), "grows");
}

TEST_F(OutlookTest, RebellionStopsTheProduction) {
    country.rebellion = true;
    EXPECT_EQ(Grain(), "lasts 3 weeks");
    EXPECT_EQ(Herd(), "lasts 3 weeks");
}

TEST_F(OutlookTest, FamineMakesTheStoreLastShorterUnlessItEndsInTheWeek) {
    country.grain.production = 0.0f;
    country.famineTime = 2.0f * kWeek;
    EXPECT_EQ(Grain(), "lasts 2 weeks");
    country.famineTime = kWeek;
    EXPECT_EQ(Grain(), "lasts 3 weeks");
}

TEST_F(OutlookTest, DeadOfADisasterCanDecideWhetherASmallStoreGrows) {
    country.grain.amount = 10.0f;
    country.plagueTime = 5.0f * kWeek;
    country.grain.production = 0.2f * 38410.0f / kWeek;  // 38357 to 38457 eat
    country.SetShare(Profession::Doctors, 0.0f);
    EXPECT_EQ(Grain(), "may grow or shrink");
}

TEST_F(OutlookTest, InfiniteProductionGrows) {
    country.grain.production = std::numeric_limits<float>::infinity();
    country.livestock.production = std::numeric_limits<float>::infinity();
    EXPECT_EQ(Grain(), "grows");
    EXPECT_EQ(Herd(), "grows");
}

TEST_F(OutlookTest, HerdShowsHowMuchOfItTheButchersTake) {
    const HerdOutlook outlook = LivestockOutlook(country);
    EXPECT_FLOAT_EQ(outlook.part, 3868.5f / 15000.0f);
    EXPECT_NEAR(outlook.limit, 1.0f / 3.0f, 1e-6f);
    EXPECT_EQ(Herd(), "hardly changes, butchers take 25.7%, above 33.3% it is lost");
}

TEST_F(OutlookTest, HerdIsLostAboveTheLimitAndNotBelowIt) {
    country.livestock.amount = 11600.0f;
    EXPECT_EQ(Herd(), "is lost if you press Week: butchers take 33.4%, the limit is 33.3%");
    country.livestock.amount = 11610.0f;
    EXPECT_EQ(Herd(), "hardly changes, butchers take 33.3%, above 33.3% it is lost");
    country.Process(kWeek);
    EXPECT_GT(country.livestock.amount, 11000.0f);
}

TEST_F(OutlookTest, LargeHerdLosesOnlyAPart) {
    country.livestock.amount = 200000.0f;
    country.livestock.production = 0.21f;
    EXPECT_EQ(Herd(), "grows, butchers take more than 33.3%");
}

TEST_F(OutlookTest, ButchersWhoRaiseNothingAreReported) {
    country.livestock.production = -0.09f;
    EXPECT_EQ(Herd(), "lasts less than a week, butchers idle: move their slider");
    country.livestock.amount = 0.0f;
    EXPECT_EQ(Herd(), "is empty");
}

TEST_F(OutlookTest, HerdWithoutButchersHasOnlyItsTrend) {
    country.SetShare(Profession::Butchers, 0.0f);
    country.Normalise(Profession::Butchers);
    EXPECT_EQ(Herd(), "lasts 3 weeks");
}

TEST_F(OutlookTest, OutlookRollsNothing) {
    country.famineTime = country.plagueTime = 5.0f * kWeek;
    ExpectRolls(0, [&] {
        GrainOutlook(country);
        LivestockOutlook(country);
    });
}

TEST_F(OutlookTest, WritingToATextWithRoomAllocatesNothing) {
    std::string text;
    text.reserve(200);
    const std::size_t before = AllocationCount();
    GrainOutlook(country).WriteTo(text);
    LivestockOutlook(country).WriteTo(text);
    EXPECT_EQ(AllocationCount(), before);
}

/// A country in any state.
class RandomCountry {
public:
    explicit RandomCountry(unsigned seed) : random(seed) {
        country.SetMessageStream(nullptr);
        country.population = UpTo(Chance(0.1f) ? 2000.0f : 100000.0f);
        for (const Profession profession : kProfessions) {
            country.SetShare(profession, Chance(0.2f) ? 0.0f : UpTo(0.6f));
            country.Normalise(profession);
        }
        Fill(country.grain);
        Fill(country.livestock);
        country.Normalise(Profession::Farmers);
        if (Chance(0.5f))
            country.population *= 0.5f + UpTo(1.0f);  // since the workers were set
        if (Chance(0.2f))
            country.grain.ration = UpTo(0.5f);
        if (Chance(0.1f))
            country.livestock.production = -UpTo(0.1f);
        country.elapsed = UpTo(1e8f);
        country.famineTime = Chance(0.3f) ? UpTo(3.0f) * kWeek : 0.0f;
        country.plagueTime = Chance(0.3f) ? UpTo(3.0f) * kWeek : 0.0f;
        country.famineChance = UpTo(0.3f);
        country.rebellion = Chance(0.1f);
        country.morale = UpTo(0.6f);
        country.justice.crimeLevel = UpTo(1.0f);
    }

    Country country{"Merovinska", 38685};

private:
    float UpTo(float highest) {
        return std::uniform_real_distribution<float>(0.0f, highest)(random);
    }
    bool Chance(float part) { return UpTo(1.0f) < part; }
    void Fill(FoodStock& stock) {
        stock.ration = Chance(0.05f) ? 0.0f : UpTo(2.0f) * stock.baseRation;
        stock.amount = Chance(0.1f) ? 0.0f : std::pow(10.0f, UpTo(6.5f));
    }

    std::mt19937 random;
};

/// Whether a week was as the outlook said. Nothing is allowed for but the rounding of floats.
void ExpectRight(const Outlook& outlook, float after, bool random) {
    const float rounding = random ? 1e-5f * (outlook.amount + std::fabs(outlook.highest)) : 0.0f;
    EXPECT_GE(after, outlook.lowest - rounding);
    EXPECT_LE(after, outlook.highest + rounding);
    switch (outlook.trend) {
    case Trend::Empty:
    case Trend::RunsOut:
        EXPECT_EQ(after, 0.0f);
        break;
    case Trend::Lasts:
        EXPECT_LE(after, outlook.amount);
        EXPECT_GE(outlook.weeks, 1.0f);
        EXPECT_GE(after, outlook.amount * (1.0f - 1.0f / outlook.weeks) - rounding
                             - 1e-5f * outlook.amount);
        break;
    case Trend::Steady:
        EXPECT_NEAR(after, outlook.amount, 0.00101f * outlook.amount);
        break;
    case Trend::Uncertain:
        EXPECT_TRUE(random);
        break;
    case Trend::Grows:
        EXPECT_GT(after, outlook.amount);
        break;
    }
}

TEST(OutlookOfRandomCountriesTest, OutlookIsRightAWeekOnForTwoThousandStates) {
    std::map<Trend, int> trends;
    std::map<Butchers, int> butchers;
    int states = 0;
    for (unsigned seed = 1; states < 2000; ++seed) {
        RandomCountry state(seed);
        Country& country = state.country;
        const Outlook grain = GrainOutlook(country);
        const HerdOutlook herd = LivestockOutlook(country);
        const DisasterCount disasters = country.disasters;
        const bool rebellion = country.rebellion;
        const bool random = country.InFamine() || country.InPlague();
        const float production = country.livestock.production;
        std::srand(seed);
        country.Process(kWeek);
        if (country.disasters.famines != disasters.famines || country.rebellion != rebellion)
            continue;  // an outlook does not know what begins in the week
        ++states;
        SCOPED_TRACE(seed);
        ExpectRight(grain, country.grain.amount, random);
        ExpectRight(herd, country.livestock.amount, random);
        const bool lowered = country.livestock.production < production;
        EXPECT_EQ(lowered && herd.butchers != Butchers::Idle && herd.butchers != Butchers::None,
                  herd.butchers == Butchers::TakeAll || herd.butchers == Butchers::TakeMore);
        if (herd.butchers == Butchers::TakeAll) {
            EXPECT_EQ(country.livestock.amount, 0.0f);
        }
        if (herd.butchers == Butchers::Raise) {
            EXPECT_LE(herd.part, herd.limit * 1.0001f);
        }
        ++trends[grain.trend];
        ++trends[herd.trend];
        ++butchers[herd.butchers];
        if (testing::Test::HasFailure())
            return;
    }
    for (const Trend trend : {Trend::Empty, Trend::RunsOut, Trend::Lasts, Trend::Steady,
                              Trend::Uncertain, Trend::Grows})
        EXPECT_GT(trends[trend], 4) << static_cast<int>(trend);
    for (const Butchers work :
         {Butchers::None, Butchers::Idle, Butchers::Raise, Butchers::TakeAll, Butchers::TakeMore})
        EXPECT_GT(butchers[work], 5) << static_cast<int>(work);
}

}  // namespace
