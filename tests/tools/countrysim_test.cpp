// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Runs the program countrysim and compares its rows with the figures of the library.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "country/chronicle.h"
#include "country/start.h"
#include "country/world.h"

namespace {

constexpr char kHeader[] =
    "tick,elapsed,population,funds,livestock,grain,livestock_production,grain_production,"
    "morale,opinion,crime,justice,famineChance,famineTime,plagueTime,rebellion\n";
constexpr float kWeek = 604800.0f;

struct Result {
    int status;
    std::string out;
    std::string error;
};

std::string Slurp(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// @param sink  a file to write the rows to; if empty, the result has them
Result RunTool(const std::string& arguments, const std::string& sink = "") {
    // Tests of this file may run at the same time, each in its own process.
    const std::string base = testing::TempDir() + "countrysim_test." + std::to_string(getpid());
    const std::string out = sink.empty() ? base + ".out" : sink;
    const std::string error = base + ".err";
    const std::string command =
        "'" + std::string(COUNTRYSIM) + "' " + arguments + " >" + out + " 2>" + error;
    const int status = std::system(command.c_str());
    Result result{WIFEXITED(status) ? WEXITSTATUS(status) : -1, "", Slurp(error)};
    if (sink.empty()) {
        result.out = Slurp(out);
        std::remove(out.c_str());
    }
    std::remove(error.c_str());
    return result;
}

std::string Rows(const std::string& arguments) {
    const Result result = RunTool(arguments);
    EXPECT_EQ(result.status, 0) << result.error;
    return result.out;
}

std::string Row(int tick, const Country& country) {
    char buffer[400];
    std::snprintf(buffer, sizeof buffer,
                  "%d,%.9g,%.9g,%.9g,%.9g,%.9g,%.9g,%.9g,%.9g,%.9g,%.9g,%.9g,%.9g,%.9g,%.9g,%d\n",
                  tick, country.elapsed, country.population, country.funds,
                  country.livestock.amount, country.grain.amount, country.livestock.production,
                  country.grain.production, country.morale, country.opinion,
                  country.justice.crimeLevel, country.justice.justiceLevel, country.famineChance,
                  country.famineTime, country.plagueTime, country.rebellion ? 1 : 0);
    return buffer;
}

void SetShares(Country& country, const std::array<float, kProfessions.size()>& shares) {
    for (const Profession profession : kProfessions) {
        country.SetShare(profession, shares[static_cast<std::size_t>(profession)]);
        country.Normalise(profession);
    }
}

/// Does what the first frame of the game does if no slider is moved.
void GovernAsTheGame(Country& country) {
    country.SetMessageStream(nullptr);
    country.justice.justiceLevel = start::kJustice;
    SetShares(country, start::kShares);
}

int LinesOf(const std::string& text) {
    int lines = 0;
    for (const char letter : text)
        lines += letter == '\n' ? 1 : 0;
    return lines;
}

/// Column `index` of the last row.
std::string Last(const std::string& rows, int index) {
    const std::size_t end = rows.size() - 1;
    std::istringstream row(rows.substr(rows.rfind('\n', end - 1) + 1));
    std::string field;
    for (int i = 0; i <= index; ++i)
        std::getline(row, field, ',');
    return field;
}

TEST(CountrysimTest, RowsAreThoseOfTheGameWithTheSameSeedAndOnlyTheWeekButton) {
    for (const int seed : {1, 7, 1358}) {
        std::srand(static_cast<unsigned>(seed));
        World world;
        GovernAsTheGame(world.player);
        std::string expected = kHeader;
        for (int tick = 1; tick <= 150; ++tick) {
            world.Advance(kWeek);
            expected += Row(tick, world.player);
        }
        EXPECT_EQ(Rows("--weeks 150 --seed " + std::to_string(seed)), expected);
    }
}

TEST(CountrysimTest, SeedOneMakesTheFirstWeekOfMerovinska) {
    EXPECT_EQ(Rows("--seed 1 --weeks 1"),
              std::string(kHeader)
                  + "1,604800,38754.0547,641.737976,15000.8311,24017.1387,0.00640912121,"
                    "0.0128438296,0.499000013,0.5,0.604301929,0.5,0,0,0,0\n");
}

TEST(CountrysimTest, DefaultIsAYearOfSeedOneInWeeks) {
    const std::string rows = Rows("");
    EXPECT_EQ(LinesOf(rows), 1 + 52);
    EXPECT_EQ(rows, Rows("--seed 1 --weeks 52 --step 604800"));
}

TEST(CountrysimTest, SameSeedGivesTheSameRowsAndAnotherSeedOthers) {
    const std::string rows = Rows("--seed 5");
    EXPECT_TRUE(rows == Rows("--seed 5"));
    EXPECT_TRUE(rows != Rows("--seed 6"));
}

TEST(CountrysimTest, SeedWithLeadingZerosIsDecimal) {
    EXPECT_EQ(Rows("--seed 010 --weeks 2"), Rows("--seed 10 --weeks 2"));
    EXPECT_NE(Rows("--seed 010 --weeks 2"), Rows("--seed 8 --weeks 2"));
}

TEST(CountrysimTest, LargestSeedIsAccepted) {
    EXPECT_NE(Rows("--seed 4294967295 --weeks 2"), Rows("--seed 1 --weeks 2"));
}

TEST(CountrysimTest, CampaignEndsWithTheTickThatReachesTheWeeks) {
    EXPECT_EQ(LinesOf(Rows("--weeks 0")), 1);
    EXPECT_EQ(LinesOf(Rows("--weeks 0.1")), 1 + 1);
    EXPECT_EQ(LinesOf(Rows("--weeks 2.5")), 1 + 3);
    EXPECT_EQ(LinesOf(Rows("--weeks 0.5 --step 302400")), 1 + 1);
    EXPECT_EQ(LinesOf(Rows("--weeks 0.5 --step 302399")), 1 + 2);
}

TEST(CountrysimTest, StepSetsTheSecondsOfATick) {
    std::srand(3);
    World world;
    GovernAsTheGame(world.player);
    std::string expected = kHeader;
    for (int tick = 1; tick <= 7; ++tick) {
        world.Advance(86400.0f);
        expected += Row(tick, world.player);
    }
    EXPECT_EQ(Rows("--seed 3 --weeks 1 --step 86400"), expected);
}

TEST(CountrysimTest, RealStepRollsTheSecondsOfEachTickBeforeIt) {
    std::srand(3);
    World world;
    GovernAsTheGame(world.player);
    std::string expected = kHeader;
    double spent = 0.0;
    for (int tick = 1; spent < 0.1 * 604800.0; ++tick) {
        const float seconds = World::RollClockSeconds();
        world.Advance(seconds);
        spent += static_cast<double>(seconds);
        expected += Row(tick, world.player);
    }
    EXPECT_EQ(Rows("--seed 3 --weeks 0.1 --step real"), expected);
}

TEST(CountrysimTest, OptionsSetTheLevelsAsTheGamesSlidersDo) {
    std::srand(2);
    World world;
    Country& player = world.player;
    player.SetMessageStream(nullptr);
    player.justice.justiceLevel = 0.7f;
    SetShares(player, {0.3f, 0.6f, 0.2f, 0.1f, 0.05f});  // the sum is more than 1
    player.livestock.ration = 0.75f * 2.0f * 0.1f;
    player.grain.ration = 0.4f * 2.0f * 0.2f;
    std::string expected = kHeader;
    for (int tick = 1; tick <= 20; ++tick) {
        world.Advance(kWeek);
        expected += Row(tick, player);
    }
    EXPECT_EQ(Rows("--seed 2 --weeks 20 --farmers 0.3 --butchers 0.6 --educators 0.2 "
                   "--warriors 0.1 --doctors 0.05 --lration 0.75 --gration 0.4 --justice 0.7"),
              expected);
}

TEST(CountrysimTest, LevelsWithoutAnOptionAreThoseOfTheGamesStart) {
    const std::string explicitly = Rows(
        "--farmers 0.251 --butchers 0.501 --educators 0.01 --warriors 0 --doctors 0.1 "
        "--lration 0.5 --gration 0.5 --justice 0.5");
    EXPECT_EQ(Rows("--doctors 0.1"), explicitly);
}

TEST(CountrysimTest, OptionNoNewspaperLeavesOutTheNewspapersRollsButNotTheWorlds) {
    // Much food and a justice of 1, so that crime falls until the stories have names.
    std::srand(4);
    World world;
    Country& player = world.player;
    player.SetMessageStream(nullptr);
    player.justice.justiceLevel = 1.0f;
    SetShares(player, {0.46f, 0.52f, 0.0f, 0.0f, 0.0f});
    player.grain.ration = 0.67f * 2.0f * 0.2f;
    std::string expected = kHeader;
    for (int tick = 1; tick <= 400; ++tick) {
        player.Process(kWeek);
        expected += Row(tick, player);
    }
    const std::string arguments =
        "--seed 4 --weeks 400 --farmers 0.46 --butchers 0.52 --educators 0 --gration 0.67 "
        "--justice 1";
    const std::string without = Rows(arguments + " --no-newspaper");
    EXPECT_TRUE(without == expected);
    EXPECT_TRUE(without != Rows(arguments));
}

TEST(CountrysimTest, BareCountryHasNoWorldAroundIt) {
    std::srand(6);
    Country player(start::kName, start::kPeople);
    player.SetMessageStream(nullptr);
    player.Normalise(Profession::Farmers);
    std::string expected = kHeader;
    for (int tick = 1; tick <= 100; ++tick) {
        player.Process(kWeek);
        expected += Row(tick, player);
    }
    const std::string bare = Rows("--bare --seed 6 --weeks 100");
    EXPECT_EQ(bare, expected);
    EXPECT_EQ(Last(bare, 11), "0.400000006");
    EXPECT_EQ(Rows("--bare --no-newspaper --seed 6 --weeks 100"), expected);
}

TEST(CountrysimTest, BareCountryChangesOnlyTheSharesThatAreGiven) {
    std::srand(6);
    Country player(start::kName, start::kPeople);
    player.SetMessageStream(nullptr);
    player.justice.justiceLevel = 0.55f;
    player.SetShare(Profession::Educators, 0.1f);
    player.Normalise(Profession::Educators);
    player.SetShare(Profession::Doctors, 0.3f);
    player.Normalise(Profession::Doctors);
    player.grain.ration = 0.6f * 2.0f * 0.2f;
    std::string expected = kHeader;
    for (int tick = 1; tick <= 30; ++tick) {
        player.Process(kWeek);
        expected += Row(tick, player);
    }
    EXPECT_EQ(Rows("--bare --seed 6 --weeks 30 --educators 0.1 --doctors 0.3 --gration 0.6 "
                   "--justice 0.55"),
              expected);
}

TEST(CountrysimTest, MessagesOfTheCountryGoToTheErrorStream) {
    const Result result = RunTool("--weeks 2 --gration 0.25");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error,
              "the people are starving slowly!\n"
              "the people are starving slowly!\n");
    EXPECT_EQ(LinesOf(result.out), 1 + 2);
    EXPECT_THAT(result.out, testing::StartsWith(kHeader));
    EXPECT_THAT(result.out, testing::Not(testing::HasSubstr("people")));
}

TEST(CountrysimTest, RebellionIsWrittenAsZeroOrOne) {
    const std::string rows = Rows("--weeks 600 --gration 0.1 --lration 0.1");
    EXPECT_EQ(Last(rows.substr(0, rows.find('\n', sizeof kHeader) + 1), 15), "0\n");
    EXPECT_EQ(Last(rows, 15), "1\n");
}

TEST(CountrysimTest, CampaignWithRationsOfZeroRunsToItsEnd) {
    EXPECT_EQ(LinesOf(Rows("--weeks 60 --lration 0 --gration 0")), 1 + 60);
    EXPECT_EQ(LinesOf(Rows("--weeks 60 --lration 0.0000001 --gration 0.0000001")), 1 + 60);
}

constexpr char kSummaryHeader[] =
    "seed,weeks,famine,plague,rebellion,livestock_lowest,livestock_last,grain_lowest,grain_last,"
    "people_lowest,people_last,funds_lowest,funds_last,morale_lowest,morale_last,crime_lowest,"
    "crime_last\n";

std::vector<std::string> Fields(const std::string& row) {
    std::vector<std::string> fields(1);
    for (const char letter : row) {
        if (letter == ',')
            fields.emplace_back();
        else
            fields.back() += letter;
    }
    return fields;
}

std::vector<std::vector<std::string>> Table(const std::string& rows) {
    std::vector<std::vector<std::string>> table;
    std::istringstream text(rows);
    for (std::string line; std::getline(text, line);)
        table.push_back(Fields(line));
    table.erase(table.begin());
    return table;
}

/// The summary row that follows from a campaign's rows per tick.
std::string Summed(const std::string& seed, const std::string& rows) {
    const std::vector<std::size_t> ranges{4, 5, 2, 3, 8, 10};  // columns with a lowest and a last
    std::vector<std::vector<std::string>> table = Table(rows);
    const auto extinct = [](const auto& row) { return std::stof(row[2]) <= 0.0f; };
    const auto end = std::find_if(table.begin(), table.end(), extinct);
    if (end != table.end())
        table.erase(end + 1, table.end());
    double before = 0.0;
    double survived = 0.0;
    std::string first[3];
    for (const auto& row : table) {
        const std::string week = std::to_string(static_cast<long>(before / 604800.0) + 1);
        const bool struck[3] = {std::stof(row[13]) > 0.0f, std::stof(row[14]) > 0.0f,
                                row[15] == "1"};
        for (int i = 0; i < 3; ++i) {
            if (struck[i] && first[i].empty())
                first[i] = week;
        }
        before = std::stod(row[1]);
        if (!extinct(row))
            survived = before;
    }
    std::string summed = seed + ',' + std::to_string(static_cast<long>(survived / 604800.0));
    for (const std::string& week : first)
        summed += ',' + week;
    for (const std::size_t column : ranges) {
        const auto less = [=](const auto& one, const auto& other) {
            return std::stof(one[column]) < std::stof(other[column]);
        };
        summed += ',' + (*std::min_element(table.begin(), table.end(), less))[column] + ','
                  + table.back()[column];
    }
    return summed + '\n';
}

class SummaryTest : public testing::TestWithParam<const char*> {};

TEST_P(SummaryTest, AgreesWithTheRowsOfTheSameCampaign) {
    const std::string policy = GetParam();
    for (const std::string seed : {"1", "3", "1358"}) {
        const Result rows = RunTool("--seed " + seed + ' ' + policy);
        const Result summary = RunTool("--summary --seed " + seed + ' ' + policy);
        EXPECT_EQ(summary.status, 0);
        EXPECT_EQ(summary.out, kSummaryHeader + Summed(seed, rows.out));
        EXPECT_EQ(summary.error, "");
    }
}

INSTANTIATE_TEST_SUITE_P(
    CountrysimTest, SummaryTest,
    testing::Values("--weeks 40", "--weeks 2.5",
                    "--weeks 200",  // before and after the people die out
                    "--weeks 300 --farmers 0.3 --butchers 0.6 --doctors 0.09",
                    "--weeks 300 --justice 1 --farmers 0.26 --butchers 0.52 --renew",
                    "--weeks 300 --farmers 0.4 --butchers 0 --trade 5 --renew --justice 0.56",
                    "--weeks 300 --bare", "--weeks 60 --step 86400 --lration 0.3",
                    "--weeks 0.5 --step real", "--weeks 400 --no-newspaper --gration 0.67",
                    // crime falls until the newspaper's stories have names, which need rolls
                    "--weeks 400 --justice 1 --farmers 0.46 --butchers 0.52 --gration 0.67"));

TEST(CountrysimTest, EverySeedOfTheRangeHasARowInOrder) {
    std::string expected = kSummaryHeader;
    for (const char* seed : {"8", "9", "10", "11"})
        expected += Rows(std::string("--summary --weeks 100 --seed ") + seed)
                        .substr(sizeof kSummaryHeader - 1);
    EXPECT_EQ(Rows("--summary --weeks 100 --seeds 8-11"), expected);
    EXPECT_EQ(LinesOf(Rows("--summary --weeks 1 --seeds 4294967295-4294967295")), 2);
}

TEST(CountrysimTest, SummaryOfZeroWeeksHasTheFiguresOfTheStart) {
    const auto row = Table(Rows("--summary --weeks 0")).at(0);
    EXPECT_EQ(row[1], "0");
    EXPECT_EQ(row[2] + row[3] + row[4], "");
    EXPECT_EQ(row[5], "15000");
    EXPECT_EQ(row[7], "24000");
    EXPECT_EQ(row[9], "38685");
}

TEST(CountrysimTest, CampaignOfASummaryEndsWhenNoPeopleAreLeft) {
    const auto row = Table(Rows("--summary --weeks 1000")).at(0);
    EXPECT_LT(std::stoi(row[1]), 100);
    EXPECT_LE(std::stof(row[10]), 0.0f);
}

TEST(CountrysimTest, SummaryThatCannotBeWrittenEndsWithStatusOne) {
    const Result result = RunTool("--summary --seeds 1-4294967295 --weeks 1", "/dev/full");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "countrysim: cannot write the rows\n");
}

TEST(CountrysimTest, OptionRenewSetsTheWorkersForTodaysPeopleAndRations) {
    std::srand(2);
    World world;
    Country& player = world.player;
    GovernAsTheGame(player);
    player.livestock.ration = 0.4f * 2.0f * 0.1f;
    std::string expected = kHeader;
    for (int tick = 1; tick <= 30; ++tick) {
        SetShares(player, start::kShares);
        world.Advance(kWeek);
        expected += Row(tick, player);
    }
    EXPECT_EQ(Rows("--seed 2 --weeks 30 --lration 0.4 --renew"), expected);
}

TEST(CountrysimTest, TradeKeepsTheWeeksOfFoodThatTheFundsAllow) {
    // Half of the people farm and nobody is a butcher: the sale of grain pays for livestock.
    const auto table =
        Table(Rows("--seed 3 --weeks 60 --farmers 0.5 --butchers 0 --renew --trade 5"));
    for (const auto& row : table) {
        const float people = std::stof(row[2]);
        EXPECT_GT(std::stof(row[3]), 0.0f) << "funds of week " << row[0];
        if (std::stoi(row[0]) < 20)
            continue;  // by then the herd is bought
        EXPECT_NEAR(std::stof(row[4]), 4.0f * 0.1f * people, 0.02f * people);
        EXPECT_GT(std::stof(row[5]), 4.0f * 0.2f * people);
    }
}

TEST(CountrysimTest, TradeOfZeroWeeksSellsAllToTheFirstNeighbourBeforeTheTick) {
    std::srand(5);
    World world;
    Country& player = world.player;
    GovernAsTheGame(player);
    const Country& partner = *world.countries[0];
    const float livestock = player.livestock.amount;
    const float grain = player.grain.amount;
    player.Sell(livestock, grain, &partner);
    world.Advance(kWeek);
    EXPECT_EQ(Table(Rows("--seed 5 --weeks 1 --trade 0")).at(0),
              Fields(Row(1, player).substr(0, Row(1, player).size() - 1)));
}

/// The chronicle as countrysim prints it.
std::string LinesOf(const Chronicle& chronicle) {
    std::string lines;
    for (std::size_t index = chronicle.Size(); index > 0; --index) {
        const Chronicle::Entry& entry = chronicle.Newest(index - 1);
        lines += entry.date.DayText() + ": ";
        entry.WriteTo(lines);
        lines += '\n';
    }
    return lines;
}

TEST(CountrysimTest, ChronicleIsThatOfTheGameWithTheSameSeed) {
    for (const int seed : {1, 7, 1358}) {
        std::srand(static_cast<unsigned>(seed));
        World world;
        GovernAsTheGame(world.player);
        for (int week = 0; week < 150; ++week)
            world.Advance(kWeek);
        EXPECT_GT(world.chronicle.Size(), 5u);
        const Result result = RunTool("--chronicle --weeks 150 --seed " + std::to_string(seed));
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.error, "");
        EXPECT_EQ(result.out, LinesOf(world.chronicle));
    }
}

TEST(CountrysimTest, ChronicleHasTheTradesOfItsPolicy) {
    std::srand(5);
    World world;
    Country& player = world.player;
    GovernAsTheGame(player);
    player.Sell(player.livestock.amount, player.grain.amount, world.countries[0].get());
    world.Advance(kWeek);
    EXPECT_EQ(Rows("--chronicle --seed 5 --weeks 1 --trade 0"), LinesOf(world.chronicle));
    EXPECT_THAT(LinesOf(world.chronicle), testing::HasSubstr("The country sold "));
}

TEST(CountrysimTest, ChronicleOfABareCountryIsPrinted) {
    EXPECT_THAT(Rows("--chronicle --bare --weeks 100 --gration 0.2"),
                testing::StartsWith("1358/5/23: The people are starving slowly!\n"));
}

TEST(CountrysimTest, ChronicleOfZeroWeeksIsEmpty) {
    EXPECT_EQ(Rows("--chronicle --weeks 0"), "");
}

TEST(CountrysimTest, ChronicleThatCannotBeWrittenEndsWithStatusOne) {
    const Result result = RunTool("--chronicle --weeks 100", "/dev/full");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "countrysim: cannot write the rows\n");
}

// Changes of the policy

TEST(CountrysimTest, ChangeMovesOneSliderBeforeTheFirstTickOfItsWeek) {
    std::srand(2);
    World world;
    Country& player = world.player;
    GovernAsTheGame(player);
    std::string expected = kHeader;
    for (int week = 1; week <= 30; ++week) {
        if (week == 5)
            player.justice.justiceLevel = 0.56f;
        if (week == 8) {
            player.SetShare(Profession::Doctors, 0.1f);
            player.Normalise(Profession::Doctors);
            player.livestock.ration = 0.4f * 2.0f * 0.1f;
        }
        if (week == 12)
            player.grain.ration = 0.7f * 2.0f * 0.2f;
        world.Advance(kWeek);
        expected += Row(week, player);
    }
    EXPECT_EQ(Rows("--seed 2 --weeks 30 --at 12:gration=0.7 --at 5:justice=0.56 "
                   "--at 8:doctors=0.1 --at 8:lration=0.4"),
              expected);
}

TEST(CountrysimTest, ChangeInTheFirstWeekIsThePolicyOfTheWholeCampaign) {
    EXPECT_EQ(Rows("--weeks 40 --at 1:justice=0.6 --at 1:lration=0.4"),
              Rows("--weeks 40 --justice 0.6 --lration 0.4"));
}

TEST(CountrysimTest, ChangeOfAShareHoldsWhenTheWorkersAreSetAgain) {
    const auto table = Table(Rows("--weeks 30 --renew --at 10:butchers=0"));
    EXPECT_GT(std::stof(table[8][6]), 0.0f);
    for (std::size_t week = 10; week <= 30; ++week)
        EXPECT_EQ(table[week - 1][6], "0") << week;
}

TEST(CountrysimTest, RenewAndTradeCanBeginAndEnd) {
    EXPECT_EQ(Rows("--weeks 30 --at 1:renew=1 --at 1:trade=3"),
              Rows("--weeks 30 --renew --trade 3"));
    EXPECT_EQ(Rows("--weeks 30 --renew --trade 3 --at 1:renew=0 --at 1:trade=off"),
              Rows("--weeks 30"));
    EXPECT_NE(Rows("--weeks 30 --at 20:trade=3"), Rows("--weeks 30"));
}

TEST(CountrysimTest, ChangeBelongsToItsWeekAlsoInShorterSteps) {
    const auto table = Table(Rows("--weeks 3 --step 86400 --at 2:justice=0.9"));
    EXPECT_EQ(table[6][11], "0.5");
    EXPECT_EQ(table[7][11], "0.899999976");
}

TEST(CountrysimTest, SummaryAndChronicleFollowTheChangesToo) {
    EXPECT_EQ(Rows("--summary --weeks 200 --at 1:justice=0.56 --at 1:renew=1 --at 1:doctors=0.1"),
              Rows("--summary --weeks 200 --justice 0.56 --renew --doctors 0.1"));
    EXPECT_NE(Rows("--chronicle --weeks 100 --at 30:gration=0.1"), Rows("--chronicle --weeks 100"));
}

// JSON

TEST(CountrysimTest, JsonHasTheNamesAndTheValuesOfTheRows) {
    const std::vector<std::string> names = Fields(std::string(kHeader, sizeof kHeader - 2));
    std::string expected;
    for (const auto& row : Table(Rows("--weeks 60"))) {
        for (std::size_t i = 0; i < row.size(); ++i)
            expected += (i == 0 ? "{\"" : ",\"") + names[i] + "\":" + row[i];
        expected += "}\n";
    }
    EXPECT_EQ(Rows("--weeks 60 --json"), expected);
}

TEST(CountrysimTest, JsonOfASummaryHasNullForAWeekWithoutEvent) {
    EXPECT_THAT(Rows("--summary --weeks 3 --json"),
                testing::StartsWith("{\"seed\":1,\"weeks\":3,\"famine\":null,\"plague\":null,"
                                    "\"rebellion\":null,\"livestock_lowest\":"));
    EXPECT_EQ(LinesOf(Rows("--summary --weeks 3 --json --seeds 4-9")), 6);
}

TEST(CountrysimTest, JsonHasNullForNumbersThatItCannotWrite) {
    const std::string arguments = "--weeks 3 --lration 0 --gration 0 --at 2:farmers=0.2";
    EXPECT_THAT(Rows(arguments), testing::HasSubstr(",inf,"));
    const std::string json = Rows(arguments + " --json");
    EXPECT_THAT(json, testing::HasSubstr("_production\":null,"));
    EXPECT_THAT(json, testing::Not(testing::HasSubstr("inf,")));
}

TEST(CountrysimTest, JsonOfAChronicleHasDateAndText) {
    std::string expected;
    std::istringstream lines(Rows("--chronicle --weeks 100"));
    for (std::string line; std::getline(lines, line);) {
        const std::size_t colon = line.find(": ");
        expected += "{\"date\":\"" + line.substr(0, colon) + "\",\"text\":\""
                    + line.substr(colon + 2) + "\"}\n";
    }
    EXPECT_EQ(Rows("--chronicle --weeks 100 --json"), expected);
}

// Columns

/// The rows of the manual's table after this line: name, unit and meaning of each column.
std::vector<std::vector<std::string>> ManualColumns(const std::string& after) {
    std::ifstream manual("docs/PLAYING.md");
    std::vector<std::vector<std::string>> columns;
    bool found = false;
    for (std::string line; std::getline(manual, line);) {
        found = found || line.find(after) != std::string::npos;
        if (!found || !line.starts_with("| `")) {
            if (!columns.empty())
                break;
            continue;
        }
        std::vector<std::string> cells;
        for (std::size_t at = 1; at < line.size();) {
            const std::size_t end = line.find('|', at);
            std::string cell = line.substr(at, end - at);
            cell.erase(0, cell.find_first_not_of(" `"));
            cell.erase(std::min(cell.find_last_not_of(" `") + 1, cell.size()));
            cells.push_back(cell);
            at = end + 1;
        }
        columns.push_back(cells);
    }
    return columns;
}

class ColumnsTest : public testing::TestWithParam<std::array<const char*, 3>> {};

TEST_P(ColumnsTest, ManualAndHelpExplainEachWithItsUnit) {
    const auto [header, inManual, inHelp] = GetParam();
    const auto explained = ManualColumns(inManual);
    std::string names;
    std::istringstream help(RunTool("--help").out);
    std::string line;
    while (std::getline(help, line) && line != inHelp) {
    }
    for (const auto& column : explained) {
        ASSERT_EQ(column.size(), 3U);
        names += (names.empty() ? "" : ",") + column[0];
        std::getline(help, line);
        const std::string unit = column[1].empty() ? "" : " [" + column[1] + "]";
        EXPECT_THAT(line, testing::StartsWith("  " + column[0] + " "));
        EXPECT_THAT(line, testing::EndsWith("  " + column[2] + unit));
    }
    EXPECT_EQ(names + "\n", header);
    EXPECT_FALSE(std::getline(help, line) && line.starts_with("  ")) << line;
}

INSTANTIATE_TEST_SUITE_P(
    CountrysimTest, ColumnsTest,
    testing::Values(std::array<const char*, 3>{kHeader, "are the columns of a row",
                                               "Columns, with their units in brackets:"},
                    std::array<const char*, 3>{kSummaryHeader, "With `--summary` it prints",
                                               "Columns of --summary:"}));

class BadOptionTest : public testing::TestWithParam<const char*> {};

TEST_P(BadOptionTest, PrintsOneErrorLineAndEndsWithStatusTwo) {
    const Result result = RunTool(GetParam());
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_THAT(result.error, testing::StartsWith("countrysim: "));
    EXPECT_EQ(LinesOf(result.error), 1);
    EXPECT_EQ(result.error.back(), '\n');
}

INSTANTIATE_TEST_SUITE_P(
    CountrysimTest, BadOptionTest,
    testing::Values("--unknown", "surplus", "--seed", "--seed x", "--seed=-1", "--seed 1.5",
                    "--seed ''", "--seed 0x10", "--seed 4294967296", "--seed 1 --seed 2",
                    "--weeks x", "--weeks=-1", "--weeks nan", "--weeks inf", "--weeks 1e10",
                    "--step 0", "--step=-5", "--step unreal", "--step nan", "--step 1e9",
                    "--step ''", "--farmers 1.1", "--butchers=-0.1", "--educators x",
                    "--warriors nan", "--doctors 2", "--lration 1.01", "--gration x", "--justice 7",
                    "--bare=perhaps", "--seeds 1-3", "--summary --seeds 3", "--summary --seeds 9-3",
                    "--summary --seeds=-1-3", "--summary --seeds=-3", "--summary --seeds 3-",
                    "--summary --seeds -", "--summary --seeds ''", "--summary --seeds 1-2-3",
                    "--summary --seeds 1-x", "--summary --seeds 1-4294967296",
                    "--summary --seeds 1-3 --seed 1", "--trade x", "--trade=-1", "--trade nan",
                    "--trade 3 --bare", "--renew=maybe", "--summary=maybe", "--chronicle --summary",
                    "--chronicle=maybe", "--json=maybe", "--at", "--at 5", "--at 5:justice",
                    "--at justice=0.5", "--at 0:justice=0.5", "--at=-1:justice=0.5",
                    "--at 1.5:justice=0.5", "--at 5:justice=", "--at 5:justice=1.1",
                    "--at 5:justice=nan", "--at 5:healers=0.5", "--at 5:renew=2",
                    "--at 5:renew=off", "--at 5:trade=-1", "--at 5:trade=on", "--at 5:seed=1",
                    "--bare --at 5:trade=3", "\"$(printf 'two\\nlines')\""));

TEST(CountrysimTest, HelpNamesEveryOptionAndEndsWithStatusZero) {
    const Result result = RunTool("--help");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.error, "");
    for (const char* option :
         {"--seed",         "--weeks",   "--step",     "--farmers", "--butchers", "--educators",
          "--warriors",     "--doctors", "--lration",  "--gration", "--justice",  "--bare",
          "--no-newspaper", "--renew",   "--trade",    "--seeds",   "--summary",  "--chronicle",
          "--at",           "--json",    "whole weeks"})
        EXPECT_THAT(result.out, testing::HasSubstr(option));
}

TEST(CountrysimTest, RowsThatCannotBeWrittenEndWithStatusOne) {
    const Result result = RunTool("--weeks 1", "/dev/full");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.error, "countrysim: cannot write the rows\n");
}

}  // namespace
