#include "glwidget/button.h"

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

TEST_F(ButtonTest, PercentSignsOfACaptionAreMeasuredAsShown) {
    const Button percent("p", nullptr, Vector(0.0f, 0.0f), theme, "50%");
    const Button pair("q", nullptr, Vector(0.0f, 0.0f), theme, "50%%");
    EXPECT_FLOAT_EQ(const_cast<Button&>(percent).Getbbox().z, 4.0f * 0.04f);
    EXPECT_FLOAT_EQ(const_cast<Button&>(pair).Getbbox().z, 4.0f * 0.04f);
}

TEST_F(ButtonTest, CaptionIsMeasuredInItsOwnThemesSizeWhoeverUsedTheFontLast) {
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

TEST_F(ButtonTest, IsOneOfMany) {
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

TEST_F(ButtonTest, OtherButtonsDropAClickThatNobodyReadYet) {
    PointAt();
    button.MouseClick(true, false, false);
    button.MouseClick(false, false, false);
    PointAt();
    button.MouseClick(false, true, false);
    EXPECT_FALSE(button.BeenClicked());
}

}  // namespace
