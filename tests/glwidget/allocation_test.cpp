#include <gtest/gtest.h>

#include <cmath>
#include <optional>

#include "glwidget/button.h"
#include "glwidget/checkbox.h"
#include "glwidget/combobox.h"
#include "glwidget/frame.h"
#include "glwidget/glwindow.h"
#include "glwidget/label.h"
#include "glwidget/optionbox.h"
#include "glwidget/slider.h"
#include "glwidget/tabwindow.h"
#include "glwidget/textbox.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/widget_test.h"
#include "tests/support/allocations.h"

namespace {

const Vector kOrigin(0.0f, 0.0f);

/// One widget of every sort, in a tab window in a window.
struct EverySort {
    explicit EverySort(Theme* look) {
        for (const char* name : {"tabwin_button.theme", "combo_button.theme"})
            GLWidget::NewTheme(name);
        window.emplace("window", nullptr, Vector(-1.0f, -1.0f), look, "A window of 100%", true);
        tabs.emplace("tabs", &*window, kOrigin, look);
        tabs->AddTab(0, "First");
        tabs->AddTab(1, "Second");
        frame.emplace("frame", &*tabs, kOrigin, look, true);
        button.emplace("button", &*frame, kOrigin, look, "A long enough caption");
        check.emplace("check", &*frame, Vector(0.0f, 0.1f), look, "A long enough caption");
        option.emplace("option", &*frame, Vector(0.0f, 0.2f), look, "A long enough caption");
        slider.emplace("slider", &*frame, Vector(0.0f, 0.4f), look, Vector(1.0f, 0.0f));
        label.emplace("label", &*frame, Vector(0.0f, 0.5f), look, "A label of some 50% of words");
        list.emplace("list", &*tabs, Vector(0.0f, 1.0f), look);
        box.emplace("box", &*tabs, Vector(0.8f, 0.0f), look, 10, 3);
        list->AddText("An item that is long enough");
        list->AddText("Another item that is as long");
        for (GLWidget* widget : {static_cast<GLWidget*>(&*button), static_cast<GLWidget*>(&*check),
                                 static_cast<GLWidget*>(&*option), static_cast<GLWidget*>(&*slider),
                                 static_cast<GLWidget*>(&*label)})
            frame->AddChild(widget);
        tabs->AddToTab(0, &*frame);
        tabs->AddToTab(1, &*list);
        tabs->AddToTab(1, &*box);
        window->AddChild(&*tabs);
        window->Solidify();
        GLWidget::widgets = {&*window};
    }

    std::optional<GLWindow> window;
    std::optional<TabWindow> tabs;
    std::optional<Frame> frame;
    std::optional<Button> button;
    std::optional<Checkbox> check;
    std::optional<Optionbox> option;
    std::optional<Slider> slider;
    std::optional<Label> label;
    std::optional<Combobox> list;
    std::optional<Textbox> box;
};

/// One frame's events: the mouse sweeps over the screen and its button goes up and down.
void SendEvents(int frame, const KeyFlags& keys) {
    GLWidget::TextKeyPressWidgets(keys);
    const float sweep = static_cast<float>(frame);
    GLWidget::MouseMoveWidgets(
        Vector(std::fmod(sweep * 37.0f, 800.0f), std::fmod(sweep * 53.0f, 600.0f)));
    GLWidget::MouseClickWidgets(frame % 3 == 0, false, false);
    GLWidget::UpdateWidgets(16);
}

class AllocationTest : public WidgetTest {};

TEST_F(AllocationTest, EventsAndUpdatesAllocateNothing) {
    const EverySort every(theme);
    const KeyFlags noKeys{};
    SendEvents(0, noKeys);
    const std::size_t before = AllocationCount();
    ASSERT_GT(before, 0u);
    for (int frame = 0; frame < 1000; ++frame)
        SendEvents(frame, noKeys);
    EXPECT_EQ(AllocationCount(), before);
}

TEST_F(AllocationTest, EditedTextBoxAllocatesNothingWhileNoKeyIsStruck) {
    EverySort every(theme);
    every.box->Focus();
    KeyFlags keys{};
    for (int letter = 'a'; letter <= 'z'; ++letter)
        keys[static_cast<std::size_t>(letter)] = true;
    every.box->TextKeyPress(keys);
    keys.fill(false);
    every.box->TextKeyPress(keys);
    const std::size_t before = AllocationCount();
    ASSERT_GT(before, 0u);
    for (int frame = 0; frame < 100; ++frame)
        every.box->TextKeyPress(keys);
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_EQ(every.box->GetText().substr(0, 26), "abcdefghijklmnopqrstuvwxyz");
}

class DrawnAllocationTest : public DrawnWidgetTest {};

TEST_F(DrawnAllocationTest, DrawingAllocatesNothing) {
    LoadFont();
    EverySort every(theme);
    every.box->Focus();
    const auto drawBothTabs = [&] {
        for (const char* tag : {"__tabstab0First", "__tabstab1Second"}) {
            GLWidget* const button = GLWidget::GetByTag(tag);
            button->Focus();
            every.tabs->MouseClick(true, false, false);
            every.tabs->MouseClick(false, false, false);
            GLWidget::RenderWidgets();
        }
    };
    drawBothTabs();
    glFinish();
    const std::size_t before = AllocationCount();
    ASSERT_GT(before, 0u);
    for (int frame = 0; frame < 10; ++frame)
        drawBothTabs();
    EXPECT_EQ(AllocationCount(), before);
}

}  // namespace
