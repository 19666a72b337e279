// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/theme.h"

#include <gtest/gtest.h>

#include <sstream>

#include "tests/glwidget/widget_test.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr const char* kWholeFile =
    "0.1 0.2 0.3 text\n"
    "0.4 0.5 0.6 lines\n"
    "0.7 0.8 0.9\n"
    "0.11 0.12 0.13\n"
    "0.5 opacity\n"
    "0.6\n"
    "3 line width\n"
    "0.25\n"
    "0.125\n"
    "0.0625\n"
    "0.03 0.06 font\n"
    "0.4 0.9 dim and bright\n"
    "0.01 -0.02 0.5 press\n"
    "0.2\n"
    "NULL no texture\n"
    "0 fade\n";

class ThemeTest : public testing::Test {
protected:
    std::string Read(Theme& theme, const std::string& content) {
        std::istringstream file(content);
        testing::internal::CaptureStderr();
        Theme::Read(theme, file, "a.theme");
        return testing::internal::GetCapturedStderr();
    }

    static void ExpectVector(const Vector& actual, float x, float y, float z, float w) {
        EXPECT_EQ(actual.x, x);
        EXPECT_EQ(actual.y, y);
        EXPECT_EQ(actual.z, z);
        EXPECT_EQ(actual.w, w);
    }

    static void ExpectBuiltInValues(const Theme& theme) {
        ExpectVector(theme.textColour, 1.0f, 1.0f, 1.0f, 1.0f);
        ExpectVector(theme.lineColour, 1.0f, 0.71f, 0.16f, 1.0f);
        ExpectVector(theme.fillColour, 0.8f, 0.8f, 0.8f, 1.0f);
        ExpectVector(theme.fourthColour, 0.3f, 0.3f, 0.3f, 1.0f);
        EXPECT_EQ(theme.opacity, 1.0f);
        EXPECT_EQ(theme.sixthValue, 0.8f);
        EXPECT_EQ(theme.lineWidth, 2.0f);
        EXPECT_EQ(theme.border, 0.005f);
        EXPECT_EQ(theme.corner, 0.1f);
        EXPECT_EQ(theme.tenthValue, 0.003f);
        ExpectVector(theme.fontSize, 0.04f, 0.05f, 0.0f, 1.0f);
        EXPECT_EQ(theme.dim, 0.7f);
        EXPECT_EQ(theme.bright, 1.0f);
        ExpectVector(theme.pressOffset, 0.005f, -0.005f, 0.0f, 1.0f);
        EXPECT_EQ(theme.boxSize, 0.1f);
        EXPECT_EQ(theme.textureName, "gui.tga");
        EXPECT_TRUE(theme.fade);
        EXPECT_EQ(theme.image.GetName(), 0u);
    }

    WorkingFolder directory;
};

TEST_F(ThemeTest, NewThemeHoldsTheBuiltInValuesWithoutATexture) {
    ExpectBuiltInValues(Theme());
}

TEST_F(ThemeTest, EveryValueIsReadFromItsLine) {
    Theme theme;
    Read(theme, kWholeFile);
    ExpectVector(theme.textColour, 0.1f, 0.2f, 0.3f, 1.0f);
    ExpectVector(theme.lineColour, 0.4f, 0.5f, 0.6f, 1.0f);
    ExpectVector(theme.fillColour, 0.7f, 0.8f, 0.9f, 1.0f);
    ExpectVector(theme.fourthColour, 0.11f, 0.12f, 0.13f, 1.0f);
    EXPECT_EQ(theme.opacity, 0.5f);
    EXPECT_EQ(theme.sixthValue, 0.6f);
    EXPECT_EQ(theme.lineWidth, 3.0f);
    EXPECT_EQ(theme.border, 0.25f);
    EXPECT_EQ(theme.corner, 0.125f);
    EXPECT_EQ(theme.tenthValue, 0.0625f);
    ExpectVector(theme.fontSize, 0.03f, 0.06f, 0.0f, 1.0f);
    EXPECT_EQ(theme.dim, 0.4f);
    EXPECT_EQ(theme.bright, 0.9f);
    ExpectVector(theme.pressOffset, 0.01f, -0.02f, 0.5f, 1.0f);
    EXPECT_EQ(theme.boxSize, 0.2f);
    EXPECT_EQ(theme.textureName, "NULL");
    EXPECT_FALSE(theme.fade);
}

TEST_F(ThemeTest, EveryValueIsReported) {
    Theme theme;
    EXPECT_EQ(Read(theme, kWholeFile),
              "reading theme a.theme\n"
              "(0.1, 0.2, 0.3, 1)\n"
              "(0.4, 0.5, 0.6, 1)\n"
              "(0.7, 0.8, 0.9, 1)\n"
              "(0.11, 0.12, 0.13, 1)\n"
              "0.5\n"
              "0.6\n"
              "3\n"
              "0.25\n"
              "0.125\n"
              "0.0625\n"
              "(0.03, 0.06, 0, 1)\n"
              "0.4 0.9\n"
              "(0.01, -0.02, 0.5, 1)\n"
              "0.2\n"
              "NULL\n"
              "0\n"
              "read theme a.theme\n");
}

TEST_F(ThemeTest, ColourLineKeepsTheAlphaThatWasThere) {
    Theme theme;
    theme.textColour.w = 0.25f;
    Read(theme, kWholeFile);
    EXPECT_EQ(theme.textColour.w, 0.25f);
}

TEST_F(ThemeTest, CommentLinesAreSkipped) {
    Theme theme;
    Read(theme, "// the look of a button\n0.1 0.2 0.3\n\n  // lines\n0.4 0.5 0.6\n");
    EXPECT_EQ(theme.textColour.x, 0.1f);
    EXPECT_EQ(theme.lineColour.x, 0.4f);
}

TEST_F(ThemeTest, MalformedNumbersKeepTheirFieldsAndTheNextLineIsReadAsItself) {
    Theme theme;
    Read(theme, "0.1 red 0.3\n0.4 0.5 0.6\n");
    ExpectVector(theme.textColour, 0.1f, 1.0f, 1.0f, 1.0f);
    ExpectVector(theme.lineColour, 0.4f, 0.5f, 0.6f, 1.0f);
}

TEST_F(ThemeTest, MissingFileIsReadAsAnEmptyOne) {
    Theme theme;
    testing::internal::CaptureStderr();
    Theme::Read(theme, "nowhere.theme");
    const std::string report = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(
        report.starts_with("reading theme nowhere.theme\nnowhere.theme is missing\n"
                           "(1, 1, 1, 1)\n"))
        << report;
    EXPECT_NE(report.find("gui.tga\n1\nloading gui.tga\n"), std::string::npos) << report;
    EXPECT_TRUE(report.ends_with("read theme nowhere.theme\n")) << report;
    ExpectBuiltInValues(theme);
}

TEST_F(ThemeTest, FileIsReadByItsName) {
    directory.Write("my.theme", kWholeFile);
    Theme theme;
    testing::internal::CaptureStderr();
    Theme::Read(theme, "my.theme");
    EXPECT_TRUE(testing::internal::GetCapturedStderr().ends_with("read theme my.theme\n"));
    EXPECT_EQ(theme.border, 0.25f);
}

TEST_F(ThemeTest, DirectoryIsReadAsAnEmptyFile) {
    Theme theme;
    testing::internal::CaptureStderr();
    Theme::Read(theme, ".");
    testing::internal::GetCapturedStderr();
    ExpectBuiltInValues(theme);
}

TEST_F(ThemeTest, TextureThatCannotBeLoadedLeavesNone) {
    Theme theme;
    const std::string report = Read(theme,
                                    "1 1 1\n1 1 1\n1 1 1\n1 1 1\n1\n1\n1\n1\n1\n1\n1 1\n1 1\n"
                                    "1 1 1\n1\nmissing.tga\n1\n");
    EXPECT_NE(report.find("\nloading missing.tga\n"), std::string::npos) << report;
    EXPECT_EQ(theme.textureName, "missing.tga");
    EXPECT_EQ(theme.image.GetName(), 0u);
}

TEST_F(ThemeTest, ProgramCanReplaceHowPicturesAreLoaded) {
    static std::string asked;
    Toolkit::Get().loadImage = [](Texture&, const std::string& file) {
        asked = file;
        return true;
    };
    Theme theme;
    Read(theme, "1 1 1\n1 1 1\n1 1 1\n1 1 1\n1\n1\n1\n1\n1\n1\n1 1\n1 1\n1 1 1\n1\nsome.tga\n1\n");
    Toolkit::Get().loadImage = Toolkit::LoadImageToDraw;
    EXPECT_EQ(asked, "some.tga");
}

TEST_F(ThemeTest, TextureNameIsCutAtItsLimit) {
    Theme theme;
    Read(theme, "1 1 1\n1 1 1\n1 1 1\n1 1 1\n1\n1\n1\n1\n1\n1\n1 1\n1 1\n1 1 1\n1\n"
                    + std::string(600, 'x') + "\n0\n");
    EXPECT_EQ(theme.textureName, std::string(511, 'x'));
    EXPECT_FALSE(theme.fade);
}

TEST_F(ThemeTest, BuiltInThemeHasItsFixedValuesAndNamesThePictureGuiTga) {
    Theme theme;
    theme.border = 5.0f;
    testing::internal::CaptureStderr();
    Theme::BuiltIn(theme);
    testing::internal::GetCapturedStderr();
    ExpectBuiltInValues(theme);
}

class ThemeRegistryTest : public WidgetTest {
protected:
    WorkingFolder directory;
};

TEST_F(ThemeRegistryTest, NamedThemeIsReadOnceFromItsFile) {
    directory.Write("box.theme", kWholeFile);
    testing::internal::CaptureStderr();
    Theme* const first = GLWidget::ThemeNamed("box", "box.theme");
    EXPECT_NE(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(first->border, 0.25f);
    testing::internal::CaptureStderr();
    EXPECT_EQ(GLWidget::ThemeNamed("box", "box.theme"), first);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(ThemeRegistryTest, EmptyEntryOfTheRegistryCountsAsNoTheme) {
    GLWidget::themes["box"] = nullptr;
    testing::internal::CaptureStderr();
    EXPECT_NE(GLWidget::ThemeNamed("box", "box.theme"), nullptr);
    testing::internal::GetCapturedStderr();
}

}  // namespace
