// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/contrastcheck.h"

#include <gmock/gmock.h>

#include "tests/tools/guiview/layout_test.h"
#include "tools/tgawriter.h"

namespace guiview {
namespace {

using testing::HasSubstr;

TEST(Contrast, OfBlackAndWhiteIs21) {
    EXPECT_NEAR(ContrastRatio({0, 0, 0}, {1, 1, 1}), 21.0, 1e-6);
    EXPECT_NEAR(ContrastRatio({1, 1, 1}, {0, 0, 0}), 21.0, 1e-6);
}

TEST(Contrast, OfEqualColoursIs1) {
    EXPECT_NEAR(ContrastRatio({0.2f, 0.4f, 0.6f}, {0.2f, 0.4f, 0.6f}), 1.0, 1e-6);
}

TEST(Contrast, GreenWeighsMostAndBlueLeast) {
    EXPECT_NEAR(Luminance({1, 0, 0}), 0.2126, 1e-6);
    EXPECT_NEAR(Luminance({0, 1, 0}), 0.7152, 1e-6);
    EXPECT_NEAR(Luminance({0, 0, 1}), 0.0722, 1e-6);
    // #767676 is the lightest grey that has a contrast of 4.5 to white
    EXPECT_NEAR(ContrastRatio({118 / 255.0f, 118 / 255.0f, 118 / 255.0f}, {1, 1, 1}), 4.54, 0.01);
}

/// In the themes of these tests the brightness of a fill is 0.9 of its colour, and 1 under the
/// mouse.
class ContrastCheckTest : public LayoutTest {
protected:
    static constexpr const char* kWhite = "1 1 1";
    static constexpr const char* kBlack = "0 0 0";
    static constexpr const char* kGrey = "0.5 0.5 0.5";
    /// White on this fill has a contrast of more than 4.5, but less than 4.5 under the mouse.
    static constexpr const char* kEdge = "0.51 0.51 0.51";

    /// What is found when "a.theme" has these colours and is the current theme.
    std::string FoundIn(const std::string& text, const std::string& fill,
                        const std::string& layout) const {
        folder.Write("a.theme", Theme(text, fill));
        return FoundWithFont("THEM a.theme NULL\n" + layout);
    }

    /// A picture of `width` by 1 pixels of these greys, from the left.
    void WritePicture(const std::string& name, const std::vector<std::uint8_t>& greys,
                      std::uint8_t alpha = 255) const {
        std::vector<std::uint8_t> bytes;
        for (const std::uint8_t grey : greys)
            bytes.insert(bytes.end(), {grey, grey, grey, alpha});
        TextureData data;
        ASSERT_TRUE(data.Load(static_cast<int>(greys.size()), 1, true, bytes.data()));
        ASSERT_TRUE(WriteTGA(data, folder.Path(name)));
    }
};

TEST_F(ContrastCheckTest, CaptionIsComparedWithTheFillOfItsButton) {
    EXPECT_EQ(FoundIn(kBlack, kWhite, "CADD Butt a NULL 1 1 Go\n"), "");
    EXPECT_EQ(
        FoundIn(kBlack, "0.1 0.1 0.1", "CADD Butt a NULL 1 1 Go\n"),
        "test.gui:3:11: warning: the text of 'a' has a contrast of 1.17:1, below 4.5:1 (theme "
        "'a.theme')\n"
        "test.gui:3:11: warning: the text of 'a' has a contrast of 1.20:1 under the mouse, "
        "below 4.5:1 (theme 'a.theme')\n");
}

TEST_F(ContrastCheckTest, ContrastThatIsTooLowOnlyUnderTheMouseIsReported) {
    EXPECT_EQ(FoundIn(kWhite, kEdge, "CADD Butt a NULL 1 1 Go\n"),
              "test.gui:3:11: warning: the text of 'a' has a contrast of 3.84:1 under the mouse, "
              "below 4.5:1 (theme 'a.theme')\n");
}

TEST_F(ContrastCheckTest, WidgetThatDoesNotFadeIsComparedOnlyAtItsBrightest) {
    std::string theme = Theme(kWhite, kEdge);
    theme.replace(theme.rfind("1 fade"), 1, "0");
    folder.Write("a.theme", theme);
    EXPECT_EQ(
        FoundWithFont("THEM a.theme NULL\nCADD Butt a NULL 1 1 Go\n"),
        "test.gui:3:11: warning: the text of 'a' has a contrast of 3.84:1, below 4.5:1 (theme "
        "'a.theme')\n");
}

TEST_F(ContrastCheckTest, ColoursThatAreBrighterThanWhiteAreComparedAsWhite) {
    std::string theme = Theme(kWhite, "0.8 0.8 0.8");
    theme.replace(theme.find("0.9 1 dim"), 5, "1.9 2");
    folder.Write("a.theme", theme);
    EXPECT_EQ(
        FoundWithFont("THEM a.theme NULL\nCADD Butt a NULL 1 1 Go\n"),
        "test.gui:3:11: warning: the text of 'a' has a contrast of 1.00:1, below 4.5:1 (theme "
        "'a.theme')\n");
}

TEST_F(ContrastCheckTest, TextBoxAndListAreComparedWithTheirFill) {
    EXPECT_THAT(FoundIn(kWhite, kWhite, "CADD Text a NULL 0.9 0.9 5 2\n"),
                HasSubstr("test.gui:3:11: warning: the text of 'a' has a contrast of"));
    EXPECT_THAT(FoundIn(kWhite, kWhite, "CADD Combo a NULL 0.9 0.9\nTEXT a A\n"),
                HasSubstr("test.gui:3:12: warning: the text of 'a' has a contrast of"));
}

TEST_F(ContrastCheckTest, LabelIsComparedWithTheWindowAroundIt) {
    folder.Write("dark.theme", Theme(kWhite, "0.1 0.1 0.1"));
    const std::string window = "THEM dark.theme NULL\nCADD Win w NULL -1 -1 0 Dark\n";
    EXPECT_EQ(FoundIn(kWhite, kWhite, window + "THEM a.theme NULL\nCADD Label a w 0 0 A\n"), "");
    EXPECT_EQ(
        FoundIn(kBlack, kWhite, window + "THEM a.theme NULL\nCADD Label a w 0 0 A\n"),
        "test.gui:6:12: warning: the text of 'a' has a contrast of 1.17:1, below 4.5:1 (theme "
        "'a.theme')\n");
}

TEST_F(ContrastCheckTest, LabelInAFrameIsComparedWithTheWindowAroundTheFrame) {
    EXPECT_THAT(
        FoundIn(kGrey, kGrey,
                "CADD Win w NULL -1 -1 0\nCADD Frame f w 0 0 1\nCADD Label a f 0 0 A\n"),
        HasSubstr("test.gui:5:12: warning: the text of 'a' has a contrast of 1.19:1, below"));
}

TEST_F(ContrastCheckTest, MovableWindowIsAlsoComparedAsBrightAsUnderTheMouse) {
    EXPECT_EQ(FoundIn(kWhite, kEdge, "CADD Win w NULL -1 -1 0\nCADD Label a w 0 0 A\n"), "");
    EXPECT_EQ(FoundIn(kWhite, kEdge, "CADD Win w NULL -1 -1 1\nCADD Label a w 0 0 A\n"),
              "test.gui:4:12: warning: the text of 'a' has a contrast of 3.84:1 under the mouse, "
              "below 4.5:1 (theme 'a.theme')\n");
}

TEST_F(ContrastCheckTest, TitleIsComparedWithTheFillOfItsWindow) {
    EXPECT_EQ(FoundIn(kWhite, kEdge, "CADD Win w NULL -1 -1 1 Window\n"),
              "test.gui:3:10: warning: the title of 'w' has a contrast of 3.84:1 under the mouse, "
              "below 4.5:1 (theme 'a.theme')\n");
    EXPECT_EQ(FoundIn(kWhite, kEdge, "CADD Win w NULL -1 -1 0 Window\n"), "");
}

TEST_F(ContrastCheckTest, TickAndOptionBoxesAreComparedWithTheWindowAroundThem) {
    EXPECT_THAT(FoundIn(kWhite, kWhite, "CADD Win w NULL -1 -1 0\nCADD Check a w 0 0 A\n"),
                HasSubstr("test.gui:4:12: warning: the text of 'a' has a contrast of"));
    EXPECT_THAT(FoundIn(kWhite, kWhite, "CADD Win w NULL -1 -1 0\nCADD Opt a w 0 0 A\n"),
                HasSubstr("test.gui:4:10: warning: the text of 'a' has a contrast of"));
}

TEST_F(ContrastCheckTest, LabelOnTheEmptyScreenIsNotCompared) {
    EXPECT_EQ(FoundIn(kWhite, kWhite, "CADD Label a NULL 0 0 A\n"), "");
}

TEST_F(ContrastCheckTest, RowOfTabsIsCheckedInItsOwnTheme) {
    folder.Write("tabwin_button.theme", Theme(kWhite, kEdge));
    EXPECT_EQ(FoundWithFont("CADD TWin w NULL -1.5 -1\nNTAB w 0 A\nNTAB w 1 B\n"),
              "test.gui:2:11: warning: the row of tabs of 'w' has a contrast of 3.84:1 under the "
              "mouse, below 4.5:1 (theme 'tabwin_button.theme')\n");
}

TEST_F(ContrastCheckTest, WidgetsOfTheSameThemeAreReportedOnce) {
    EXPECT_EQ(FoundIn(kWhite, kEdge, "CADD Butt a NULL 1 1 Go\nCADD Butt b NULL 1 0.8 Go\n"),
              "test.gui:3:11: warning: the text of 'a' has a contrast of 3.84:1 under the mouse, "
              "below 4.5:1 (theme 'a.theme')\n");
}

TEST_F(ContrastCheckTest, EmptyTextIsNotCompared) {
    EXPECT_EQ(FoundIn(kWhite, kWhite, "CADD Win w NULL -1 -1 0\nCADD Check a w 0 0\n"), "");
}

// Pictures

TEST_F(ContrastCheckTest, LabelOnAnImageButtonWithoutPictureIsComparedWithItsFill) {
    EXPECT_EQ(FoundIn(kWhite, kEdge,
                      "CADD Butt plate NULL -1 0.8 TEX 1 0.2\nCADD Label a NULL -0.9 0.85 A\n"),
              "test.gui:4:12: warning: the text of 'a' has a contrast of 3.84:1 under the mouse, "
              "below 4.5:1 (theme 'a.theme')\n");
}

TEST_F(ContrastCheckTest, LabelIsComparedWithThePartOfThePictureBehindIt) {
    WritePicture("halves.tga", {0, 0, 0, 255, 255, 255, 255, 255});
    folder.Write("picture.theme", Theme(kBlack, kWhite, "halves.tga"));
    const std::string plate = "THEM picture.theme NULL\nCADD Butt plate NULL -1 0.8 TEX 0.8 0.2\n";
    EXPECT_EQ(FoundIn(kBlack, kWhite, plate + "CADD Label a NULL -0.6 0.85 A\n"), "");
    EXPECT_EQ(
        FoundIn(kBlack, kWhite, plate + "CADD Label a NULL -1 0.85 A\n"),
        "test.gui:5:12: warning: the text of 'a' has a contrast of 1.00:1, below 4.5:1 (theme "
        "'picture.theme')\n");
}

TEST_F(ContrastCheckTest, FirstRowsOfAPictureAreTheLowerOnes) {
    const std::uint8_t bytes[] = {0, 0, 0, 255, 255, 255};
    TextureData data;
    ASSERT_TRUE(data.Load(1, 2, false, bytes));
    ASSERT_TRUE(WriteTGA(data, folder.Path("rows.tga")));
    folder.Write("picture.theme", Theme(kBlack, kWhite, "rows.tga"));
    const std::string plate = "THEM picture.theme NULL\nCADD Butt plate NULL -1 0.8 TEX 0.8 0.2\n";
    EXPECT_EQ(FoundIn(kBlack, kWhite, plate + "CADD Label a NULL -1 0.91 A\n"), "");
    EXPECT_THAT(FoundIn(kBlack, kWhite, plate + "CADD Label a NULL -1 0.81 A\n"),
                HasSubstr("the text of 'a' has a contrast of 1.00:1,"));
}

TEST_F(ContrastCheckTest, FewPixelsWithTooLowContrastAreNotReported) {
    std::vector<std::uint8_t> greys(100, 255);
    for (const std::size_t speck : {10U, 30U, 50U})
        greys[speck] = 0;
    WritePicture("grain.tga", greys);
    folder.Write("picture.theme", Theme(kBlack, kWhite, "grain.tga"));
    const std::string layout =
        "THEM picture.theme NULL\nCADD Butt plate NULL -1 0.8 TEX 0.4 0.2\n"
        "CADD Label a NULL -0.99 0.85 AAAAAA\n";
    EXPECT_EQ(FoundIn(kBlack, kWhite, layout), "");
    for (std::size_t speck = 0; speck < greys.size(); speck += 10)
        greys[speck] = 0;
    WritePicture("grain.tga", greys);
    EXPECT_THAT(FoundIn(kBlack, kWhite, layout), HasSubstr("has a contrast of 1.00:1,"));
}

TEST_F(ContrastCheckTest, TextOnATransparentPictureIsComparedWithWhatIsBelowThePicture) {
    WritePicture("glass.tga", {255}, 0);
    folder.Write("glass.theme", Theme(kBlack, kWhite, "glass.tga"));
    folder.Write("night.theme", Theme(kBlack, kBlack));
    const std::string glass =
        "THEM glass.theme NULL\nCADD Butt glass NULL -0.9 0.85 TEX 0.3 0.1\n"
        "CADD Label a NULL -0.9 0.86 A\n";
    EXPECT_EQ(
        FoundWithFont("THEM night.theme NULL\nCADD Butt night NULL -1 0.8 TEX 1 0.2\n" + glass),
        "test.gui:6:12: warning: the text of 'a' has a contrast of 1.00:1, below 4.5:1 (theme "
        "'glass.theme')\n");
    EXPECT_EQ(FoundWithFont(glass), "") << "the background of the glass is unknown";
}

// The game

TEST_F(ContrastCheckTest, MessageBoxOfTheGameIsCheckedInItsTheme) {
    folder.Write("messagebox.theme", Theme(kWhite, kEdge));
    EXPECT_THAT(Found("", true),
                HasSubstr("messagebox.theme:1:1: warning: the message box has a contrast of 3.84:1 "
                          "under the mouse, below 4.5:1 (theme 'messagebox')\n"));
    EXPECT_EQ(Found("", false), "");
}

constexpr const char* kChart = "CADD Chart a NULL -1 0 1 0.8 A\n";

TEST_F(ContrastCheckTest, DarkLinesOnALightChartAreClean) {
    EXPECT_EQ(FoundIn(kBlack, kWhite, kChart), "");
}

TEST_F(ContrastCheckTest, NameOfALineIsComparedWithTheFillOfItsChart) {
    folder.Write("series2.theme", "1 1 1 text\n0 0 0 line\n" + AfterColours(Theme(kBlack, kWhite)));
    EXPECT_EQ(FoundIn(kBlack, kWhite, kChart),
              "test.gui:3:12: warning: the name of series 2 of 'a' has a contrast of 1.25:1, below "
              "4.5:1 (theme 'series2.theme')\n"
              "test.gui:3:12: warning: the name of series 2 of 'a' has a contrast of 1.00:1 under "
              "the mouse, below 4.5:1 (theme 'series2.theme')\n");
}

TEST_F(ContrastCheckTest, LineIsComparedWithTheShadedPartsOfItsChart) {
    // This grey has a contrast of 3.17:1 to the chart, but less to shaded weeks.
    folder.Write("series3.theme",
                 "0 0 0 text\n0.5 0.5 0.5 line\n" + AfterColours(Theme(kBlack, kWhite)));
    const std::string found = FoundIn(kBlack, kWhite, kChart);
    EXPECT_THAT(found, HasSubstr("warning: the line of series 3 of 'a' has a contrast of 1.8"));
    EXPECT_THAT(found, HasSubstr(":1, below 3.0:1 (theme 'series3.theme')\n"));
    EXPECT_THAT(found, testing::Not(HasSubstr("the name of series")));
}

}  // namespace
}  // namespace guiview
