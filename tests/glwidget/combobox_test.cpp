// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/combobox.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "glwidget/button.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/opened.h"
#include "tests/glwidget/widget_test.h"
#include "tests/support/temporary_folder.h"

namespace {

const Vector kOrigin(0.0f, 0.0f);

/// The theme of every list's button, registered before the first list is made.
Theme* ButtonTheme() {
    return GLWidget::NewTheme("combo_button.theme");
}

/// A list of four items at the origin: its rows are 0.1 high, below y = 0.
class ComboboxTest : public WidgetTest {
protected:
    ComboboxTest() {
        for (const char* item : {"zero", "one", "two", "three"})
            list.AddText(item);
    }

    void MoveTo(float x, float y) { list.MouseMove(x, y); }
    void Press() { list.MouseClick(true, false, false); }
    void Release() { list.MouseClick(false, false, false); }
    /// Opens the list by a click on the box, beside the button.
    void Open() {
        MoveTo(0.2f, 0.05f);
        Press();
        Release();
        ASSERT_TRUE(IsOpen());
    }
    bool IsOpen() const { return list.GetDepth() == -1.0f; }

    Theme* buttonTheme = ButtonTheme();
    Opened<Combobox> list{"list", nullptr, kOrigin, theme};
};

TEST_F(ComboboxTest, StartsClosedOnItsFirstItem) {
    EXPECT_EQ(list.GetType(), "Combobox");
    EXPECT_EQ(list.GetDepth(), 0.0f);
    EXPECT_EQ(list.GetCurrentText(), "zero");
    EXPECT_FALSE(list.BeenChanged());
    EXPECT_FALSE(list.Unique());
}

TEST_F(ComboboxTest, WithoutItemsTheCurrentTextIsEmpty) {
    Combobox empty("empty", nullptr, kOrigin, theme);
    EXPECT_EQ(empty.GetCurrentText(), "");
}

TEST_F(ComboboxTest, HasADropButtonAndNoOtherChild) {
    GLWidget* const button = GLWidget::GetByTag("__listdropbox", false);
    ASSERT_NE(dynamic_cast<Button*>(button), nullptr);
    EXPECT_EQ(button->GetText(), " ");
    EXPECT_EQ(button->GetParent(), &list);
    EXPECT_EQ(list.children, std::vector<GLWidget*>{button});
    EXPECT_FLOAT_EQ(button->Getbbox().x, 0.0f);
    EXPECT_FLOAT_EQ(button->Getbbox().y, 0.0f);
}

TEST_F(ComboboxTest, NewListIsAsLargeAsItsButton) {
    Opened<Combobox> empty("empty", nullptr, kOrigin, theme);
    EXPECT_FLOAT_EQ(empty.size.x, 0.03f + 0.08f);
    EXPECT_FLOAT_EQ(empty.size.y, 0.03f + 0.075f);
}

TEST_F(ComboboxTest, ButtonTakesItsThemeFromItsFileOnFirstUse) {
    GLWidget::themes.erase("combo_button.theme");
    const WorkingFolder folder;
    folder.Write(
        "combo_button.theme",
        "0 0 0\n0 0 0\n0 0 0\n0 0 0\n1\n1\n1\n0\n0\n0\n0.5 0.25\n1 1\n0 0 0\n0\nNULL\n1\n");
    testing::internal::CaptureStderr();
    const Combobox first("first", nullptr, kOrigin, theme);
    const std::string once = testing::internal::GetCapturedStderr();
    testing::internal::CaptureStderr();
    const Combobox second("second", nullptr, kOrigin, theme);
    const std::string again = testing::internal::GetCapturedStderr();
    EXPECT_NE(once.find("reading theme combo_button.theme\n"), std::string::npos);
    EXPECT_EQ(again, "");
    EXPECT_FLOAT_EQ(GLWidget::GetByTag("__firstdropbox")->Getbbox().w, 1.5f * 0.25f);
    EXPECT_FLOAT_EQ(GLWidget::GetByTag("__seconddropbox")->Getbbox().w, 1.5f * 0.25f);
}

TEST_F(ComboboxTest, DeletingTheListClearsTheTagOfItsButton) {
    { const Combobox gone("gone", nullptr, kOrigin, theme); }
    EXPECT_EQ(GLWidget::GetByTag("__gonedropbox", false), nullptr);
}

TEST_F(ComboboxTest, LongTextWidensTheBoxAndAShorterOneDoesNotShrinkIt) {
    EXPECT_TRUE(list.AddText(std::string(20, 'x')));
    EXPECT_FLOAT_EQ(list.size.x, 0.03f + 0.08f + 22 * 0.04f);
    list.AddText("x");
    EXPECT_FLOAT_EQ(list.size.x, 0.03f + 0.08f + 22 * 0.04f);
}

TEST_F(ComboboxTest, AllTextsAreMeasuredAgainInANewFont) {
    list.AddText(std::string(20, 'x'));
    FontAccess::SetAdvances(GLWidget::font, 2.0f);
    ++GLWidget::fontLoads;
    list.AddText("y");
    EXPECT_FLOAT_EQ(list.size.x, 0.03f + 0.08f + 42 * 0.04f);
}

TEST_F(ComboboxTest, PercentSignsAreMeasuredAsTheyAreDrawn) {
    Opened<Combobox> signs("signs", nullptr, kOrigin, theme);
    signs.AddText("%s%%20 %");
    EXPECT_FLOAT_EQ(signs.size.x, 0.03f + 0.08f + 9 * 0.04f);
}

TEST_F(ComboboxTest, IndexInTheListIsChosen) {
    EXPECT_TRUE(list.SetCurrentText(2));
    EXPECT_EQ(list.GetCurrentText(), "two");
    EXPECT_TRUE(list.SetCurrentText(0));
    EXPECT_EQ(list.GetCurrentText(), "zero");
    EXPECT_FALSE(list.BeenChanged());
}

TEST_F(ComboboxTest, IndexOutsideTheListChangesNothing) {
    list.SetCurrentText(2);
    for (const std::int32_t index : {4, -1, std::numeric_limits<std::int32_t>::max(),
                                     std::numeric_limits<std::int32_t>::min()}) {
        EXPECT_TRUE(list.SetCurrentText(index));
        EXPECT_EQ(list.GetCurrentText(), "two");
    }
}

TEST_F(ComboboxTest, ButtonGetsTheMousePositionRelativeToTheBox) {
    list.position = Vector(0.5f, 0.25f);
    EXPECT_TRUE(list.MouseMove(0.53f, 0.28f));
    EXPECT_TRUE(list.children[0]->HasFocus());
    EXPECT_FALSE(list.HasFocus());
    EXPECT_FLOAT_EQ(list.mouse.x, 0.53f);
    list.MouseMove(0.6f, 0.28f);
    EXPECT_FALSE(list.children[0]->HasFocus());
}

TEST_F(ComboboxTest, PressOnTheBoxOpensAndASecondOneCloses) {
    MoveTo(0.2f, 0.05f);
    Press();
    EXPECT_TRUE(IsOpen());
    Release();
    EXPECT_TRUE(IsOpen());
    Press();
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(list.GetDepth(), 0.0f);
    Release();
    EXPECT_FALSE(IsOpen());
}

TEST_F(ComboboxTest, PressOnTheDropButtonOpensAndHoldingItDoesNotToggleAgain) {
    MoveTo(0.02f, 0.02f);
    Press();
    EXPECT_TRUE(IsOpen());
    for (int i = 0; i < 3; ++i) {
        Press();  // every mouse event repeats the state of the button
        EXPECT_TRUE(IsOpen());
    }
    Release();
    EXPECT_TRUE(IsOpen());
    MoveTo(0.02f, 0.02f);
    Press();
    EXPECT_FALSE(IsOpen());
}

TEST_F(ComboboxTest, HeldButtonOverTheBoxTogglesOnce) {
    MoveTo(0.2f, 0.05f);
    Press();
    Press();
    MoveTo(0.25f, 0.06f);
    Press();
    EXPECT_TRUE(IsOpen());
}

TEST_F(ComboboxTest, PressBesideTheBoxDoesNotOpen) {
    for (const Vector& place :
         {Vector(-0.01f, 0.05f), Vector(0.2f, -0.01f), Vector(0.2f, 0.2f), Vector(1.0f, 0.05f)}) {
        MoveTo(place.x, place.y);
        Press();
        EXPECT_FALSE(IsOpen());
        Release();
    }
}

TEST_F(ComboboxTest, EdgeOfTheBoxIsOutside) {
    MoveTo(0.2f, 0.0f);
    Press();
    EXPECT_FALSE(IsOpen());
    Release();
    MoveTo(0.2f, list.size.y);
    Press();
    EXPECT_FALSE(IsOpen());
    Release();
    MoveTo(0.0f, list.size.y - 0.01f);  // above the button, whose edges count as inside it
    Press();
    EXPECT_FALSE(IsOpen());
    Release();
    MoveTo(list.size.x, 0.05f);
    Press();
    EXPECT_FALSE(IsOpen());
}

TEST_F(ComboboxTest, MouseButtonPressedOutsideDoesNotOpen) {
    MoveTo(0.2f, 0.5f);
    Press();
    MoveTo(0.2f, 0.05f);
    Press();
    EXPECT_FALSE(IsOpen());
}

TEST_F(ComboboxTest, OtherButtonsDoNotOpen) {
    MoveTo(0.2f, 0.05f);
    EXPECT_TRUE(list.MouseClick(false, true, true));
    EXPECT_FALSE(IsOpen());
    EXPECT_TRUE(list.buttons.middle);
    EXPECT_TRUE(list.buttons.right);
}

TEST_F(ComboboxTest, TogglingPressIsStoredAsIfTheButtonWereUp) {
    MoveTo(0.2f, 0.05f);
    Press();
    EXPECT_FALSE(list.buttons.left);
    Press();
    EXPECT_TRUE(list.buttons.left);
}

TEST_F(ComboboxTest, PressOverARowChoosesItAndCloses) {
    Open();
    MoveTo(0.2f, -0.2f);
    list.MouseClick(false, false, false);
    Press();
    EXPECT_EQ(list.GetCurrentText(), "two");
    EXPECT_TRUE(list.BeenChanged());
    EXPECT_FALSE(list.BeenChanged());
    EXPECT_FALSE(IsOpen());
}

TEST_F(ComboboxTest, ReleaseOverARowChoosesItToo) {
    MoveTo(0.2f, 0.05f);
    Press();
    Press();  // still over the box, so that the button counts as down
    MoveTo(0.2f, -0.1f);
    Press();
    EXPECT_TRUE(IsOpen());
    Release();
    EXPECT_EQ(list.GetCurrentText(), "one");
    EXPECT_TRUE(list.BeenChanged());
    EXPECT_FALSE(IsOpen());
}

TEST_F(ComboboxTest, MouseButtonHeldSinceOpeningChoosesTheFirstRowItIsMovedOver) {
    MoveTo(0.2f, 0.05f);
    Press();
    MoveTo(0.2f, -0.1f);
    Press();  // the press that opened the list was stored as up, so this counts as a new one
    EXPECT_EQ(list.GetCurrentText(), "one");
    EXPECT_FALSE(IsOpen());
}

TEST_F(ComboboxTest, ChoosingTheCurrentItemClosesWithoutAChange) {
    Open();
    MoveTo(0.2f, -0.02f);
    Press();
    EXPECT_EQ(list.GetCurrentText(), "zero");
    EXPECT_FALSE(list.BeenChanged());
    EXPECT_FALSE(IsOpen());
}

TEST_F(ComboboxTest, RowsChangeAtTheirMiddles) {
    const auto choose = [this](float y) {
        Open();
        MoveTo(0.2f, y);
        Press();
        Release();
        return list.GetCurrentText();
    };
    EXPECT_EQ(choose(-0.049f), "zero");
    EXPECT_EQ(choose(-0.051f), "one");
    EXPECT_EQ(choose(-0.149f), "one");
    EXPECT_EQ(choose(-0.151f), "two");
    EXPECT_EQ(choose(-0.349f), "three");
}

TEST_F(ComboboxTest, LastHalfRowChoosesNothingButReportsAChange) {
    Open();
    MoveTo(0.2f, -0.37f);
    Press();
    EXPECT_EQ(list.GetCurrentText(), "zero");
    EXPECT_TRUE(list.BeenChanged());
    EXPECT_FALSE(IsOpen());
}

TEST_F(ComboboxTest, PressBesideTheOpenListLeavesItOpen) {
    Open();
    for (const Vector& place : {Vector(-0.1f, -0.2f), Vector(2.0f, -0.2f), Vector(0.2f, -0.41f)}) {
        MoveTo(place.x, place.y);
        Press();
        Release();
        EXPECT_TRUE(IsOpen());
        EXPECT_FALSE(list.BeenChanged());
    }
}

TEST_F(ComboboxTest, EdgeOfTheListIsOutside) {
    Open();
    const float bottom = -2.0f * 4.0f * theme->fontSize.y;
    for (const Vector& place : {Vector(0.0f, -0.2f), Vector(list.size.x, -0.2f), Vector(0.2f, 0.0f),
                                Vector(0.2f, bottom)}) {
        MoveTo(place.x, place.y);
        Press();
        Release();
        EXPECT_TRUE(IsOpen());
        EXPECT_FALSE(list.BeenChanged());
    }
    MoveTo(0.2f, std::nextafter(bottom, 0.0f));
    Press();
    EXPECT_FALSE(IsOpen());
}

TEST_F(ComboboxTest, ClosedListTakesNoClicks) {
    MoveTo(0.2f, -0.2f);
    Press();
    EXPECT_EQ(list.GetCurrentText(), "zero");
    EXPECT_FALSE(list.BeenChanged());
}

TEST_F(ComboboxTest, FontOfHeightZeroMakesAListWithoutRowsToChoose) {
    theme->fontSize.y = 0.0f;
    Open();
    MoveTo(0.2f, -0.01f);
    Press();
    EXPECT_FALSE(list.BeenChanged());
}

TEST_F(ComboboxTest, SolidifyKeepsItsSize) {
    const Vector before = list.size;
    list.Solidify();
    EXPECT_FLOAT_EQ(list.size.x, before.x);
    EXPECT_FLOAT_EQ(list.size.y, before.y);
}

class DrawnComboboxTest : public DrawnWidgetTest {
protected:
    static constexpr Colour kFill{0, 0, 153};
    static constexpr Colour kLine{153, 0, 0};
    static constexpr Colour kBright{0, 0, 255};  // of the marked row and the button's arrow

    DrawnComboboxTest() {
        LoadFont();
        buttonTheme->fillColour = Vector(0.0f, 0.0f, 0.5f);
        buttonTheme->lineColour = theme->lineColour;
        buttonTheme->dim = 0.5f;
        for (const char* item : {"MMMM", "MMM", "MM"})
            list.AddText(item);
        right = list.size.x;
    }

    void Open() {
        list.MouseMove(0.2f, 0.05f);
        list.MouseClick(true, false, false);
        list.MouseClick(false, false, false);
        ASSERT_EQ(list.GetDepth(), -1.0f);
    }
    void HoverAt(float y) {
        list.MouseMove(0.2f, y);
        list.MouseClick(false, false, false);
    }
    /// The height of the marked band, found at the list's right edge, where no text is.
    bool MarkedAt(float y) const { return At(right - 0.01f, y) == kBright; }

    Theme* buttonTheme = ButtonTheme();
    Opened<Combobox> list{"list", nullptr, kOrigin, theme};
    float right = 0.0f;
};

TEST_F(DrawnComboboxTest, ClosedListIsABoxWithItsButtonAndItsText) {
    Draw(list);
    EXPECT_EQ(At(right - 0.02f, 0.05f), kFill);
    EXPECT_EQ(At(0.04f, 0.02f), (Colour{0, 0, 64}));  // the button
    EXPECT_GT(CountText(0.1f, 0.02f, right, 0.09f), 20);
    EXPECT_EQ(CountText(0.0f, 0.0f, 0.08f, 0.1f), 0);
    EXPECT_FALSE(AnythingIn(-0.1f, -1.0f, right + 0.1f, -0.01f));
    EXPECT_GT(Count(kLine, right - 0.01f, 0.05f, right + 0.01f, 0.05f), 0);
}

TEST_F(DrawnComboboxTest, ButtonShowsAnArrow) {
    Draw(list);
    const Vector button = list.children[0]->Getbbox();
    EXPECT_GT(Count(kBright, 0.0f, 0.0f, button.z, button.w), 4);
    EXPECT_EQ(Count(kBright, button.z, 0.0f, right, 0.1f), 0);
}

TEST_F(DrawnComboboxTest, PanelOfTheOpenListBeginsAboveTheFirstRowsText) {
    Open();
    Draw(list);
    EXPECT_EQ(Count(kLine, 0.1f, -0.04f, right - 0.02f, 0.04f), 0);
    EXPECT_GT(Count(kLine, 0.2f, 0.04f, 0.2f, 0.06f), 0);
    EXPECT_EQ(At(0.04f, 0.02f), (Colour{0, 0, 64}));  // the button is drawn over it
}

TEST_F(DrawnComboboxTest, TextFollowsTheChoice) {
    Draw(list);
    const int longest = CountText(0.1f, 0.0f, right, 0.1f);
    list.SetCurrentText(2);
    Draw(list);
    const int shortest = CountText(0.1f, 0.0f, right, 0.1f);
    EXPECT_LT(shortest, longest);
    EXPECT_GT(shortest, 0);
}

TEST_F(DrawnComboboxTest, OpenListHangsBelowTheBox) {
    Open();
    Draw(list);
    EXPECT_EQ(At(0.05f, -0.05f), kFill);
    EXPECT_EQ(At(0.05f, -0.29f), kFill);
    EXPECT_FALSE(AnythingIn(0.0f, -0.4f, right, -0.31f));
    EXPECT_GT(Count(kLine, 0.2f, -0.31f, 0.2f, -0.29f), 0);
}

TEST_F(DrawnComboboxTest, EveryRowsTextStandsAroundItsMiddle) {
    Open();
    Draw(list);
    int widest = CountText(0.1f, -0.04f, right, 0.025f);
    for (const float middle : {-0.1f, -0.2f}) {
        const int pixels = CountText(0.1f, middle - 0.04f, right, middle + 0.04f);
        EXPECT_GT(pixels, 10);
        EXPECT_LT(pixels, widest);  // each item is a letter shorter
        widest = pixels;
        EXPECT_EQ(CountText(0.1f, middle + 0.043f, right, middle + 0.057f), 0);
    }
    EXPECT_EQ(CountText(0.1f, -0.4f, right, -0.25f), 0);
}

TEST_F(DrawnComboboxTest, HoveredRowIsMarkedAroundItsMiddle) {
    Open();
    HoverAt(-0.12f);
    Draw(list);
    EXPECT_TRUE(MarkedAt(-0.06f));
    EXPECT_TRUE(MarkedAt(-0.14f));
    EXPECT_FALSE(MarkedAt(-0.04f));
    EXPECT_FALSE(MarkedAt(-0.16f));
}

TEST_F(DrawnComboboxTest, MarkOfTheFirstRowReachesUpIntoTheBox) {
    Open();
    HoverAt(-0.02f);
    Draw(list);
    EXPECT_TRUE(MarkedAt(-0.02f));
    EXPECT_TRUE(MarkedAt(-0.04f));
    EXPECT_TRUE(MarkedAt(0.04f));
    EXPECT_FALSE(MarkedAt(0.06f));
    EXPECT_FALSE(MarkedAt(-0.06f));
}

TEST_F(DrawnComboboxTest, LastHalfRowIsNeverMarked) {
    Open();
    HoverAt(-0.28f);
    Draw(list);
    EXPECT_FALSE(MarkedAt(-0.24f));
    EXPECT_FALSE(MarkedAt(-0.26f));
    EXPECT_FALSE(MarkedAt(-0.29f));
}

TEST_F(DrawnComboboxTest, RowIsNotMarkedAfterTheMouseHasLeftIt) {
    Open();
    HoverAt(-0.1f);
    HoverAt(-0.5f);
    Draw(list);
    EXPECT_FALSE(MarkedAt(-0.1f));
}

TEST_F(DrawnComboboxTest, PercentSignInAnItemIsDrawnAsItIs) {
    list.AddText("%n%s");
    list.SetCurrentText(3);
    Draw(list);
    EXPECT_GT(CountText(0.1f, 0.0f, right, 0.1f), 0);
}

TEST_F(DrawnComboboxTest, DrawingRestoresTheModelViewMatrix) {
    Open();
    Draw(list);
    EXPECT_EQ(ModelView(), kIdentity);
}

}  // namespace
