// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/namegenerator.h"

#include <gtest/gtest.h>

#include <cctype>
#include <set>
#include <sstream>
#include <vector>

#include "country/fragments.h"
#include "tests/country/rolls.h"

namespace {

/// The alternatives of a row, split by other code than the generator's.
std::vector<std::string> Split(std::string_view row) {
    std::vector<std::string> parts;
    std::istringstream stream{std::string(row)};
    std::string part;
    while (std::getline(stream, part, '|'))
        parts.push_back(part);
    return parts;
}

/// The name that follows from the seed's rolls.
std::string Expected(const std::uint32_t* pattern, unsigned seed) {
    Replay replay(seed);
    std::string name;
    for (; *pattern != 0; ++pattern) {
        std::vector<std::string> candidates;
        for (unsigned row = 0; row < 26; ++row) {
            if ((*pattern & 1U << row) == 0)
                continue;
            const std::vector<std::string> parts = Split(kFragments[row]);
            candidates.push_back(parts[static_cast<std::size_t>(replay.Raw()) % parts.size()]);
        }
        std::size_t pick = 0;
        if (candidates.size() > 1)
            pick = static_cast<std::size_t>(replay.Raw()) % candidates.size();
        name += candidates[pick];
    }
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (i == 0 || name[i - 1] == '-' || name[i - 1] == ' ')
            name[i] = static_cast<char>(std::toupper(name[i]));
    }
    return name;
}

std::string Generated(const std::uint32_t* pattern, unsigned seed = 1) {
    std::srand(seed);
    return NameGenerator(pattern).Generate();
}

TEST(NameGeneratorTest, ThereAreTwentySixRowsOfFragments) {
    const std::vector<std::string> rows = {
        "ch|dg|j",
        "d|s|t|n|l|r|z",
        "b|p|m",
        "b|p",
        "sch|thr",
        "b|c|d|f|g|h|j|k|l|m|n|p|r|s|t|v|z",
        "bb|dd|ff|ll|mm|nn|rr|ss|tt",
        "wy",
        "g|ng|r",
        "ch|f|ph|s|sh|th|v|z",
        "w|y",
        "h",
        "l|r",
        "ct|dr|dw|ft|mk|nd|ndr|nf|nj|nk|ns|nt|ny|pr|ps|rd|rg|rk|rm|rn|rz|sl|st|stl|wl",
        "m|n",
        "ch|dg|s|j|sh|y",
        "d|t|b|p|g|k",
        "g|k|ng|w",
        "ay|ea|ee|ei|oa|oe|ou|ow|oy|y",
        "a|e|i|o|u",
        "ae|au|ea|ey|ie|io|oe|oi|oo|ou|ue|ui|ya|yo",
        "bb|dd|kk|bd|dt|pk|gg|pp|tt",
        "-| ",
        " ",
        "'",
        "ch|f|ph|z|g|t|gr|r|p",
    };
    EXPECT_EQ(std::vector<std::string>(std::begin(kFragments), std::end(kFragments)), rows);
}

TEST(NameGeneratorTest, NamesFollowTheRolls) {
    for (unsigned seed = 1; seed < 500; ++seed) {
        for (const std::uint32_t* pattern :
             {NameGenerator::kCountryPattern, NameGenerator::kFirstNamePattern,
              NameGenerator::kSecondNamePattern, NameGenerator::kTownPattern})
            ASSERT_EQ(Generated(pattern, seed), Expected(pattern, seed));
    }
}

TEST(NameGeneratorTest, FragmentOfEveryRowFollowsTheRolls) {
    for (unsigned row = 0; row < 26; ++row) {
        const std::uint32_t pattern[] = {1U << row, 0x3FFFFFF, 1U << row, 0};
        for (unsigned seed = 1; seed < 50; ++seed)
            ASSERT_EQ(Generated(pattern, seed), Expected(pattern, seed));
    }
}

TEST(NameGeneratorTest, PositionTakesOneRollPerAllowedRowAndOneMoreIfThereAreSeveral) {
    ExpectRolls(16, [] { NameGenerator(NameGenerator::kCountryPattern).Generate(); });
    ExpectRolls(7, [] { NameGenerator(NameGenerator::kFirstNamePattern).Generate(); });
    ExpectRolls(3, [] { NameGenerator(NameGenerator::kSecondNamePattern).Generate(); });
    ExpectRolls(16, [] { NameGenerator(NameGenerator::kTownPattern).Generate(); });
}

TEST(NameGeneratorTest, MakingAGeneratorRollsNothing) {
    ExpectRolls(0, [] { NameGenerator generator(NameGenerator::kCountryPattern); });
}

TEST(NameGeneratorTest, PositionWithOneRowTakesOneRoll) {
    const std::uint32_t pattern[] = {0x800, 0};
    ExpectRolls(1, [&] { NameGenerator(pattern).Generate(); });
}

TEST(NameGeneratorTest, RowWithOneAlternativeAlwaysGivesIt) {
    const std::uint32_t pattern[] = {0x800, 0x800, 0};
    for (unsigned seed = 1; seed < 50; ++seed)
        EXPECT_EQ(Generated(pattern, seed), "Hh");
}

TEST(NameGeneratorTest, EmptyPatternGivesAnEmptyName) {
    const std::uint32_t pattern[] = {0};
    ExpectRolls(0, [&] { EXPECT_EQ(NameGenerator(pattern).Generate(), ""); });
}

TEST(NameGeneratorTest, BitsAboveTheLastRowAddNothing) {
    const std::uint32_t pattern[] = {0x80000000, 0x4000000, 0x800, 0};
    ExpectRolls(1, [&] { EXPECT_EQ(NameGenerator(pattern).Generate(), "H"); });
}

TEST(NameGeneratorTest, LetterAfterASpaceOrAHyphenIsCapitalised) {
    const std::uint32_t space[] = {0x800, 0x800000, 0x80, 0};
    EXPECT_EQ(Generated(space), "H Wy");
    const std::uint32_t either[] = {0x800, 0x400000, 0x80, 0};
    std::set<std::string> names;
    for (unsigned seed = 1; seed < 50; ++seed)
        names.insert(Generated(either, seed));
    EXPECT_EQ(names, (std::set<std::string>{"H Wy", "H-Wy"}));
}

TEST(NameGeneratorTest, NameMayEndWithAHyphen) {
    const std::uint32_t pattern[] = {0x800, 0x800000, 0};
    EXPECT_EQ(Generated(pattern), "H ");
}

TEST(NameGeneratorTest, LetterAfterAnApostropheIsNotCapitalised) {
    const std::uint32_t pattern[] = {0x800, 0x1000000, 0x800, 0};
    EXPECT_EQ(Generated(pattern), "H'h");
}

TEST(NameGeneratorTest, AlternativesAreCountedFromZero) {
    EXPECT_EQ(NameGenerator::Alternative("ch|dg|j", 0), "ch");
    EXPECT_EQ(NameGenerator::Alternative("ch|dg|j", 1), "dg");
    EXPECT_EQ(NameGenerator::Alternative("ch|dg|j", 2), "j");
}

TEST(NameGeneratorTest, IndexAboveTheLastAlternativeGivesTheLastOne) {
    EXPECT_EQ(NameGenerator::Alternative("ch|dg|j", 3), "j");
    EXPECT_EQ(NameGenerator::Alternative("ch|dg|j", 4000000000U), "j");
}

TEST(NameGeneratorTest, TextWithoutASeparatorIsTheOnlyAlternative) {
    EXPECT_EQ(NameGenerator::Alternative("wy", 0), "wy");
    EXPECT_EQ(NameGenerator::Alternative("wy", 5), "wy");
    EXPECT_EQ(NameGenerator::Alternative("", 0), "");
}

}  // namespace
