// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "app/historydisplay.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <string>

#include "app/app.h"
#include "app/tags.h"
#include "country/country.h"
#include "country/world.h"
#include "glwidget/chart.h"
#include "tests/app/game_fixture.h"

namespace {

class HistoryDisplayTest : public GameTest {
protected:
    Chart& ChartOf(std::string_view tag) { return dynamic_cast<Chart&>(Widget(tag)); }

    void PassWeeks(int weeks) {
        for (int week = 0; week < weeks; ++week) {
            Click("update");
            app->Update(0);
        }
    }

    /// What the chart says with the mouse at the right edge of its lines.
    std::string ReadingAtTheEnd(std::string_view tag, std::size_t index) {
        Chart& chart = ChartOf(tag);
        const Vector plot = chart.PlotBox();
        chart.MouseMove(plot.z, (plot.y + plot.w) / 2.0f);
        std::string reading(chart.ReadingOf(index));
        std::erase(reading, ',');  // between thousands
        return reading;
    }
};

TEST_F(HistoryDisplayTest, ChartsAreEmptyUntilTheFirstWeekIsOver) {
    StartGame();
    for (int second = 0; second < 50; ++second)
        app->Update(1001);
    for (const std::string_view tag :
         {tag::kPeopleChart, tag::kFoodChart, tag::kTreasuryChart, tag::kLawChart}) {
        EXPECT_FALSE(ChartOf(tag).HasData()) << tag;
    }
    PassWeeks(1);
    for (const std::string_view tag :
         {tag::kPeopleChart, tag::kFoodChart, tag::kTreasuryChart, tag::kLawChart}) {
        EXPECT_TRUE(ChartOf(tag).HasData()) << tag;
    }
}

TEST_F(HistoryDisplayTest, ReadingIsTheDateAndTheFiguresOfTheWeek) {
    StartGame();
    app->Update(0);
    PassWeeks(40);
    EXPECT_EQ(ReadingAtTheEnd("peoplechart", 0), app->GetWorld()->date.DayText());
    EXPECT_EQ(ReadingAtTheEnd("peoplechart", 0), "1359/2/20");
    const std::string people = ReadingAtTheEnd("peoplechart", 1);
    EXPECT_NE(people.find("People"), std::string::npos) << people;
    EXPECT_NE(people.find(std::to_string(std::lround(Player().population))), std::string::npos)
        << people;
    EXPECT_NE(ReadingAtTheEnd("peoplechart", 2).find("Idle"), std::string::npos);
    EXPECT_NE(ReadingAtTheEnd("foodchart", 1).find("Grain"), std::string::npos);
    EXPECT_NE(ReadingAtTheEnd("foodchart", 2).find("Livestock"), std::string::npos);
    const std::string funds = ReadingAtTheEnd("treasurychart", 1);
    EXPECT_NE(funds.find(std::to_string(std::lround(Player().funds))), std::string::npos) << funds;
    EXPECT_NE(ReadingAtTheEnd("lawchart", 1).find("Morale"), std::string::npos);
    std::array<char, 32> crime{};
    std::snprintf(crime.data(), crime.size(), "Crime %.2f",
                  static_cast<double>(Player().justice.crimeLevel));
    EXPECT_EQ(ReadingAtTheEnd("lawchart", 2), crime.data());
    EXPECT_EQ(ReadingAtTheEnd("lawchart", 3), "Justice 0.50");
}

TEST_F(HistoryDisplayTest, ChartsStayAsTheyAreUntilTheNextWeekIsOver) {
    StartGame();
    app->Update(0);
    PassWeeks(2);
    const std::string before = ReadingAtTheEnd("treasurychart", 1);
    Player().funds = 12345.0f;
    app->Update(1001);
    EXPECT_EQ(ReadingAtTheEnd("treasurychart", 1), before);
    PassWeeks(1);
    EXPECT_NE(ReadingAtTheEnd("treasurychart", 1), before);
}

}  // namespace
