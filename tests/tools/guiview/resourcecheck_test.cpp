// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/resourcecheck.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "tests/tools/guiview/layout_test.h"
#include "tools/guisheet.h"
#include "tools/tgawriter.h"

namespace guiview {
namespace {

class ResourceCheckTest : public LayoutTest {
protected:
    /// What is found if the theme file "a.theme" has this content.
    std::string FoundInTheme(const std::string& content) const {
        folder.Write("a.theme", content);
        return Found("THEM a.theme NULL\n");
    }
    std::string FoundInConfiguration(const std::string& content) const {
        folder.Write("a.conf", content);
        return Found("CONF a.conf\n");
    }
    void Remove(const std::string& name) const { std::filesystem::remove(folder.Path(name)); }
};

TEST_F(ResourceCheckTest, MissingThemeIsAnError) {
    EXPECT_EQ(Found("THEM none.theme NULL\n"),
              "test.gui:1:6: error: the theme 'none.theme' cannot be read\n");
}

TEST_F(ResourceCheckTest, FolderInPlaceOfAThemeIsAnError) {
    EXPECT_EQ(Found("THEM . NULL\n"), "test.gui:1:6: error: the theme '.' cannot be read\n");
}

TEST_F(ResourceCheckTest, MissingThemeIsReportedOnce) {
    EXPECT_EQ(Found("THEM none.theme NULL\nTHEM default NULL\nTHEM none.theme NULL\n"),
              "test.gui:1:6: error: the theme 'none.theme' cannot be read\n");
}

TEST_F(ResourceCheckTest, DefaultThemeMayBeMissing) {
    Remove("default.theme");
    EXPECT_EQ(Found("THEM default NULL\n"), "");
}

TEST_F(ResourceCheckTest, MissingThemesOfTabsAndListsAreReportedAtTheirStatement) {
    Remove("combo_button.theme");
    Remove("tabwin_button.theme");
    const std::string found =
        FoundWithFont("CADD Combo c NULL 0.9 1\nTEXT c A\nCADD TWin w NULL -1.5 -1\nNTAB w 0 A\n");
    EXPECT_NE(found.find("test.gui:2:6: error: the drop button's theme 'combo_button.theme' cannot "
                         "be read\n"),
              std::string::npos);
    EXPECT_NE(found.find("test.gui:5:1: error: the tabs' theme 'tabwin_button.theme' cannot be "
                         "read\n"),
              std::string::npos);
}

TEST_F(ResourceCheckTest, MalformedNumbersOfAThemeAreReportedInTheTheme) {
    EXPECT_EQ(FoundInTheme("// a comment\n\n0 0 black\n1 1 1\n1,1 1 1\n"),
              "a.theme:3:5: error: 'black' is not a number for the text colour\n"
              "a.theme:5:1: error: '1,1' is not a number for the fill colour\n"
              "a.theme:5:1: error: the file ends before its fourth colour\n");
}

TEST_F(ResourceCheckTest, LineWithTooFewNumbersIsAnError) {
    EXPECT_EQ(FoundInTheme("0 0\n"),
              "a.theme:1:1: error: the file ends before its line colour\n"
              "a.theme:1:4: error: the text colour takes 3 numbers, not 2\n");
}

TEST_F(ResourceCheckTest, EmptyThemeIsAnError) {
    EXPECT_EQ(FoundInTheme(""), "a.theme:1:1: error: the file ends before its text colour\n");
}

TEST_F(ResourceCheckTest, FadeThatIsNeither0Nor1IsAnError) {
    std::string theme = Theme("0 0 0", "0.8 0.8 0.8");
    theme.replace(theme.rfind("1 fade"), 1, "on");
    EXPECT_EQ(FoundInTheme(theme), "a.theme:16:1: error: 'on' is neither 0 nor 1 for the fade\n");
}

TEST_F(ResourceCheckTest, MissingPictureIsReportedInItsTheme) {
    EXPECT_THAT(
        FoundInTheme(Theme("0 0 0", "0.8 0.8 0.8", "none.tga")),
        testing::StartsWith("a.theme:15:1: error: the picture 'none.tga' cannot be loaded: "));
}

TEST_F(ResourceCheckTest, FileThatIsNotAPictureIsReportedInItsTheme) {
    folder.Write("broken.tga", "no picture");
    EXPECT_THAT(
        FoundInTheme(Theme("0 0 0", "0.8 0.8 0.8", "broken.tga")),
        testing::StartsWith("a.theme:15:1: error: the picture 'broken.tga' cannot be loaded: "));
}

TEST_F(ResourceCheckTest, PictureThatCanBeLoadedIsNotReported) {
    ASSERT_TRUE(WriteTGA(DrawGuiSheet(), folder.Path("sheet.tga")));
    EXPECT_EQ(FoundInTheme(Theme("0 0 0", "0.8 0.8 0.8", "sheet.tga")), "");
}

TEST_F(ResourceCheckTest, PictureOfTheBuiltInThemeIsCheckedOnlyIfAWidgetDrawsIt) {
    Remove("default.theme");
    EXPECT_EQ(Found("CADD Frame f NULL 0 0 0\n"), "");
    EXPECT_THAT(
        Found("CADD Slide s NULL 1 1 0.3 0\n"),
        testing::StartsWith("test.gui:1:1: error: the picture 'gui.tga' cannot be loaded: "));
}

TEST_F(ResourceCheckTest, MissingConfigurationIsAnError) {
    EXPECT_EQ(Found("CONF none.conf\n"),
              "test.gui:1:6: error: the configuration 'none.conf' cannot be read\n");
}

TEST_F(ResourceCheckTest, MalformedNumbersOfAConfigurationAreReportedInTheConfiguration) {
    EXPECT_EQ(FoundInConfiguration("font.ttf\nnothing\n0 0 1\n0 0 1 1\n0 0 1 1\n0 0 a 1\n"),
              "a.conf:3:6: error: the option ring takes 4 numbers, not 3\n"
              "a.conf:6:1: error: the file ends before its slider knob\n"
              "a.conf:6:5: error: 'a' is not a number for the tick\n");
}

TEST_F(ResourceCheckTest, MissingFontIsReportedInTheConfiguration) {
    EXPECT_EQ(FoundInConfiguration("none.ttf\nx\n0 0 1 1\n0 0 1 1\n0 0 1 1\n0 0 1 1\n0 0 1 1\n1\n"),
              "a.conf:1:1: error: the font 'none.ttf' cannot be loaded: Error loading the font\n");
}

TEST_F(ResourceCheckTest, FileThatIsNotAFontIsReportedInTheConfiguration) {
    EXPECT_EQ(FoundInConfiguration("a.conf\nx\n0 0 1 1\n0 0 1 1\n0 0 1 1\n0 0 1 1\n0 0 1 1\n1\n"),
              "a.conf:1:1: error: the font 'a.conf' cannot be loaded: The font file format is not "
              "recgonised\n");
}

TEST_F(ResourceCheckTest, MissingThemeOfTheMessageBoxIsAnErrorForTheGame) {
    Remove("messagebox.theme");
    EXPECT_NE(
        Found("", true).find(
            "test.gui:1:1: error: the message box's theme 'messagebox.theme' cannot be read\n"),
        std::string::npos);
}

TEST_F(ResourceCheckTest, FindingsInTheLayoutComeBeforeThoseInOtherFiles) {
    folder.Write("a.theme", "");
    EXPECT_EQ(Found("THEM a.theme NULL\nFOO\n"),
              "test.gui:2:1: error: unknown statement 'FOO'\n"
              "a.theme:1:1: error: the file ends before its text colour\n");
}

TEST_F(ResourceCheckTest, ThemesOfAChartsLinesMayBeMissing) {
    for (const char* name : Chart::kSeriesThemes)
        Remove(name);
    EXPECT_THAT(FoundWithFont("CADD Chart a NULL -1 0 1 0.8 A\n"),
                testing::Not(testing::HasSubstr("error")));
}

TEST_F(ResourceCheckTest, MistakesInTheThemesOfAChartsLinesAreReported) {
    folder.Write("series4.theme", "0 0\n");
    EXPECT_THAT(FoundWithFont("CADD Chart a NULL -1 0 1 0.8 A\n"),
                testing::HasSubstr("series4.theme:"));
    EXPECT_EQ(FoundWithFont(""), "");
}

}  // namespace
}  // namespace guiview
