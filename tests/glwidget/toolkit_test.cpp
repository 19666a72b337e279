// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/toolkit.h"

#include <gmock/gmock.h>

#include <sstream>

#include "tests/glwidget/widget_test.h"
#include "tests/support/temporary_folder.h"

namespace {

class ToolkitTest : public WidgetTest {
protected:
    /// Builds a layout and returns what was written on standard error.
    static std::string Build(const std::string& text) {
        std::istringstream layout(text);
        testing::internal::CaptureStderr();
        EXPECT_TRUE(GLWidget::StartGUI(layout, "layout"));
        return testing::internal::GetCapturedStderr();
    }

    Toolkit& toolkit = Toolkit::Get();
    WorkingFolder directory;
};

/// Tells the test when it is deleted.
class Watched : public PlainWidget {
public:
    explicit Watched(int& count)
        : PlainWidget("watched", nullptr, Vector(0.0f, 0.0f), nullptr), deletions(count) {}
    ~Watched() override { ++deletions; }

private:
    int& deletions;
};

TEST_F(ToolkitTest, ResetDeletesEveryWidgetOnce) {
    int deletions = 0;
    auto* const child = new Watched(deletions);
    auto* const parent = new Watched(deletions);
    parent->AddChild(child);
    toolkit.widgets.push_back(parent);
    new Watched(deletions);
    toolkit.Reset();
    EXPECT_EQ(deletions, 3);
    EXPECT_TRUE(toolkit.living.empty());
}

TEST_F(ToolkitTest, ResetDeletesTheButtonsThatWidgetsOwn) {
    Build("CADD Combo list NULL 0 0\nCADD TWin tabs NULL 0 0\nNTAB tabs 0 First\n");
    EXPECT_EQ(toolkit.living.size(), 4u);
    toolkit.Reset();
    EXPECT_TRUE(toolkit.living.empty());
}

TEST_F(ToolkitTest, ResetBringsEveryValueBack) {
    Build("CADD Label label NULL 0 0 Text\nTHEM other NULL\n");
    toolkit.fontLoads = 2;
    toolkit.msgboxResult = 4;
    toolkit.rendering = true;
    toolkit.fadeRate = 0.5f;
    toolkit.guiScale = 2.0f;
    toolkit.sliderRect = Vector(1.0f, 2.0f, 3.0f, 4.0f);
    toolkit.formatText = "%%";
    toolkit.loadImage = Toolkit::LeaveImageOut;
    toolkit.Reset();
    EXPECT_TRUE(toolkit.tags.empty());
    EXPECT_TRUE(toolkit.widgets.empty());
    EXPECT_TRUE(toolkit.themes.empty());
    EXPECT_TRUE(toolkit.ownedThemes.empty());
    EXPECT_EQ(toolkit.currentTheme, nullptr);
    EXPECT_EQ(toolkit.font.Advance('a'), 0.0f);
    EXPECT_EQ(toolkit.fontLoads, 0u);
    EXPECT_EQ(toolkit.formatText, "");
    EXPECT_EQ(toolkit.viewport[2], 0);
    EXPECT_EQ(toolkit.msgboxResult, 0u);
    EXPECT_FALSE(toolkit.rendering);
    EXPECT_EQ(toolkit.fadeRate, 0.005f);
    EXPECT_EQ(toolkit.guiScale, 1.3f);
    EXPECT_EQ(toolkit.sliderRect.z, Vector().z);
    EXPECT_EQ(toolkit.readViewport, Toolkit::ReadViewportOfOpenGL);
    EXPECT_EQ(toolkit.loadFont, Toolkit::LoadFontToDraw);
    EXPECT_EQ(toolkit.loadImage, Toolkit::LoadImageToDraw);
}

TEST_F(ToolkitTest, LayoutIsBuiltAfterAResetAsItWasBefore) {
    constexpr char kLayout[] = "CADD Butt b NULL 0.25 0.5 Press\n";
    toolkit.ResetWithoutWindow();
    const std::string first = Build(kLayout);
    toolkit.ResetWithoutWindow();
    EXPECT_EQ(Build(kLayout), first);
    EXPECT_EQ(toolkit.widgets.size(), 1u);
    EXPECT_EQ(GLWidget::GetByTag("b")->Getbbox().x, 0.25f);
}

TEST_F(ToolkitTest, NamesOfTheBaseWidgetAreTheToolkitsFields) {
    EXPECT_EQ(&GLWidget::tags, &toolkit.tags);
    EXPECT_EQ(&GLWidget::themes, &toolkit.themes);
    EXPECT_EQ(&GLWidget::widgets, &toolkit.widgets);
    EXPECT_EQ(&GLWidget::font, &toolkit.font);
    EXPECT_EQ(&GLWidget::fontLoads, &toolkit.fontLoads);
    EXPECT_EQ(&GLWidget::viewport, &toolkit.viewport);
    EXPECT_EQ(&GLWidget::msgboxResult, &toolkit.msgboxResult);
    EXPECT_EQ(&GLWidget::rendering, &toolkit.rendering);
    EXPECT_EQ(&GLWidget::fadeRate, &toolkit.fadeRate);
    EXPECT_EQ(&GLWidget::guiScale, &toolkit.guiScale);
    EXPECT_EQ(&GLWidget::currentTheme, &toolkit.currentTheme);
    EXPECT_EQ(&GLWidget::optionRect, &toolkit.optionRect);
    EXPECT_EQ(&GLWidget::optionMarkRect, &toolkit.optionMarkRect);
    EXPECT_EQ(&GLWidget::checkRect, &toolkit.checkRect);
    EXPECT_EQ(&GLWidget::checkMarkRect, &toolkit.checkMarkRect);
    EXPECT_EQ(&GLWidget::sliderRect, &toolkit.sliderRect);
}

TEST_F(ToolkitTest, ViewportWithoutAWindowIs800By600Pixels) {
    toolkit.ResetWithoutWindow();
    EXPECT_THAT(toolkit.viewport, testing::ElementsAre(0, 0, 800, 600));
}

TEST_F(ToolkitTest, FontWithoutAWindowIsMeasured) {
    toolkit.ResetWithoutWindow();
    EXPECT_TRUE(toolkit.loadFont(toolkit.font, DATA_FOLDER "/font.ttf"));
    EXPECT_GT(toolkit.font.Advance('w'), toolkit.font.Advance('i'));
}

TEST_F(ToolkitTest, PictureWithoutAWindowCountsAsLoaded) {
    toolkit.ResetWithoutWindow();
    Texture image;
    EXPECT_TRUE(toolkit.loadImage(image, "missing.tga"));
    EXPECT_EQ(image.GetName(), 0u);
}

}  // namespace
