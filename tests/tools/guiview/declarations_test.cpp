// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/declarations.h"

#include "tests/tools/guiview/layout_test.h"

namespace guiview {
namespace {

using DeclarationsTest = LayoutTest;

// Tags

TEST_F(DeclarationsTest, UnknownParentIsAnError) {
    EXPECT_EQ(FoundWithFont("CADD Label a win 0 0 A\n"),
              "test.gui:2:14: error: unknown tag 'win'\n");
}

TEST_F(DeclarationsTest, ParentAfterItsChildIsAnError) {
    EXPECT_EQ(FoundWithFont("CADD Label a win 0 0 A\nCADD Win win NULL 0 -1 0 A\n"),
              "test.gui:2:14: error: the tag 'win' is not known before line 3\n");
}

TEST_F(DeclarationsTest, UnknownTagIsAnErrorInEveryStatement) {
    EXPECT_EQ(FoundWithFont("NTAB a 0 A\nTEXT b B\nCENTRE c\nCENTREX d\nCENTREY e\n"),
              "test.gui:2:6: error: unknown tag 'a'\n"
              "test.gui:3:6: error: unknown tag 'b'\n"
              "test.gui:4:8: error: unknown tag 'c'\n"
              "test.gui:5:9: error: unknown tag 'd'\n"
              "test.gui:6:9: error: unknown tag 'e'\n");
}

TEST_F(DeclarationsTest, StatementsForTheTagNullAreIgnored) {
    EXPECT_EQ(FoundWithFont("NTAB NULL 0 A\nTEXT NULL B\nCENTRE NULL\n"), "");
}

TEST_F(DeclarationsTest, DuplicateTagIsAnError) {
    EXPECT_EQ(FoundWithFont("CADD Label a NULL 0 0 A\nCADD Label a NULL 0 1 B\n"),
              "test.gui:3:12: error: the tag 'a' is already used in line 2\n");
}

TEST_F(DeclarationsTest, AnyNumberOfWidgetsMayHaveNoTag) {
    EXPECT_EQ(FoundWithFont("CADD Label NULL NULL 0 0 A\nCADD Label NULL NULL 0 1 B\n"), "");
}

TEST_F(DeclarationsTest, WidgetThatIsItsOwnParentIsAnError) {
    EXPECT_EQ(FoundWithFont("CADD Win a a 0 0 0 A\n"),
              "test.gui:2:12: error: 'a' is its own parent\n");
}

TEST_F(DeclarationsTest, TagsThatAreReservedForTheToolkitAreErrors) {
    EXPECT_EQ(FoundWithFont("CADD Label __a NULL 0 0 A\nCADD Label b __c 0 0 B\nTEXT __d D\n"),
              "test.gui:2:12: error: the tag '__a' is reserved for the toolkit\n"
              "test.gui:3:14: error: the tag '__c' is reserved for the toolkit\n"
              "test.gui:4:6: error: the tag '__d' is reserved for the toolkit\n");
}

TEST_F(DeclarationsTest, UnknownTagIsReportedOnlyAtItsFirstUse) {
    EXPECT_EQ(FoundWithFont("CADD Label a win 0 0 A\nCADD Label b win 0 1 B\nCENTRE win\n"),
              "test.gui:2:14: error: unknown tag 'win'\n");
}

TEST_F(DeclarationsTest, SimilarTagIsSuggestedAndTaken) {
    EXPECT_EQ(
        FoundWithFont("CADD Win office NULL 0 -1 0 A\nCADD Label a ofice 0 0 A\n"
                      "CADD Label b ofice 0 0 B\n"),
        "test.gui:3:14: error: unknown tag 'ofice'; did you mean 'office' of line 2?\n"
        "test.gui:4:12: warning: 'b' overlaps 'a' of line 3 by 20 pixels across and 15 pixels "
        "down\n");
}

TEST_F(DeclarationsTest, OnlyATagOfAFittingKindIsSuggested) {
    EXPECT_EQ(FoundWithFont("CADD Label office NULL 0 1 A\nCADD Label a ofice 0 0 A\n"),
              "test.gui:3:14: error: unknown tag 'ofice'\n");
    EXPECT_EQ(FoundWithFont("CADD Label office NULL 0 1 A\nCENTRE ofice\n"),
              "test.gui:3:8: error: unknown tag 'ofice'; did you mean 'office' of line 2?\n");
}

TEST_F(DeclarationsTest, WindowWithoutTheChildOfAnErrorIsNotMeasured) {
    const std::string window = "CADD Win w NULL -1 -1 0 A title that is wider than the window\n";
    EXPECT_EQ(
        FoundWithFont(window + "CADD Frame f w 0 0 0\nCADD Label a f 0 0 0 A\n").find("error"),
        std::string::npos);
    EXPECT_EQ(FoundWithFont(window + "CADD Frame f w 0 0 0\nCADD Label a f 0 none A\n"),
              "test.gui:4:18: error: 'none' is not a number for y\n");
}

// Parents

TEST_F(DeclarationsTest, ParentThatIsNotAContainerIsAnError) {
    EXPECT_EQ(FoundWithFont("CADD Label a NULL 0 0 A\nCADD Label b a 0 0 B\n"),
              "test.gui:3:14: error: the parent 'a' is a Label, not a Win, Frame or TWin\n");
}

TEST_F(DeclarationsTest, TabOfAWidgetWithoutTabsIsAnError) {
    EXPECT_EQ(FoundWithFont("CADD Win a NULL 0 -1 0 A\nTADD 0 Label b a 0 0 B\nNTAB a 0 A\n"),
              "test.gui:3:16: error: the parent 'a' is a Win and has no tabs\n"
              "test.gui:4:6: error: 'a' is a Win and has no tabs\n");
}

TEST_F(DeclarationsTest, ChildOfATabWindowOnNoTabIsAnError) {
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w 0 A\nTADD 0 Label a w 0 0 A\n"
                            "CADD Label b w 0 0.2 B\n"),
              "test.gui:5:12: error: 'b' is on no tab of 'w' and is never seen: use TADD\n");
}

TEST_F(DeclarationsTest, NestingThatIsTooDeepForTheToolkitIsAnError) {
    std::string layout = "CADD Frame f0 NULL -1 -1 0\n";
    for (int i = 1; i <= 13; ++i) {
        layout += "CADD Frame f" + std::to_string(i) + " f" + std::to_string(i - 1) + " 0 0 0\n";
    }
    EXPECT_EQ(Found(layout), "test.gui:14:12: error: 'f13' is inside of more than 12 containers\n");
}

// Tabs

TEST_F(DeclarationsTest, GapInTheTabNumbersIsAnError) {
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w 0 A\nNTAB w 2 C\n"),
              "test.gui:4:8: error: 'w' has a tab 2 but no tab 1\n");
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w 1 B\nTADD 1 Label a w 0 0 A\n"),
              "test.gui:3:8: error: 'w' has a tab 1 but no tab 0\n");
}

TEST_F(DeclarationsTest, TabsMayComeInAnyOrder) {
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w 1 B\nNTAB w 0 A\n"
                            "TADD 1 Label b w 0 0 B\nTADD 0 Label a w 0 0 A\n"),
              "");
}

TEST_F(DeclarationsTest, TabWithoutTitleIsAnError) {
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w 0 A\nTADD 1 Label a w 0 0 A\n"),
              "test.gui:4:6: error: tab 1 of 'w' has no NTAB and cannot be opened\n");
}

TEST_F(DeclarationsTest, TitleForATabThatHoldsAWidgetIsAnError) {
    EXPECT_EQ(
        FoundWithFont("CADD TWin w NULL -1.5 -1\nTADD 0 Label a w 0 0 A\nNTAB w 0 A\n"),
        "test.gui:4:8: error: NTAB removes 'a' from tab 0 of 'w': it must come before TADD\n");
}

TEST_F(DeclarationsTest, TitleForAnotherTabMayComeLater) {
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w 0 A\nTADD 0 Label a w 0 0 A\n"
                            "NTAB w 1 B\nTADD 1 Label b w 0 0 B\n"),
              "");
}

TEST_F(DeclarationsTest, SecondTitleOfATabIsAnError) {
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w 0 A\nNTAB w 0 B\n"),
              "test.gui:4:8: error: tab 0 of 'w' already has a title from line 3\n");
}

TEST_F(DeclarationsTest, TabNumbersOutOfRangeAreErrors) {
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w -1 A\nTADD 64 Label a w 0 0 A\n"),
              "test.gui:3:8: error: '-1' is out of range for tab: 0 to 63\n"
              "test.gui:4:6: error: '64' is out of range for tab: 0 to 63\n");
}

TEST_F(DeclarationsTest, TabTitleAfterSolidIsAnError) {
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nSOLID\nNTAB w 0 A\n"),
              "test.gui:4:1: error: NTAB comes after SOLID: the tabs are in the wrong place\n");
}

// Themes and the configuration

TEST_F(DeclarationsTest, ThemeFollowedByAnotherWordThanNullIsAnError) {
    EXPECT_EQ(Found("THEM default.theme NUL\n"),
              "test.gui:1:20: error: the word after the theme must be NULL, not 'NUL'\n");
}

TEST_F(DeclarationsTest, ThemeWithoutNullIsAnError) {
    EXPECT_EQ(Found("THEM default\n"), "test.gui:1:13: error: missing NULL\n");
}

TEST_F(DeclarationsTest, TextWidgetsBeforeTheConfigurationAreErrors) {
    EXPECT_EQ(Found("CADD Label a NULL 0 0 A\nCADD Slide b NULL 0 0.5 0.3 0\n"
                    "CADD TWin w NULL -1.5 -1\nNTAB w 0 A\nCONF gui.conf\n"
                    "CADD Label c NULL 0 1 C\n"),
              "test.gui:1:12: error: 'a' shows text and comes before CONF, which loads the font\n"
              "test.gui:4:6: error: 'w' shows text and comes before CONF, which loads the font\n");
}

TEST_F(DeclarationsTest, LayoutWithTextsNeedsAConfiguration) {
    EXPECT_EQ(Found("CADD Label a NULL 0 0 A\nCADD Label b NULL 0 1 A\n"),
              "test.gui:1:12: error: 'a' shows text, but there is no CONF, which loads the font\n");
}

TEST_F(DeclarationsTest, LayoutWithoutTextsNeedsNoConfiguration) {
    EXPECT_EQ(Found("CADD Butt a NULL 1 1 TEX 0.1 0.1\nCADD Frame f NULL -1 0 0\n"), "");
}

// SOLID

TEST_F(DeclarationsTest, WidgetsAfterSolidAreErrors) {
    EXPECT_EQ(FoundWithFont("CADD Win w NULL -1.5 -1 0 Window\nSOLID\nCADD Label a w 0 0 A\n"
                            "CADD Win b NULL -1.5 0 0 Other\n"),
              "test.gui:4:12: error: 'a' comes after SOLID: its parent makes no room for it\n"
              "test.gui:5:10: error: 'b' comes after SOLID and is never put in its place\n");
}

TEST_F(DeclarationsTest, SecondSolidIsAnError) {
    EXPECT_EQ(
        Found("SOLID\nSOLID\n"),
        "test.gui:2:1: error: a second SOLID moves widgets that are already in their place\n");
}

TEST_F(DeclarationsTest, ContainerCentredBeforeSolidIsAWarning) {
    EXPECT_EQ(FoundWithFont("CADD Win w NULL -1.5 -1 0 Window\nCENTREX w\n"),
              "test.gui:3:9: warning: 'w' has no size before SOLID and is not centred\n");
}

TEST_F(DeclarationsTest, ContainerMayBeCentredAfterSolid) {
    EXPECT_EQ(FoundWithFont("CADD Win w NULL 0 1 0 Window\nSOLID\nCENTREX w\n"), "");
}

TEST_F(DeclarationsTest, LabelMayBeCentredBeforeSolid) {
    EXPECT_EQ(FoundWithFont("CADD Label a NULL 0 0 A\nCENTRE a\n"), "");
}

// Values

TEST_F(DeclarationsTest, SliderWithoutExactlyOneLengthIsAnError) {
    const std::string finding =
        "test.gui:1:23: error: a Slide needs a width above 0 and a height of 0, or the reverse\n";
    EXPECT_EQ(Found("CADD Slide a NULL 0 1 0.3 0\n"), "");
    EXPECT_EQ(Found("CADD Slide a NULL 1 0 0 0.3\n"), "");
    EXPECT_EQ(Found("CADD Slide a NULL 0 1 0.3 0.3\n"), finding);
    EXPECT_EQ(Found("CADD Slide a NULL 0 1 0 0\n"), finding);
    EXPECT_EQ(Found("CADD Slide a NULL 0 1 -0.3 0\n"),
              "test.gui:1:23: error: '-0.3' is out of range for width: 0 to 10\n");
}

TEST_F(DeclarationsTest, ImageButtonWithoutSizeIsAnError) {
    EXPECT_EQ(Found("CADD Butt a NULL 0 1 TEX 0 0.1\nCADD Butt b NULL 0 1 TEX 0.1 -0.1\n"),
              "test.gui:1:26: error: '0' is out of range for width: above 0, at most 10\n"
              "test.gui:2:30: error: '-0.1' is out of range for height: above 0, at most 10\n");
}

TEST_F(DeclarationsTest, TextBoxWithoutOrWithTooManyColumnsOrRowsIsAnError) {
    EXPECT_EQ(FoundWithFont("CADD Text a NULL 0 1 0 1\nCADD Text b NULL 0 1 1 1001\n"),
              "test.gui:2:22: error: '0' is out of range for columns: 1 to 1000\n"
              "test.gui:3:24: error: '1001' is out of range for rows: 1 to 1000\n");
}

TEST_F(DeclarationsTest, ItemForAWidgetThatIsNotAListIsAWarning) {
    EXPECT_EQ(FoundWithFont("CADD Label a NULL 0 1 A\nTEXT a item\n"),
              "test.gui:3:6: warning: 'a' is a Label: only a Combo shows items\n");
}

// What the toolkit gets

TEST_F(DeclarationsTest, StatementsThatWouldStopTheToolkitAreLeftOut) {
    Findings findings;
    const LayoutFile file = ParseLayout("a.gui",
                                        "CONF gui.conf  // font\n"
                                        "THEM a.theme b\n"
                                        "CADD Label a none 0 0 A\n"
                                        "CADD Label b NULL 0 0 B\n"
                                        "CADD Label c b 0 0 C\n"
                                        "CADD Slide NULL NULL 0 0 1 0\n"
                                        "// words\n"
                                        "CENTRE none\n"
                                        "CENTRE b\n",
                                        findings);
    EXPECT_EQ(FollowStatements(file, findings).buildable,
              "CONF gui.conf\n"
              "THEM a.theme NULL\n"
              "\n"
              "CADD Label b NULL 0 0 B\n"
              "\n"
              "CADD Slide NULL#6 NULL 0 0 1 0\n"
              "\n"
              "\n"
              "CENTRE b\n");
}

TEST_F(DeclarationsTest, MisspeltWordsAreReplacedForTheToolkit) {
    Findings findings;
    const LayoutFile file = ParseLayout("a.gui",
                                        "CNOF gui.conf\n"
                                        "TEHM a.theme NULL  // brass\n"
                                        "CAD  Window office NULL 0 0 0 A\n"
                                        "CADD Window office NULL 0 0 0 A\n"
                                        "CADDD Label NULL ofice 0 0 B\n"
                                        "THEM a.theme\n"
                                        "THEM\n",
                                        findings);
    EXPECT_EQ(FollowStatements(file, findings).buildable,
              "CONF gui.conf\n"
              "THEM a.theme NULL\n"
              "\n"
              "CADD Win office NULL 0 0 0 A\n"
              "CADD Label NULL#5 office 0 0 B\n"
              "THEM a.theme NULL\n"
              "\n");
}

}  // namespace
}  // namespace guiview
