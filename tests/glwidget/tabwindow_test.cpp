// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/tabwindow.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "glwidget/button.h"
#include "glwidget/frame.h"
#include "glwidget/optionbox.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/opened.h"
#include "tests/glwidget/widget_test.h"
#include "tests/support/temporary_folder.h"

namespace {

const Vector kOrigin(0.0f, 0.0f);

/// A tab window with the tabs "A" and "BB", each with one widget.
class TabWindowTest : public WidgetTest {
protected:
    TabWindowTest() {
        GLWidget::NewTheme("tabwin_button.theme");
        window.AddTab(0, "A");
        window.AddTab(1, "BB");
        first.size = second.size = Vector(0.5f, 0.5f);
    }

    void Fill() {
        window.AddToTab(0, &first);
        window.AddToTab(1, &second);
    }
    static GLWidget* ButtonOf(const std::string& tag) { return GLWidget::GetByTag(tag, false); }
    /// A position on the button of that tag.
    static Vector Middle(const std::string& tag) {
        const Vector box = ButtonOf(tag)->Getbbox();
        return {(box.x + box.z) / 2.0f, (box.y + box.w) / 2.0f};
    }
    void Press(const std::string& tag) {
        const Vector place = Middle(tag);
        window.MouseMove(place.x, place.y);
        window.MouseClick(true, false, false);
        window.MouseClick(false, false, false);
    }

    Opened<TabWindow> window{"tabs", nullptr, kOrigin, theme};
    PlainWidget first{"first", &window, kOrigin, theme};
    PlainWidget second{"second", &window, kOrigin, theme};
};

TEST_F(TabWindowTest, IsAWindowWithoutTitleThatCannotBeMoved) {
    EXPECT_EQ(window.GetType(), "TabWindow");
    EXPECT_EQ(window.GetText(), "");
    window.size = Vector(1.0f, 1.0f);
    window.MouseMove(0.5f, 0.99f);
    EXPECT_FALSE(window.HasFocus());
}

TEST_F(TabWindowTest, EveryTabGetsAButtonInARow) {
    const auto* const a = dynamic_cast<Button*>(ButtonOf("__tabstab0A"));
    const auto* const b = dynamic_cast<Button*>(ButtonOf("__tabstab1BB"));
    ASSERT_NE(a, nullptr);
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(a->GetText(), "A");
    EXPECT_EQ(b->GetText(), "BB");
    EXPECT_EQ(a->GetParent(), &window);
    EXPECT_EQ(b->GetParent(), &window);
    EXPECT_FLOAT_EQ(ButtonOf("__tabstab0A")->Getbbox().x, 0.0f);
    EXPECT_FLOAT_EQ(ButtonOf("__tabstab1BB")->Getbbox().x, 0.08f + 0.01f);
    EXPECT_TRUE(window.children.empty());  // its buttons are not children
}

TEST_F(TabWindowTest, ButtonsTakeTheirThemeFromItsFileOnFirstUse) {
    GLWidget::themes.erase("tabwin_button.theme");
    const WorkingFolder folder;
    folder.Write(
        "tabwin_button.theme",
        "0 0 0\n0 0 0\n0 0 0\n0 0 0\n1\n1\n1\n0\n0\n0\n0.5 0.25\n1 1\n0 0 0\n0\nNULL\n1\n");
    testing::internal::CaptureStderr();
    window.AddTab(2, "C");
    const std::string once = testing::internal::GetCapturedStderr();
    testing::internal::CaptureStderr();
    window.AddTab(2, "C");
    const std::string again = testing::internal::GetCapturedStderr();
    EXPECT_NE(once.find("reading theme tabwin_button.theme\n"), std::string::npos);
    EXPECT_EQ(again.find("reading theme"), std::string::npos);
    const Vector box = ButtonOf("__tabstab2C")->Getbbox();
    EXPECT_FLOAT_EQ(box.w - box.y, 1.5f * 0.25f);
}

TEST_F(TabWindowTest, WhileItIsBuiltAllTabsWidgetsAreItsChildren) {
    Fill();
    EXPECT_EQ(window.children, (std::vector<GLWidget*>{&first, &second}));
}

TEST_F(TabWindowTest, SolidifyShowsTheFirstTab) {
    Fill();
    EXPECT_TRUE(window.Solidify());
    EXPECT_EQ(window.children, std::vector<GLWidget*>{&first});
}

TEST_F(TabWindowTest, SolidifyMakesRoomForTheWidgetsOfAllTabs) {
    second.size = Vector(0.9f, 0.8f);
    Fill();
    window.Solidify();
    EXPECT_FLOAT_EQ(window.size.x, 0.93f);
    EXPECT_FLOAT_EQ(window.size.y, 0.83f + 0.1f);
}

TEST_F(TabWindowTest, SolidifyShowsTheFirstTabAgain) {
    Fill();
    window.Solidify();
    Press("__tabstab1BB");
    ASSERT_EQ(window.children, std::vector<GLWidget*>{&second});
    window.Solidify();
    EXPECT_EQ(window.children, std::vector<GLWidget*>{&first});
}

TEST_F(TabWindowTest, PressedButtonSwitchesTheContent) {
    Fill();
    window.Solidify();
    Press("__tabstab1BB");
    EXPECT_EQ(window.children, std::vector<GLWidget*>{&second});
    Press("__tabstab0A");
    EXPECT_EQ(window.children, std::vector<GLWidget*>{&first});
}

TEST_F(TabWindowTest, WidgetsOfHiddenTabsGetNoEvents) {
    Fill();
    window.Solidify();
    window.MouseMove(0.2f, 0.2f);
    EXPECT_TRUE(window.MouseClick(true, false, false));
    window.Update(10);
    EXPECT_EQ(first.clicks, 1);
    EXPECT_EQ(second.clicks, 0);
    EXPECT_EQ(second.age, 0);
    EXPECT_EQ(first.age, 10);
}

TEST_F(TabWindowTest, ClickReturnsTrueEvenIfAChildHasTheFocus) {
    Fill();
    window.Solidify();
    first.Focus();
    EXPECT_TRUE(window.MouseClick(true, false, false));
}

TEST_F(TabWindowTest, SolidifyPlacesTheButtonsBelowTheTopAndRightOfTheCutCorner) {
    Fill();
    window.position = Vector(0.2f, 0.3f);
    window.Solidify();
    // 0.63 high: the corner's cut is a tenth of it, the row 1.75 glyphs below the top
    const Vector a = ButtonOf("__tabstab0A")->Getbbox();
    EXPECT_FLOAT_EQ(a.x, 0.2f + 0.063f);
    EXPECT_FLOAT_EQ(a.y, 0.3f + 0.63f - 0.0875f);
    const Vector b = ButtonOf("__tabstab1BB")->Getbbox();
    EXPECT_FLOAT_EQ(b.x, 0.2f + 0.063f + 0.09f);
}

TEST_F(TabWindowTest, IsWideEnoughForItsButtons) {
    const std::string title(20, 'x');
    window.AddTab(1, title);
    first.size = Vector(0.1f, 0.1f);
    window.AddToTab(0, &first);
    const float row = 0.08f + 0.01f + 0.84f + 0.01f;
    EXPECT_FLOAT_EQ(window.size.x, row);  // no height yet, so no cut
    window.Solidify();
    EXPECT_FLOAT_EQ(window.size.x, row + 0.1f * window.size.y);
}

TEST_F(TabWindowTest, MovingTheWindowMovesItsButtons) {
    const Vector place = window += Vector(0.5f, 0.25f);
    EXPECT_EQ(place.x, 0.5f);
    EXPECT_EQ(place.y, 0.25f);
    EXPECT_FLOAT_EQ(ButtonOf("__tabstab0A")->Getbbox().x, 0.5f);
    EXPECT_FLOAT_EQ(ButtonOf("__tabstab1BB")->Getbbox().y, 0.25f);
}

TEST_F(TabWindowTest, ButtonsSeeTheMouseInTheWindowsOwnCoordinates) {
    window += Vector(0.5f, 0.25f);
    const Vector place = Middle("__tabstab1BB");
    window.MouseMove(place.x, place.y);
    EXPECT_TRUE(ButtonOf("__tabstab1BB")->HasFocus());
    EXPECT_FALSE(ButtonOf("__tabstab0A")->HasFocus());
}

TEST_F(TabWindowTest, UpdateReachesTheButtons) {
    class Peek : public Button {
    public:
        static float Highlight(const GLWidget& button) { return button.*(&Peek::highlight); }
    };
    ButtonOf("__tabstab0A")->Focus();
    window.MouseMove(9.0f, 9.0f);
    window.Update(10);
    EXPECT_FLOAT_EQ(Peek::Highlight(*ButtonOf("__tabstab0A")), 0.95f);
}

TEST_F(TabWindowTest, TabAddedAgainIsEmptiedAndRenamed) {
    Fill();
    EXPECT_TRUE(window.AddTab(0, "New"));
    EXPECT_EQ(ButtonOf("__tabstab0A"), nullptr);  // the old button and its tag are gone
    ASSERT_NE(ButtonOf("__tabstab0New"), nullptr);
    EXPECT_EQ(ButtonOf("__tabstab0New")->GetText(), "New");
    window.Solidify();
    EXPECT_TRUE(window.children.empty());
}

TEST_F(TabWindowTest, AddingATabMakesTheOtherButtonsAgainUnderTheirTags) {
    GLWidget* const before = ButtonOf("__tabstab1BB");
    before->Focus();
    window.AddTab(0, "A");
    GLWidget* const after = ButtonOf("__tabstab1BB");
    ASSERT_NE(after, nullptr);
    EXPECT_FALSE(after->HasFocus());
    EXPECT_FLOAT_EQ(after->Getbbox().x, 0.09f);
}

TEST_F(TabWindowTest, DeletingTheWindowClearsTheTagsOfItsButtons) {
    {
        TabWindow gone("gone", nullptr, kOrigin, theme);
        gone.AddTab(0, "A");
        ASSERT_NE(ButtonOf("__gonetab0A"), nullptr);
    }
    EXPECT_EQ(ButtonOf("__gonetab0A"), nullptr);
}

TEST_F(TabWindowTest, AddingALaterTabAlsoMakesTheEarlierOnes) {
    TabWindow sparse("sparse", nullptr, kOrigin, theme);
    sparse.AddTab(2, "C");
    EXPECT_NE(ButtonOf("__sparsetab0"), nullptr);
    EXPECT_NE(ButtonOf("__sparsetab1"), nullptr);
    EXPECT_NE(ButtonOf("__sparsetab2C"), nullptr);
}

TEST_F(TabWindowTest, TabThatWasNeverAddedIsUnnamedAndHasNoButton) {
    Opened<TabWindow> bare("bare", nullptr, kOrigin, theme);
    EXPECT_TRUE(bare.AddToTab(1, &first));
    EXPECT_EQ(bare.size.x, 2 * 0.04f);  // as wide as a window without a title
    bare.Solidify();
    bare += Vector(1.0f, 1.0f);
    bare.MouseMove(0.0f, 0.0f);
    bare.MouseClick(true, false, false);
    bare.Update(10);
    EXPECT_TRUE(bare.children.empty());  // the first tab's, which has none
    bare.AddTab(2, "C");
    EXPECT_NE(ButtonOf("__baretab1unnamed"), nullptr);
}

TEST_F(TabWindowTest, RenamedTabShowsItsNewName) {
    window.SetTabText(1, "New");
    EXPECT_EQ(ButtonOf("__tabstab1BB")->GetText(), "New");
    window.AddTab(0, "A");  // makes the buttons again
    EXPECT_EQ(ButtonOf("__tabstab1BB"), nullptr);
    ASSERT_NE(ButtonOf("__tabstab1New"), nullptr);
    EXPECT_EQ(ButtonOf("__tabstab1New")->GetText(), "New");
    window.SetTabText(0, "First");
    EXPECT_EQ(ButtonOf("__tabstab0A")->GetText(), "First");
}

TEST_F(TabWindowTest, RenamingATabThatDoesNotExistDoesNothing) {
    testing::internal::CaptureStderr();
    window.SetTabText(-1, "x");
    window.SetTabText(2, "x");
    window.SetTabText(std::numeric_limits<int>::max(), "x");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(ButtonOf("__tabstab0A")->GetText(), "A");
    EXPECT_EQ(ButtonOf("__tabstab1BB")->GetText(), "BB");
}

TEST_F(TabWindowTest, IndexesThatNoTabCanHaveAreReportedAndChangeNothing) {
    for (const int index : {-1, TabWindow::kMaxTabs, std::numeric_limits<int>::max()}) {
        testing::internal::CaptureStderr();
        EXPECT_FALSE(window.AddTab(index, "x"));
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "tabwindow tabs cannot have a tab " + std::to_string(index) + "\n");
        testing::internal::CaptureStderr();
        EXPECT_FALSE(window.AddToTab(index, &first));
        EXPECT_EQ(testing::internal::GetCapturedStderr(),
                  "tabwindow tabs cannot have a tab " + std::to_string(index) + "\n");
    }
    EXPECT_TRUE(window.children.empty());
}

TEST_F(TabWindowTest, LastAllowedTabCanBeAdded) {
    EXPECT_TRUE(window.AddTab(TabWindow::kMaxTabs - 1, "last"));
    const std::string tag = "__tabstab" + std::to_string(TabWindow::kMaxTabs - 1) + "last";
    ASSERT_NE(ButtonOf(tag), nullptr);
    window.Solidify();
    Press(tag);
    EXPECT_TRUE(window.children.empty());
}

TEST_F(TabWindowTest, WithoutTabsItKeepsItsChildren) {
    Opened<TabWindow> bare("bare", nullptr, kOrigin, theme);
    bare.AddChild(&first);
    bare.Solidify();
    EXPECT_EQ(bare.children, std::vector<GLWidget*>{&first});
}

TEST_F(TabWindowTest, EveryOptionAddedSetsTheGroupOfAllTabsBackToItsFirst) {
    // While it is built the options of all tabs are one group of children.
    Optionbox one("one", &window, kOrigin, theme, "");
    Optionbox two("two", &window, kOrigin, theme, "");
    window.AddToTab(0, &one);
    window.AddToTab(1, &two);
    EXPECT_TRUE(one.Clicked());
    EXPECT_FALSE(two.Clicked());
}

class DrawnTabWindowTest : public DrawnWidgetTest {
protected:
    static constexpr Colour kFill{0, 0, 153};
    static constexpr Colour kLine{153, 0, 0};
    static constexpr Colour kButton{0, 102, 0};       // dimmed
    static constexpr Colour kShownButton{0, 204, 0};  // as under the mouse

    DrawnTabWindowTest() {
        Theme* const buttons = GLWidget::NewTheme("tabwin_button.theme");
        buttons->fillColour = Vector(0.0f, 0.8f, 0.0f);
        buttons->dim = 0.5f;
        tabs.AddTab(0, "A");
        tabs.AddTab(1, "BB");
        tabs.AddToTab(0, &first);
        tabs.AddToTab(1, &second);
        first.size = second.size = Vector(0.2f, 0.2f);
        tabs.size = Vector(1.0f, 1.0f);
        tabs.Solidify();
    }

    Opened<TabWindow> tabs{"tabs", nullptr, kOrigin, theme};
    Opened<Frame> first{"first", &tabs, Vector(0.1f, 0.1f), theme, true};
    Opened<Frame> second{"second", &tabs, Vector(0.5f, 0.1f), theme, true};
};

TEST_F(DrawnTabWindowTest, DrawsAPanelALineAndTheShownTab) {
    Draw(tabs);
    EXPECT_EQ(At(0.5f, 0.5f), kFill);
    EXPECT_EQ(At(0.02f, 0.98f), kBlack);
    EXPECT_GT(Count(kLine, 0.7f, 0.89f, 0.7f, 0.91f), 0);
    EXPECT_GT(Count(kLine, 0.11f, 0.2f, 0.12f, 0.2f), 0);
    EXPECT_EQ(Count(kLine, 0.51f, 0.2f, 0.52f, 0.2f), 0);
}

TEST_F(DrawnTabWindowTest, ButtonOfTheShownTabIsHighlighted) {
    // The row begins a tenth of the height from the left, 0.0875 below the top.
    Draw(tabs);
    EXPECT_EQ(At(0.14f, 0.95f), kShownButton);
    EXPECT_EQ(At(0.25f, 0.95f), kButton);
    tabs.MouseMove(0.25f, 0.95f);
    tabs.MouseClick(true, false, false);
    tabs.MouseClick(false, false, false);
    Draw(tabs);
    EXPECT_EQ(At(0.25f, 0.95f), kShownButton);
    EXPECT_GT(Count(kLine, 0.51f, 0.2f, 0.52f, 0.2f), 0);
    EXPECT_EQ(Count(kLine, 0.11f, 0.2f, 0.12f, 0.2f), 0);
}

TEST_F(DrawnTabWindowTest, TabWithoutAButtonIsDrawnWithoutIt) {
    Opened<TabWindow> bare("bare", nullptr, Vector(-1.2f, 0.0f), theme);
    bare.AddToTab(0, &first);
    bare.Solidify();
    Draw(bare);
    EXPECT_GT(Count(kLine, -1.09f, 0.2f, -1.08f, 0.2f), 0);
}

TEST_F(DrawnTabWindowTest, DrawingRestoresTheModelViewMatrix) {
    Draw(tabs);
    EXPECT_EQ(ModelView(), kIdentity);
}

}  // namespace
