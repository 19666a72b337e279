// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/suggestion.h"

#include <gmock/gmock.h>

namespace guiview {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(EditDistance, CountsLettersToAddRemoveReplaceOrSwap) {
    EXPECT_EQ(EditDistance("", ""), 0U);
    EXPECT_EQ(EditDistance("", "abc"), 3U);
    EXPECT_EQ(EditDistance("abc", ""), 3U);
    EXPECT_EQ(EditDistance("Label", "Label"), 0U);
    EXPECT_EQ(EditDistance("Labe", "Label"), 1U);
    EXPECT_EQ(EditDistance("Labels", "Label"), 1U);
    EXPECT_EQ(EditDistance("Lobel", "Label"), 1U);
    EXPECT_EQ(EditDistance("Laebl", "Label"), 1U);
    EXPECT_EQ(EditDistance("bLael", "Label"), 2U);
    EXPECT_EQ(EditDistance("farmers", "butchers"), 5U);
}

TEST(EditDistance, DoesNotDistinguishUpperFromLowerCase) {
    EXPECT_EQ(EditDistance("label", "LABEL"), 0U);
    EXPECT_EQ(EditDistance("lAEBL", "Label"), 1U);
}

TEST(Suggestion, IsTheWordWithTheFewestWrongLetters) {
    EXPECT_EQ(Similar("ofice", {"box", "officer", "office", "offices"}), "office");
}

TEST(Suggestion, HasAtMostOneWrongLetterInThree) {
    EXPECT_EQ(Similar("abcdxx", {"abcdef"}), "abcdef");
    EXPECT_EQ(Similar("abcxxx", {"abcdef"}), std::nullopt);
    EXPECT_EQ(Similar("ab", {"ac"}), std::nullopt);
    EXPECT_EQ(Similar("", {"", "a"}), "");
    EXPECT_EQ(Similar("abc", {}), std::nullopt);
}

TEST(Suggestion, EquallySimilarWordsAreAllNamedInTheirOrder) {
    EXPECT_THAT(MostSimilar("FADD", {"CONF", "CADD", "TADD"}), ElementsAre("CADD", "TADD"));
    EXPECT_THAT(MostSimilar("FADD", {"CONF", "THEM"}), IsEmpty());
}

TEST(Suggestion, IsTheEndOfAReport) {
    EXPECT_EQ(DidYouMean("Label"), "; did you mean 'Label'?");
    EXPECT_EQ(DidYouMean(std::nullopt), "");
}

}  // namespace
}  // namespace guiview
