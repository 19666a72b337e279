// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <sstream>

#include "glwidget/glwidget.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/support/allocations.h"

namespace {

/// The list and the text box are on a tab each.
constexpr char kLayout[] =
    "CADD Win win NULL -1.5 -1 1 A window of 100%\n"
    "CADD Label label win 0 0 a label of several words and 100%\n"
    "CADD Butt button win 0 0.2 press\n"
    "CADD Check check win 0 0.3 tick\n"
    "CADD Frame frame win 0 0.4 1\n"
    "CADD Opt one frame 0 0 one\n"
    "CADD Slide slide frame 0 0.2 0.5 0\n"
    "CADD TWin tabs NULL -1.5 0\n"
    "NTAB tabs 0 First\n"
    "NTAB tabs 1 Second\n"
    "TADD 0 Combo combo tabs 0 0.6\n"
    "TEXT combo an item that is long enough\n"
    "TEXT combo another one of 50%\n"
    "TADD 1 Text text tabs 0 0 10 3\n";

class DrawnAllocationTest : public DrawnWidgetTest {
protected:
    DrawnAllocationTest() {
        for (const char* name : {"tabwin_button.theme", "combo_button.theme"})
            GLWidget::NewTheme(name);
        std::istringstream layout(kLayout);
        testing::internal::CaptureStderr();
        GLWidget::StartGUI(layout, "test.gui");
        testing::internal::GetCapturedStderr();
        LoadFont();
    }
};

TEST_F(DrawnAllocationTest, DrawingAndTakingTheFingerprintAllocateNothing) {
    GLWidget* const tabs = GLWidget::GetByTag("tabs");
    GLWidget::GetByTag("text")->Focus();
    const auto drawBothTabs = [&] {
        for (const char* tag : {"__tabstab0First", "__tabstab1Second"}) {
            const Vector button = GLWidget::GetByTag(tag)->Getbbox();
            tabs->MouseMove(button.x + 0.01f, button.y + 0.01f);
            tabs->MouseClick(true, false, false);
            tabs->MouseClick(false, false, false);
            GLWidget::Appearance();
            GLWidget::RenderWidgets();
        }
    };
    // The list stays open under the button.
    const Vector box = GLWidget::GetByTag("combo")->Getbbox();
    GLWidget::GetByTag("combo")->MouseMove((box.x + box.z) / 2.0f, (box.y + box.w) / 2.0f);
    GLWidget::GetByTag("combo")->MouseClick(true, false, false);
    ASSERT_EQ(GLWidget::GetByTag("combo")->GetDepth(), -1.0f);
    drawBothTabs();
    glFinish();

    const std::size_t before = AllocationCount();
    ASSERT_GT(before, 0u);
    for (int frame = 0; frame < 10; ++frame)
        drawBothTabs();
    EXPECT_EQ(AllocationCount(), before);
}

TEST_F(DrawnAllocationTest, EditedTextBoxAllocatesNothingWhileNoKeyIsPressed) {
    GLWidget* const box = GLWidget::GetByTag("text");
    box->Focus();
    KeyFlags keys{};
    for (std::size_t letter = 'a'; letter <= 'z'; ++letter)
        keys[letter] = true;
    box->TextKeyPress(keys);
    keys.fill(false);
    box->TextKeyPress(keys);
    const std::size_t before = AllocationCount();
    for (int frame = 0; frame < 100; ++frame)
        box->TextKeyPress(keys);
    EXPECT_EQ(AllocationCount(), before);
    EXPECT_EQ(box->GetText().substr(0, 26), "abcdefghijklmnopqrstuvwxyz");
}

}  // namespace
