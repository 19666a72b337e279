// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <sstream>

#include "tests/glwidget/widget_test.h"
#include "tests/support/temporary_folder.h"

namespace {

class ConfigurationTest : public WidgetTest {
protected:
    ConfigurationTest() {
        for (Vector* rectangle :
             {&GLWidget::optionRect, &GLWidget::optionMarkRect, &GLWidget::checkRect,
              &GLWidget::checkMarkRect, &GLWidget::sliderRect})
            *rectangle = Vector(9.0f, 9.0f, 9.0f, 9.0f);
    }

    std::string Read(const std::string& content) {
        std::istringstream file(content);
        testing::internal::CaptureStderr();
        EXPECT_TRUE(GLWidget::Init(file));
        return testing::internal::GetCapturedStderr();
    }

    static void ExpectRectangle(const Vector& actual, float x, float y, float z, float w) {
        EXPECT_EQ(actual.x, x);
        EXPECT_EQ(actual.y, y);
        EXPECT_EQ(actual.z, z);
        EXPECT_EQ(actual.w, w);
    }

    WorkingFolder directory;
};

TEST_F(ConfigurationTest, FadeRateAndScaleHaveTheirValuesBeforeAnyFile) {
    EXPECT_EQ(GLWidget::fadeRate, 0.005f);
    EXPECT_EQ(GLWidget::guiScale, 1.3f);
}

TEST_F(ConfigurationTest, RectanglesAndFadeRateAreReadInOrder) {
    Read(
        "missing.ttf the font\n"
        "ignored\n"
        "0 0.1 0.2 0.3 ring\n"
        "1 1.1 1.2 1.3 dot\n"
        "2 2.1 2.2 2.3 box\n"
        "3 3.1 3.2 3.3 tick\n"
        "4 4.1 4.2 4.3 knob\n"
        "0.125 per millisecond\n");
    ExpectRectangle(GLWidget::optionRect, 0.0f, 0.1f, 0.2f, 0.3f);
    ExpectRectangle(GLWidget::optionMarkRect, 1.0f, 1.1f, 1.2f, 1.3f);
    ExpectRectangle(GLWidget::checkRect, 2.0f, 2.1f, 2.2f, 2.3f);
    ExpectRectangle(GLWidget::checkMarkRect, 3.0f, 3.1f, 3.2f, 3.3f);
    ExpectRectangle(GLWidget::sliderRect, 4.0f, 4.1f, 4.2f, 4.3f);
    EXPECT_EQ(GLWidget::fadeRate, 0.125f);
}

TEST_F(ConfigurationTest, FontThatCannotBeLoadedIsReportedAndReadingGoesOn) {
    EXPECT_EQ(Read("missing.ttf\n"), "Loading missing.ttf\nError loading the font\nLoaded.\n");
}

TEST_F(ConfigurationTest, FileThatIsNotAFontIsReported) {
    directory.Write("text.ttf", "this is no font");
    EXPECT_EQ(Read("text.ttf\n"),
              "Loading text.ttf\nThe font file format is not recgonised\nLoaded.\n");
}

TEST_F(ConfigurationTest, ProgramCanReplaceHowTheFontIsLoaded) {
    static std::string loaded;
    Toolkit::Get().loadFont = [](FontRender& font, const std::string& path) {
        loaded = path;
        FontAccess::SetAdvances(font, 0.25f);
        return true;
    };
    Read("some.ttf\n");
    EXPECT_EQ(loaded, "some.ttf");
    EXPECT_EQ(GLWidget::font.Advance('a'), 0.25f);
}

TEST_F(ConfigurationTest, ScaleIsSet) {
    GLWidget::guiScale = 2.0f;
    Read("missing.ttf\n");
    EXPECT_EQ(GLWidget::guiScale, 1.3f);
}

TEST_F(ConfigurationTest, CommentLinesAreSkipped) {
    Read("// fonts\nmissing.ttf\n// a word\nword\n\n// the ring\n0 0.1 0.2 0.3\n");
    ExpectRectangle(GLWidget::optionRect, 0.0f, 0.1f, 0.2f, 0.3f);
}

TEST_F(ConfigurationTest, MissingValuesStayAsTheyWere) {
    Read("missing.ttf\nword\n0 0.1\nx x x x\n");
    EXPECT_EQ(GLWidget::optionRect.y, 0.1f);
    ExpectRectangle(GLWidget::checkRect, 9.0f, 9.0f, 9.0f, 9.0f);
    EXPECT_EQ(GLWidget::fadeRate, 0.005f);
}

TEST_F(ConfigurationTest, MissingFileIsReadAsAnEmptyOne) {
    testing::internal::CaptureStderr();
    EXPECT_TRUE(GLWidget::Init("nowhere"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "nowhere is missing\nLoading \nError loading the font\nLoaded.\n");
    EXPECT_EQ(GLWidget::fadeRate, 0.005f);
}

TEST_F(ConfigurationTest, FileIsReadByItsName) {
    directory.Write("gui.conf", "missing.ttf\nword\n0 0.1 0.2 0.3\n");
    testing::internal::CaptureStderr();
    EXPECT_TRUE(GLWidget::Init("gui.conf"));
    testing::internal::GetCapturedStderr();
    ExpectRectangle(GLWidget::optionRect, 0.0f, 0.1f, 0.2f, 0.3f);
}

}  // namespace
