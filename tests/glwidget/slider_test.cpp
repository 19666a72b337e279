// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/slider.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/opened.h"
#include "tests/glwidget/widget_test.h"

namespace {

const Vector kOrigin(0.0f, 0.0f);

class SliderTest : public WidgetTest {
protected:
    void DragBy(float x, float y) { slider.MouseMove(slider.mouse.x + x, slider.mouse.y + y); }
    /// Presses the left button with the mouse at a place.
    static void PressAt(Slider& pressed, float x, float y) {
        pressed.MouseMove(x, y);
        pressed.MouseClick(true, false, false);
    }

    Opened<Slider> slider{"slide", nullptr, kOrigin, theme, Vector(1.0f, 0.0f)};
    Opened<Slider> upright{"upright", nullptr, kOrigin, theme, Vector(0.0f, 1.0f)};
};

TEST_F(SliderTest, StartsInTheMiddle) {
    EXPECT_EQ(slider.GetLevel(), 0.5f);
    EXPECT_FALSE(slider.Dragging());
    EXPECT_EQ(slider.GetType(), "Slider");
    EXPECT_FALSE(slider.Unique());
}

TEST_F(SliderTest, PositionIsHalfAKnobBelowTheGivenOne) {
    EXPECT_FLOAT_EQ(slider.position.x, 0.0f);
    EXPECT_FLOAT_EQ(slider.position.y, -0.05f);
    EXPECT_FLOAT_EQ(upright.position.y, -0.05f);
}

TEST_F(SliderTest, SizeIsTheLengthOfTheTrackByAKnob) {
    EXPECT_FLOAT_EQ(slider.size.x, 1.0f);
    EXPECT_FLOAT_EQ(slider.size.y, 0.1f);
    EXPECT_FLOAT_EQ(upright.size.x, 0.1f);
    EXPECT_FLOAT_EQ(upright.size.y, 1.0f);
}

TEST_F(SliderTest, BoxOfAHorizontalTrackReachesAKnobBeyondItsRightEnd) {
    const Vector box = slider.Getbbox();
    EXPECT_FLOAT_EQ(box.x, 0.0f);
    EXPECT_FLOAT_EQ(box.y, -0.1f);
    EXPECT_FLOAT_EQ(box.z, 1.1f);
    EXPECT_FLOAT_EQ(box.w, 0.1f);
}

TEST_F(SliderTest, BoxOfAVerticalTrackReachesAKnobBeyondItsUpperEnd) {
    const Vector box = upright.Getbbox();
    EXPECT_FLOAT_EQ(box.x, -0.05f);
    EXPECT_FLOAT_EQ(box.y, -0.05f);
    EXPECT_FLOAT_EQ(box.z, 0.15f);
    EXPECT_FLOAT_EQ(box.w, 1.05f);
}

TEST_F(SliderTest, MouseIsOverItHalfAKnobToEverySide) {
    const auto over = [this](float x, float y) {
        slider.MouseMove(x, y);
        return slider.HasFocus();
    };
    EXPECT_TRUE(over(-0.049f, 0.0f));
    EXPECT_FALSE(over(-0.051f, 0.0f));
    EXPECT_TRUE(over(1.049f, 0.0f));
    EXPECT_FALSE(over(1.051f, 0.0f));  // although the layout's box goes on to 1.1
    EXPECT_TRUE(over(0.5f, 0.099f));
    EXPECT_FALSE(over(0.5f, 0.101f));
    EXPECT_TRUE(over(0.5f, -0.099f));
    EXPECT_FALSE(over(0.5f, -0.101f));
}

TEST_F(SliderTest, MouseIsOverItInsideItsGrabBox) {
    for (Opened<Slider>* each : {&slider, &upright}) {
        const Vector box = each->GrabBox();
        EXPECT_FLOAT_EQ(box.x, each->position.x - 0.05f);
        EXPECT_FLOAT_EQ(box.y, each->position.y - 0.05f);
        EXPECT_FLOAT_EQ(box.z, each->position.x + each->size.x + 0.05f);
        EXPECT_FLOAT_EQ(box.w, each->position.y + each->size.y + 0.05f);
        each->MouseMove(box.x, box.y);
        EXPECT_TRUE(each->HasFocus());
        each->MouseMove(box.z, box.w);
        EXPECT_TRUE(each->HasFocus());
    }
}

TEST_F(SliderTest, DrawnBoxHoldsTheKnobAtBothEndsOfAHorizontalTrack) {
    const Vector box = slider.DrawnBox();
    EXPECT_FLOAT_EQ(box.x, -0.05f);
    EXPECT_FLOAT_EQ(box.y, -0.05f);
    EXPECT_FLOAT_EQ(box.z, 1.05f);
    EXPECT_FLOAT_EQ(box.w, 0.05f);
}

TEST_F(SliderTest, DrawnBoxHoldsAVerticalTrackAndTheKnobOnItsLeft) {
    const Vector box = upright.DrawnBox();
    EXPECT_FLOAT_EQ(box.x, -0.1f);
    EXPECT_FLOAT_EQ(box.y, -0.1f);
    EXPECT_FLOAT_EQ(box.z, 0.05f);
    EXPECT_FLOAT_EQ(box.w, 1.0f);
}

TEST_F(SliderTest, DragMovesTheLevelByItsShareOfTheTrack) {
    PressAt(slider, 0.5f, 0.0f);
    DragBy(0.3f, 0.0f);
    EXPECT_FLOAT_EQ(slider.GetLevel(), 0.8f);
    EXPECT_TRUE(slider.Dragging());
}

TEST_F(SliderTest, DragThatWouldPassAnEndLeavesTheLevel) {
    PressAt(slider, 0.2f, 0.0f);
    DragBy(0.3f, 0.0f);
    EXPECT_FLOAT_EQ(slider.GetLevel(), 0.8f);
    DragBy(0.3f, 0.0f);
    EXPECT_FLOAT_EQ(slider.GetLevel(), 0.8f);
    DragBy(-0.3f, 0.0f);
    EXPECT_FLOAT_EQ(slider.GetLevel(), 0.5f);
}

TEST_F(SliderTest, DragNeverMakesTheLevelExactlyAnEnd) {
    PressAt(slider, 0.25f, 0.0f);
    DragBy(0.5f, 0.0f);
    EXPECT_EQ(slider.GetLevel(), 0.5f);
    DragBy(-0.5f, 0.0f);
    EXPECT_EQ(slider.GetLevel(), 0.5f);
}

TEST_F(SliderTest, VerticalTrackFollowsTheMouseUpwards) {
    PressAt(upright, 0.05f, 0.5f);
    upright.MouseMove(0.15f, 0.7f);
    EXPECT_FLOAT_EQ(upright.GetLevel(), 0.7f);
}

TEST_F(SliderTest, LengthOfTheTrackScalesTheDrag) {
    Slider longer("longer", nullptr, kOrigin, theme, Vector(2.0f, 0.0f));
    PressAt(longer, 1.0f, 0.0f);
    longer.MouseMove(1.5f, 0.0f);
    EXPECT_FLOAT_EQ(longer.GetLevel(), 0.75f);
    Slider higher("higher", nullptr, kOrigin, theme, Vector(0.0f, 2.0f));
    PressAt(higher, 0.05f, 1.0f);
    EXPECT_TRUE(higher.MouseMove(0.05f, 0.5f));
    EXPECT_FLOAT_EQ(higher.GetLevel(), 0.25f);
}

TEST_F(SliderTest, FirstMoveAfterAPressCountsFromTheMoveBeforeIt) {
    slider.MouseMove(0.4f, 0.0f);
    slider.MouseMove(0.5f, 0.0f);
    slider.MouseClick(true, false, false);
    slider.MouseMove(0.6f, 0.0f);
    EXPECT_FLOAT_EQ(slider.GetLevel(), 0.6f);
}

TEST_F(SliderTest, PressBeforeAnyMoveChangesNothingUntilTheSecondMove) {
    slider.Focus();
    slider.MouseClick(true, false, false);
    ASSERT_TRUE(slider.Dragging());
    slider.MouseMove(0.6f, 0.0f);
    EXPECT_EQ(slider.GetLevel(), 0.5f);
    slider.MouseMove(0.7f, 0.0f);
    EXPECT_FLOAT_EQ(slider.GetLevel(), 0.6f);
}

TEST_F(SliderTest, LevelStaysWhileTheDragIsOutsideAndFollowsAgainInside) {
    PressAt(slider, 0.5f, 0.0f);
    slider.MouseMove(0.6f, 0.5f);
    EXPECT_EQ(slider.GetLevel(), 0.5f);
    EXPECT_TRUE(slider.Dragging());
    EXPECT_TRUE(slider.HasFocus());
    slider.MouseMove(0.7f, 0.5f);
    slider.MouseMove(0.8f, 0.0f);  // back: only the last step counts
    EXPECT_FLOAT_EQ(slider.GetLevel(), 0.6f);
}

TEST_F(SliderTest, ReleaseEndsTheDragAndTheFocus) {
    PressAt(slider, 0.5f, 0.0f);
    EXPECT_TRUE(slider.MouseClick(false, false, false));
    EXPECT_FALSE(slider.Dragging());
    EXPECT_FALSE(slider.HasFocus());
    slider.MouseMove(0.6f, 0.0f);
    EXPECT_EQ(slider.GetLevel(), 0.5f);
}

TEST_F(SliderTest, HeldButtonKeepsTheDrag) {
    PressAt(slider, 0.5f, 0.0f);
    slider.MouseClick(true, false, false);
    EXPECT_TRUE(slider.Dragging());
    EXPECT_TRUE(slider.HasFocus());
}

TEST_F(SliderTest, PressOutsideStartsNoDrag) {
    PressAt(slider, 0.5f, 0.5f);
    EXPECT_FALSE(slider.Dragging());
    slider.MouseMove(0.5f, 0.0f);  // with the mouse button still held
    slider.MouseClick(true, false, false);
    EXPECT_FALSE(slider.Dragging());
}

TEST_F(SliderTest, OtherButtonsStartNoDrag) {
    slider.MouseMove(0.5f, 0.0f);
    EXPECT_TRUE(slider.MouseClick(false, true, true));
    EXPECT_FALSE(slider.Dragging());
    EXPECT_TRUE(slider.buttons.middle);
    EXPECT_TRUE(slider.buttons.right);
}

TEST_F(SliderTest, ChildUnderTheMouseKeepsTheClickAndTheFocus) {
    PlainWidget child("child", &slider, kOrigin, theme);
    child.size = Vector(1.0f, 1.0f);
    slider.AddChild(&child);
    PressAt(slider, 0.5f, 0.0f);
    EXPECT_EQ(child.clicks, 1);
    EXPECT_FLOAT_EQ(child.mouse.x, 0.5f);
    EXPECT_FALSE(slider.HasFocus());
    EXPECT_FALSE(slider.Dragging());
    EXPECT_FALSE(slider.buttons.left);  // not stored when a child has the focus
    EXPECT_FALSE(slider.MouseClick(true, false, false));
}

TEST_F(SliderTest, UniqueChildsClickIsToldToTheOthers) {
    PlainWidget clicked("clicked", &slider, kOrigin, theme);
    PlainWidget other("other", &slider, kOrigin, theme);
    slider.AddChild(&clicked);
    slider.AddChild(&other);
    clicked.unique = true;
    slider.MouseClick(true, false, false);
    EXPECT_TRUE(clicked.told.empty());
    EXPECT_EQ(other.told, std::vector<GLWidget*>{&clicked});
}

TEST_F(SliderTest, NeverReportsAChange) {
    PressAt(slider, 0.5f, 0.0f);
    DragBy(0.3f, 0.0f);
    EXPECT_FALSE(slider.BeenChanged());
    EXPECT_FALSE(slider.BeenClicked());
}

TEST_F(SliderTest, SetLevelClampsAndDoesNotEndTheDrag) {
    PressAt(slider, 0.5f, 0.0f);
    slider.SetLevel(1.5f);
    EXPECT_EQ(slider.GetLevel(), 1.0f);
    slider.SetLevel(-0.5f);
    EXPECT_EQ(slider.GetLevel(), 0.0f);
    EXPECT_TRUE(slider.Dragging());
}

TEST_F(SliderTest, TrackInBothDirectionsIsHorizontal) {
    Slider skew("skew", nullptr, kOrigin, theme, Vector(1.0f, 0.5f));
    PressAt(skew, 0.5f, 0.0f);
    skew.MouseMove(0.6f, 0.05f);
    EXPECT_FLOAT_EQ(skew.GetLevel(), 0.6f);
}

TEST_F(SliderTest, TrackWithoutALengthKeepsItsLevel) {
    constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    for (const Vector& extent : {Vector(0.0f, 0.0f), Vector(kNaN, 0.0f), Vector(0.0f, kNaN)}) {
        Slider broken("broken", nullptr, kOrigin, theme, extent);
        broken.Focus();
        broken.MouseClick(true, false, false);
        broken.MouseMove(0.0f, 0.0f);
        broken.MouseMove(0.01f, 0.01f);
        EXPECT_EQ(broken.GetLevel(), 0.5f);
    }
}

TEST_F(SliderTest, RenderingOutsideRenderWidgetsFailsTheAssertion) {
    EXPECT_EXIT(slider.Render(), testing::ExitedWithCode(0),
                "Assert failed on glwidget/slider:97 - \"rendering\"");
}

class DrawnSliderTest : public DrawnWidgetTest {
protected:
    // Half of the dim fill, because it is drawn half transparent on black.
    static constexpr Colour kTrack{0, 0, 77};
    static constexpr Colour kKnob = kTrack;  // a sheet of full blue

    DrawnSliderTest() { PlainSheet(*theme, 0, 0, 255); }
};

TEST_F(DrawnSliderTest, KnobStandsAtItsLevelOnAHorizontalTrack) {
    Opened<Slider> slider("slide", nullptr, kOrigin, theme, Vector(1.0f, 0.0f));
    slider.SetLevel(0.25f);
    Draw(slider);
    EXPECT_EQ(At(0.21f, 0.04f), kKnob);
    EXPECT_EQ(At(0.29f, -0.04f), kKnob);
    EXPECT_EQ(At(0.19f, 0.04f), kBlack);
    EXPECT_EQ(At(0.31f, 0.04f), kBlack);
    EXPECT_EQ(At(0.25f, 0.06f), kBlack);
    EXPECT_EQ(At(0.25f, -0.06f), kBlack);
}

TEST_F(DrawnSliderTest, KnobOfAVerticalTrackIsDrawnToTheLeftOfTheTrack) {
    Opened<Slider> slider("slide", nullptr, kOrigin, theme, Vector(0.0f, 1.0f));
    slider.SetLevel(0.75f);
    Draw(slider);
    // From the widget's lower left corner at (0, -0.05): the knob reaches from there to the left.
    EXPECT_EQ(At(-0.01f, 0.70f), kKnob);
    EXPECT_EQ(At(-0.09f, 0.66f), kKnob);
    EXPECT_EQ(At(-0.09f, 0.74f), kKnob);
    EXPECT_EQ(At(-0.05f, 0.64f), kBlack);
    EXPECT_EQ(At(-0.05f, 0.76f), kBlack);
    EXPECT_EQ(At(0.01f, 0.70f), kBlack);
}

TEST_F(DrawnSliderTest, TrackIsALineThroughTheMiddle) {
    Slider slider("slide", nullptr, kOrigin, theme, Vector(1.0f, 0.0f));
    Slider upright("upright", nullptr, Vector(-1.0f, 0.0f), theme, Vector(0.0f, 1.0f));
    GLWidget::widgets = {&slider, &upright};
    Draw();
    EXPECT_GT(Count(kTrack, 0.8f, -0.01f, 0.9f, 0.01f), 0);
    EXPECT_FALSE(AnythingIn(0.8f, 0.02f, 0.9f, 0.04f));
    EXPECT_GT(Count(kTrack, -0.96f, 0.1f, -0.94f, 0.2f), 0);
    EXPECT_GT(Count(kTrack, -0.96f, 0.92f, -0.94f, 0.94f), 0);
    EXPECT_FALSE(AnythingIn(-0.96f, 0.96f, -0.94f, 1.0f));
}

TEST_F(DrawnSliderTest, IsHighlightedUnderTheMouse) {
    Slider slider("slide", nullptr, kOrigin, theme, Vector(1.0f, 0.0f));
    slider.Focus();
    Draw(slider);
    EXPECT_EQ(At(0.5f, 0.04f), (Colour{0, 0, 128}));
}

TEST_F(DrawnSliderTest, KnobShowsItsRectangleOfTheSheet) {
    // Two red pixels, then two blue ones.
    const std::uint8_t pixels[] = {255, 0, 0, 255, 255, 0, 0, 255, 0, 0, 255, 255, 0, 0, 255, 255};
    TextureData image;
    ASSERT_TRUE(image.Load(4, 1, true, pixels));
    theme->image.Load(image, TextureDetails("", 16));
    theme->fillColour = Vector(1.0f, 1.0f, 1.0f);
    GLWidget::sliderRect = Vector(0.7f, 0.0f, 0.8f, 1.0f);
    Slider slider("slide", nullptr, kOrigin, theme, Vector(1.0f, 0.0f));
    Draw(slider);
    EXPECT_EQ(At(0.52f, 0.04f), kKnob);
    GLWidget::sliderRect = Vector();
}

TEST_F(DrawnSliderTest, DrawingRestoresTheModelViewMatrix) {
    Slider upright("upright", nullptr, kOrigin, theme, Vector(0.0f, 1.0f));
    Draw(upright);
    EXPECT_EQ(ModelView(), kIdentity);
}

}  // namespace
