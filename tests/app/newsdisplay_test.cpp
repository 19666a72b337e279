// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "app/newsdisplay.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <string>

#include "app/app.h"
#include "app/tags.h"
#include "country/chronicle.h"
#include "country/country.h"
#include "country/outlook.h"
#include "country/world.h"
#include "glwidget/glwidget.h"
#include "glwidget/label.h"
#include "quarn2/font.h"
#include "quarn2/strings.h"
#include "tests/app/game_fixture.h"
#include "tests/support/font_access.h"

namespace {

constexpr std::initializer_list<std::string_view> kAdditions = {
    tag::kNews,         tag::kChronicle,     tag::kPaperNews,   tag::kLivestockOutlook,
    tag::kGrainOutlook, tag::kJusticeLabel,  tag::kCrime,       tag::kMorale,
    tag::kTotal,        tag::kAlarmPicture,  tag::kCalmPicture, tag::kPeopleChart,
    tag::kFoodChart,    tag::kTreasuryChart, tag::kLawChart};

class NewsDisplayTest : public GameTest {
protected:
    /// The game with this text in the layout's label, which gives the label its size.
    void StartWithLabel(std::string_view tag, const std::string& text) {
        WriteLayout("layout", {tag});
        std::ofstream("layout", std::ios::app)
            << "CADD Label " << tag << " NULL 50 0 " << text << '\n';
        GLWidget::StartGUI("layout");
        std::srand(kSeed);
        app->CreateWorld();
    }

    void PassWeeks(int weeks) {
        for (int week = 0; week < weeks; ++week) {
            Click("update");
            app->Update(0);
        }
    }

    const Chronicle& Entries() { return app->GetWorld()->chronicle; }

    static std::string Sentence(const Chronicle::Entry& entry) {
        std::string text = entry.date.DayText() + ": ";
        entry.WriteTo(text);
        return text;
    }

    static std::string OneLine(std::string text) {
        std::replace(text.begin(), text.end(), '\n', ' ');
        return text;
    }

    /// Passes weeks until the newest entry is an alarm or is none.
    void PassWeeksUntil(bool alarm) {
        for (int week = 0; week < 200; ++week) {
            PassWeeks(1);
            if (Entries().News() != nullptr && Entries().News()->IsAlarm() == alarm)
                return;
        }
        FAIL() << "no such news";
    }

    float Height(std::string_view tag) { return Widget(tag).Getbbox().y; }
};

TEST_F(NewsDisplayTest, NewsIsTheNewestEntryWithItsDateAfterAWordForGoodOrBad) {
    StartGame();
    app->Update(0);
    EXPECT_EQ(OneLine(Text("news")), "No news.");
    PassWeeksUntil(true);
    EXPECT_EQ(OneLine(Text("news")), "ALARM  " + Sentence(Entries().Newest(0)));
    Player().trades.grainSold = {100.0, 50.0};
    app->GetWorld()->Advance(300.0f);
    app->Update(0);
    EXPECT_EQ(Text("news").substr(0, 5), Entries().Newest(0).IsAlarm() ? "ALARM" : "News ");
    PassWeeksUntil(false);
    EXPECT_EQ(OneLine(Text("news")), "News  " + Sentence(Entries().Newest(0)));
}

TEST_F(NewsDisplayTest, AfterEightQuietWeeksOnlyATroubleThatLastsIsNews) {
    StartGame();
    app->Update(0);
    SetLevel("lration", 1.0f);
    app->Update(0);
    PassWeeks(1);
    int quiet = 0;
    int lasting = 0;
    std::uint64_t count = Entries().Count();
    for (int week = 0; week < 100; ++week) {
        PassWeeks(1);
        quiet = Entries().Count() == count ? quiet + 1 : 0;
        count = Entries().Count();
        const bool isOver = count != 0 && Entries().Newest(0).event == Chronicle::Event::NobodyLeft;
        const std::string shown = OneLine(Text("news"));
        if (count == 0 || (quiet > 8 && Entries().News() == nullptr)) {
            EXPECT_EQ(shown, "No news.") << week;
        } else if (quiet > 8 && !isOver) {
            ++lasting;
            EXPECT_TRUE(shown.starts_with("ALARM  " + Entries().News()->date.DayText()))
                << week << ": " << shown;
        } else {
            EXPECT_NE(shown.find(Entries().Newest(0).date.DayText()), std::string::npos)
                << week << ": " << shown;
        }
    }
    EXPECT_GT(lasting, 0);
}

TEST_F(NewsDisplayTest, PictureOfTheKindOfNewsIsShownAndTheOtherIsOutOfTheScreen) {
    StartGame();
    const float alarmPlace = Height("newsalarm");
    const float calmPlace = Height("newscalm");
    const auto expectShown = [&](bool alarm) {
        EXPECT_EQ(std::fabs(Height("newsalarm") - alarmPlace) < 1e-3f, alarm);
        EXPECT_EQ(std::fabs(Height("newscalm") - calmPlace) < 1e-3f, !alarm);
    };
    app->Update(0);
    expectShown(false);
    PassWeeksUntil(true);
    expectShown(true);
    EXPECT_GT(Height("newscalm"), calmPlace + 2.0f * GLWidget::guiScale);
    PassWeeksUntil(false);
    expectShown(false);
}

TEST_F(NewsDisplayTest, ChronicleBeginsWithTheNewestEntriesAndFillsItsRoom) {
    const std::string wide(160, 'w');
    StartWithLabel("chronicle", wide + "\\n\\n\\n");
    app->Update(0);
    EXPECT_EQ(Text("chronicle"), "Nothing has happened yet.\n\n\n");
    PassWeeks(100);
    ASSERT_GT(Entries().Size(), 4u);
    std::string expected;
    for (std::size_t i = 0; i < 4; ++i)
        expected += (i == 0 ? "" : "\n") + Sentence(Entries().Newest(i));
    EXPECT_EQ(Text("chronicle"), expected);
}

TEST_F(NewsDisplayTest, LongEntryIsBrokenBetweenWordsAndCountsAsSeveralLines) {
    StartWithLabel("chronicle", std::string(40, 'w') + "\\n\\n\\n\\n\\n\\n\\n");
    PassWeeks(100);
    const std::string shown = Text("chronicle");
    EXPECT_EQ(substr_count(shown, "\n"), 7u);
    EXPECT_TRUE(OneLine(shown).starts_with(Sentence(Entries().Newest(0)))) << shown;
    std::size_t begin = 0;
    for (std::size_t end = 0; end != std::string::npos; begin = end + 1) {
        end = shown.find('\n', begin);
        EXPECT_LE(shown.substr(begin, end - begin).size(), 40u);
        if (end == std::string::npos)
            break;
    }
}

class NarrowListTest : public NewsDisplayTest, public testing::WithParamInterface<int> {};

TEST_P(NarrowListTest, LabelShowsTheListWithoutBreakingItAgain) {
    for (const char narrow : std::string_view("fijlrt:.1I"))
        FontAccess::SetAdvance(GLWidget::font, narrow, 0.25f);
    for (const char broad : std::string_view("mwAMNW"))
        FontAccess::SetAdvance(GLWidget::font, broad, 0.9f);
    const auto width = static_cast<std::size_t>(GetParam());
    StartWithLabel("chronicle", std::string(width, 'w') + "\\n\\n\\n\\n\\n\\n\\n\\n\\n");
    Label& label = dynamic_cast<Label&>(Widget("chronicle"));
    for (int week = 0; week < 60; ++week) {
        Player().population = 40000.0f;
        Player().grain.amount = week % 3 == 0 ? 0.0f : 1000.0f * static_cast<float>(week);
        Player().livestock.amount =
            week % 2 == 0 ? 0.0f : 9973.0f + 37.0f * static_cast<float>(week);
        PassWeeks(1);
        EXPECT_EQ(label.Wrapped(), label.GetText());
    }
}

INSTANTIATE_TEST_SUITE_P(Widths, NarrowListTest, testing::Range(15, 45));

TEST_F(NewsDisplayTest, NewspaperListsEntriesDownToItsStory) {
    StartWithLabel("paperlab", std::string(60, 'w') + "\\n\\n\\n\\n\\n\\n\\n\\n\\n\\n\\n\\n");
    GLWidget& list = Widget("papernews");
    const float place = list.Getbbox().y;
    const float step = Widget("paperlab").GetTheme().fontSize.y * FontRender::kLineStep;
    Player().justice.crimeLevel = 0.99f;
    PassWeeks(1);
    ASSERT_EQ(substr_count(Text("paperlab"), "\n"), 1u) << Text("paperlab");
    EXPECT_NEAR(list.Getbbox().y, place - 11.0f * step, 1e-4f);
    EXPECT_EQ(substr_count(Text("papernews"), "\n"), 11u);
    Player().justice.crimeLevel = 0.07f;  // a long story
    Widget("justiceslide").SetLevel(0.07f);
    PassWeeks(1);
    ASSERT_GT(Text("paperlab").size(), 300u);
    EXPECT_GT(list.Getbbox().y, place - 6.0f * step);
}

TEST_F(NewsDisplayTest, OutlooksStandBesideTheStocksAsSentences) {
    StartGame();
    for (int week = 0; week < 60; ++week) {
        PassWeeks(1);
        std::string herd = "Livestock ";
        LivestockOutlook(Player()).WriteTo(herd);
        std::string grain = "Grain ";
        GrainOutlook(Player()).WriteTo(grain);
        EXPECT_EQ(OneLine(Text("livestockoutlook")), herd);
        EXPECT_EQ(OneLine(Text("grainoutlook")), grain);
    }
}

TEST_F(NewsDisplayTest, GlanceShowsJusticeCrimeMoraleAndPeople) {
    StartGame();
    SetLevel("justiceslide", 0.567f);
    Player().morale = -0.001f;
    app->Update(0);
    EXPECT_EQ(Text("justiceslidelab"), "Justice: 0.57");
    EXPECT_EQ(Text("crimelab"), "Crime: 0.60");
    EXPECT_EQ(Text("moralelab"), "Morale: 0.00");
    EXPECT_EQ(Text("totallab"), "Total: 38685, idle: 9207");
}

class TwoGamesTest : public NewsDisplayTest {
protected:
    struct Game {
        std::string labels;
        std::string messages;
        int nextRoll;
    };

    /// A hundred weeks with the clock, a trade and moved sliders.
    Game Play(std::initializer_list<std::string_view> leftOut) {
        StartLayout(leftOut);
        std::srand(kSeed);
        app->CreateWorld();
        Said();
        testing::internal::CaptureStderr();
        Game game;
        for (int week = 0; week < 100; ++week) {
            SetLevel("stockbuy", week % 7 == 0 ? 0.1f : 0.0f);
            Click(week % 2 == 0 ? "buybut" : "sellbut");
            Click(week % 3 == 0 ? "farmers++" : "doctors++");
            Click("update");
            app->Update(1001);
            for (const tag::Widget& widget : tag::kWidgets) {
                const bool isAddition =
                    std::find(kAdditions.begin(), kAdditions.end(), widget.tag) != kAdditions.end();
                if (!isAddition)
                    game.labels += Text(widget.tag) + "\n";
            }
        }
        game.nextRoll = std::rand();
        game.messages = testing::internal::GetCapturedStderr();
        return game;
    }
};

TEST_F(TwoGamesTest, LayoutWithoutTheLabelsOfTheChroniclePlaysTheSame) {
    const Game with = Play({});
    GameTest::SetUp();
    const Game without = Play(kAdditions);
    EXPECT_EQ(with.labels, without.labels);
    EXPECT_EQ(with.messages, without.messages);
    EXPECT_EQ(with.nextRoll, without.nextRoll);
}

}  // namespace
