// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/fontsize.h"

#include <gmock/gmock.h>

#include "tests/tools/guiview/layout_test.h"

namespace guiview {
namespace {

using testing::ElementsAre;

class FontSizeTest : public LayoutTest {
protected:
    std::set<std::string> ThemesOf(const std::string& layout) const {
        folder.Write("test.gui", layout);
        return ThemesWithText(*LayoutSource::Read(Path()));
    }
};

TEST_F(FontSizeTest, ThemesWithTextAreThoseOfWidgetsThatDrawText) {
    EXPECT_THAT(ThemesOf("CONF gui.conf\nTHEM a.theme NULL\nCADD Butt a NULL 0 0 TEX 1 1\n"
                         "THEM b.theme NULL\nCADD Butt b NULL 0 0 Go\nCADD Frame f NULL 0 0 1\n"
                         "THEM c.theme NULL\nTHEM d.theme NULL\nCADD Slide d NULL 0 0 1 0\n"),
                ElementsAre("b.theme"));
}

TEST_F(FontSizeTest, ThemesOfButtonsThatWidgetsMakeHaveText) {
    EXPECT_THAT(ThemesOf("CONF gui.conf\nCADD Combo a NULL 0 0\n"),
                ElementsAre("combo_button.theme", "default.theme"));
    EXPECT_THAT(ThemesOf("CONF gui.conf\nTHEM default NULL\nCADD TWin w NULL 0 0\nNTAB w 0 A\n"),
                ElementsAre("default.theme", "tabwin_button.theme"));
}

TEST(FontSize, OnlyTheEleventhLineOfValuesChanges) {
    const std::string before = "// a theme\n1 1 1\n1 1 1\n1 1 1\n1 1 1\n1\n0\n\n1\n0\n0\n0\n";
    const std::string after = "1 1\n0 0 0\n0.1\nNULL\n1";
    EXPECT_EQ(WithFontSize(before + "0.05 0.05\n" + after, "0.066"),
              before + "0.066 0.066\n" + after);
    EXPECT_EQ(WithFontSize(before + "0.05 0.05\n" + after + "\n", "0.066"),
              before + "0.066 0.066\n" + after + "\n");
    EXPECT_EQ(WithFontSize(before + "  0.0495 0.06   // glyphs\n" + after, "0.1"),
              before + "  0.1 0.1       // glyphs\n" + after);
    EXPECT_EQ(WithFontSize(before + "0.05 0.05 // glyphs\n" + after, "0.066"),
              before + "0.066 0.066 // glyphs\n" + after);
}

TEST(FontSize, ThemeWithoutTwoNumbersInItsLineHasNone) {
    const std::string before = "1\n1\n1\n1\n1\n1\n1\n1\n1\n1\n";
    EXPECT_EQ(WithFontSize("", "0.1"), std::nullopt);
    EXPECT_EQ(WithFontSize(before, "0.1"), std::nullopt);
    EXPECT_EQ(WithFontSize(before + "0.05\n", "0.1"), std::nullopt);
    EXPECT_EQ(WithFontSize(before + "large 0.05\n", "0.1"), std::nullopt);
}

}  // namespace
}  // namespace guiview
