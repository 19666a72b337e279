// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/glwindow.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "glwidget/combobox.h"
#include "glwidget/frame.h"
#include "glwidget/label.h"
#include "glwidget/optionbox.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/opened.h"
#include "tests/glwidget/widget_test.h"

namespace {

const Vector kOrigin(0.0f, 0.0f);

class GLWindowTest : public WidgetTest {
protected:
    GLWindowTest() { window.size = Vector(1.0f, 1.0f); }

    Opened<GLWindow> window{"window", nullptr, kOrigin, theme, "Title", true};
};

TEST_F(GLWindowTest, StartsWithItsTitleAndNoDrag) {
    EXPECT_EQ(window.GetText(), "Title");
    EXPECT_FALSE(window.Dragging());
    EXPECT_EQ(window.GetType(), "GLWindow");
    EXPECT_FALSE(window.Unique());
}

TEST_F(GLWindowTest, MouseIsOverTheTitleBarAlone) {
    const auto over = [this](float x, float y) {
        window.MouseMove(x, y);
        return window.HasFocus();
    };
    EXPECT_TRUE(over(0.0f, 0.95f));
    EXPECT_TRUE(over(1.0f, 1.0f));  // borders included
    EXPECT_TRUE(over(0.5f, 0.91f));
    EXPECT_FALSE(over(0.5f, 0.89f));  // two glyphs high
    EXPECT_FALSE(over(0.5f, 1.01f));
    EXPECT_FALSE(over(-0.01f, 0.95f));
    EXPECT_FALSE(over(1.01f, 0.95f));
}

TEST_F(GLWindowTest, WindowThatIsNotMovableCannotBeDragged) {
    Opened<GLWindow> fixed("fixed", nullptr, kOrigin, theme, "Title", false);
    fixed.size = Vector(1.0f, 1.0f);
    fixed.MouseMove(0.5f, 0.95f);
    EXPECT_FALSE(fixed.HasFocus());
    fixed.Focus();
    EXPECT_TRUE(fixed.MouseClick(true, false, false));
    EXPECT_FALSE(fixed.Dragging());
}

TEST_F(GLWindowTest, TopLevelWindowCanBeDraggedOffTheScreen) {
    window.MouseMove(0.5f, 0.95f);
    EXPECT_TRUE(window.MouseClick(true, false, false));
    EXPECT_TRUE(window.Dragging());
    window.MouseMove(-9.5f, 10.95f);
    EXPECT_FLOAT_EQ(window.position.x, -10.0f);
    EXPECT_FLOAT_EQ(window.position.y, 10.0f);
    EXPECT_TRUE(window.HasFocus());
}

TEST_F(GLWindowTest, ReleaseEndsTheDrag) {
    window.MouseMove(0.5f, 0.95f);
    window.MouseClick(true, false, false);
    window.MouseMove(0.6f, 0.95f);
    window.MouseClick(false, false, false);
    EXPECT_FALSE(window.Dragging());
    window.MouseMove(0.9f, 0.95f);
    EXPECT_FLOAT_EQ(window.position.x, 0.1f);
}

TEST_F(GLWindowTest, DragGoesOnWhenTheMouseLeavesTheTitleBar) {
    window.MouseMove(0.5f, 0.95f);
    window.MouseClick(true, false, false);
    window.position = Vector(5.0f, 5.0f);  // as if an earlier move had been refused
    window.MouseMove(0.6f, 0.95f);
    EXPECT_TRUE(window.HasFocus());
    window.MouseClick(true, false, false);
    EXPECT_TRUE(window.Dragging());
}

TEST_F(GLWindowTest, ChildrenSeeTheMouseFromTheInnerOrigin) {
    PlainWidget child("child", &window, kOrigin, theme);
    window.AddChild(&child);
    window.position = Vector(0.25f, 0.5f);
    window.MouseMove(0.5f, 1.0f);
    EXPECT_FLOAT_EQ(child.mouse.x, 0.25f - 0.015f);
    EXPECT_FLOAT_EQ(child.mouse.y, 0.5f - 0.015f);
}

TEST_F(GLWindowTest, ChildrenSeeTheMouseFromWhereTheWindowWasDraggedTo) {
    PlainWidget child("child", &window, kOrigin, theme);
    window.AddChild(&child);
    window.MouseMove(0.5f, 0.95f);
    window.MouseClick(true, false, false);
    window.MouseMove(0.75f, 0.95f);
    EXPECT_FLOAT_EQ(child.mouse.x, 0.5f - 0.015f);
}

TEST_F(GLWindowTest, WindowGetsNeitherFocusNorDragWhileTheMouseIsOverAChild) {
    PlainWidget child("child", &window, Vector(0.0f, 0.9f), theme);
    child.size = Vector(0.5f, 0.05f);
    window.AddChild(&child);
    window.MouseMove(0.3f, 0.95f);
    EXPECT_TRUE(child.HasFocus());
    EXPECT_FALSE(window.HasFocus());
    EXPECT_FALSE(window.MouseClick(true, false, false));
    EXPECT_EQ(child.clicks, 1);
    EXPECT_FALSE(window.Dragging());
}

TEST_F(GLWindowTest, ReleaseOverAChildDoesNotEndTheDrag) {
    PlainWidget child("child", &window, kOrigin, theme);
    window.AddChild(&child);
    window.MouseMove(0.5f, 0.95f);
    window.MouseClick(true, false, false);
    child.Focus();
    EXPECT_FALSE(window.MouseClick(false, false, false));
    EXPECT_TRUE(window.Dragging());
}

TEST_F(GLWindowTest, ValidAreaLeavesAHundredthOfTheWidthOnEverySide) {
    theme->lineWidth = 0.25f;
    window.position = Vector(1.0f, 2.0f);
    window.size = Vector(2.0f, 3.0f);
    const Vector area = window.GetValidArea();
    EXPECT_FLOAT_EQ(area.x, 1.02f);
    EXPECT_FLOAT_EQ(area.y, 2.02f);
    EXPECT_FLOAT_EQ(area.z, 2.98f);
    EXPECT_FLOAT_EQ(area.w, 5.0f - 0.02f - 0.25f - 0.075f);
}

/// A small window in a larger one, dragged by its title bar.
class NestedWindowTest : public GLWindowTest {
protected:
    NestedWindowTest() {
        theme->lineWidth = 0.0f;  // the valid area: 0.01 to 0.99 and 0.01 to 0.915
        window.AddChild(&inner);
        inner.size = Vector(0.2f, 0.2f);
        inner.MouseMove(0.5f, 0.55f);
        inner.MouseClick(true, false, false);
    }

    Opened<GLWindow> inner{"inner", &window, Vector(0.4f, 0.4f), theme, "", true};
};

TEST_F(NestedWindowTest, MovesInsideTheValidArea) {
    ASSERT_TRUE(inner.Dragging());
    inner.MouseMove(0.75f, 0.75f);
    EXPECT_FLOAT_EQ(inner.position.x, 0.65f);
    EXPECT_FLOAT_EQ(inner.position.y, 0.6f);
}

TEST_F(NestedWindowTest, StopsAtTheBorderAndLaterJumpsByTheRefusedDistance) {
    inner.MouseMove(0.85f, 0.55f);
    EXPECT_FLOAT_EQ(inner.position.x, 0.75f);
    inner.MouseMove(0.95f, 0.55f);  // would end at 1.05
    EXPECT_FLOAT_EQ(inner.position.x, 0.75f);
    inner.MouseMove(0.94f, 0.55f);  // counts from the refused move: a step of -0.01
    EXPECT_FLOAT_EQ(inner.position.x, 0.74f);
}

TEST_F(NestedWindowTest, StaysInsideOnEverySide) {
    const auto moveTo = [this](float x, float y) {
        inner.position = Vector(0.4f, 0.4f);
        inner.MouseClick(false, false, false);
        inner.MouseMove(0.5f, 0.55f);
        inner.MouseClick(true, false, false);
        inner.MouseMove(0.1f + x, 0.15f + y);
        return inner.position.x != 0.4f || inner.position.y != 0.4f;
    };
    EXPECT_TRUE(moveTo(0.02f, 0.4f));
    EXPECT_FALSE(moveTo(0.0f, 0.4f));
    EXPECT_TRUE(moveTo(0.78f, 0.4f));
    EXPECT_FALSE(moveTo(0.80f, 0.4f));
    EXPECT_TRUE(moveTo(0.4f, 0.02f));
    EXPECT_FALSE(moveTo(0.4f, 0.0f));
    EXPECT_TRUE(moveTo(0.4f, 0.71f));
    EXPECT_FALSE(moveTo(0.4f, 0.72f));
}

TEST_F(NestedWindowTest, MayTouchTheBorderOfTheValidArea) {
    class Room : public PlainWidget {
    public:
        using PlainWidget::PlainWidget;
        Vector GetValidArea() override { return {0.0f, 0.0f, 1.0f, 1.0f}; }
    };
    Room room("room", nullptr, kOrigin, theme);
    Opened<GLWindow> held("held", &room, kOrigin, theme, "", true);
    held.size = Vector(0.25f, 0.25f);
    const auto moveBy = [&](const Vector& step) {
        held.position = Vector(0.5f, 0.5f);
        held.MouseClick(false, false, false);
        held.MouseMove(0.625f, 0.6875f);
        held.MouseClick(true, false, false);
        held.MouseMove(0.625f + step.x, 0.6875f + step.y);
        return held.position.x == 0.5f + step.x && held.position.y == 0.5f + step.y;
    };
    constexpr float kHair = 1.0f / 1024.0f;
    for (const Vector& side :
         {Vector(-1.0f, 0.0f), Vector(1.0f, 0.0f), Vector(0.0f, -1.0f), Vector(0.0f, 1.0f)}) {
        const float free = side.x + side.y < 0.0f ? 0.5f : 0.25f;
        EXPECT_TRUE(moveBy(Vector(side.x * free, side.y * free))) << side;
        const float beyond = free + kHair;
        EXPECT_FALSE(moveBy(Vector(side.x * beyond, side.y * beyond))) << side;
    }
}

TEST_F(NestedWindowTest, CannotMoveInAParentThatHasNoRoom) {
    PlainWidget roomless("roomless", nullptr, kOrigin, theme);
    Opened<GLWindow> held("held", &roomless, Vector(0.4f, 0.4f), theme, "", true);
    held.size = Vector(0.2f, 0.2f);
    held.MouseMove(0.5f, 0.55f);
    held.MouseClick(true, false, false);
    held.MouseMove(0.6f, 0.55f);
    EXPECT_EQ(held.position.x, 0.4f);
}

TEST_F(GLWindowTest, AddingAChildWidensTheWindowToItsTitle) {
    Opened<GLWindow> narrow("narrow", nullptr, kOrigin, theme, "Title", true);
    PlainWidget child("child", &narrow, kOrigin, theme);
    EXPECT_EQ(narrow.size.x, 0.0f);
    narrow.AddChild(&child);
    EXPECT_FLOAT_EQ(narrow.size.x, 7 * 0.04f);  // five letters and two glyph widths
    window.AddChild(&child);
    EXPECT_EQ(window.size.x, 1.0f);
}

TEST_F(GLWindowTest, PercentSignsInTheTitleAreMeasuredAsTheyAreDrawn) {
    Opened<GLWindow> half("half", nullptr, kOrigin, theme, "50% s", true);
    PlainWidget child("child", &half, kOrigin, theme);
    half.AddChild(&child);
    EXPECT_FLOAT_EQ(half.size.x, 7 * 0.04f);
}

TEST_F(GLWindowTest, SolidifyMakesRoomForTheChildrenAndTheTitle) {
    Opened<GLWindow> empty("empty", nullptr, kOrigin, theme, "Title", true);
    PlainWidget child("child", &empty, Vector(0.25f, 0.5f), theme);
    child.size = Vector(0.5f, 0.25f);
    empty.AddChild(&child);
    EXPECT_TRUE(empty.Solidify());
    EXPECT_FLOAT_EQ(empty.size.x, 0.75f + 0.03f);
    EXPECT_FLOAT_EQ(empty.size.y, 0.75f + 0.03f + 0.1f);
}

TEST_F(GLWindowTest, SolidifyWidensAnEmptyWindowToItsTitle) {
    Opened<GLWindow> empty("empty", nullptr, kOrigin, theme, "Title", true);
    empty.Solidify();
    EXPECT_FLOAT_EQ(empty.size.x, 7 * 0.04f);
}

TEST_F(GLWindowTest, WindowAnchoredToTheTopGrowsPastItByItsTitle) {
    Opened<GLWindow> top("top", nullptr, Vector(0.0f, 91.0f), theme, "", true);
    PlainWidget child("child", &top, kOrigin, theme);
    child.size = Vector(0.5f, 0.5f);
    top.AddChild(&child);
    top.Solidify();
    EXPECT_FLOAT_EQ(top.position.y, 1.3f - 0.53f - 0.015f);
    EXPECT_FLOAT_EQ(top.size.y, 0.63f);
    EXPECT_GT(top.Getbbox().w, 1.3f);
}

TEST_F(GLWindowTest, MovingTheWindowDoesNotChangeThePositionsOfItsChildren) {
    PlainWidget child("child", &window, Vector(0.1f, 0.2f), theme);
    window.AddChild(&child);
    const Vector place = window += Vector(1.0f, 2.0f);
    EXPECT_EQ(place.x, 1.0f);
    EXPECT_EQ(place.y, 2.0f);
    EXPECT_EQ(child.position.x, 0.1f);
}

TEST_F(GLWindowTest, PassesSetFocussedOnToItsChildren) {
    PlainWidget child("child", &window, kOrigin, theme);
    window.AddChild(&child);
    window.SetFocussed(&window);
    EXPECT_EQ(child.told, std::vector<GLWidget*>{&window});
}

/// Two options in a frame, two beside it and one in a second frame, all in one window.
class OptionGroupTest : public GLWindowTest {
protected:
    OptionGroupTest() {
        inFrame.AddChild(&frameFirst);
        inFrame.AddChild(&frameSecond);
        otherFrame.AddChild(&other);
        window.AddChild(&inFrame);
        window.AddChild(&otherFrame);
        window.AddChild(&windowFirst);
        window.AddChild(&windowSecond);
    }
    void Press(float x, float y) {
        window.MouseMove(x + 0.03f, y + 0.03f);
        window.MouseClick(true, false, false);
        window.MouseClick(false, false, false);
    }

    Frame inFrame{"in", &window, kOrigin, theme, false};
    Frame otherFrame{"of", &window, Vector(0.0f, 0.6f), theme, false};
    Optionbox frameFirst{"a", &inFrame, kOrigin, theme, ""};
    Optionbox frameSecond{"b", &inFrame, Vector(0.2f, 0.0f), theme, ""};
    Optionbox other{"c", &otherFrame, kOrigin, theme, ""};
    Optionbox windowFirst{"d", &window, Vector(0.0f, 0.3f), theme, ""};
    Optionbox windowSecond{"e", &window, Vector(0.2f, 0.3f), theme, ""};
};

TEST_F(OptionGroupTest, StartsOnTheFirstOptionOfEachGroup) {
    EXPECT_TRUE(frameFirst.Clicked());
    EXPECT_FALSE(frameSecond.Clicked());
    EXPECT_TRUE(other.Clicked());
    EXPECT_TRUE(windowFirst.Clicked());
    EXPECT_FALSE(windowSecond.Clicked());
}

TEST_F(OptionGroupTest, ClickInAFrameDeselectsTheOptionsOfThatFrameOnly) {
    Press(0.2f, 0.0f);
    EXPECT_FALSE(frameFirst.Clicked());
    EXPECT_TRUE(frameSecond.Clicked());
    EXPECT_TRUE(other.Clicked());
    EXPECT_TRUE(windowFirst.Clicked());
}

TEST_F(OptionGroupTest, ClickOnAnOptionReachesIntoTheFramesBesideIt) {
    Press(0.2f, 0.3f);
    EXPECT_TRUE(windowSecond.Clicked());
    EXPECT_FALSE(windowFirst.Clicked());
    EXPECT_FALSE(frameFirst.Clicked());
    EXPECT_FALSE(other.Clicked());
}

class DrawnGLWindowTest : public DrawnWidgetTest {
protected:
    static constexpr Colour kFill{0, 0, 153};  // dimmed
    static constexpr Colour kLine{153, 0, 0};  // dimmed

    DrawnGLWindowTest() { panel.size = Vector(1.0f, 1.0f); }

    Opened<GLWindow> panel{"panel", nullptr, kOrigin, theme, "Title", true};
};

TEST_F(DrawnGLWindowTest, FillsItsBoxButTwoCutCorners) {
    Draw(panel);
    EXPECT_EQ(At(0.5f, 0.5f), kFill);
    EXPECT_EQ(At(0.02f, 0.02f), kFill);
    EXPECT_EQ(At(0.98f, 0.98f), kFill);
    EXPECT_EQ(At(0.02f, 0.98f), kBlack);
    EXPECT_EQ(At(0.98f, 0.02f), kBlack);
    EXPECT_EQ(At(0.12f, 0.98f), kFill);  // the cut is a tenth of the height
    EXPECT_EQ(At(-0.02f, 0.5f), kBlack);
    EXPECT_EQ(At(1.02f, 0.5f), kBlack);
}

TEST_F(DrawnGLWindowTest, HasAnOutlineAndALineBelowTheTitle) {
    Draw(panel);
    EXPECT_GT(Count(kLine, -0.01f, 0.5f, 0.01f, 0.5f), 0);
    EXPECT_GT(Count(kLine, 0.99f, 0.5f, 1.01f, 0.5f), 0);
    EXPECT_GT(Count(kLine, 0.5f, -0.01f, 0.5f, 0.01f), 0);
    EXPECT_GT(Count(kLine, 0.5f, 0.99f, 0.5f, 1.01f), 0);
    // Here the cut corners reach further down than the title, so the line is below them.
    EXPECT_GT(Count(kLine, 0.5f, 0.89f, 0.5f, 0.91f), 0);
    EXPECT_EQ(Count(kLine, 0.5f, 0.1f, 0.5f, 0.88f), 0);
}

TEST_F(DrawnGLWindowTest, LineIsBelowTheTitleIfTheCutCornersAreSmaller) {
    theme->corner = 0.01f;
    Draw(panel);
    EXPECT_GT(Count(kLine, 0.5f, 0.915f, 0.5f, 0.935f), 0);
    EXPECT_EQ(Count(kLine, 0.5f, 0.1f, 0.5f, 0.91f), 0);
}

TEST_F(DrawnGLWindowTest, PrintsTheTitleAboveTheLine) {
    LoadFont();
    Draw(panel);
    EXPECT_GT(CountText(0.1f, 0.92f, 0.4f, 1.0f), 20);
    EXPECT_EQ(CountText(0.0f, 0.0f, 1.0f, 0.9f), 0);
}

TEST_F(DrawnGLWindowTest, PercentSignInTheTitleIsDrawnAsItIs) {
    LoadFont();
    panel.text = "%s%n 100%";
    Draw(panel);
    const int lone = CountText(0.0f, 0.9f, 1.0f, 1.0f);
    panel.text = "%%s%%n 100%%";
    Draw(panel);
    EXPECT_GT(lone, 0);
    EXPECT_EQ(CountText(0.0f, 0.9f, 1.0f, 1.0f), lone);
}

TEST_F(DrawnGLWindowTest, OnlyTheFirstWindowsFillIsOpaque) {
    theme->opacity = 0.5f;
    Opened<GLWindow> second("second", nullptr, Vector(-1.2f, 0.0f), theme, "", true);
    second.size = Vector(1.0f, 1.0f);
    GLWidget::widgets = {&panel, &second};
    Draw();
    EXPECT_EQ(At(0.5f, 0.5f), kFill);
    EXPECT_EQ(At(-0.7f, 0.5f), (Colour{0, 0, 77}));
}

TEST_F(DrawnGLWindowTest, OfOpacityZeroDrawsOnlyTheFillOfTheFirst) {
    theme->opacity = 0.0f;
    Draw(panel);
    EXPECT_EQ(At(0.5f, 0.5f), kFill);
    EXPECT_EQ(Count(kLine, -0.1f, -0.1f, 1.1f, 1.1f), 0);

    Opened<Label> before("before", nullptr, kOrigin, theme, "");
    GLWidget::widgets = {&before, &panel};
    EXPECT_EQ(DrawnValues(), 0);
    Draw();
    EXPECT_FALSE(AnythingIn(-0.1f, -0.1f, 1.1f, 1.1f));
    theme->opacity = 0.1f;
    EXPECT_GT(DrawnValues(), 0);
}

TEST_F(DrawnGLWindowTest, IsHighlightedWhileTheMouseIsOverItsTitleBar) {
    panel.Focus();
    Draw(panel);
    EXPECT_EQ(At(0.5f, 0.5f), (Colour{0, 0, 255}));
}

TEST_F(DrawnGLWindowTest, ChildrenStandAtTheInnerOrigin) {
    Opened<GLWindow> inner("inner", &panel, Vector(0.3f, 0.3f), theme, "", false);
    inner.size = Vector(0.2f, 0.2f);
    inner.Focus();
    panel.AddChild(&inner);
    Draw(panel);
    EXPECT_EQ(At(0.33f, 0.40f), (Colour{0, 0, 255}));
    EXPECT_EQ(At(0.30f, 0.40f), kFill);
    EXPECT_EQ(At(0.50f, 0.40f), (Colour{0, 0, 255}));
    EXPECT_EQ(At(0.53f, 0.40f), kFill);
}

TEST_F(DrawnGLWindowTest, OpenListLiesOnTopOfTheWidgetsAfterIt) {
    GLWidget::NewTheme("combo_button.theme");
    Opened<Combobox> list("list", &panel, Vector(0.1f, 0.6f), theme);
    Opened<GLWindow> below("below", &panel, Vector(0.1f, 0.2f), theme, "", false);
    below.size = Vector(0.6f, 0.38f);
    below.Focus();
    panel.AddChild(&list);
    panel.AddChild(&below);
    list.AddText("some item");
    list.AddText("another item");
    Draw(panel);
    const float x = 0.15f;
    const float y = 0.5f;  // below the box, in its list and in the window after it
    EXPECT_EQ(At(x, y), (Colour{0, 0, 255}));
    list.MouseMove(0.11f, 0.61f);
    list.MouseClick(true, false, false);
    ASSERT_EQ(list.GetDepth(), -1.0f);
    Draw(panel);
    EXPECT_EQ(At(x, y), kFill);
}

TEST_F(DrawnGLWindowTest, DrawingRestoresTheModelViewMatrix) {
    Draw(panel);
    EXPECT_EQ(ModelView(), kIdentity);
}

}  // namespace
