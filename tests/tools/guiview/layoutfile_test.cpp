// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/layoutfile.h"

#include "tests/tools/guiview/layout_test.h"

namespace guiview {
namespace {

using LayoutFileTest = LayoutTest;

TEST_F(LayoutFileTest, EmptyLayoutIsClean) {
    EXPECT_EQ(Found(""), "");
    EXPECT_EQ(Found("\n\n// nothing but words\n   \n"), "");
}

TEST_F(LayoutFileTest, UnknownStatementIsAnError) {
    EXPECT_EQ(Found("// first\n  WIDGET Label a NULL 0 0 A\n"),
              "test.gui:2:3: error: unknown statement 'WIDGET'\n");
}

TEST_F(LayoutFileTest, SimilarStatementThatTheLineFitsIsSuggested) {
    EXPECT_EQ(FoundWithFont("FADD Label a NULL 0 0 A\n"),
              "test.gui:2:1: error: unknown statement 'FADD'; did you mean 'CADD'?\n");
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w 0 A\nFADD 0 Label a w 0 0 A\n"),
              "test.gui:4:1: error: unknown statement 'FADD'; did you mean 'TADD'?\n");
    EXPECT_EQ(Found("FADD Label\n"),
              "test.gui:1:1: error: unknown statement 'FADD'; did you mean 'CADD'?\n");
}

TEST_F(LayoutFileTest, MisspeltStatementHasNoConsequencesInOtherLines) {
    EXPECT_EQ(Found("CNOF gui.conf\nCADD Label a NULL 0 1 A\nCADD Label b NULL 0 0.5 B\n"),
              "test.gui:1:1: error: unknown statement 'CNOF'; did you mean 'CONF'?\n");
}

TEST_F(LayoutFileTest, SimilarKindIsSuggestedByItsWordOrItsClass) {
    EXPECT_EQ(FoundWithFont("CADD Laebl a NULL 0 0 A\n"),
              "test.gui:2:6: error: unknown kind 'Laebl'; did you mean 'Label'?\n");
    EXPECT_EQ(FoundWithFont("CADD Checkbox a NULL 0 1 A\n"),
              "test.gui:2:6: error: unknown kind 'Checkbox'; did you mean 'Check'?\n");
    EXPECT_EQ(FoundWithFont("CADD Window w NULL 0 0 1 A\nCADD Label a w 0 0 A\nSOLID\nCENTRE w\n"),
              "test.gui:2:6: error: unknown kind 'Window'; did you mean 'Win'?\n");
}

TEST_F(LayoutFileTest, MissingTagOrParentIsOneError) {
    EXPECT_EQ(FoundWithFont("CADD Label a 0 0 A\nCADD Label NULL 0 0 B\n"),
              "test.gui:2:14: error: missing tag or parent before '0'\n"
              "test.gui:3:17: error: missing tag or parent before '0'\n");
    EXPECT_EQ(FoundWithFont("CADD Win 0 NULL 0 0 0 Zero\nCADD Label a 0 0 0 A number as a tag\n"),
              "");
}

TEST_F(LayoutFileTest, MissingTabIsOneError) {
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w 0 A\nTADD Label a w 0 0 A\n"),
              "test.gui:4:6: error: missing tab before 'Label'\n");
}

TEST_F(LayoutFileTest, StatementsInOtherSpellingsAreUnknown) {
    EXPECT_EQ(Found("solid\n"),
              "test.gui:1:1: error: unknown statement 'solid'; did you mean 'SOLID'?\n");
    EXPECT_EQ(Found("SOLIDIFY\n"), "test.gui:1:1: error: unknown statement 'SOLIDIFY'\n");
}

TEST_F(LayoutFileTest, StatementThatDoesNothingIsAWarning) {
    EXPECT_EQ(Found("CHLD a b\n"), "test.gui:1:1: warning: CHLD does nothing\n");
}

TEST_F(LayoutFileTest, UnknownKindIsAnError) {
    EXPECT_EQ(Found("CADD Image a NULL 0 0\n"), "test.gui:1:6: error: unknown kind 'Image'\n");
}

TEST_F(LayoutFileTest, WidgetsInsideOfAnUnknownKindAreNotReported) {
    EXPECT_EQ(FoundWithFont("CADD Panel w NULL 0 0 1 A\nCADD Label a w 0 0 A\nCENTRE w\n"),
              "test.gui:2:6: error: unknown kind 'Panel'\n");
}

TEST_F(LayoutFileTest, MissingFieldsAreReportedWhereTheyShouldBegin) {
    EXPECT_EQ(Found("CONF\n"), "test.gui:1:5: error: missing file\n");
    EXPECT_EQ(Found("THEM\n"), "test.gui:1:5: error: missing theme\n");
    EXPECT_EQ(Found("CADD\n"), "test.gui:1:5: error: missing kind\n");
    EXPECT_EQ(Found("CADD Slide\n"), "test.gui:1:11: error: missing tag\n");
    EXPECT_EQ(Found("CADD Slide a  \n"), "test.gui:1:13: error: missing parent\n");
    EXPECT_EQ(Found("CADD Slide a NULL\n"), "test.gui:1:18: error: missing x\n");
    EXPECT_EQ(Found("CADD Slide a NULL 0\n"), "test.gui:1:20: error: missing y\n");
    EXPECT_EQ(Found("CADD Slide a NULL 0 0 1\n"), "test.gui:1:24: error: missing height\n");
    EXPECT_EQ(Found("TADD\n"), "test.gui:1:5: error: missing tab\n");
    EXPECT_EQ(Found("CENTREX\n"), "test.gui:1:8: error: missing tag\n");
    EXPECT_EQ(Found("TEXT\n"), "test.gui:1:5: error: missing tag\n");
}

TEST_F(LayoutFileTest, MissingFieldsOfEachKindAreReported) {
    EXPECT_EQ(FoundWithFont("CADD Win a NULL 0 0\n"), "test.gui:2:20: error: missing movable\n");
    EXPECT_EQ(Found("CADD Frame a NULL 0 0\n"), "test.gui:1:22: error: missing border\n");
    EXPECT_EQ(FoundWithFont("CADD Butt a NULL 0 0\n"), "test.gui:2:21: error: missing caption\n");
    EXPECT_EQ(Found("CADD Butt a NULL 0 0 TEX 1\n"), "test.gui:1:27: error: missing height\n");
    EXPECT_EQ(FoundWithFont("CADD Text a NULL 0 0\n"), "test.gui:2:21: error: missing columns\n");
}

TEST_F(LayoutFileTest, MissingFieldIsNotTakenFromTheNextLine) {
    EXPECT_EQ(Found("CADD Slide a NULL 0.5\nCADD Slide b NULL 1 1 0.3 0\n"),
              "test.gui:1:22: error: missing y\n");
}

TEST_F(LayoutFileTest, EachMalformedNumberIsReported) {
    EXPECT_EQ(Found("CADD Slide a NULL 0,5 one 1x 0\n"),
              "test.gui:1:19: error: '0,5' is not a number for x\n"
              "test.gui:1:23: error: 'one' is not a number for y\n"
              "test.gui:1:27: error: '1x' is not a number for width\n");
}

TEST_F(LayoutFileTest, NumbersAreValidIfTheToolkitReadsThemWhole) {
    for (const char* number : {"0", "-0.5", "+1", ".5", "1.", "1e-2", "-1E-2", "00.7"}) {
        EXPECT_EQ(Found("CADD Slide a NULL " + std::string(number) + " 0.5 0.3 0\n"), "") << number;
    }
    for (const char* number : {"nan", "inf", "-inf", "0x1", "1e99", "--1", "+-1", "+", "-", "."}) {
        EXPECT_EQ(Found("CADD Slide a NULL " + std::string(number) + " 0.5 0.3 0\n"),
                  "test.gui:1:19: error: '" + std::string(number) + "' is not a number for x\n");
    }
}

TEST_F(LayoutFileTest, FractionsAndWordsAreErrorsWhereWholeNumbersAreNeeded) {
    EXPECT_EQ(FoundWithFont("CADD Text a NULL 1 1 8.5 2\n"),
              "test.gui:2:22: error: '8.5' is not a whole number for columns\n");
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL 0 -1\nNTAB w one A\n"),
              "test.gui:3:8: error: 'one' is not a whole number for tab\n");
}

TEST_F(LayoutFileTest, FlagThatIsNeither0Nor1IsAnError) {
    EXPECT_EQ(FoundWithFont("CADD Win a NULL 0 0 2 A\n"),
              "test.gui:2:21: error: '2' is neither 0 nor 1 for movable\n");
    EXPECT_EQ(Found("CADD Frame a NULL 0 0 yes\n"),
              "test.gui:1:23: error: 'yes' is neither 0 nor 1 for border\n");
}

TEST_F(LayoutFileTest, WordsAfterTheLastFieldAreAComment) {
    EXPECT_EQ(FoundWithFont("THEM default NULL the look\n"
                            "CADD Slide a NULL 1 1 0.3 0 a slider\n"
                            "CADD Butt b NULL -1 1 TEX 0.1 0.1 a picture\n"
                            "SOLID that is all\nCENTREX b in x\n"),
              "");
}

TEST_F(LayoutFileTest, SecondWordOfACaptionIsAWarning) {
    EXPECT_EQ(FoundWithFont("CADD Butt a NULL 1 1 Next week\n"),
              "test.gui:2:27: warning: a Butt's caption is one word: 'week' is not shown\n");
}

TEST_F(LayoutFileTest, CommentAfterACaptionIsNoSurplusWord) {
    EXPECT_EQ(FoundWithFont("CADD Butt a NULL 1 1 Week // one week\n"), "");
}

TEST_F(LayoutFileTest, TextsOfMoreThan511CharactersAreErrors) {
    const auto found = [](const std::string& text) {
        Findings findings;
        ParseLayout("a.gui", "TEXT c " + text + "\n", findings);
        return findings.AsText();
    };
    EXPECT_EQ(found(std::string(511, '.')), "");
    EXPECT_EQ(found(std::string(513, '.')),
              "a.gui:1:519: error: the text has 513 characters; only the first 511 are shown\n");
}

TEST_F(LayoutFileTest, BytesWithoutGlyphAreErrorsInTexts) {
    EXPECT_EQ(
        FoundWithFont("CADD Label a NULL 1 1 5 \xE2\x82\xAC\n"),
        "test.gui:2:25: error: byte 226 has no glyph: only the codes 1 to 127 can be shown\n");
    EXPECT_EQ(
        FoundWithFont("CADD Butt a NULL 1 1 \xE9\n"),
        "test.gui:2:22: error: byte 233 has no glyph: only the codes 1 to 127 can be shown\n");
    EXPECT_EQ(FoundWithFont(std::string("CADD Label a NULL 1 1 a\0b\n", 26)),
              "test.gui:2:24: error: byte 0 has no glyph: only the codes 1 to 127 can be shown\n");
}

TEST_F(LayoutFileTest, CommentsMayHoldAnyBytes) {
    EXPECT_EQ(Found("// \xC3\xA9\xFF\nTHEM default NULL \xC3\xA9\n"), "");
}

TEST_F(LayoutFileTest, LineThatIsTooLongToBeSkippedIsAnError) {
    EXPECT_EQ(Found("// " + std::string(9999, '-') + "\n"), "");
    EXPECT_EQ(Found("// " + std::string(10000, '-') + "\n"),
              "test.gui:1:10003: error: this is more than 10000 bytes after the statement and is "
              "read as another one\n");
}

TEST_F(LayoutFileTest, CarriageReturnsCountAsBlanks) {
    EXPECT_EQ(FoundWithFont("CADD Label a NULL 1 1 A\r\nCADD Check b NULL -1 1\r\nSOLID\r\n"), "");
}

TEST_F(LayoutFileTest, LastLineMayLackItsLineEnd) {
    EXPECT_EQ(Found("THEM"), "test.gui:1:5: error: missing theme\n");
}

TEST_F(LayoutFileTest, OneCheckReportsAllErrors) {
    EXPECT_EQ(Found("THEM none.theme NULL\nFOO\nCADD Slide a NULL x 0 1 0\nCENTRE b\n"),
              "test.gui:1:6: error: the theme 'none.theme' cannot be read\n"
              "test.gui:2:1: error: unknown statement 'FOO'\n"
              "test.gui:3:19: error: 'x' is not a number for x\n"
              "test.gui:4:8: error: unknown tag 'b'\n");
}

}  // namespace
}  // namespace guiview
