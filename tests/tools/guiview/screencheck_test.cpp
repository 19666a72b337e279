// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/screencheck.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string_view>
#include <vector>

#include <cmath>

#include "tests/tools/guiview/layout_test.h"

namespace guiview {
namespace {

using testing::HasSubstr;

/// Most widgets here are image buttons, which can have any size. A pixel is 0.00433 units, and the
/// screen reaches from -1.7333 to 1.7333 and from -1.3 to 1.3.
class ScreenCheckTest : public LayoutTest {
protected:
    /// The width of a label "A", as it is reported.
    static std::string LetterWidth() {
        FontRender font;
        EXPECT_TRUE(font.Measure("data/font.ttf"));
        const float width = font.Advance('A') * 0.05f + 0.05f;
        return std::to_string(std::lround(width / kPixel)) + " pixels";
    }
};

// Outside of the screen or a window

TEST_F(ScreenCheckTest, WidgetThatFillsTheScreenIsInside) {
    EXPECT_EQ(Found("CADD Butt a NULL -1.7333 -1.3 TEX 3.4667 2.6\nCADD Frame f NULL 0 0 0\n"), "");
}

TEST_F(ScreenCheckTest, WidgetsOutsideTheScreenAreWarnings) {
    EXPECT_EQ(Found("CADD Butt a NULL 1.6333 0.5 TEX 0.143 0.1\nCADD Butt b NULL -1.8 1 TEX 0.1 "
                    "0.1\nCADD Butt c NULL 0 1.3 TEX 0.1 0.1\nCADD Butt d NULL 0 -5 TEX 1 0.1\n"),
              "test.gui:1:11: warning: 'a' is outside the screen, 10 pixels beyond its right edge\n"
              "test.gui:2:11: warning: 'b' is outside the screen, 15 pixels beyond its left edge\n"
              "test.gui:3:11: warning: 'c' is outside the screen, 23 pixels beyond its upper edge\n"
              "test.gui:4:11: warning: 'd' is outside the screen, 854 pixels beyond its lower "
              "edge\n");
}

TEST_F(ScreenCheckTest, WidgetsThatAskForAnEdgeOfTheScreenAreInside) {
    EXPECT_EQ(FoundWithFont("CADD Label a NULL 100 -100 A\nCADD Label b NULL -100 100 B\n"), "");
}

TEST_F(ScreenCheckTest, WindowThatGrowsBeyondTheEdgeOfTheScreenIsAWarning) {
    // The window is put at the edge before it gets room for its title.
    EXPECT_EQ(
        FoundWithFont("CADD Win w NULL -100 100 0 Top\nCADD Butt a w 0 0 TEX 0.3 0.3\n"),
        "test.gui:2:10: warning: 'w' is outside the screen, 16 pixels beyond its upper edge\n");
}

TEST_F(ScreenCheckTest, ChildOutsideItsWindowIsAWarning) {
    EXPECT_EQ(FoundWithFont("CADD Win w NULL -1 -1 0 Window\nCADD Butt a w -0.1 0 TEX 0.3 0.3\n"),
              "test.gui:3:11: warning: 'a' is outside of 'w', 16 pixels beyond its left edge\n");
}

TEST_F(ScreenCheckTest, SliderWhoseKnobCanLeaveTheScreenIsAWarning) {
    EXPECT_EQ(
        Found("CADD Slide a NULL -1.7333 0.5 1 0\n"),
        "test.gui:1:12: warning: 'a' is outside the screen, 12 pixels beyond its left edge\n");
    EXPECT_EQ(Found("CADD Slide a NULL -1.68 0.5 1 0\n"), "");
}

TEST_F(ScreenCheckTest, KnobOfAVerticalSliderReachesToTheLeft) {
    EXPECT_EQ(
        Found("CADD Slide a NULL -1.7 0.5 0 0.3\n"),
        "test.gui:1:12: warning: 'a' is outside the screen, 15 pixels beyond its left edge\n");
    EXPECT_EQ(Found("CADD Slide a NULL 1.68 0.5 0 0.3\n"), "");
}

// Overlaps

TEST_F(ScreenCheckTest, SiblingsThatOverlapAreAWarning) {
    EXPECT_EQ(FoundWithFont("CADD Frame f NULL -1.7 0.5 0\nCADD Butt a f 0 0 TEX 0.1 0.1\n"
                            "CADD Butt b f 0.05 -0.02 TEX 0.2 0.2\n"),
              "test.gui:4:11: warning: 'b' is outside of 'f', 5 pixels beyond its lower edge\n"
              "test.gui:4:11: warning: 'b' overlaps 'a' of line 3 by 12 pixels across and 23 "
              "pixels down\n");
}

TEST_F(ScreenCheckTest, SiblingsThatTouchDoNotOverlap) {
    EXPECT_EQ(Found("CADD Butt a NULL 1 1 TEX 0.1 0.1\nCADD Butt b NULL 1.1 1 TEX 0.1 0.1\n"
                    "CADD Butt c NULL 1 1.099 TEX 0.2 0.1\n"),
              "");
}

TEST_F(ScreenCheckTest, ImageButtonMayBeTheBackgroundOfALaterWidget) {
    EXPECT_EQ(FoundWithFont("CADD Butt desk NULL -1.7333 -1.3 TEX 3.4666 2.6\n"
                            "CADD Butt plate NULL 0.5 1 TEX 1 0.2\n"
                            "CADD Label a NULL 0.6 1.05 A\n"),
              "");
}

TEST_F(ScreenCheckTest, ImageButtonOverAnEarlierWidgetIsAWarning) {
    EXPECT_EQ(FoundWithFont("CADD Label a NULL 0.6 1.05 A\nCADD Butt plate NULL 0.5 1 TEX 1 0.2\n"),
              "test.gui:3:11: warning: 'plate' overlaps 'a' of line 2 by " + LetterWidth()
                  + " across and 15 pixels down\n");
}

TEST_F(ScreenCheckTest, LabelThatIsLargerThanItsBackgroundIsAWarning) {
    EXPECT_THAT(FoundWithFont("CADD Butt plate NULL 0.5 1 TEX 0.05 0.2\n"
                              "CADD Label a NULL 0.5 1.05 Far too wide\n"),
                HasSubstr("test.gui:3:12: warning: 'a' overlaps 'plate' of line 2 by 12 pixels"));
}

TEST_F(ScreenCheckTest, WidgetsOfDifferentWindowsMayOverlap) {
    EXPECT_EQ(Found("CADD Frame f NULL -1 0.5 0\nCADD Butt a f 0 0 TEX 0.1 0.1\n"
                    "CADD Frame g NULL 1 0.5 0\nCADD Butt b g 0 0 TEX 0.1 0.1\n"),
              "");
}

TEST_F(ScreenCheckTest, WidgetsOfDifferentTabsDoNotOverlap) {
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w 0 A\nNTAB w 1 B\n"
                            "TADD 0 Butt a w 0 0 TEX 0.1 0.1\nTADD 1 Butt b w 0 0 TEX 0.1 0.1\n"),
              "");
    EXPECT_THAT(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w 0 A\nNTAB w 1 B\n"
                              "TADD 1 Label a w 0 0 A\nTADD 1 Label b w 0 0 B\n"),
                HasSubstr("'b' overlaps 'a' of line 5"));
}

TEST_F(ScreenCheckTest, SliderSoNearToAButtonThatOneClickReachesBothIsAWarning) {
    const std::string button = "CADD Butt a NULL 1 1 TEX 0.2 0.1\n";
    EXPECT_EQ(Found(button + "CADD Slide b NULL 0.6 0.94 0.5 0\n"),
              "test.gui:2:12: warning: one click can reach both 'b' and 'a' of line 1\n");
    EXPECT_EQ(Found(button + "CADD Slide b NULL 0.6 0.89 0.5 0\n"), "");
}

TEST_F(ScreenCheckTest, SliderMayBeNearToALabel) {
    EXPECT_EQ(FoundWithFont("CADD Label a NULL 1 1 A\nCADD Slide b NULL 0.6 0.94 0.5 0\n"), "");
}

// Texts

/// The game's font with letters of half their size.
std::vector<unsigned char> SmallFont() {
    std::vector<unsigned char> font = FileBytes("data/font.ttf");
    // A TrueType file begins with a list of tables: name, checksum, offset and length.
    const std::string_view head = "head";
    const auto entry = std::search(font.begin(), font.end(), head.begin(), head.end());
    std::size_t offset = 0;
    for (auto byte = entry + 8; byte != entry + 12; ++byte)
        offset = offset << 8U | *byte;
    constexpr std::size_t kUnitsPerEm = 18;
    unsigned char* const units = &font[offset + kUnitsPerEm];
    const unsigned doubled = 2U * (static_cast<unsigned>(units[0]) << 8U | units[1]);
    units[0] = static_cast<unsigned char>(doubled >> 8U);
    units[1] = static_cast<unsigned char>(doubled & 0xFFU);
    return font;
}

TEST_F(ScreenCheckTest, TextInAFontThatWasLoadedAfterItsWidgetWasMadeIsAWarning) {
    folder.Write("small.ttf", SmallFont());
    folder.Write("small.conf", "small.ttf\nx\n0 0 1 1\n0 0 1 1\n0 0 1 1\n0 0 1 1\n0 0 1 1\n1\n");
    const std::string found = Found(
        "CONF small.conf\n"
        "CADD Label a NULL -1.5 1 Label\nCADD Butt b NULL -1.5 0.8 Button\n"
        "CADD Check c NULL -1.5 0.6 Check\nCADD Opt d NULL -1.5 0.4 Option\n"
        "CADD Combo f NULL 0.5 1\nTEXT f An item of many letters\n"
        "CONF gui.conf\n");
    EXPECT_THAT(found, HasSubstr("test.gui:2:12: warning: the text of 'a' is "));
    EXPECT_THAT(found, HasSubstr("test.gui:3:11: warning: the text of 'b' is "));
    EXPECT_THAT(found, HasSubstr("test.gui:4:12: warning: the text of 'c' is "));
    EXPECT_THAT(found, HasSubstr("test.gui:5:10: warning: the text of 'd' is "));
    EXPECT_THAT(found, HasSubstr("test.gui:6:12: warning: the text of 'f' is "));
    EXPECT_THAT(found, HasSubstr(" pixels wider than the widget has room for\n"));
}

TEST_F(ScreenCheckTest, TitleThatIsTooWideBesideACutCornerIsAWarning) {
    std::string theme = Theme("0 0 0", "0.8 0.8 0.8");
    theme.replace(theme.find("0 corner"), 1, "0.5");
    folder.Write("cut.theme", theme);
    EXPECT_THAT(FoundWithFont("THEM cut.theme NULL\nCADD Win w NULL -1 -1 0 Window\n"
                              "CADD Butt a w 0 0 TEX 0.1 0.5\n"),
                HasSubstr("test.gui:3:10: warning: the text of 'w' is "));
}

TEST_F(ScreenCheckTest, SampleTextThatIsTooWideIsAWarning) {
    EXPECT_THAT(Found("CONF gui.conf\nCADD Label a NULL 1 1 A\n", false, {{"a", "Aaaaaaaaaaaa"}}),
                HasSubstr("test.gui:2:12: warning: the text of 'a' is "));
}

TEST_F(ScreenCheckTest, BrokenLinesMayBeWiderThanTheLabelButNotThanItsWindow) {
    const std::string layout =
        "CONF gui.conf\nCADD Win w NULL -1 -1 0 Window\nCADD Label a w 0 0 AAAAAAAAAA\\n\\n\\n\n";
    const SampleTexts text = {{"a", "AAAAAAA AAAAAA AAAAAA AAAAAAA"}};
    EXPECT_EQ(Found(layout + "CADD Butt wide w 0 0.3 TEX 1 0.1\n", false, text), "");
    EXPECT_THAT(Found(layout, false, text),
                HasSubstr("test.gui:3:12: warning: 'a' is outside of 'w'"));
}

TEST_F(ScreenCheckTest, SampleTextWithTooManyLinesIsAWarning) {
    EXPECT_EQ(Found("CONF gui.conf\nCADD Label a NULL 1 1 A\\nB\n", false, {{"a", "A\nB\nC"}}),
              "test.gui:2:12: warning: the text of 'a' takes 3 lines; the widget has room for 2\n");
}

// Clicks on lists and message boxes

TEST_F(ScreenCheckTest, ButtonsAndSlidersUnderAnOpenListAreWarnings) {
    EXPECT_EQ(FoundWithFont("CADD Combo list NULL 0.9 1\nTEXT list A\nTEXT list B\nTEXT list C\n"
                            "CADD Butt a NULL 0.9 0.85 Go\nCADD Slide b NULL 1 0.75 0.3 0\n"
                            "CADD Butt c NULL 0.9 0.55 Go\nCADD Label d NULL 0.9 0.93 D\n"),
              "test.gui:6:11: warning: 'a' is under the open list of 'list': a click on the list "
              "reaches it too\n"
              "test.gui:7:12: warning: 'b' is under the open list of 'list': a click on the list "
              "reaches it too\n");
}

TEST_F(ScreenCheckTest, ListWithoutItemsIsCheckedWithTwelve) {
    EXPECT_THAT(FoundWithFont("CADD Combo list NULL 0.9 1\nCADD Butt a NULL 0.9 -0.1 Go\n"),
                HasSubstr("'a' is under the open list of 'list'"));
    EXPECT_EQ(FoundWithFont("CADD Combo list NULL 0.9 1\nCADD Butt a NULL 0.9 -0.3 Go\n"), "");
}

TEST_F(ScreenCheckTest, ListThatOpensBeyondTheScreenIsAWarning) {
    EXPECT_EQ(FoundWithFont("CADD Combo list NULL 0.9 -0.3\n"),
              "test.gui:2:12: warning: the open list of 'list' reaches 46 pixels beyond the "
              "screen's lower edge\n");
}

TEST_F(ScreenCheckTest, ButtonOnAnotherTabThanTheListIsNotUnderIt) {
    const std::string layout =
        "CADD TWin w NULL -1.5 -1\nNTAB w 0 A\nNTAB w 1 B\n"
        "TADD 0 Combo list w 0 0.8\nTEXT list A\n";
    EXPECT_EQ(FoundWithFont(layout + "TADD 1 Butt a w 0 0.7 Go\n"), "");
    EXPECT_THAT(FoundWithFont(layout + "TADD 0 Butt a w 0 0.7 Go\n"),
                HasSubstr("'a' is under the open list of 'list'"));
}

TEST_F(ScreenCheckTest, ButtonsAndSlidersUnderAMessageBoxAreWarnings) {
    EXPECT_EQ(FoundWithFont("CADD Butt a NULL 0 0 Go\nCADD Slide b NULL -0.3 -0.1 0.2 0\n"
                            "CADD Label c NULL -0.2 0 C\nCADD Butt d NULL 0 0.6 Go\n"),
              "test.gui:2:11: warning: 'a' is at the centre of the screen: a click on a message "
              "box reaches it too\n"
              "test.gui:3:12: warning: 'b' is at the centre of the screen: a click on a message "
              "box reaches it too\n");
}

TEST_F(ScreenCheckTest, ImageButtonUnderAnotherWidgetMayBeAtTheCentre) {
    EXPECT_EQ(FoundWithFont("CADD Butt desk NULL -1 -1 TEX 2 2\nCADD Label a NULL 0 0 A\n"), "");
    EXPECT_THAT(FoundWithFont("CADD Butt desk NULL -1 -1 TEX 2 2\n"),
                HasSubstr("'desk' is at the centre of the screen"));
}

// Charts

TEST_F(ScreenCheckTest, ChartWithEnoughRoomIsClean) {
    EXPECT_EQ(FoundWithFont("CADD Chart a NULL -1 0 1 0.8 How many are we?\n"), "");
}

TEST_F(ScreenCheckTest, ChartThatIsTooSmallForItsLinesIsAWarning) {
    EXPECT_THAT(FoundWithFont("CADD Chart a NULL -1 0 0.3 0.8 A\n"),
                HasSubstr(" too narrow for the lines and the texts of its chart\n"));
    EXPECT_THAT(FoundWithFont("CADD Chart a NULL -1 0 1 0.3 A\n"),
                HasSubstr(" too low for the lines and the texts of its chart\n"));
}

TEST_F(ScreenCheckTest, CaptionThatIsWiderThanItsChartIsAWarning) {
    EXPECT_THAT(FoundWithFont("CADD Chart a NULL -1 0 0.6 0.8 How many people are we this week?\n"),
                HasSubstr(" wider than the widget has room for\n"));
}

}  // namespace
}  // namespace guiview
