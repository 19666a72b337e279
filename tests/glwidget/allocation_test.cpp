// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <sstream>

#include "glwidget/glwidget.h"
#include "quarn2/trace.h"
#include "tests/glwidget/widget_test.h"
#include "tests/support/allocations.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr const char* kLayout =
    "CADD Win win NULL -1.5 -1 1 A window\n"
    "CADD Label label win 0 0 a label of several words and 100%\n"
    "CADD Butt button win 0 0.2 press\n"
    "CADD Check check win 0 0.3 tick\n"
    "CADD Frame frame win 0 0.4 1\n"
    "CADD Opt one frame 0 0 one\n"
    "CADD Opt two frame 0 0.2 two\n"
    "CADD Slide slide win 0 0.8 0.5 0\n"
    "CADD Combo combo win 0.6 0\n"
    "TEXT combo an item\n"
    "TEXT combo another item\n"
    "CADD Text text win 0.6 0.4 10 3\n"
    "CADD TWin tabs NULL 0 0\n"
    "NTAB tabs 0 First\n"
    "NTAB tabs 1 Second\n"
    "TADD 0 Check left tabs 0 0 left\n"
    "TADD 1 Check right tabs 0 0 right\n";

/// Widgets of every kind, while the call trace is recorded.
class AllocationTest : public WidgetTest {
protected:
    AllocationTest() {
        std::istringstream layout(kLayout);
        testing::internal::CaptureStderr();
        GLWidget::StartGUI(layout, "test.gui");
        testing::internal::GetCapturedStderr();
        trace::Start();
    }
    ~AllocationTest() override {
        trace::tracing = false;
        trace::Frames().clear();
    }

    /// One frame; the mouse moves on and in time reaches every part of the screen.
    static void Frame(int number) {
        const int step = number * 37;
        GLWidget::MouseMoveWidgets(
            Vector(static_cast<float>(step % 800), static_cast<float>(step % 600)));
        GLWidget::MouseClickWidgets(number % 3 == 0, number % 5 == 0, false);
        GLWidget::UpdateWidgets(16);
    }

    WorkingFolder directory;
};

TEST_F(AllocationTest, HundredFramesOfDispatchAndUpdateAllocateNothing) {
    const std::size_t before = AllocationCount();
    for (int number = 0; number < 100; ++number)
        Frame(number);
    EXPECT_EQ(AllocationCount() - before, 0u);
}

TEST_F(AllocationTest, ReadingTheStateOfTheWidgetsAllocatesNothing) {
    const std::size_t before = AllocationCount();
    for (int number = 0; number < 100; ++number) {
        GLWidget::GetByTag("button")->BeenClicked();
        GLWidget::GetByTag("slide")->GetLevel();
        GLWidget::GetByTag("combo")->BeenChanged();
        GLWidget::GetByTag("combo")->GetCurrentText();
    }
    EXPECT_EQ(AllocationCount() - before, 0u);
}

TEST_F(AllocationTest, SettingTheSameTextAllocatesNothing) {
    GLWidget* const label = GLWidget::GetByTag("label");
    label->SetText("the same text over and over: 100%%");
    const std::size_t before = AllocationCount();
    for (int number = 0; number < 100; ++number)
        label->SetText("the same text over and over: 100%%");
    EXPECT_EQ(AllocationCount() - before, 0u);
}

TEST_F(AllocationTest, SettingTextsNoLongerThanEarlierOnesAllocatesNothing) {
    GLWidget* const label = GLWidget::GetByTag("label");
    label->SetText("an ever changing text of many letters");
    const std::size_t before = AllocationCount();
    for (int number = 0; number < 100; ++number) {
        label->SetText(number % 2 == 0 ? std::string_view("a text that changes with every frame")
                                       : std::string_view("a text that alters with every frame"));
    }
    EXPECT_EQ(AllocationCount() - before, 0u);
}

}  // namespace
