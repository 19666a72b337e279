// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/frame.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/opened.h"
#include "tests/glwidget/widget_test.h"

namespace {

const Vector kPlace(0.25f, 0.5f);

class FrameTest : public WidgetTest {
protected:
    Opened<Frame> plain{"plain", nullptr, kPlace, theme, false};
    Opened<Frame> bordered{"bordered", nullptr, kPlace, theme, true};
    PlainWidget child{"child", nullptr, Vector(0.0f, 0.0f), theme};
};

TEST_F(FrameTest, StartsWithoutFocusAndHighlight) {
    EXPECT_FALSE(plain.HasFocus());
    EXPECT_EQ(plain.highlight, 0.0f);
    EXPECT_EQ(plain.GetType(), "Frame");
    EXPECT_FALSE(plain.Unique());
}

TEST_F(FrameTest, NeverTakesTheFocus) {
    plain.size = Vector(1.0f, 1.0f);
    EXPECT_TRUE(plain.MouseMove(0.5f, 0.75f));
    EXPECT_FALSE(plain.HasFocus());
    EXPECT_EQ(plain.mouse.x, 0.5f);
    EXPECT_EQ(plain.mouse.y, 0.75f);
}

TEST_F(FrameTest, ChildrenOfAFrameWithoutBorderStartAtItsCorner) {
    plain.AddChild(&child);
    plain.MouseMove(0.75f, 0.75f);
    EXPECT_FLOAT_EQ(child.mouse.x, 0.5f);
    EXPECT_FLOAT_EQ(child.mouse.y, 0.25f);
}

TEST_F(FrameTest, ChildrenOfABorderedFrameStartAtItsMargin) {
    bordered.AddChild(&child);
    bordered.MouseMove(0.75f, 0.75f);
    EXPECT_FLOAT_EQ(child.mouse.x, 0.5f - 0.015f);
    EXPECT_FLOAT_EQ(child.mouse.y, 0.25f - 0.015f);
}

TEST_F(FrameTest, ClickReachesTheChildrenAndReturnsTrue) {
    plain.AddChild(&child);
    child.Focus();
    EXPECT_TRUE(plain.MouseClick(true, false, false));
    EXPECT_EQ(child.clicks, 1);
}

TEST_F(FrameTest, ClickedUniqueChildIsToldToTheOthers) {
    PlainWidget other("other", nullptr, Vector(0.0f, 0.0f), theme);
    plain.AddChild(&child);
    plain.AddChild(&other);
    child.unique = true;
    plain.MouseClick(true, false, false);
    EXPECT_EQ(other.told, std::vector<GLWidget*>{&child});
    EXPECT_TRUE(child.told.empty());
}

TEST_F(FrameTest, PassesSetFocussedOnToItsChildren) {
    plain.AddChild(&child);
    plain.SetFocussed(&bordered);
    EXPECT_EQ(child.told, std::vector<GLWidget*>{&bordered});
}

TEST_F(FrameTest, ValidAreaIsThatOfAWindow) {
    theme->lineWidth = 0.25f;
    plain.size = Vector(2.0f, 3.0f);
    const Vector area = plain.GetValidArea();
    EXPECT_FLOAT_EQ(area.x, 0.27f);
    EXPECT_FLOAT_EQ(area.y, 0.52f);
    EXPECT_FLOAT_EQ(area.z, 0.25f + 1.98f);
    EXPECT_FLOAT_EQ(area.w, 3.5f - 0.02f - 0.25f - 0.075f);
}

TEST_F(FrameTest, SolidifyMakesRoomForTheChildren) {
    child.size = Vector(0.5f, 0.25f);
    plain.AddChild(&child);
    plain.Solidify();
    EXPECT_FLOAT_EQ(plain.size.x, 0.53f);
    EXPECT_FLOAT_EQ(plain.size.y, 0.28f);
}

class DrawnFrameTest : public DrawnWidgetTest {
protected:
    static constexpr Colour kLine{153, 0, 0};

    Opened<Frame> plain{"plain", nullptr, kPlace, theme, false};
    Opened<Frame> bordered{"bordered", nullptr, kPlace, theme, true};
};

TEST_F(DrawnFrameTest, BorderIsAnOutlineAndNoFill) {
    bordered.size = Vector(0.5f, 0.5f);
    Draw(bordered);
    EXPECT_GT(Count(kLine, 0.24f, 0.75f, 0.26f, 0.75f), 0);
    EXPECT_GT(Count(kLine, 0.74f, 0.75f, 0.76f, 0.75f), 0);
    EXPECT_GT(Count(kLine, 0.5f, 0.99f, 0.5f, 1.01f), 0);
    EXPECT_GT(Count(kLine, 0.5f, 0.49f, 0.5f, 0.51f), 0);
    EXPECT_FALSE(AnythingIn(0.27f, 0.57f, 0.73f, 0.93f));
    EXPECT_FALSE(AnythingIn(0.24f, 0.985f, 0.26f, 1.01f));  // the cut corner
}

TEST_F(DrawnFrameTest, BorderOfOpacityZeroIsNotDrawn) {
    bordered.size = Vector(0.5f, 0.5f);
    GLWidget::widgets = {&bordered};
    EXPECT_GT(DrawnValues(), 0);
    theme->opacity = 0.0f;
    EXPECT_EQ(DrawnValues(), 0);
}

TEST_F(DrawnFrameTest, BorderIsNeverHighlighted) {
    bordered.size = Vector(0.5f, 0.5f);
    bordered.Focus();
    Draw(bordered);
    EXPECT_GT(Count(kLine, 0.24f, 0.75f, 0.26f, 0.75f), 0);
}

TEST_F(DrawnFrameTest, FrameWithoutABorderDrawsNothingOfItsOwn) {
    plain.size = Vector(0.5f, 0.5f);
    Draw(plain);
    EXPECT_FALSE(AnythingIn(-1.7f, -1.3f, 1.7f, 1.3f));
}

TEST_F(DrawnFrameTest, ChildrenStandAtTheInnerOrigin) {
    Opened<Frame> inPlain("ip", &plain, Vector(0.1f, 0.1f), theme, true);
    Opened<Frame> inBordered("ib", &bordered, Vector(0.1f, 0.1f), theme, true);
    inPlain.size = inBordered.size = Vector(0.2f, 0.2f);
    plain.AddChild(&inPlain);
    bordered.AddChild(&inBordered);
    bordered.size = Vector(0.5f, 0.5f);
    Draw(plain);
    EXPECT_GT(Count(kLine, 0.345f, 0.7f, 0.355f, 0.7f), 0);
    Draw(bordered);
    EXPECT_GT(Count(kLine, 0.36f, 0.7f, 0.37f, 0.7f), 0);
    EXPECT_EQ(Count(kLine, 0.345f, 0.7f, 0.355f, 0.7f), 0);
}

TEST_F(DrawnFrameTest, DrawingRestoresModelViewMatrixAndPolygonMode) {
    bordered.size = Vector(0.5f, 0.5f);
    Draw(bordered);
    EXPECT_EQ(ModelView(), kIdentity);
    GLint modes[2] = {};
    glGetIntegerv(GL_POLYGON_MODE, modes);
    EXPECT_EQ(modes[0], GL_FILL);
}

}  // namespace
