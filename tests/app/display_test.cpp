// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "app/display.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

#include "app/app.h"
#include "country/country.h"
#include "country/world.h"
#include "glwidget/glwidget.h"
#include "quarn2/strings.h"
#include "tests/app/game_fixture.h"

namespace {

class DisplayTest : public GameTest {
protected:
    Display display;
};

TEST_F(DisplayTest, ValueIsMultipliedFormattedAndShownByTheLabelOfItsName) {
    StartLayout();
    display.SetValue("farmers", "Farmers: %.0f%%", 0.25, 100.0);
    EXPECT_EQ(Text("farmerslab"), "Farmers: 25%");
}

TEST_F(DisplayTest, NegativeValueThatIsRoundedToZeroIsShownWithoutASign) {
    StartLayout();
    display.SetValue("farmers", "Farmers: %.0f%%", -0.004, 100.0);
    EXPECT_EQ(Text("farmerslab"), "Farmers: 0%");
    display.SetValue("lration", "Livestock Ration: %.3f", -0.0001);
    EXPECT_EQ(Text("lrationlab"), "Livestock Ration: 0.000");
    display.SetValue("lration", "Livestock Ration: %.3f", -0.001);
    EXPECT_EQ(Text("lrationlab"), "Livestock Ration: -0.001");
}

TEST_F(DisplayTest, ValueTextIsCutAt511Characters) {
    StartLayout();
    display.SetValue("farmers", "%0600.0f", 1.0);
    EXPECT_EQ(Text("farmerslab").size(), 511u);
}

TEST_F(DisplayTest, StoreShowsLargeAmountsInFullDigits) {
    StartGame();
    Player().livestock.amount = 9999999.0f;
    Player().grain.amount = 19999998.0f;
    display.ShowStore(Player());
    EXPECT_EQ(Text("storelab"), "Livestock: 9999999\nGrain: 19999998");
}

TEST_F(DisplayTest, StoreShowsAnAmountJustBelowZeroAsZero) {
    StartGame();
    Player().livestock.amount = -0.25f;
    display.ShowStore(Player());
    EXPECT_EQ(Text("storelab"), "Livestock: 0\nGrain: 24000");
}

TEST_F(DisplayTest, PopulationHasEightLinesAndNoLineBreakAtTheEnd) {
    StartGame();
    display.ShowPopulation(Player());
    EXPECT_EQ(Text("popinfo"),
              "Population Statistics: \nTotal: 38685\nFarmers: 9671\nButchers: 19343\n"
              "Educators: 0\nWarriors: 0\nDoctors: 0\nIdle: 9671");
}

TEST_F(DisplayTest, ContinentHasALineForEachNeighbourAndEndsWithALineBreak) {
    StartGame();
    display.ShowContinent(*app->GetWorld());
    std::ostringstream expected;
    expected << "Continent Information: \n"
                "Buy Cost of Livestock, Grain. Sell Cost of Livestock, Grain.\n";
    int number = 0;
    for (const auto& country : app->GetWorld()->countries)
        expected << "Country " << ++number << ": " << country->name << " - "
                 << country->livestockBuyPrice << ' ' << country->grainBuyPrice << ' '
                 << country->livestockSellPrice << ' ' << country->grainSellPrice << '\n';
    EXPECT_EQ(Text("continentinfo"), expected.str());
    EXPECT_EQ(substr_count(Text("continentinfo"), "\n"), 14u);
}

TEST_F(DisplayTest, FundsAreShownWithSixDigits) {
    StartGame();
    Player().funds = -1234567.0f;
    display.ShowFunds(Player());
    EXPECT_EQ(Text("funds"), "Government funds: -1.23457e+06 doubloons");
    Player().funds = -0.0f;
    display.ShowFunds(Player());
    EXPECT_EQ(Text("funds"), "Government funds: 0 doubloons");
}

TEST_F(DisplayTest, DateIsShownWithoutLeadingZeros) {
    StartGame();
    display.ShowDate(app->GetWorld()->date);
    EXPECT_EQ(Text("date"), "The date is 1358/5/16 0:0:0");
}

TEST_F(DisplayTest, FiguresHaveThirteenLines) {
    StartGame();
    display.ShowFigures(Player());
    EXPECT_EQ(Text("debuginfo"),
              "The Justice level is 0.4\n"
              "The Crime level is 0.6\n"
              "\n"
              "The population's morale is 0.5\n"
              "The population's opinion is 0.5\n"
              "The military's recruits: 1350\n"
              "The military's average skill: 0.3\n"
              "The military's weekly cost: 32.7115\n"
              "The military oppressing: 0\n"
              "The military patrolling: 0.4\n"
              "The famine chance: 0    Famine: 0    Famine Length: 0\n"
              "Plague: 0    Plague Length: 0\n"
              "Revolt: 0    Rebellion: 0");
}

TEST_F(DisplayTest, FiguresShowDisastersInProgressWithTheirWholeSeconds) {
    StartGame();
    Country& player = Player();
    player.morale = 0.25f;
    player.opinion = 0.75f;
    player.military.oppressing = 0.125f;
    player.famineChance = -0.001f;
    player.famineTime = 10886400.0f;
    player.plagueTime = 0.25f;  // above 0, so the plague is in progress
    player.rebellion = true;
    display.ShowFigures(player);
    EXPECT_EQ(Text("debuginfo"),
              "The Justice level is 0.4\n"
              "The Crime level is 0.6\n"
              "\n"
              "The population's morale is 0.25\n"
              "The population's opinion is 0.75\n"
              "The military's recruits: 1350\n"
              "The military's average skill: 0.3\n"
              "The military's weekly cost: 32.7115\n"
              "The military oppressing: 0.125\n"
              "The military patrolling: 0.4\n"
              "The famine chance: -0.001    Famine: 1    Famine Length: 10886400\n"
              "Plague: 1    Plague Length: 0\n"
              "Revolt: 0    Rebellion: 1");
    player.revolt = true;
    player.rebellion = false;
    display.ShowFigures(player);
    EXPECT_TRUE(Text("debuginfo").ends_with("Revolt: 1    Rebellion: 0"));
}

TEST_F(DisplayTest, FrameRateIsShownIfTheLayoutHasALabelForIt) {
    StartLayout();
    display.ShowFrameRate(60);
    EXPECT_EQ(Text("fps"), "FPS: 60");
    GLWidget::tags["fps"] = nullptr;
    display.ShowFrameRate(61);
}

}  // namespace
