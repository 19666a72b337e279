// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/glwidget.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "glwidget/button.h"
#include "glwidget/optionbox.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/opened.h"
#include "tests/glwidget/widget_test.h"

namespace {

class GLWidgetTest : public WidgetTest {
protected:
    PlainWidget* Make(const std::string& name, const Vector& position = Vector(0.0f, 0.0f),
                      const Vector& size = Vector(1.0f, 1.0f)) {
        auto* const widget = new PlainWidget(name, nullptr, position, nullptr);
        widget->size = size;
        return widget;
    }
    PlainWidget* MakeTop(const std::string& name) {
        PlainWidget* const widget = Make(name);
        GLWidget::widgets.push_back(widget);
        return widget;
    }
};

TEST_F(GLWidgetTest, ConstructionStoresWhatItIsGiven) {
    PlainWidget parent("parent", nullptr, Vector(0.0f, 0.0f), nullptr);
    Theme look;
    PlainWidget widget("child", &parent, Vector(0.25f, -0.5f), &look);
    EXPECT_EQ(widget.GetName(), "child");
    EXPECT_EQ(widget.parent, &parent);
    EXPECT_EQ(widget.GetParent(), &parent);
    EXPECT_EQ(widget.position.x, 0.25f);
    EXPECT_EQ(widget.position.y, -0.5f);
    EXPECT_EQ(widget.theme, &look);
    EXPECT_TRUE(widget.children.empty());
    EXPECT_TRUE(widget.texts.empty());
    EXPECT_EQ(widget.GetText(), "");
    EXPECT_EQ(widget.mouse.x, 0.0f);
    EXPECT_EQ(widget.mouse.y, 0.0f);
}

TEST_F(GLWidgetTest, ConstructionClearsEveryState) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    EXPECT_FALSE(widget.focus);
    EXPECT_FALSE(widget.active);
    EXPECT_FALSE(widget.clicked);
    EXPECT_FALSE(widget.changed);
    EXPECT_FALSE(widget.dragging);
    EXPECT_FALSE(widget.buttons.left || widget.buttons.middle || widget.buttons.right);
    EXPECT_EQ(widget.age, 0);
    EXPECT_EQ(widget.highlight, 0.0f);
    EXPECT_EQ(widget.flash, 0.0f);
    EXPECT_EQ(widget.current, 0);
    EXPECT_EQ(widget.GetDepth(), 0.0f);
}

TEST_F(GLWidgetTest, ConstructionWithoutAThemeTakesTheDefault) {
    EXPECT_EQ(PlainWidget("w", nullptr, Vector(0.0f, 0.0f), nullptr).theme, theme);
}

using GLWidgetDeathTest = GLWidgetTest;

TEST_F(GLWidgetDeathTest, ConstructionWithoutAnyThemeFailsTheAssertion) {
    GLWidget::themes.clear();
    EXPECT_EXIT(PlainWidget("w", nullptr, Vector(0.0f, 0.0f), nullptr), testing::ExitedWithCode(0),
                "Assert failed on glwidget:[0-9]+ - \"theme != NULL\"");
}

TEST_F(GLWidgetTest, ConstructionSetsTheFontToTheThemesSize) {
    Theme look;
    look.fontSize = Vector(0.25f, 0.5f);
    const PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), &look);
    EXPECT_EQ(FontAccess::SizeX(GLWidget::font), 0.25f);
    EXPECT_EQ(FontAccess::SizeY(GLWidget::font), 0.5f);
}

TEST_F(GLWidgetTest, ConstructionClearsTheMessageBoxAnswerAndTheRenderingFlag) {
    GLWidget::msgboxResult = 2;
    GLWidget::rendering = true;
    const PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    EXPECT_EQ(GLWidget::msgboxResult, 0u);
    EXPECT_FALSE(GLWidget::rendering);
}

TEST_F(GLWidgetTest, ConstructionReadsTheViewport) {
    GLWidget::viewport[2] = 0;
    const PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    EXPECT_EQ(GLWidget::viewport[2], 800);
    EXPECT_EQ(GLWidget::viewport[3], 600);
}

TEST_F(GLWidgetTest, SecondWidgetOfATagReplacesTheFirstInTheRegistry) {
    const PlainWidget first("twin", nullptr, Vector(0.0f, 0.0f), nullptr);
    EXPECT_EQ(GLWidget::GetByTag("twin"), &first);
    const PlainWidget second("twin", nullptr, Vector(0.0f, 0.0f), nullptr);
    EXPECT_EQ(GLWidget::GetByTag("twin"), &second);
}

TEST_F(GLWidgetTest, DeletingAWidgetLeavesItsChildrenAndItsTag) {
    auto* const child = Make("child");
    auto* const widget = Make("w");
    widget->AddChild(child);
    delete widget;
    EXPECT_EQ(child->GetName(), "child");
    EXPECT_EQ(GLWidget::tags.count("w"), 1u);
    EXPECT_NE(GLWidget::tags["w"], nullptr);
}

TEST_F(GLWidgetTest, DestroyClearsTheTagUnlessAnotherWidgetTookIt) {
    auto* const first = Make("twin");
    auto* const second = Make("twin");
    GLWidget::Destroy(first);
    EXPECT_EQ(GLWidget::tags["twin"], second);
    GLWidget::Destroy(second);
    EXPECT_EQ(GLWidget::tags["twin"], nullptr);
    GLWidget::Destroy(nullptr);
}

TEST_F(GLWidgetTest, UnknownTagGivesNullWithoutAMessageAndAddsAnEmptyEntry) {
    testing::internal::CaptureStderr();
    EXPECT_EQ(GLWidget::GetByTag("nowhere", false), nullptr);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    ASSERT_EQ(GLWidget::tags.count("nowhere"), 1u);
    EXPECT_EQ(GLWidget::tags["nowhere"], nullptr);
}

TEST_F(GLWidgetDeathTest, UnknownTagThatMustExistIsReportedAndFailsTheAssertion) {
    EXPECT_EXIT(GLWidget::GetByTag("nowhere", true), testing::ExitedWithCode(0),
                "Invalid Tag Widget: 'nowhere'\n"
                "Assert failed on glwidget/glwidget:539 - \"tags\\[Tag\\] != NULL\"\n");
}

TEST_F(GLWidgetTest, VirtualOperationsStandInTheToolkitsOrder) {
    // A pointer to a virtual member holds 1 plus its offset in the class's table, whose first
    // two entries are the destructor's.
    const auto slot = [](auto member) {
        std::ptrdiff_t bits = 0;
        std::memcpy(&bits, &member, sizeof bits);
        return (bits - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
    };
    using MoveOnScreen = bool (GLWidget::*)(const Vector&);
    using MoveInGui = bool (GLWidget::*)(float, float);
    const std::ptrdiff_t slots[] = {
        slot(&GLWidget::SetTabText),   slot(&GLWidget::SetText),
        slot(&GLWidget::AddText),      slot(&GLWidget::Centre),
        slot(&GLWidget::MouseClick),   slot(static_cast<MoveOnScreen>(&GLWidget::MouseMove)),
        slot(&GLWidget::TextKeyPress), slot(static_cast<MoveInGui>(&GLWidget::MouseMove)),
        slot(&GLWidget::Update),       slot(&GLWidget::Render),
        slot(&GLWidget::operator+=),   slot(&GLWidget::Unique),
        slot(&GLWidget::GetType),      slot(&GLWidget::AddChild),
        slot(&GLWidget::Getbbox),      slot(&GLWidget::GetValidArea),
        slot(&GLWidget::Solidify),     slot(&GLWidget::SetFocussed),
        slot(&GLWidget::AddTab),       slot(&GLWidget::AddToTab),
        slot(&GLWidget::Within),
    };
    std::ptrdiff_t expected = 2;
    for (const std::ptrdiff_t actual : slots)
        EXPECT_EQ(actual, expected++);
}

TEST_F(GLWidgetTest, BaseOperationsDoWhatMostWidgetsNeed) {
    PlainWidget widget("w", nullptr, Vector(0.5f, 1.0f), nullptr);
    widget.size = Vector(2.0f, 3.0f);
    widget.SetTabText(0, "tab");
    EXPECT_TRUE(widget.AddTab(0, "tab"));
    EXPECT_TRUE(widget.AddToTab(0, nullptr));
    EXPECT_FALSE(widget.GLWidget::Unique());
    EXPECT_EQ(widget.GetType(), "GLWidget");
    widget.SetText("caption");
    EXPECT_EQ(widget.GetText(), "caption");
    EXPECT_TRUE(widget.AddText("item"));
    EXPECT_EQ(widget.texts, std::vector<std::string>{"item"});
    const Vector box = widget.Getbbox();
    EXPECT_EQ(box.x, 0.5f);
    EXPECT_EQ(box.y, 1.0f);
    EXPECT_EQ(box.z, 2.5f);
    EXPECT_EQ(box.w, 4.0f);
    const Vector area = widget.GetValidArea();
    EXPECT_EQ(area.x, 0.0f);
    EXPECT_EQ(area.y, 0.0f);
    EXPECT_EQ(area.z, 0.0f);
    EXPECT_EQ(area.w, 0.0f);
}

TEST_F(GLWidgetTest, AddingAnOffsetMovesTheWidgetAndReturnsItsNewPosition) {
    PlainWidget widget("w", nullptr, Vector(0.5f, 1.0f), nullptr);
    const Vector moved = widget += Vector(0.25f, -2.0f);
    EXPECT_EQ(moved.x, 0.75f);
    EXPECT_EQ(moved.y, -1.0f);
    EXPECT_EQ(widget.position.x, 0.75f);
    EXPECT_EQ(widget.position.y, -1.0f);
}

TEST_F(GLWidgetTest, EnableActivatesAndEndsTheFlash) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    widget.flash = 0.5f;
    EXPECT_TRUE(widget.Enable());
    EXPECT_TRUE(widget.active);
    EXPECT_EQ(widget.flash, 0.0f);
}

TEST_F(GLWidgetTest, FocusGivesFullHighlight) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    EXPECT_TRUE(widget.Focus());
    EXPECT_TRUE(widget.HasFocus());
    EXPECT_EQ(widget.highlight, 1.0f);
}

TEST_F(GLWidgetTest, ScreenCornersAreTheCornersOfGuiSpace) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    const float right = 1.3f * 800.0f / 600.0f;
    widget.GLWidget::MouseMove(Vector(0.0f, 0.0f));
    EXPECT_FLOAT_EQ(widget.mouse.x, -right);
    EXPECT_FLOAT_EQ(widget.mouse.y, 1.3f);
    widget.GLWidget::MouseMove(Vector(800.0f, 600.0f));
    EXPECT_FLOAT_EQ(widget.mouse.x, right);
    EXPECT_FLOAT_EQ(widget.mouse.y, -1.3f);
    widget.GLWidget::MouseMove(Vector(400.0f, 300.0f));
    EXPECT_FLOAT_EQ(widget.mouse.x, 0.0f);
    EXPECT_FLOAT_EQ(widget.mouse.y, 0.0f);
}

TEST_F(GLWidgetTest, ScreenMoveReachesTheOverrideInGuiSpace) {
    class Recorder : public PlainWidget {
    public:
        using GLWidget::MouseMove;
        using PlainWidget::PlainWidget;
        bool MouseMove(float x, float y) override {
            seen = Vector(x, y);
            return true;
        }
        Vector seen;
    };
    Recorder widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    GLWidget::widgets.push_back(&widget);
    EXPECT_TRUE(GLWidget::MouseMoveWidgets(Vector(800.0f, 0.0f)));
    EXPECT_FLOAT_EQ(widget.seen.x, 1.3f * 4.0f / 3.0f);
    EXPECT_FLOAT_EQ(widget.seen.y, 1.3f);
}

TEST_F(GLWidgetTest, MouseOverTheBoxOrItsBorderGivesFocus) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    widget.size = Vector(1.0f, 0.5f);
    widget.MouseMove(1.0f, 0.5f);
    EXPECT_TRUE(widget.HasFocus());
    widget.MouseMove(0.0f, 0.0f);
    EXPECT_TRUE(widget.HasFocus());
    widget.MouseMove(1.001f, 0.5f);
    EXPECT_FALSE(widget.HasFocus());
    widget.MouseMove(0.5f, -0.001f);
    EXPECT_FALSE(widget.HasFocus());
}

TEST_F(GLWidgetTest, MouseMovePassesTheSamePositionToEveryChild) {
    PlainWidget* const parent = Make("parent", Vector(5.0f, 5.0f));
    PlainWidget* const child = Make("child");
    PlainWidget* const grandchild = Make("grandchild");
    parent->children = {child};
    child->children = {grandchild};
    parent->MouseMove(0.5f, 0.25f);
    EXPECT_FALSE(parent->HasFocus());
    EXPECT_TRUE(child->HasFocus());
    EXPECT_TRUE(grandchild->HasFocus());
    EXPECT_EQ(grandchild->mouse.x, 0.5f);
    EXPECT_EQ(grandchild->mouse.y, 0.25f);
}

TEST_F(GLWidgetTest, OverlappingTopLevelWidgetsBothGetFocusAndTheClick) {
    PlainWidget* const lower = MakeTop("lower");
    PlainWidget* const upper = MakeTop("upper");
    GLWidget::MouseMoveWidgets(Vector(410.0f, 290.0f));
    EXPECT_TRUE(lower->HasFocus());
    EXPECT_TRUE(upper->HasFocus());
    EXPECT_TRUE(GLWidget::MouseClickWidgets(true, false, false));
    EXPECT_EQ(lower->clicks, 1);
    EXPECT_EQ(upper->clicks, 1);
}

TEST_F(GLWidgetTest, DispatchersReturnAtOnceWithoutWidgets) {
    EXPECT_TRUE(GLWidget::MouseMoveWidgets(Vector(1.0f, 1.0f)));
    EXPECT_TRUE(GLWidget::MouseClickWidgets(true, true, true));
    EXPECT_TRUE(GLWidget::TextKeyPressWidgets(KeyFlags{}));
    EXPECT_TRUE(GLWidget::UpdateWidgets(16));
}

TEST_F(GLWidgetTest, KeyPressesReachEveryWidgetOfTheTree) {
    class Typist : public PlainWidget {
    public:
        using PlainWidget::PlainWidget;
        bool TextKeyPress(const KeyFlags& keys) override {
            sawA = keys['a'];
            return GLWidget::TextKeyPress(keys);
        }
        bool sawA = false;
    };
    PlainWidget* const top = MakeTop("top");
    Typist child("child", top, Vector(0.0f, 0.0f), nullptr);
    Typist grandchild("grandchild", &child, Vector(0.0f, 0.0f), nullptr);
    top->children = {&child};
    child.children = {&grandchild};
    KeyFlags keys{};
    keys['a'] = true;
    EXPECT_TRUE(GLWidget::TextKeyPressWidgets(keys));
    EXPECT_TRUE(child.sawA);
    EXPECT_TRUE(grandchild.sawA);
}

TEST_F(GLWidgetTest, UpdateAgesTheWholeTree) {
    PlainWidget* const top = MakeTop("top");
    PlainWidget* const child = Make("child");
    top->children = {child};
    GLWidget::UpdateWidgets(16);
    EXPECT_TRUE(GLWidget::UpdateWidgets(20));
    EXPECT_EQ(top->age, 36);
    EXPECT_EQ(child->age, 36);
}

TEST_F(GLWidgetTest, AgeWrapsInsteadOfOverflowing) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    widget.age = 2147483647;
    widget.Update(1);
    EXPECT_EQ(widget.age, -2147483647 - 1);
}

TEST_F(GLWidgetTest, HighlightUnderTheMouseRisesPastOneAndIsThenSetToOne) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    widget.focus = true;
    widget.Update(100);
    EXPECT_FLOAT_EQ(widget.highlight, 0.5f);
    widget.Update(150);
    EXPECT_FLOAT_EQ(widget.highlight, 1.25f);
    widget.Update(10);
    EXPECT_EQ(widget.highlight, 1.0f);
    widget.Update(10);
    EXPECT_EQ(widget.highlight, 1.0f);
}

TEST_F(GLWidgetTest, HighlightAwayFromTheMouseFallsBelowZeroAndIsThenSetToZero) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    widget.highlight = 1.0f;
    widget.Update(100);
    EXPECT_FLOAT_EQ(widget.highlight, 0.5f);
    widget.Update(150);
    EXPECT_FLOAT_EQ(widget.highlight, -0.25f);
    widget.Update(10);
    EXPECT_EQ(widget.highlight, 0.0f);
    widget.highlight = 0.0001f;
    widget.Update(1);
    EXPECT_EQ(widget.highlight, 0.0f);
}

TEST_F(GLWidgetTest, WithoutFadeHighlightIsFullWhereverTheMouseIs) {
    Theme steady;
    steady.fade = false;
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), &steady);
    widget.Update(1);
    EXPECT_EQ(widget.highlight, 1.0f);
    widget.focus = true;
    widget.Update(1);
    EXPECT_EQ(widget.highlight, 1.0f);
}

TEST_F(GLWidgetTest, FlashDecaysToZero) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    widget.flash = 1.0f;
    widget.Update(50);
    EXPECT_FLOAT_EQ(widget.flash, 0.75f);
    widget.flash = 0.0001f;
    widget.Update(50);
    EXPECT_EQ(widget.flash, 0.0f);
}

TEST_F(GLWidgetDeathTest, AddingANullChildFailsTheAssertion) {
    PlainWidget* const widget = Make("w");
    EXPECT_EXIT(widget->AddChild(nullptr), testing::ExitedWithCode(0),
                "Assert failed on glwidget/glwidget:763 - \"a != 0\"");
}

TEST_F(GLWidgetDeathTest, CentringANullChildFailsTheAssertion) {
    PlainWidget* const widget = Make("w");
    EXPECT_EXIT(widget->Centre(nullptr, true, true), testing::ExitedWithCode(0),
                "Assert failed on glwidget/glwidget:679 - \"child != 0\"");
}

TEST_F(GLWidgetTest, AddingAChildKeepsItsOwnParent) {
    PlainWidget* const widget = Make("w");
    PlainWidget* const child = Make("child");
    EXPECT_TRUE(widget->AddChild(child));
    EXPECT_EQ(widget->children, std::vector<GLWidget*>{child});
    EXPECT_EQ(child->GetParent(), nullptr);
}

TEST_F(GLWidgetTest, EveryAdditionEnablesTheFirstUniqueChildAndTellsTheOtherUniqueOnes) {
    PlainWidget* const parent = Make("parent");
    PlainWidget* const plain = Make("plain");
    PlainWidget* const first = Make("first");
    PlainWidget* const second = Make("second");
    first->unique = true;
    second->unique = true;
    parent->AddChild(plain);
    EXPECT_FALSE(plain->active);
    parent->AddChild(first);
    EXPECT_TRUE(first->active);
    EXPECT_TRUE(first->told.empty());
    parent->AddChild(second);
    EXPECT_EQ(second->told, std::vector<GLWidget*>{first});
    EXPECT_FALSE(second->active);
    first->active = false;
    parent->AddChild(Make("later"));
    EXPECT_TRUE(first->active);
    EXPECT_EQ(second->told.size(), 2u);
    EXPECT_TRUE(plain->told.empty());
}

TEST_F(GLWidgetTest, SecondOptionAddedMakesTheFirstActiveEvenIfItWasActiveItself) {
    PlainWidget* const parent = Make("parent");
    Optionbox first("first", parent, Vector(0.0f, 0.0f), nullptr, "");
    Optionbox second("second", parent, Vector(0.0f, 0.0f), nullptr, "");
    second.Enable();
    parent->AddChild(&first);
    parent->AddChild(&second);
    EXPECT_TRUE(first.Clicked());
    EXPECT_FALSE(second.Clicked());
}

TEST_F(GLWidgetTest, SolidifyGrowsAroundTheChildrenAndNeverShrinks) {
    Theme look;
    look.border = 0.125f;
    PlainWidget parent("parent", nullptr, Vector(0.0f, 0.0f), &look);
    parent.size = Vector(1.0f, 10.0f);
    PlainWidget* const child = Make("child", Vector(1.0f, 1.0f), Vector(2.0f, 3.0f));
    parent.AddChild(child);
    EXPECT_TRUE(parent.Solidify());
    EXPECT_FLOAT_EQ(parent.size.x, 3.0f + 6.0f * 0.125f);
    EXPECT_FLOAT_EQ(parent.size.y, 10.0f);
}

TEST_F(GLWidgetTest, SolidifyStartsWithTheInnermostWidgets) {
    Theme look;
    look.border = 0.125f;
    PlainWidget outer("outer", nullptr, Vector(0.0f, 0.0f), &look);
    PlainWidget inner("inner", &outer, Vector(0.0f, 0.0f), &look);
    PlainWidget* const leaf = Make("leaf", Vector(0.0f, 0.0f), Vector(2.0f, 2.0f));
    outer.AddChild(&inner);
    inner.AddChild(leaf);
    outer.Solidify();
    EXPECT_FLOAT_EQ(inner.size.x, 2.75f);
    EXPECT_FLOAT_EQ(outer.size.x, 3.5f);
}

TEST_F(GLWidgetTest, PositionBeyondNinetyIsAnchoredToTheScreensEdge) {
    const float halfWidth = 1.3f * 4.0f / 3.0f;
    const float margin = 3.0f * theme->border;
    PlainWidget* const topRight = Make("a", Vector(90.001f, 90.001f), Vector(0.5f, 0.25f));
    topRight->Solidify();
    EXPECT_FLOAT_EQ(topRight->position.x, halfWidth - 0.5f - margin);
    EXPECT_FLOAT_EQ(topRight->position.y, 1.3f - 0.25f - margin);
    PlainWidget* const bottomLeft = Make("b", Vector(-90.001f, -90.001f), Vector(0.5f, 0.25f));
    bottomLeft->Solidify();
    EXPECT_FLOAT_EQ(bottomLeft->position.x, -halfWidth + margin);
    EXPECT_FLOAT_EQ(bottomLeft->position.y, -1.3f + margin);
}

TEST_F(GLWidgetTest, PositionOfExactlyNinetyIsNotAnchored) {
    PlainWidget* const right = Make("a", Vector(90.0f, 90.0f));
    right->Solidify();
    EXPECT_EQ(right->position.x, 90.0f);
    EXPECT_EQ(right->position.y, 90.0f);
    PlainWidget* const left = Make("b", Vector(-90.0f, -90.0f));
    left->Solidify();
    EXPECT_EQ(left->position.x, -90.0f);
    EXPECT_EQ(left->position.y, -90.0f);
}

TEST_F(GLWidgetTest, CentreLeavesRoomForMarginsAndATitle) {
    theme->border = 0.125f;
    theme->fontSize = Vector(0.25f, 0.5f);
    PlainWidget* const parent = Make("parent", Vector(1.0f, 1.0f), Vector(4.75f, 5.75f));
    PlainWidget* const child = Make("child", Vector(0.0f, 0.0f), Vector(2.0f, 1.0f));
    EXPECT_TRUE(parent->Centre(child, true, false));
    EXPECT_FLOAT_EQ(child->position.x, 1.0f);
    EXPECT_FLOAT_EQ(child->position.y, 0.0f);
    EXPECT_TRUE(parent->Centre(child, false, true));
    EXPECT_FLOAT_EQ(child->position.x, 1.0f);
    EXPECT_FLOAT_EQ(child->position.y, 1.5f);
}

TEST_F(GLWidgetTest, ClickAndChangeAreReportedOnce) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    EXPECT_FALSE(widget.BeenClicked());
    EXPECT_FALSE(widget.BeenChanged());
    widget.clicked = true;
    EXPECT_TRUE(widget.BeenClicked());
    EXPECT_FALSE(widget.BeenClicked());
    widget.changed = true;
    EXPECT_TRUE(widget.BeenChanged());
    EXPECT_FALSE(widget.BeenChanged());
}

TEST_F(GLWidgetTest, ClickedIsTheActiveFlagAndIsNotCleared) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    EXPECT_FALSE(widget.Clicked());
    widget.active = true;
    EXPECT_TRUE(widget.Clicked());
    EXPECT_TRUE(widget.Clicked());
}

TEST_F(GLWidgetTest, SetLevelClampsAndDoesNotEndTheDrag) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    widget.dragging = true;
    widget.SetLevel(0.25f);
    EXPECT_EQ(widget.GetLevel(), 0.25f);
    widget.SetLevel(-1.0f);
    EXPECT_EQ(widget.GetLevel(), 0.0f);
    widget.SetLevel(7.0f);
    EXPECT_EQ(widget.GetLevel(), 1.0f);
    EXPECT_TRUE(widget.Dragging());
}

TEST_F(GLWidgetTest, CurrentTextIsEmptyWithoutTextsAndOutsideTheList) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    EXPECT_EQ(widget.GetCurrentText(), "");
    widget.AddText("first");
    widget.AddText("second");
    EXPECT_EQ(widget.GetCurrentText(), "first");
    widget.current = 1;
    EXPECT_EQ(widget.GetCurrentText(), "second");
    widget.current = 2;
    EXPECT_EQ(widget.GetCurrentText(), "");
    widget.current = -1;
    EXPECT_EQ(widget.GetCurrentText(), "");
}

TEST_F(GLWidgetTest, WidgetsKeepTheirThemeWhenAnotherOfItsNameIsRegistered) {
    PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), nullptr);
    theme->border = 0.5f;
    Theme* const later = GLWidget::NewTheme("default");
    EXPECT_NE(later, theme);
    EXPECT_EQ(GLWidget::themes["default"], later);
    EXPECT_EQ(widget.theme, theme);
    EXPECT_EQ(widget.theme->border, 0.5f);
}

/// A green picture of the size of the screen, and a blue sheet above it.
class GroundTest : public DrawnWidgetTest {
protected:
    GroundTest() {
        theme->corner = 0.0f;
        theme->fillColour = Vector(1.0f, 1.0f, 1.0f);
        theme->fade = false;
        PlainSheet(*theme, 0, 255, 0);
        sheetTheme = *theme;
        PlainSheet(sheetTheme, 0, 0, 255);
        ground = new Button("ground", nullptr, Vector(-1.74f, -1.3f), theme, Vector(3.48f, 2.6f));
        sheet = new Opened<Button>("sheet", nullptr, Vector(0.2f, 0.1f), &sheetTheme,
                                   Vector(0.8f, 0.5f));
        GLWidget::widgets = {ground, sheet};
        GLWidget::UpdateWidgets(1);
    }

    static constexpr Colour kGround{0, 255, 0};
    static constexpr Colour kSheet{0, 0, 255};

    /// The colours in the sheet's place, and left of it.
    void ExpectColours(const Colour& inside, const Colour& outside) {
        Draw();
        EXPECT_EQ(At(0.6f, 0.4f), inside);
        EXPECT_EQ(At(-0.6f, 0.4f), outside);
        EXPECT_EQ(At(-1.7f, -1.25f), outside);
        EXPECT_EQ(At(1.7f, 1.25f), outside);
    }

    Theme sheetTheme;
    Button* ground;
    Opened<Button>* sheet;
};

/// Says that it hides what is below its box, and draws nothing.
class Hole : public PlainWidget {
public:
    using PlainWidget::PlainWidget;
    Vector GetOpaqueBox() const override {
        return {position.x, position.y, position.x + size.x, position.y + size.y};
    }
};

TEST_F(GroundTest, IsNotDrawnWhereAWidgetAfterItHidesIt) {
    Hole hole("hole", nullptr, Vector(-0.8f, 0.2f), theme);
    hole.size = Vector(0.4f, 0.4f);
    GLWidget::widgets.push_back(&hole);
    Draw();
    EXPECT_EQ(At(-0.6f, 0.4f), kBlack);
    EXPECT_EQ(At(-0.9f, 0.4f), kGround);
    EXPECT_EQ(At(-0.3f, 0.4f), kGround);
    EXPECT_EQ(At(-0.6f, 0.1f), kGround);
    EXPECT_EQ(At(-0.6f, 0.7f), kGround);
    EXPECT_EQ(At(0.6f, 0.4f), kSheet);

    // A place that is not a number is nowhere.
    hole.position.x = std::numeric_limits<float>::quiet_NaN();
    Draw();
    EXPECT_EQ(At(-0.6f, 0.4f), kGround);
    hole.position.x = -0.8f;

    // Widgets before it hide nothing of it.
    GLWidget::widgets = {&hole, ground};
    Draw();
    EXPECT_EQ(At(-0.6f, 0.4f), kGround);
    GLWidget::widgets.clear();
}

TEST_F(GroundTest, IsSeenAgainWhereASheetWasMovedAway) {
    ExpectColours(kSheet, kGround);
    *sheet += Vector(-1.2f, 0.0f);
    Draw();
    EXPECT_EQ(At(0.6f, 0.4f), kGround);
    EXPECT_EQ(At(-0.6f, 0.4f), kSheet);
}

TEST_F(GroundTest, IsSeenAgainWhereASheetIsHiddenOrDestroyed) {
    GLWidget::widgets.remove(sheet);
    ExpectColours(kGround, kGround);
    GLWidget::widgets.push_back(sheet);
    ExpectColours(kSheet, kGround);
    {
        const GLWidget::Dispatch dispatch;
        GLWidget::Destroy(sheet);
        ExpectColours(kGround, kGround);
    }
    ExpectColours(kGround, kGround);
}

TEST_F(GroundTest, IsSeenThroughASheetThatBecomesTranslucentOrCut) {
    const std::uint8_t clear[] = {0, 0, 255, 0};
    TextureData image;
    ASSERT_TRUE(image.Load(1, 1, true, clear));
    Theme glass = *theme;
    glass.image.Load(image, TextureDetails("", 0));
    Button pane("pane", nullptr, Vector(-0.8f, 0.2f), &glass, Vector(0.4f, 0.4f));
    GLWidget::widgets.push_back(&pane);
    ExpectColours(kSheet, kGround);

    sheetTheme.corner = 0.1f;
    Draw();
    EXPECT_EQ(At(0.23f, 0.57f), kGround);
    GLWidget::widgets.clear();
}

TEST_F(GroundTest, IsDrawnWholeWhereTheViewIsNotThatOfTheWidgets) {
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(-0.5f, 0.0f, 0.0f);
    Draw();
    EXPECT_EQ(At(0.7f, 0.4f), kGround);
    EXPECT_EQ(At(0.1f, 0.4f), kSheet);
    glLoadIdentity();

    // The program's own scissor box stays in force.
    glClear(GL_COLOR_BUFFER_BIT);
    glEnable(GL_SCISSOR_TEST);
    glScissor(0, 0, 400, 600);
    Draw();
    EXPECT_EQ(At(0.6f, 0.4f), kBlack);
    EXPECT_EQ(At(-0.6f, 0.4f), kGround);
    glDisable(GL_SCISSOR_TEST);
}

TEST_F(GroundTest, DrawingRestoresTheScissorBox) {
    glScissor(1, 2, 3, 4);
    Draw();
    GLint box[4] = {};
    glGetIntegerv(GL_SCISSOR_BOX, box);
    EXPECT_EQ(std::vector<GLint>(box, box + 4), (std::vector<GLint>{1, 2, 3, 4}));
    EXPECT_EQ(glIsEnabled(GL_SCISSOR_TEST), GL_FALSE);
}

class RenderWidgetsTest : public DrawnWidgetTest {
protected:
    static MatrixValues Projection() {
        MatrixValues values{};
        glGetFloatv(GL_PROJECTION_MATRIX, values.data());
        return values;
    }

    /// Records the OpenGL state at the time when it is drawn.
    class Witness : public PlainWidget {
    public:
        using PlainWidget::PlainWidget;
        void Render() override {
            order->push_back(this);
            projection = Projection();
            wasRendering = rendering;
            glGetIntegerv(GL_MATRIX_MODE, &matrixMode);
            for (std::size_t i = 0; i < std::size(kStates); ++i)
                states[i] = glIsEnabled(kStates[i]) == GL_TRUE;
        }

        static constexpr GLenum kStates[] = {GL_LIGHTING, GL_COLOR_MATERIAL, GL_TEXTURE_2D,
                                             GL_BLEND, GL_DEPTH_TEST};
        std::vector<GLWidget*>* order = nullptr;
        MatrixValues projection{};
        bool wasRendering = false;
        GLint matrixMode = 0;
        bool states[std::size(kStates)] = {};
    };

    Witness* MakeWitness(const std::string& name) {
        auto* const witness = new Witness(name, nullptr, Vector(0.0f, 0.0f), theme);
        witness->order = &order;
        GLWidget::widgets.push_back(witness);
        return witness;
    }

    std::vector<GLWidget*> order;
};

TEST_F(RenderWidgetsTest, EveryTopLevelWidgetIsDrawnInOrderWithRenderingSet) {
    Witness* const first = MakeWitness("first");
    Witness* const second = MakeWitness("second");
    EXPECT_TRUE(GLWidget::RenderWidgets());
    EXPECT_EQ(order, (std::vector<GLWidget*>{first, second}));
    EXPECT_TRUE(first->wasRendering);
    EXPECT_TRUE(second->wasRendering);
    EXPECT_FALSE(GLWidget::rendering);
}

TEST_F(RenderWidgetsTest, ProjectionSpansGuiSpaceAndTheModelViewIsSelected) {
    Witness* const witness = MakeWitness("w");
    GLWidget::RenderWidgets();
    EXPECT_EQ(witness->matrixMode, GL_MODELVIEW);
    EXPECT_FLOAT_EQ(witness->projection[0], 1.0f / (1.3f * 4.0f / 3.0f));
    EXPECT_FLOAT_EQ(witness->projection[5], 1.0f / 1.3f);
    EXPECT_FLOAT_EQ(witness->projection[10], -1.0f);
    EXPECT_FLOAT_EQ(witness->projection[12], 0.0f);
    EXPECT_FLOAT_EQ(witness->projection[13], 0.0f);
    EXPECT_FLOAT_EQ(witness->projection[14], 0.0f);
}

TEST_F(RenderWidgetsTest, WidgetsFindTexturingAndDepthTestOnAndTheRestOff) {
    Witness* const witness = MakeWitness("w");
    glEnable(GL_LIGHTING);
    glEnable(GL_COLOR_MATERIAL);
    glEnable(GL_BLEND);
    GLWidget::RenderWidgets();
    const bool expected[] = {false, false, true, false, true};
    for (std::size_t i = 0; i < std::size(expected); ++i)
        EXPECT_EQ(witness->states[i], expected[i]) << i;
    EXPECT_EQ(glIsEnabled(GL_LIGHTING), GL_TRUE);
    EXPECT_EQ(glIsEnabled(GL_COLOR_MATERIAL), GL_TRUE);
    EXPECT_EQ(glIsEnabled(GL_BLEND), GL_TRUE);
    EXPECT_EQ(glIsEnabled(GL_TEXTURE_2D), GL_FALSE);
    EXPECT_EQ(glIsEnabled(GL_DEPTH_TEST), GL_FALSE);
}

TEST_F(RenderWidgetsTest, WithoutAnyWidgetYetTheProjectionIsSetAndRestored) {
    std::fill(std::begin(GLWidget::viewport), std::end(GLWidget::viewport), 0);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glTranslatef(0.5f, 0.0f, 0.0f);
    const MatrixValues before = Projection();
    GLint depthBefore = 0;
    glGetIntegerv(GL_PROJECTION_STACK_DEPTH, &depthBefore);
    EXPECT_TRUE(GLWidget::RenderWidgets());
    GLint depth = 0;
    GLint mode = 0;
    glGetIntegerv(GL_PROJECTION_STACK_DEPTH, &depth);
    glGetIntegerv(GL_MATRIX_MODE, &mode);
    EXPECT_EQ(Projection(), before);
    EXPECT_EQ(depth, depthBefore);
    EXPECT_EQ(mode, GL_MODELVIEW);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(RenderWidgetsTest, RenderWidgetsKeepsTheModelViewMatrixOfTheCaller) {
    glMatrixMode(GL_MODELVIEW);
    glTranslatef(0.25f, 0.0f, 0.0f);
    const MatrixValues before = ModelView();
    MakeWitness("w");
    GLWidget::RenderWidgets();
    EXPECT_EQ(ModelView(), before);
}

TEST_F(RenderWidgetsTest, ViewportIsReadFromOpenGL) {
    Toolkit::Get().readViewport = Toolkit::ReadViewportOfOpenGL;
    glViewport(1, 2, 320, 240);
    const PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), theme);
    EXPECT_EQ(GLWidget::viewport[0], 1);
    EXPECT_EQ(GLWidget::viewport[1], 2);
    EXPECT_EQ(GLWidget::viewport[2], 320);
    EXPECT_EQ(GLWidget::viewport[3], 240);
}

}  // namespace
