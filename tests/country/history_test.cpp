// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/history.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <map>
#include <vector>

#include "country/country.h"
#include "country/rates.h"
#include "country/world.h"
#include "tests/country/rolls.h"
#include "tests/support/allocations.h"

namespace {

using Figure = History::Figure;
using testing::ElementsAre;

constexpr long kWeek = 604800;

class HistoryTest : public testing::Test {
protected:
    void Pass(int weeks) {
        for (int week = 0; week < weeks; ++week)
            history.Add(country, kWeek);
    }
    float Last(Figure figure) const { return history.Of(figure).back(); }

    Country country{"Merovinska", 38685};
    History history;
};

TEST_F(HistoryTest, EveryWeekOfTheButtonHasASample) {
    EXPECT_EQ(history.Size(), 0u);
    Pass(3);
    EXPECT_THAT(history.Weeks(), ElementsAre(1.0f, 2.0f, 3.0f));
    EXPECT_EQ(history.WeeksPassed(), 3);
}

TEST_F(HistoryTest, StepsOfTheClockAddASampleWhenAWeekIsOver) {
    long passed = 0;
    for (int tick = 0; tick < 6000; ++tick) {
        const long seconds = 300 + tick % 60;
        country.population = static_cast<float>(tick);
        const std::size_t before = history.Size();
        history.Add(country, seconds);
        const bool over = (passed + seconds) / kWeek > passed / kWeek;
        passed += seconds;
        ASSERT_EQ(history.Size(), before + (over ? 1u : 0u));
        if (over) {
            ASSERT_EQ(Last(Figure::Population), static_cast<float>(tick));
            ASSERT_EQ(history.Weeks().back(), static_cast<float>(passed / kWeek));
        }
    }
    EXPECT_EQ(history.WeeksPassed(), passed / kWeek);
    EXPECT_EQ(history.WeeksPassed(), 3);
}

TEST_F(HistoryTest, AdvanceOfSeveralWeeksAddsASampleForTheLastOfThem) {
    history.Add(country, 5 * kWeek + 10);
    history.Add(country, kWeek - 10);
    EXPECT_THAT(history.Weeks(), ElementsAre(5.0f, 6.0f));
}

TEST_F(HistoryTest, SampleHasTheFiguresOfTheCountry) {
    country.population = 40000.0f;
    country.SetShare(Profession::Doctors, 0.125f);
    country.grain.amount = 24000.0f;
    country.livestock.amount = 6000.0f;
    country.livestock.production = 0.005f;
    country.funds = -12.5f;
    country.morale = 0.625f;
    country.justice.crimeLevel = 0.75f;
    country.justice.justiceLevel = 0.375f;
    Pass(1);
    EXPECT_EQ(Last(Figure::Population), 40000.0f);
    EXPECT_EQ(Last(Figure::Idle), 5000.0f);
    EXPECT_EQ(Last(Figure::Grain), 24000.0f);
    EXPECT_FLOAT_EQ(Last(Figure::GrainNeed), 8000.0f);
    EXPECT_FLOAT_EQ(Last(Figure::GrainWeeks), 3.0f);
    EXPECT_EQ(Last(Figure::Livestock), 6000.0f);
    EXPECT_FLOAT_EQ(Last(Figure::LivestockNeed), 4000.0f);
    EXPECT_FLOAT_EQ(Last(Figure::LivestockWeeks), 1.5f);
    EXPECT_NEAR(Last(Figure::LivestockLimit), 3.0 * 0.005 * 604800.0 / 4000.0, 1e-5);
    EXPECT_EQ(Last(Figure::Funds), -12.5f);
    EXPECT_EQ(Last(Figure::Morale), 0.625f);
    EXPECT_EQ(Last(Figure::Crime), 0.75f);
    EXPECT_EQ(Last(Figure::Justice), 0.375f);
}

TEST_F(HistoryTest, HerdBelowItsLimitIsLostAndHerdAboveItIsNot) {
    country.SetMessageStream(nullptr);
    country.SetShare(Profession::Doctors, 0.25f);
    country.Normalise(Profession::Butchers);
    for (const float amount : {11600.0f, 11610.0f}) {
        country.livestock.amount = amount;
        Pass(1);
        const bool below = Last(Figure::LivestockWeeks) < Last(Figure::LivestockLimit);
        Country& advanced = country;
        advanced.Process(static_cast<float>(kWeek));
        EXPECT_EQ(below, advanced.livestock.amount == 0.0f) << amount;
        country.Normalise(Profession::Butchers);
    }
}

TEST_F(HistoryTest, HerdHasNoLimitIfNoButcherWorks) {
    country.livestock.production = -0.09f;
    Pass(1);
    EXPECT_EQ(Last(Figure::LivestockLimit), 0.0f);
    country.livestock.production = 0.09f;
    country.rebellion = true;
    Pass(1);
    EXPECT_EQ(Last(Figure::LivestockLimit), 0.0f);
}

TEST_F(HistoryTest, FamineRaisesTheNeedByHalf) {
    Pass(1);
    const float need = Last(Figure::GrainNeed);
    country.famineTime = 1.0f;
    Pass(1);
    EXPECT_FLOAT_EQ(Last(Figure::GrainNeed), 1.5f * need);
}

TEST_F(HistoryTest, NeedOfNothingMakesTheStoreLastForever) {
    country.grain.ration = 0.0f;
    Pass(1);
    EXPECT_TRUE(std::isinf(Last(Figure::GrainWeeks)));
}

TEST_F(HistoryTest, WeekIsMarkedWithEveryDisasterThatWasInProgressInIt) {
    Pass(1);
    country.plagueTime = 1.0f;
    history.Add(country, 1000);
    country.plagueTime = 0.0f;
    history.Add(country, 1000);
    country.famineTime = 5.0f;
    history.Add(country, kWeek - 2000);
    country.famineTime = 0.0f;  // it ends in this week
    country.rebellion = true;
    Pass(2);
    const int famine = History::kFamine;
    const int plague = History::kPlague;
    const int rebellion = History::kRebellion;
    EXPECT_THAT(history.Marks(), ElementsAre(0, famine | plague, famine | rebellion, rebellion));
}

TEST_F(HistoryTest, RecentWeeksOfALongReignAreAllThereAndOlderOnesAreEvenlySpaced) {
    std::map<int, int> marked;
    for (int week = 1; week <= 100000; ++week) {
        country.population = static_cast<float>(week);
        country.rebellion = week % 997 == 3;
        marked[week] = country.rebellion || week % 997 == 4 ? 4 : 0;
        history.Add(country, kWeek);
        ASSERT_LE(history.Size(), History::kMaxSamples);
        if (week % 1237 != 0 && week > 3000)
            continue;
        const auto weeks = history.Weeks();
        const auto marks = history.Marks();
        ASSERT_EQ(history.Of(Figure::Population).size(), weeks.size());
        ASSERT_EQ(marks.size(), weeks.size());
        int before = 0;
        float widest = 1.0f;
        for (std::size_t index = 0; index < weeks.size(); ++index) {
            ASSERT_EQ(history.Of(Figure::Population)[index], weeks[index]);
            const int number = static_cast<int>(weeks[index]);
            ASSERT_GT(number, before);
            if (number > week - 519) {
                ASSERT_EQ(number, before + 1);
            }
            int disasters = 0;
            for (int covered = before + 1; covered <= number; ++covered)
                disasters |= marked[covered];
            ASSERT_EQ(marks[index], disasters) << "week " << number << " of " << week;
            widest = std::max(widest, static_cast<float>(number - before));
            before = number;
        }
        ASSERT_EQ(before, week);
        // About half of the samples show the older weeks: none of their gaps is much wider.
        ASSERT_LE(widest, std::max(1.0f, 8.0f * static_cast<float>(week) / 1040.0f));
    }
}

TEST_F(HistoryTest, MemoryIsAllocatedForTheFirstSampleAndNeverAgain) {
    std::size_t before = AllocationCount();
    history.Add(country, 1000);
    EXPECT_EQ(AllocationCount(), before);
    const std::size_t bytes = AllocatedBytes();
    Pass(1);
    EXPECT_LT(AllocatedBytes() - bytes, 100000u);
    before = AllocationCount();
    Pass(20000);
    EXPECT_EQ(AllocationCount(), before);
}

TEST_F(HistoryTest, AddingASampleRollsNothing) {
    ExpectRolls(0, [&] { Pass(2000); });
}

TEST(HistoryOfWorldTest, AdvanceAddsTheFiguresOfThePlayersCountryAtTheEndOfTheWeek) {
    std::srand(1);
    World world;
    world.player.SetMessageStream(nullptr);
    for (int week = 1; week <= 120; ++week) {
        world.Advance(static_cast<float>(kWeek));
        ASSERT_EQ(world.history.WeeksPassed(), week);
        ASSERT_EQ(world.history.Of(Figure::Population).back(), world.player.population);
        ASSERT_EQ(world.history.Of(Figure::Grain).back(), world.player.grain.amount);
        ASSERT_EQ(world.history.Of(Figure::Funds).back(), world.player.funds);
        const bool famine = (world.history.Marks().back() & History::kFamine) != 0;
        ASSERT_TRUE(famine || !world.player.InFamine());
    }
    EXPECT_EQ(world.history.Size(), 120u);
}

}  // namespace
