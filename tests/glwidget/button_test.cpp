// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/button.h"

#include "glwidget/glwindow.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/opened.h"
#include "tests/glwidget/widget_test.h"

namespace {

class ButtonTest : public WidgetTest {
protected:
    ButtonTest() : button("b", nullptr, Vector(0.0f, 0.0f), theme, "press") {}

    void PointAt() { button.MouseMove(0.01f, 0.01f); }
    void PointAway() { button.MouseMove(-1.0f, -1.0f); }

    Button button;
};

TEST_F(ButtonTest, SizeFollowsTheCaption) {
    const Vector box = button.Getbbox();
    EXPECT_FLOAT_EQ(box.z, 6.0f * 0.04f);
    EXPECT_FLOAT_EQ(box.w, 1.5f * 0.05f);
    EXPECT_EQ(button.GetText(), "press");
}

TEST_F(ButtonTest, PercentSignsOfACaptionAreMeasuredAsTheyAreDrawn) {
    const Button percent("p", nullptr, Vector(0.0f, 0.0f), theme, "50%");
    const Button pair("q", nullptr, Vector(0.0f, 0.0f), theme, "50%%");
    EXPECT_FLOAT_EQ(const_cast<Button&>(percent).Getbbox().z, 4.0f * 0.04f);
    EXPECT_FLOAT_EQ(const_cast<Button&>(pair).Getbbox().z, 4.0f * 0.04f);
}

TEST_F(ButtonTest, CaptionIsMeasuredAtTheFontSizeOfTheButtonsTheme) {
    Theme wide;
    wide.fontSize = Vector(0.5f, 0.5f);
    Button large("l", nullptr, Vector(0.0f, 0.0f), &wide, "ab");
    Button small("s", nullptr, Vector(0.0f, 0.0f), theme, "ab");
    EXPECT_FLOAT_EQ(large.Getbbox().z, 1.5f);
    EXPECT_FLOAT_EQ(small.Getbbox().z, 3.0f * 0.04f);
}

TEST_F(ButtonTest, ImageButtonTakesItsSizeAndHasNoCaption) {
    Button image("i", nullptr, Vector(0.5f, 0.5f), theme, Vector(0.25f, 0.5f));
    const Vector box = image.Getbbox();
    EXPECT_EQ(box.z, 0.75f);
    EXPECT_EQ(box.w, 1.0f);
    EXPECT_EQ(image.GetText(), "");
}

TEST_F(ButtonTest, NamesItsTypeAndIsNotUnique) {
    EXPECT_EQ(button.GetType(), "Button");
    EXPECT_FALSE(button.Unique());
}

TEST_F(ButtonTest, PressRaisesTheClickAndReleaseClearsActiveAndFocus) {
    PointAt();
    EXPECT_FALSE(button.MouseClick(true, false, false));
    EXPECT_TRUE(button.Clicked());
    EXPECT_TRUE(button.HasFocus());
    EXPECT_FALSE(button.MouseClick(false, false, false));
    EXPECT_FALSE(button.Clicked());
    EXPECT_FALSE(button.HasFocus());
    EXPECT_TRUE(button.BeenClicked());
    EXPECT_FALSE(button.BeenClicked());
}

TEST_F(ButtonTest, HoldingDownKeepsTheButtonActiveWithoutASecondClick) {
    PointAt();
    button.MouseClick(true, false, false);
    EXPECT_TRUE(button.BeenClicked());
    button.MouseClick(true, false, false);
    EXPECT_TRUE(button.Clicked());
    EXPECT_FALSE(button.BeenClicked());
}

TEST_F(ButtonTest, PressElsewhereIsNoClick) {
    PointAway();
    button.MouseClick(true, false, false);
    EXPECT_FALSE(button.Clicked());
    EXPECT_FALSE(button.BeenClicked());
}

TEST_F(ButtonTest, DraggingOntoTheButtonIsNoClick) {
    PointAway();
    button.MouseClick(true, false, false);
    PointAt();
    button.MouseClick(true, false, false);
    EXPECT_FALSE(button.BeenClicked());
    EXPECT_FALSE(button.HasFocus());
}

TEST_F(ButtonTest, ReleaseAwayFromTheButtonClearsIt) {
    PointAt();
    button.MouseClick(true, false, false);
    PointAway();
    EXPECT_TRUE(button.Clicked());
    button.MouseClick(false, false, false);
    EXPECT_FALSE(button.Clicked());
}

TEST_F(ButtonTest, FocusComesBackWithTheNextMove) {
    PointAt();
    button.MouseClick(true, false, false);
    button.MouseClick(false, false, false);
    PointAt();
    EXPECT_TRUE(button.HasFocus());
}

TEST_F(ButtonTest, PressOfAnotherMouseButtonClearsAClickThatWasNotReadYet) {
    PointAt();
    button.MouseClick(true, false, false);
    button.MouseClick(false, false, false);
    PointAt();
    button.MouseClick(false, true, false);
    EXPECT_FALSE(button.BeenClicked());
}

using ButtonDeathTest = ButtonTest;

TEST_F(ButtonDeathTest, RenderingOutsideRenderWidgetsFailsTheAssertion) {
    EXPECT_EXIT(button.Render(), testing::ExitedWithCode(0),
                "Assert failed on glwidget/button:36 - \"rendering\"");
}

class DrawnButtonTest : public DrawnWidgetTest {
protected:
    // Fill and lines at the brightness without the mouse.
    static constexpr Colour kFill{0, 0, 153};
    static constexpr Colour kLine{153, 0, 0};

    DrawnButtonTest() {
        button.size = Vector(0.8f, 0.4f);
        theme->lineWidth = 3.0f;
    }

    Opened<Button> button{"b", nullptr, Vector(0.0f, 0.0f), theme, "caption"};
};

TEST_F(DrawnButtonTest, BoxIsFilledAndOutlined) {
    Draw(button);
    EXPECT_EQ(At(0.4f, 0.2f), kFill);
    EXPECT_EQ(At(0.02f, 0.02f), kFill);
    EXPECT_GT(Count(kLine, -0.01f, 0.1f, 0.01f, 0.2f), 0);
    EXPECT_GT(Count(kLine, 0.79f, 0.2f, 0.81f, 0.3f), 0);
    EXPECT_FALSE(AnythingIn(0.82f, 0.0f, 1.0f, 0.4f));
    EXPECT_FALSE(AnythingIn(0.0f, 0.42f, 0.8f, 0.6f));
}

TEST_F(DrawnButtonTest, UpperLeftAndLowerRightCornersAreCutByThreeCornersOfTheHeight) {
    Draw(button);
    const float cut = 3.0f * theme->corner * 0.4f;
    EXPECT_FALSE(AnythingIn(0.0f, 0.4f - cut / 3.0f, cut / 3.0f, 0.4f));
    EXPECT_FALSE(AnythingIn(0.8f - cut / 3.0f, 0.0f, 0.8f, cut / 3.0f));
    EXPECT_EQ(At(0.8f * cut, 0.4f - 0.8f * cut), kFill);
    EXPECT_EQ(At(0.78f, 0.38f), kFill);
    // The cut is as wide as it is high, also in a wide button.
    EXPECT_GT(Count(kLine, cut / 2.0f - 0.01f, 0.4f - cut / 2.0f - 0.01f, cut / 2.0f + 0.01f,
                    0.4f - cut / 2.0f + 0.01f),
              0);
}

TEST_F(DrawnButtonTest, OutlineHasTheLineWidthOfTheTheme) {
    theme->lineWidth = 1.0f;
    Draw(button);
    const int thin = Count(kLine, -0.1f, 0.1f, 0.1f, 0.2f);
    theme->lineWidth = 5.0f;
    Draw(button);
    EXPECT_GT(Count(kLine, -0.1f, 0.1f, 0.1f, 0.2f), 3 * thin);
}

TEST_F(DrawnButtonTest, BrightensWithTheHighlight) {
    button.highlight = 0.5f;
    Draw(button);
    EXPECT_EQ(At(0.4f, 0.2f), (Colour{0, 0, 204}));
    button.highlight = 1.0f;
    Draw(button);
    EXPECT_EQ(At(0.4f, 0.2f), (Colour{0, 0, 255}));
}

TEST_F(DrawnButtonTest, LongFrameDrawsItNeitherBrighterThanUnderTheMouseNorDarkerThanWithoutIt) {
    button.focus = true;
    button.Update(10000);
    EXPECT_GT(button.highlight, 1.0f);  // the highlight itself goes too far
    Draw(button);
    EXPECT_EQ(At(0.4f, 0.35f), (Colour{0, 0, 255}));
    button.Update(1);
    button.focus = false;
    button.Update(10000);
    EXPECT_LT(button.highlight, 0.0f);
    Draw(button);
    EXPECT_EQ(At(0.4f, 0.35f), kFill);
}

TEST_F(DrawnButtonTest, PressedButtonIsShifted) {
    theme->pressOffset = Vector(0.1f, -0.2f);
    button.active = true;
    Draw(button);
    EXPECT_EQ(At(0.2f, -0.1f), kFill);
    EXPECT_EQ(At(0.88f, 0.1f), kFill);
    EXPECT_FALSE(AnythingIn(0.0f, 0.22f, 0.8f, 0.4f));
}

TEST_F(DrawnButtonTest, CaptionStandsHalfAGlyphFromTheLeftAndAThirdAboveTheBottom) {
    LoadFont();
    theme->fontSize = Vector(0.12f, 0.12f);
    Draw(button);
    EXPECT_GT(CountText(0.06f, 0.03f, 0.8f, 0.16f), 50);
    EXPECT_EQ(CountText(0.0f, 0.0f, 0.055f, 0.4f), 0);
    EXPECT_EQ(CountText(0.0f, 0.17f, 0.8f, 0.4f), 0);
}

TEST_F(DrawnButtonTest, ImageButtonShowsTheWholeImageWithinItsOutline) {
    // Two red columns, then two green ones.
    const std::uint8_t pixels[] = {255, 0, 0, 255, 255, 0, 0, 255, 0, 255, 0, 255, 0, 255, 0, 255};
    TextureData image;
    ASSERT_TRUE(image.Load(4, 1, true, pixels));
    theme->image.Load(image, TextureDetails("", 16));
    theme->fillColour = Vector(1.0f, 1.0f, 1.0f);
    theme->lineColour = Vector(0.0f, 0.0f, 1.0f);
    Button poster("p", nullptr, Vector(0.0f, 0.0f), theme, Vector(0.4f, 0.4f));
    poster.Focus();
    Draw(poster);
    EXPECT_EQ(At(0.1f, 0.2f), (Colour{255, 0, 0}));
    EXPECT_EQ(At(0.3f, 0.2f), (Colour{0, 255, 0}));
    EXPECT_GT(Count({0, 0, 255}, -0.01f, 0.1f, 0.01f, 0.2f), 0);
    EXPECT_FALSE(AnythingIn(0.0f, 0.37f, 0.03f, 0.4f));
}

TEST_F(DrawnButtonTest, ImageIsTheOneThatTheThemeHadAtConstruction) {
    PlainSheet(*theme, 0, 255, 0);
    theme->fillColour = Vector(1.0f, 1.0f, 1.0f);
    Button poster("p", nullptr, Vector(0.0f, 0.0f), theme, Vector(0.8f, 0.4f));
    PlainSheet(*theme, 255, 0, 0);
    poster.Focus();
    Draw(poster);
    EXPECT_EQ(At(0.4f, 0.2f), (Colour{0, 255, 0}));
}

TEST_F(DrawnButtonTest, TranslucentImageShowsWhatIsBelowIt) {
    const std::uint8_t half[] = {0, 255, 0, 128};
    TextureData image;
    ASSERT_TRUE(image.Load(1, 1, true, half));
    theme->image.Load(image, TextureDetails("", 0));
    theme->fillColour = Vector(1.0f, 1.0f, 1.0f);
    theme->corner = 0.0f;
    Opened<Button> pane("p", nullptr, Vector(0.0f, 0.0f), theme, Vector(0.8f, 0.4f));
    pane.Focus();
    EXPECT_EQ(pane.GetOpaqueBox().z, 0.0f);

    Theme red = *theme;
    PlainSheet(red, 255, 0, 0);
    Opened<Button> ground("g", nullptr, Vector(0.0f, 0.0f), &red, Vector(0.8f, 0.4f));
    ground.Focus();
    GLWidget::widgets = {&ground, &pane};
    Draw();
    EXPECT_EQ(At(0.4f, 0.2f), (Colour{127, 128, 0}));
}

TEST_F(DrawnButtonTest, HidesWhatIsBelowItsBoxIfNoCornerIsCut) {
    EXPECT_EQ(button.GetOpaqueBox().z, 0.0f);
    theme->corner = 0.0f;
    theme->pressOffset = Vector(0.1f, -0.2f);
    button.position = Vector(0.5f, 0.25f);
    const auto expectBox = [&](float left, float bottom, float right, float top) {
        const Vector box = button.GetOpaqueBox();
        EXPECT_FLOAT_EQ(box.x, left);
        EXPECT_FLOAT_EQ(box.y, bottom);
        EXPECT_FLOAT_EQ(box.z, right);
        EXPECT_FLOAT_EQ(box.w, top);
    };
    expectBox(0.5f, 0.25f, 1.3f, 0.65f);
    button.active = true;
    expectBox(0.6f, 0.05f, 1.4f, 0.45f);
}

TEST_F(DrawnButtonTest, LeavesBlendingOnForTheWidgetsAfterIt) {
    Draw(button);
    Theme glass = *theme;
    glass.opacity = 0.5f;
    Opened<GLWindow> panel("panel", nullptr, Vector(-1.0f, -1.0f), &glass, "", false);
    panel.size = Vector(0.5f, 0.5f);
    GLWidget::widgets = {&button, &panel};
    Draw();
    EXPECT_EQ(At(-0.75f, -0.75f), (Colour{0, 0, 77}));
}

TEST_F(DrawnButtonTest, DrawingRestoresModelViewMatrixAndPolygonMode) {
    button.active = true;
    Draw(button);
    EXPECT_EQ(ModelView(), kIdentity);
    GLint modes[2] = {};
    glGetIntegerv(GL_POLYGON_MODE, modes);
    EXPECT_EQ(modes[0], GL_FILL);
}

}  // namespace
