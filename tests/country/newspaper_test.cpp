// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/newspaper.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>

#include "country/country.h"
#include "country/namegenerator.h"
#include "tests/country/rolls.h"

namespace {

class NewspaperTest : public testing::Test {
protected:
    std::string StoryAt(float crime) {
        country.justice.crimeLevel = crime;
        newspaper.Print();
        return newspaper.Stories().at(0);
    }

    Country country{"Merovinska", 38685};
    Newspaper newspaper{&country};
};

/// The names and the time of a story, from the rolls of a seed.
struct Filling {
    std::string town, secondName, firstName, time;

    explicit Filling(unsigned seed) {
        Replay replay(seed);
        for (int field = 0; field < 3; ++field)
            replay.Raw();  // year, month, day
        const int hour = static_cast<int>(std::round(replay.Unit() * 24));
        const int minute = static_cast<int>(std::round(replay.Unit() * 59));
        const int second = static_cast<int>(std::round(replay.Unit() * 59));
        char buffer[40];
        std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", hour, minute, second);
        time = buffer;
        town = NameGenerator(NameGenerator::kTownPattern).Generate();
        secondName = NameGenerator(NameGenerator::kSecondNamePattern).Generate();
        firstName = NameGenerator(NameGenerator::kFirstNamePattern).Generate();
    }
};

TEST_F(NewspaperTest, MissingCountryEndsTheProgram) {
    EXPECT_EXIT(Newspaper(nullptr), testing::ExitedWithCode(0),
                "Assert failed on newspaper:[0-9]+ - \"c != 0\"");
}

TEST_F(NewspaperTest, HasNoStoryBeforeTheFirstEdition) {
    EXPECT_TRUE(newspaper.Stories().empty());
}

TEST_F(NewspaperTest, FirstUpdatePrintsAnEditionEvenIfItIsShort) {
    newspaper.Update(0.0f);
    EXPECT_EQ(newspaper.Stories().size(), 1U);
}

TEST_F(NewspaperTest, NextEditionIsPrintedWhenMoreThanADayHasPassed) {
    newspaper.Update(0.0f);
    country.justice.crimeLevel = 0.17f;
    newspaper.Update(86400.0f);
    EXPECT_EQ(newspaper.Stories().at(0), "Forgery");
    newspaper.Update(1.0f);
    EXPECT_EQ(newspaper.Stories().at(0), "Mugging");
}

TEST_F(NewspaperTest, EditionSetsTheTimeSinceItToZero) {
    newspaper.Update(300000.0f);
    country.justice.crimeLevel = 0.17f;
    newspaper.Update(86400.0f);
    EXPECT_EQ(newspaper.Stories().at(0), "Forgery");
}

TEST_F(NewspaperTest, WeekPrintsOneEdition) {
    country.justice.crimeLevel = 0.01f;
    const int rollsOfAStory = 6 + 16 + 3 + 7;
    ExpectRolls(rollsOfAStory, [&] { newspaper.Update(604800.0f); });
}

TEST_F(NewspaperTest, TwoEditionsLeaveOneStory) {
    newspaper.Update(604800.0f);
    newspaper.Update(604800.0f);
    EXPECT_EQ(newspaper.Stories().size(), 1U);
}

TEST_F(NewspaperTest, HeadlineFollowsTheCrimeLevel) {
    EXPECT_EQ(StoryAt(0.1f), "Illegal Gambling is rampant!");
    EXPECT_EQ(StoryAt(0.15f), "Mugging");
    EXPECT_EQ(StoryAt(0.2f), "Burglary");
    EXPECT_EQ(StoryAt(0.25f), "Tresspassing");
    EXPECT_EQ(StoryAt(0.3f), "Assault");
    EXPECT_EQ(StoryAt(0.36f), "Blackmail");
    EXPECT_EQ(StoryAt(0.4f), "Fraud");
    EXPECT_EQ(StoryAt(0.45f), "Vandalism");
    EXPECT_EQ(StoryAt(0.5f), "Assault");
    EXPECT_EQ(StoryAt(0.55f), "Smuggling");
    EXPECT_EQ(StoryAt(0.6f), "Forgery");
    EXPECT_EQ(StoryAt(0.65f), "Arson");
    EXPECT_EQ(StoryAt(0.7f), "Rape");
    EXPECT_EQ(StoryAt(0.75f), "Treason");
    EXPECT_EQ(StoryAt(0.8f), "Kidnapping");
    EXPECT_EQ(StoryAt(0.86f), "Murder");
    EXPECT_EQ(StoryAt(0.9f), "Looting");
    EXPECT_EQ(StoryAt(0.95f), "Crime syndicates");
    EXPECT_EQ(StoryAt(1.0f), "Crime syndicates");
}

TEST_F(NewspaperTest, CrimeJustBelowALimitGivesTheStoryOfTheLowerRow) {
    const struct {
        float bound;
        const char* below;
    } bounds[] = {{0.15f, "Illegal Gambling is rampant!"},
                  {0.2f, "Mugging"},
                  {0.25f, "Burglary"},
                  {0.3f, "Tresspassing"},
                  {0.35f, "Assault"},
                  {0.4f, "Blackmail"},
                  {0.45f, "Fraud"},
                  {0.5f, "Vandalism"},
                  {0.55f, "Assault"},
                  {0.6f, "Smuggling"},
                  {0.65f, "Forgery"},
                  {0.7f, "Arson"},
                  {0.75f, "Rape"},
                  {0.8f, "Treason"},
                  {0.85f, "Kidnapping"},
                  {0.9f, "Murder"},
                  {0.95f, "Looting"}};
    for (const auto& [bound, below] : bounds)
        EXPECT_EQ(StoryAt(std::nextafter(bound, 0.0f)), below);
    const std::string cake = StoryAt(std::nextafter(0.1f, 0.0f));
    EXPECT_NE(cake.find(" was baking a cake."), std::string::npos) << cake;
    const std::string jaywalking = StoryAt(std::nextafter(0.05f, 0.0f));
    EXPECT_NE(jaywalking.find(" was seen walking across a street "), std::string::npos)
        << jaywalking;
}

TEST_F(NewspaperTest, LimitsOf35And85HundredthsAreDoubles) {
    // 0.35f is a little less than 0.35, and 0.85f a little more than 0.85.
    EXPECT_EQ(StoryAt(0.35f), "Assault");
    EXPECT_EQ(StoryAt(std::nextafter(0.35f, 1.0f)), "Blackmail");
    EXPECT_EQ(StoryAt(0.85f), "Murder");
}

TEST_F(NewspaperTest, CrimeBelowFiveHundredthsGivesTheJaywalkingStory) {
    for (unsigned seed = 1; seed < 50; ++seed) {
        const Filling filling(seed);
        std::srand(seed);
        ASSERT_EQ(StoryAt(0.01f),
                  "Yesterday at " + filling.time + ", " + filling.firstName
                      + " was seen walking across a street right in front of a cart, without "
                        "even looking both ways! Truly this is a scandalous state of affairs - "
                        "why would anyone commit such a shocking offence?\nMore information will "
                        "be presented as the situation unfolds.");
    }
}

TEST_F(NewspaperTest, CrimeOfExactlyFiveHundredthsGivesTheCakeStory) {
    for (unsigned seed = 1; seed < 50; ++seed) {
        const Filling filling(seed);
        std::srand(seed);
        ASSERT_EQ(StoryAt(0.05f),
                  "Yesterday at " + filling.time + ", " + filling.firstName
                      + " (32) was baking a cake. It was a good cake. It was a chocolate cake. "
                        "In many ways, and with the benefit of hindsight, one could have forseen "
                        "the tragedy which occured. The chocolate was a siren call which one "
                      + filling.secondName
                      + " (16) could not resist. He stole that cake right out from under "
                      + filling.firstName
                      + "'s nose\nThe thief was caught and arrested by dutiful policemen shortly "
                        "after, but his actions have left a dark mark on the once fair town of "
                      + filling.town + ".");
    }
}

TEST_F(NewspaperTest, PrintedStoryContainsNoPlaceholder) {
    for (unsigned seed = 1; seed < 100; ++seed) {
        std::srand(seed);
        EXPECT_EQ(StoryAt(0.01f).find("++"), std::string::npos);
        EXPECT_EQ(StoryAt(0.07f).find("++"), std::string::npos);
    }
}

TEST_F(NewspaperTest, NamesAreRolledForTheGamblingHeadlineToo) {
    country.justice.crimeLevel = 0.12f;
    ExpectRolls(6 + 16 + 3 + 7, [&] { newspaper.Print(); });
    EXPECT_EQ(newspaper.Stories().at(0), "Illegal Gambling is rampant!");
}

TEST_F(NewspaperTest, OtherHeadlinesRollNothing) {
    for (int hundredths = 16; hundredths <= 100; ++hundredths) {
        country.justice.crimeLevel = static_cast<float>(hundredths) / 100.0f;
        SCOPED_TRACE(hundredths);
        ExpectRolls(0, [&] { newspaper.Print(); });
    }
}

}  // namespace
