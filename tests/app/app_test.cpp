// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <string>

#include "app/app.h"
#include "app/tags.h"
#include "country/country.h"
#include "country/date.h"
#include "country/start.h"
#include "country/world.h"
#include "glwidget/glwidget.h"
#include "quarn2/strings.h"
#include "quarn2/trace.h"
#include "tests/app/game_fixture.h"

namespace {

/// The seconds since the beginning of the date's month.
long SecondOfMonth(const World& world) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    std::sscanf(world.date.Text().c_str(), "%d/%d/%d %d:%d:%d", &year, &month, &day, &hour, &minute,
                &second);
    return ((day * 24L + hour) * 60 + minute) * 60 + second;
}

/// Counts the key events that reach it, keeps the keys of the last one, and shows its age.
class KeyListener : public GLWidget {
public:
    KeyListener() : GLWidget("listener", nullptr, Vector(0.0f, 0.0f), nullptr) {
        widgets.push_back(this);
    }
    ~KeyListener() override {
        widgets.remove(this);
        tags.erase("listener");
    }

    bool TextKeyPress(const KeyFlags& keys) override {
        ++events;
        last = keys;
        return true;
    }
    bool MouseClick(bool, bool, bool) override { return false; }
    void Render() override {}
    void SetFocussed(GLWidget*) override {}

    int Age() const { return age; }

    int events = 0;
    KeyFlags last{};
};

using AppTest = GameTest;

class PartnerTest : public GameTest {
protected:
    /// Opens the list of partners and chooses a row, from 0.
    void Choose(int row) {
        GLWidget& list = Widget("countrysel");
        const Vector box = list.Getbbox();
        const float middle = (box.x + box.z) / 2.0f;
        const float rowHeight = 2.0f * list.GetTheme().fontSize.y;
        list.MouseMove(middle, (box.y + box.w) / 2.0f);
        list.MouseClick(true, false, false);
        list.MouseClick(false, false, false);
        // the row is rounded; a quarter is inside the first row
        list.MouseMove(middle, box.y - std::max(static_cast<float>(row), 0.25f) * rowHeight);
        list.MouseClick(true, false, false);
        list.MouseClick(false, false, false);
    }
};

TEST_F(AppTest, NewWorldIsMerovinskaWithTwelveNeighboursAndThreePartners) {
    StartGame();
    EXPECT_EQ(Player().name, "Merovinska");
    EXPECT_EQ(Player().population, 38685.0f);
    ASSERT_EQ(app->GetWorld()->countries.size(), 12u);
    EXPECT_EQ(app->GetWorld()->date.Text(), "1358/5/16 0:0:0");
    EXPECT_EQ(Text("newspaper"), "Merovinska Newspaper");
    std::size_t partners = 0;
    for (const auto& [country, sells] : Player().tradePartners)
        partners += sells ? 1u : 0u;
    EXPECT_EQ(partners, 3u);
    EXPECT_EQ(Widget("countrysel").GetCurrentText(),
              app->GetWorld()->countries[start::kPartner]->name);
}

TEST_F(AppTest, NewGameSetsEverySliderToItsFirstLevel) {
    StartGame();
    const std::pair<const char*, float> levels[] = {
        {"lration", 0.5f},    {"gration", 0.5f},  {"farmers", 0.251f},   {"butchers", 0.501f},
        {"educators", 0.01f}, {"warriors", 0.0f}, {"doctors", 0.0f},     {"stockbuy", 0.0f},
        {"grainbuy", 0.0f},   {"finebuy", 0.0f},  {"justiceslide", 0.5f}};
    for (const auto& [slider, level] : levels)
        EXPECT_EQ(Widget(slider).GetLevel(), level) << slider;
    EXPECT_EQ(Widget("justiceslide").GetLevel(), start::kJustice);
}

TEST_F(AppTest, AnotherSeedGivesOtherNeighboursButTheSamePlayer) {
    StartGame(1);
    const std::string firstNeighbour = app->GetWorld()->countries[0]->name;
    const float firstPrice = app->GetWorld()->countries[0]->livestockBuyPrice;
    Pointer<App> other = new App;
    std::srand(2);
    other->CreateWorld();
    EXPECT_NE(other->GetWorld()->countries[0]->name, firstNeighbour);
    EXPECT_NE(other->GetWorld()->countries[0]->livestockBuyPrice, firstPrice);
    EXPECT_EQ(other->GetWorld()->player.name, "Merovinska");
    EXPECT_EQ(other->GetWorld()->player.population, 38685.0f);
}

TEST_F(AppTest, InitialSetupMakesTheWorldWithTheTimeAsSeed) {
    StartLayout();
    const std::time_t before = std::time(nullptr);
    EXPECT_TRUE(app->GotEvent(Event(InitialSetupEvent)));
    const std::time_t after = std::time(nullptr);
    ASSERT_NE(app->GetWorld(), nullptr);
    EXPECT_EQ(Player().name, "Merovinska");
    bool isOfThatTime = false;
    for (std::time_t second = before; second <= after; ++second) {
        std::srand(static_cast<unsigned>(second));
        const World ofThatSecond;
        isOfThatTime = isOfThatTime
                       || (Player().funds == ofThatSecond.player.funds
                           && Player().grainBuyPrice == ofThatSecond.player.grainBuyPrice
                           && app->GetWorld()->countries[11]->grainBuyPrice
                                  == ofThatSecond.countries[11]->grainBuyPrice);
    }
    EXPECT_TRUE(isOfThatTime);
}

TEST_F(AppTest, FirstFrameSharesFollowTheSlidersAndAreNormalised) {
    StartGame();
    ASSERT_TRUE(app->Update(0));
    EXPECT_EQ(Player().Share(Profession::Farmers), 0.251f);
    EXPECT_EQ(Player().Share(Profession::Butchers), 0.501f);
    EXPECT_EQ(Player().Share(Profession::Educators), 0.01f);
    EXPECT_EQ(Player().Share(Profession::Warriors), 0.0f);
    EXPECT_EQ(Player().Share(Profession::Doctors), 0.0f);
    EXPECT_GT(Player().grain.production, 0.0f);
    EXPECT_GT(Player().livestock.production, 0.0f);
}

TEST_F(AppTest, FirstFrameSetsAndNormalisesTheSharesOneAfterTheOther) {
    StartGame();
    Population expected(38685);
    for (const Profession profession : kProfessions) {
        SetLevel(tag::Of(profession).slider, 0.4f);
        expected.SetShare(profession, 0.4f);
        expected.Normalise(profession);
    }
    ASSERT_TRUE(app->Update(0));
    for (const Profession profession : kProfessions)
        EXPECT_EQ(Player().Share(profession), expected.Share(profession));
    EXPECT_EQ(Player().Share(Profession::Doctors), 0.4f);
    EXPECT_LT(Player().Share(Profession::Warriors), 0.4f);
}

TEST_F(AppTest, JusticeFollowsItsSliderFromTheFirstFrame) {
    StartGame();
    EXPECT_EQ(Player().justice.justiceLevel, 0.4f);
    app->Update(0);
    EXPECT_EQ(Player().justice.justiceLevel, 0.5f);
    SetLevel("justiceslide", 0.75f);
    app->Update(0);
    EXPECT_EQ(Player().justice.justiceLevel, 0.75f);
}

TEST_F(AppTest, RationSlidersInTheMiddleGiveTheBaseRations) {
    StartGame();
    app->Update(0);
    EXPECT_EQ(Player().livestock.ration, Player().livestock.baseRation);
    EXPECT_EQ(Player().grain.ration, Player().grain.baseRation);
    EXPECT_EQ(Text("lrationlab"), "Livestock Ration: 0.100");
    EXPECT_EQ(Text("grationlab"), "Grain Ration: 0.200");
}

TEST_F(AppTest, RationSliderAtItsRightEndGivesTwiceTheBaseRation) {
    StartGame();
    SetLevel("lration", 1.0f);
    SetLevel("gration", 0.0f);
    app->Update(0);
    EXPECT_EQ(Text("lrationlab"), "Livestock Ration: 0.200");
    EXPECT_EQ(Text("grationlab"), "Grain Ration: 0.000");
}

TEST_F(AppTest, RationButtonsMoveTheirSlidersByOneHundredth) {
    StartGame();
    app->Update(0);
    Click("lration--");
    Click("gration++");
    app->Update(0);
    EXPECT_EQ(Widget("lration").GetLevel(), 0.5f - 0.01f);
    EXPECT_EQ(Widget("gration").GetLevel(), 0.5f + 0.01f);
    Click("lration++");
    Click("gration--");
    app->Update(0);
    EXPECT_FLOAT_EQ(Widget("lration").GetLevel(), 0.5f);
    EXPECT_FLOAT_EQ(Widget("gration").GetLevel(), 0.5f);
}

TEST_F(AppTest, ButtonForLessActsBeforeTheButtonForMoreInTheSameFrame) {
    StartGame();
    app->Update(0);
    for (const std::string name : {"lration", "gration", "doctors"}) {
        SetLevel(name, 1.0f);
        Click(name + "++");
        Click(name + "--");
        app->Update(0);
        EXPECT_FLOAT_EQ(Widget(name).GetLevel(), 1.0f) << name;  // down and up again
        SetLevel(name, 0.0f);
        Click(name + "++");
        Click(name + "--");
        app->Update(0);
        EXPECT_EQ(Widget(name).GetLevel(), 0.01f) << name;  // 0 cannot go down, then up
    }
}

TEST_F(AppTest, RationCanBeLoweredToZeroWithoutAnError) {
    StartGame();
    app->Update(0);
    for (int press = 0; press < 52; ++press) {
        Click("lration--");
        app->Update(0);
    }
    EXPECT_EQ(Widget("lration").GetLevel(), 0.0f);
    EXPECT_EQ(Text("lrationlab"), "Livestock Ration: 0.000");
    Click("butchers++");  // sets the production again, at a ration of 0
    app->Update(0);
    Click("update");
    EXPECT_TRUE(app->Update(0));
}

TEST_F(AppTest, RationWhoseLabelIsMissingStaysAtTheBaseRation) {
    StartLayout({"lrationlab"});
    GLWidget::tags["lrationlab"] = nullptr;
    std::srand(kSeed);
    app->CreateWorld();
    SetLevel("lration", 1.0f);
    SetLevel("gration", 1.0f);
    app->Update(0);
    EXPECT_EQ(Player().livestock.ration, 0.1f);
    EXPECT_EQ(Player().grain.ration, 0.4f);
}

TEST_F(AppTest, MoreFarmersButtonSetsTheShareAndItsLabel) {
    StartGame();
    app->Update(0);
    Click("farmers++");
    app->Update(0);
    EXPECT_FLOAT_EQ(Player().Share(Profession::Farmers), 0.261f);
    EXPECT_EQ(Text("farmerslab"), "Farmers: 26%");
}

TEST_F(AppTest, ProductionUsesTheRationOfTheFrameBefore) {
    StartGame();
    app->Update(0);
    SetLevel("gration", 1.0f);
    Click("farmers++");
    app->Update(0);
    Grain atTheOldRation;
    atTheOldRation.SetWorkers(Player().Count(Profession::Farmers));
    EXPECT_EQ(Player().grain.production, atTheOldRation.production);
    EXPECT_EQ(Player().grain.ration, 0.4f);
}

TEST_F(AppTest, FewerButchersButtonSetsTheShareAndItsLabel) {
    StartGame();
    app->Update(0);
    Click("butchers--");
    app->Update(0);
    EXPECT_FLOAT_EQ(Player().Share(Profession::Butchers), 0.491f);
    EXPECT_EQ(Text("butcherslab"), "Butchers: 49%");
}

TEST_F(AppTest, ProfessionLabelsShowTheSharesAfterNormalising) {
    StartGame();
    app->Update(0);
    SetLevel("farmers", 0.8f);
    Click("farmers++");  // 0.81 and 0.511 of the others: 0.321 too much
    app->Update(0);
    EXPECT_EQ(Text("farmerslab"), "Farmers: 81%");
    EXPECT_EQ(Text("butcherslab"), "Butchers: 42%");
    EXPECT_EQ(Text("educatorslab"), "Educators: 0%");
    EXPECT_EQ(Widget("butchers").GetLevel(), 0.501f);  // the slider stays where it is
}

TEST_F(AppTest, SliderThatThePlayerDoesNotMoveChangesNoShareAfterTheFirstFrame) {
    StartGame();
    app->Update(0);
    SetLevel("doctors", 0.3f);
    app->Update(0);
    EXPECT_EQ(Player().Share(Profession::Doctors), 0.0f);
}

TEST_F(AppTest, DraggedSliderSetsTheShareEveryFrame) {
    StartGame();
    app->Update(0);
    GLWidget& slider = Widget("doctors");
    SetLevel("doctors", 0.1f);
    const Vector box = slider.Getbbox();
    slider.MouseMove(box.x + 0.5f, (box.y + box.w) / 2.0f);
    slider.MouseClick(true, false, false);
    slider.MouseMove(box.x + 0.6f, (box.y + box.w) / 2.0f);
    app->Update(0);
    EXPECT_TRUE(slider.Dragging());
    EXPECT_NEAR(Player().Share(Profession::Doctors), 0.2f, 1e-5f);
    EXPECT_EQ(Text("doctorslab"), "Doctors: 20%");
}

TEST_F(AppTest, OneSecondOfFramesAdvancesFiveToSixMinutes) {
    StartGame();
    const long before = SecondOfMonth(*app->GetWorld());
    for (int frame = 0; frame < 10; ++frame)
        app->Update(100);
    EXPECT_EQ(SecondOfMonth(*app->GetWorld()), before);  // the tick needs more than a second
    app->Update(1);
    const long advanced = SecondOfMonth(*app->GetWorld()) - before;
    EXPECT_GE(advanced, 300);
    EXPECT_LE(advanced, 359);
    EXPECT_EQ(Player().elapsed, static_cast<float>(advanced));
}

TEST_F(AppTest, SecondUntilTheNextTickIsCountedFromTheLastTick) {
    StartGame();
    app->Update(1900);  // the rest above a second is lost
    const float elapsed = Player().elapsed;
    EXPECT_GE(elapsed, 300.0f);
    app->Update(1000);
    EXPECT_EQ(Player().elapsed, elapsed);
    app->Update(1);
    EXPECT_GT(Player().elapsed, elapsed);
}

TEST_F(AppTest, ClockGoesOnAfterTheTimerHasJumped) {
    StartGame();
    for (int jump = 0; jump < 2; ++jump)
        EXPECT_TRUE(app->Update(0x80000000u));  // 24 days; the sum becomes negative
    EXPECT_EQ(Player().elapsed, 0.0f);
    EXPECT_TRUE(app->Update(1001));
    EXPECT_GE(Player().elapsed, 300.0f);
}

TEST_F(AppTest, WeekButtonAdvancesExactlyOneWeek) {
    StartGame();
    app->Update(0);
    Click("update");
    app->Update(0);
    EXPECT_EQ(app->GetWorld()->date.Text(), "1358/5/23 0:0:0");
    EXPECT_EQ(Text("date"), "The date is 1358/5/23 0:0:0");
    EXPECT_EQ(Player().elapsed, 604800.0f);
    app->Update(0);
    EXPECT_EQ(Player().elapsed, 604800.0f);  // one press, one week
}

TEST_F(AppTest, WeekButtonRunsTheWeekBeforeTheOtherControlsOfTheFrame) {
    StartGame();
    app->Update(0);
    const float perSecond = Player().grain.production;
    const float grain = Player().grain.amount;
    const float eaten = Player().population * Player().grain.ration;
    SetLevel("farmers", 0.9f);
    SetLevel("gration", 1.0f);
    Click("farmers++");
    Click("update");
    app->Update(0);
    EXPECT_NEAR(Player().grain.amount, grain + perSecond * 604800.0f - eaten, 0.01f * eaten);
    EXPECT_FLOAT_EQ(Player().Share(Profession::Farmers), 0.91f);
    EXPECT_FLOAT_EQ(Player().grain.ration, 0.4f);
}

TEST_F(AppTest, WeekButtonRunsTheWeekWithTheJusticeOfTheFrameBefore) {
    StartGame();
    SetLevel("justiceslide", 0.53f);  // 0.07 from the crime of 0.6, which does not change then
    app->Update(0);
    SetLevel("justiceslide", 0.9f);
    Click("update");
    app->Update(0);
    EXPECT_EQ(Player().justice.crimeLevel, 0.6f);
    EXPECT_EQ(Player().justice.justiceLevel, 0.9f);
}

TEST_F(AppTest, WidgetsAgeByTheMillisecondsOfTheFrame) {
    StartGame();
    const KeyListener listener;
    app->Update(17);
    EXPECT_EQ(listener.Age(), 17);
    app->Update(1001);  // also in a frame in which the clock ticks
    EXPECT_EQ(listener.Age(), 1018);
    Click("exitbut");
    app->Update(5);
    EXPECT_EQ(listener.Age(), 1018);
}

TEST_F(AppTest, ClockTicksInTheSameFrameAsTheWeekButton) {
    StartGame();
    app->Update(0);
    Click("update");
    app->Update(1001);
    EXPECT_GE(Player().elapsed, 604800.0f + 300.0f);
    EXPECT_LE(Player().elapsed, 604800.0f + 359.0f);
    EXPECT_EQ(SecondOfMonth(*app->GetWorld()), 16L * 86400 + static_cast<long>(Player().elapsed));
}

TEST_F(AppTest, ExitButtonEndsTheGameBeforeTheClockRuns) {
    StartGame();
    app->Update(0);
    const std::string before = app->GetWorld()->date.Text();
    Click("exitbut");
    Click("update");
    EXPECT_FALSE(app->Update(5000));
    EXPECT_EQ(app->GetWorld()->date.Text(), before);
    EXPECT_EQ(Player().elapsed, 0.0f);
}

TEST_F(AppTest, EscapeEndsTheGameAndReachesNoWidget) {
    StartGame();
    const KeyListener listener;
    Event key(KeyEvent);
    key.keyboard.down['a'] = true;
    key.keyboard.pressed['a'] = true;
    EXPECT_TRUE(app->GotEvent(key));
    EXPECT_EQ(listener.events, 1);
    key.keyboard.down[27] = true;
    EXPECT_FALSE(app->GotEvent(key));
    EXPECT_EQ(listener.events, 1);
}

TEST_F(AppTest, KeysPressedOrRepeatingReachTheWidgetsAndKeysHeldDoNot) {
    StartGame();
    const KeyListener listener;
    Event key(KeyEvent);
    key.keyboard.down['a'] = true;  // pressed in an earlier frame and held
    key.keyboard.down['b'] = true;
    key.keyboard.pressed['b'] = true;
    EXPECT_TRUE(app->GotEvent(key));
    EXPECT_EQ(listener.last, key.keyboard.pressed);
}

TEST_F(AppTest, EscapeThatOnlyRepeatsDoesNotEndTheGame) {
    StartGame();
    Event key(KeyEvent);
    key.keyboard.pressed[27] = true;
    EXPECT_TRUE(app->GotEvent(key));
}

TEST_F(AppTest, ReleaseWithoutAWorldDoesNothing) {
    EXPECT_TRUE(app->GotEvent(Event(ReleaseResourcesEvent)));
    EXPECT_EQ(app->GetWorld(), nullptr);
}

TEST_F(AppTest, ReleaseDeletesTheWorldAndASecondReleaseDoesNothing) {
    StartGame();
    EXPECT_TRUE(app->GotEvent(Event(ReleaseResourcesEvent)));
    EXPECT_EQ(app->GetWorld(), nullptr);
    EXPECT_TRUE(app->GotEvent(Event(ReleaseResourcesEvent)));
}

TEST_F(AppTest, EventsThatTheGameDoesNotUseLetItGoOn) {
    EXPECT_TRUE(app->GotEvent(Event(AfterRenderEvent)));
    EXPECT_TRUE(app->GotEvent(Event(QuitEvent)));
    EXPECT_TRUE(app->GotEvent(Event(LoadResourcesEvent)));
}

TEST_F(AppTest, MouseEventMovesThePointerBeforeItClicks) {
    StartGame();
    GLWidget& button = Widget("exitbut");
    // The layout's first button is at (0, -10) in GUI units, far below the screen.
    const Vector box = button.Getbbox();
    const float halfHeight = GLWidget::guiScale;
    const float x = (box.x + box.z) / 2.0f;
    const float y = (box.y + box.w) / 2.0f;
    Event mouse(MouseEvent);
    mouse.x = static_cast<std::int32_t>(400.0f + x / halfHeight * 300.0f);
    mouse.y = static_cast<std::int32_t>(300.0f - y / halfHeight * 300.0f);
    mouse.left = true;
    EXPECT_TRUE(app->GotEvent(mouse));
    EXPECT_TRUE(button.Clicked());
}

TEST_F(AppTest, EndOfTheGameWithoutAKernelFailsAnAssertion) {
    StartGame();
    Click("exitbut");
    Said();
    EXPECT_EXIT(app->GotEvent(Event(UpdateEvent)), testing::ExitedWithCode(0),
                "Assert failed on app:[0-9]+ - \"kernel\"");
}

TEST_F(AppTest, RenderingWithoutAKernelFailsAnAssertion) {
    Said();
    EXPECT_EXIT(app->GotEvent(Event(RenderEvent)), testing::ExitedWithCode(0),
                "Assert failed on app:[0-9]+ - \"kernel\"");
}

TEST_F(AppTest, MissingWidgetEndsTheGameWithAMessageThatNamesIt) {
    StartLayout({"storelab"});
    GLWidget::tags["storelab"] = nullptr;
    std::srand(kSeed);
    app->CreateWorld();
    Said();
    EXPECT_EXIT(app->Update(0), testing::ExitedWithCode(0),
                "Invalid Tag Widget: 'storelab'\nAssert failed on glwidget/glwidget:539 - ");
}

TEST_F(AppTest, ReportOfAMissingLabelNamesTheFunctionsThatLookedForIt) {
    StartLayout({"storelab"});
    GLWidget::tags["storelab"] = nullptr;
    app->CreateWorld();
    Said();
    EXPECT_EXIT(
        {
            trace::Start();
            app->Update(0);
        },
        testing::ExitedWithCode(0), "GLWidget::GetByTag\n#2: Display::ShowStore\n#1: App::Update");
}

TEST_F(AppTest, ReportOfAMissingTradeSliderNamesTheFunctionsThatLookedForIt) {
    StartLayout({"finebuy"});
    GLWidget::tags["finebuy"] = nullptr;
    Said();
    EXPECT_EXIT(
        {
            trace::Start();
            app->CreateWorld();
        },
        testing::ExitedWithCode(0),
        "GLWidget::GetByTag\n#2: App::ClearOrder\n#1: App::CreateWorld");
}

TEST_F(AppTest, LayoutMayOmitTheOptionalWidgets) {
    const auto optional = {std::string_view("justiceslide"), std::string_view("lrationlab"),
                           std::string_view("grationlab"), std::string_view("debuginfo"),
                           std::string_view("fps")};
    StartLayout(optional);
    for (const std::string_view name : optional)
        GLWidget::tags[std::string(name)] = nullptr;
    std::srand(kSeed);
    app->CreateWorld();
    EXPECT_TRUE(app->Update(0));
    EXPECT_EQ(Player().justice.justiceLevel, 0.4f);
}

TEST_F(PartnerTest, ChoiceOfANameInThePartnerListClearsTheOrderAndKeepsThePartner) {
    StartGame();
    app->Update(0);
    const Country* const partner = app->GetPartner();
    EXPECT_EQ(partner, app->GetWorld()->countries[0].get());
    SetLevel("stockbuy", 0.5f);
    SetLevel("grainbuy", 0.5f);
    SetLevel("finebuy", 0.5f);
    Choose(2);
    ASSERT_EQ(Widget("countrysel").GetCurrentText(), app->GetWorld()->countries[2]->name);
    app->Update(0);
    EXPECT_EQ(app->GetPartner(), partner);
    EXPECT_EQ(Widget("stockbuy").GetLevel(), 0.0f);
    EXPECT_EQ(Widget("grainbuy").GetLevel(), 0.0f);
    EXPECT_EQ(Widget("finebuy").GetLevel(), 0.0f);
}

TEST_F(PartnerTest, ChoiceOfANumberedCountryMakesItThePartner) {
    StartGame();
    app->Update(0);
    const struct {
        const char* item;
        std::size_t partner;  // index of the neighbour that is the partner afterwards
    } choices[] = {{"Country 5", 4},   {"Country 12", 11}, {"Country 13", 11}, {"Country 1", 0},
                   {"Country 0x3", 2}, {"Country 0", 2},   {"Country -4", 2},  {"country 4", 2},
                   {"Country 010", 7}, {"Country", 7}};
    for (const auto& choice : choices)
        Widget("countrysel").AddText(choice.item);
    int row = 12;  // the neighbours' names come first
    for (const auto& [item, partner] : choices) {
        SetLevel("stockbuy", 0.5f);
        Choose(row++);
        ASSERT_EQ(Widget("countrysel").GetCurrentText(), item);
        app->Update(0);
        EXPECT_EQ(app->GetPartner(), app->GetWorld()->countries[partner].get()) << item;
        EXPECT_EQ(Widget("stockbuy").GetLevel(), 0.0f) << item;
    }
}

TEST_F(AppTest, TradeLabelsShowTheOrder) {
    StartGame();
    app->Update(0);
    SetLevel("stockbuy", 0.5f);
    SetLevel("grainbuy", 0.25f);
    SetLevel("finebuy", 1.0f);
    app->Update(0);
    const Country& partner = *app->GetPartner();
    const float funds = Player().funds;
    char expected[64];
    std::snprintf(expected, sizeof expected, "Livestock to Buy/Sell: %.0f",
                  static_cast<double>(funds / partner.livestockSellPrice * 0.5f));
    EXPECT_EQ(Text("stockbuylab"), expected);
    std::snprintf(expected, sizeof expected, "Grain to Buy/Sell: %.0f",
                  static_cast<double>(funds / partner.grainSellPrice * 0.25f));
    EXPECT_EQ(Text("grainbuylab"), expected);
    std::snprintf(expected, sizeof expected, "Fine Goods to Buy: %.0f", static_cast<double>(funds));
    EXPECT_EQ(Text("finebuylab"), expected);
}

TEST_F(AppTest, PurchaseIsPaidStoredAndClearsTheOrder) {
    StartGame();
    app->Update(0);
    const float funds = Player().funds;
    const float herd = Player().livestock.amount;
    SetLevel("stockbuy", 0.5f);
    Click("buybut");
    app->Update(0);
    const Country& partner = *app->GetPartner();
    const float bought = funds / partner.livestockSellPrice * 0.5f;
    EXPECT_FLOAT_EQ(Player().livestock.amount, herd + bought);
    EXPECT_FLOAT_EQ(Player().funds, funds - partner.livestockBuyPrice * bought);
    EXPECT_EQ(Widget("stockbuy").GetLevel(), 0.0f);
    EXPECT_EQ(GLWidget::GetByTag("__msgbox", false), nullptr);
}

TEST_F(AppTest, FrameOfAPurchaseShowsTheOrderAndTheStoreWithThePurchase) {
    StartGame();
    app->Update(0);
    SetLevel("stockbuy", 0.5f);
    app->Update(0);
    const std::string order = Text("stockbuylab");
    Click("buybut");
    app->Update(0);
    EXPECT_EQ(Text("stockbuylab"), order);
    EXPECT_EQ(
        Text("storelab"),
        "Livestock: " + std::to_string(std::lround(Player().livestock.amount)) + "\nGrain: 24000");
    app->Update(0);
    EXPECT_EQ(Text("stockbuylab"), "Livestock to Buy/Sell: 0");
}

TEST_F(AppTest, RefusedPurchaseShowsAMessageBoxAndKeepsTheOrder) {
    StartGame();
    app->Update(0);
    const float funds = Player().funds;
    SetLevel("stockbuy", 0.75f);
    SetLevel("grainbuy", 0.75f);
    SetLevel("finebuy", 0.1f);
    Click("buybut");
    app->Update(0);
    EXPECT_EQ(Player().funds, funds);
    EXPECT_EQ(Widget("stockbuy").GetLevel(), 0.75f);
    EXPECT_EQ(Widget("grainbuy").GetLevel(), 0.75f);
    EXPECT_EQ(Widget("finebuy").GetLevel(), 0.1f);
    ASSERT_NE(GLWidget::GetByTag("__msgbox", false), nullptr);
    EXPECT_EQ(Text("__msgbox_message"), "You cannot buy this much from this country.");
    Click("__msgbox_ok");
    app->Update(0);
    EXPECT_EQ(GLWidget::GetByTag("__msgbox", false), nullptr);
    EXPECT_EQ(GLWidget::msgboxResult, 1u);
}

TEST_F(AppTest, SellPaysTheWholeOrderAndSetsItsSliderToZero) {
    StartGame();
    app->Update(0);
    const float funds = Player().funds;
    const float store = Player().grain.amount;
    SetLevel("grainbuy", 1.0f);
    Click("sellbut");
    app->Update(0);
    EXPECT_FLOAT_EQ(Player().funds, funds + funds);
    EXPECT_LT(Player().grain.amount, store);
    EXPECT_EQ(Widget("grainbuy").GetLevel(), 0.0f);
}

TEST_F(AppTest, GameGoesOnIfThePopulationIsNaN) {
    StartGame();
    app->Update(0);
    Player().population = std::nanf("");
    Click("butchers++");
    app->Update(0);
    for (const char* const button : {"update", "buybut", "sellbut"}) {
        Click(button);
        EXPECT_TRUE(app->Update(1001));
    }
    EXPECT_TRUE(std::isnan(Player().population));
}

TEST_F(AppTest, NewspaperShowsPageOneAndTheStory) {
    StartGame();
    app->Update(0);
    EXPECT_EQ(Text("paperlab"), "Page 1\n");
    Click("update");
    app->Update(0);
    const Newspaper& paper = app->GetWorld()->newspaper;
    ASSERT_EQ(paper.Stories().size(), 1u);
    EXPECT_EQ(Text("paperlab"), "Page 1\n" + paper.Stories()[0]);
    Click("PrevPage");
    app->Update(0);
    EXPECT_EQ(Text("paperlab"), "Page 1\n" + paper.Stories()[0]);
}

TEST_F(AppTest, FrameRateIsNeverShown) {
    StartGame();
    for (int frame = 0; frame < 100; ++frame)
        app->Update(999);
    app->Update(100000);
    EXPECT_EQ(Text("fps"), "-");
}

TEST_F(AppTest, EveryFrameWritesEveryLabelButTheFrameRate) {
    StartGame();
    for (int frame = 0; frame < 2; ++frame) {
        for (const tag::Widget& widget : tag::kWidgets) {
            if (widget.role == tag::Role::Label)
                Widget(widget.tag).SetText("?");
        }
        app->Update(0);
        for (const tag::Widget& widget : tag::kWidgets) {
            const bool written = Text(widget.tag) != "?";
            const bool wanted = widget.tag != tag::kFrameRate;
            EXPECT_TRUE(written == wanted || widget.role != tag::Role::Label) << widget.tag;
        }
    }
}

TEST_F(AppTest, SameSeedAndSamePressesGiveTheSameCountry) {
    StartGame();
    app->Update(0);
    for (int week = 0; week < 60; ++week) {
        Click("update");
        app->Update(0);
    }
    const float people = Player().population;
    const float grain = Player().grain.amount;

    std::srand(kSeed);
    World plain;
    Country& country = plain.player;
    country.justice.justiceLevel = start::kJustice;
    for (const Profession profession : kProfessions) {
        country.SetShare(profession, start::Share(profession));
        country.Normalise(profession);
    }
    for (int week = 0; week < 60; ++week)
        plain.Advance(604800.0f);
    EXPECT_EQ(country.population, people);
    EXPECT_EQ(country.grain.amount, grain);
}

}  // namespace
