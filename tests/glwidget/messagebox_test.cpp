// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <algorithm>

#include "glwidget/button.h"
#include "tests/glwidget/widget_test.h"
#include "tests/support/temporary_folder.h"

namespace {

class MessageBoxTest : public WidgetTest {
protected:
    void SetUp() override {
        // Without a texture, so that no picture is loaded.
        directory.Write("messagebox.theme",
                        "1 1 1\n1 1 1\n1 1 1\n1 1 1\n1\n1\n1\n0.005\n0.1\n1\n0.04 0.05\n"
                        "0.7 1\n0 0 0\n0.1\nNULL\n1\n");
    }

    static std::string Show(const std::string& message, int buttons) {
        testing::internal::CaptureStderr();
        EXPECT_TRUE(GLWidget::MessageBox(message, buttons));
        return testing::internal::GetCapturedStderr();
    }
    static GLWidget* Find(std::string_view tag) { return GLWidget::GetByTag(tag, false); }

    /// A press with the mouse over the button, and its release.
    static void Click(std::string_view tag) {
        GLWidget* const button = Find(tag);
        ASSERT_NE(button, nullptr) << tag;
        const Vector box = button->Getbbox();
        button->MouseMove((box.x + box.z) / 2.0f, (box.y + box.w) / 2.0f);
        button->MouseClick(true, false, false);
        button->MouseClick(false, false, false);
    }
    static bool OnTop(const GLWidget* widget) {
        return std::count(GLWidget::widgets.begin(), GLWidget::widgets.end(), widget) != 0;
    }

    WorkingFolder directory;
};

TEST_F(MessageBoxTest, BoxIsATopLevelWindowInTheMiddleOfTheScreen) {
    Show("Not enough grain", 3);
    GLWidget* const window = Find("__msgbox");
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(OnTop(window));
    EXPECT_EQ(window->GetType(), "GLWindow");
    EXPECT_EQ(window->GetText(), "Message box");
    EXPECT_EQ(window->GetParent(), nullptr);
    const Vector box = window->Getbbox();
    EXPECT_NEAR(box.x + box.z, 0.0f, 1e-6f);
    EXPECT_NEAR(box.y + box.w, 0.0f, 1e-6f);
    EXPECT_GT(box.z, 0.0f);
    EXPECT_GT(box.w, 0.0f);
}

TEST_F(MessageBoxTest, MessageIsALabelAboveTheButtons) {
    Show("Not enough grain", 3);
    GLWidget* const label = Find("__msgbox_message");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->GetType(), "Label");
    EXPECT_EQ(label->GetText(), "Not enough grain");
    EXPECT_EQ(label->GetParent(), Find("__msgbox"));
    EXPECT_EQ(label->Getbbox().y, 0.2f);
}

TEST_F(MessageBoxTest, WindowCanBeDragged) {
    Show("message", 1);
    GLWidget* const window = Find("__msgbox");
    const Vector box = window->Getbbox();
    window->MouseMove(0.0f, box.w - 0.01f);
    window->MouseClick(true, false, false);
    EXPECT_TRUE(window->Dragging());
}

TEST_F(MessageBoxTest, OkAloneIsCentredInTheWindowWithoutAFrame) {
    Show("a rather long message to the player", 1);
    GLWidget* const window = Find("__msgbox");
    GLWidget* const ok = Find("__msgbox_ok");
    ASSERT_NE(ok, nullptr);
    EXPECT_EQ(ok->GetText(), "OK");
    EXPECT_EQ(ok->GetParent(), window);
    EXPECT_EQ(Find("__msgbox_frm"), nullptr);
    const Vector outer = window->Getbbox();
    const Vector box = ok->Getbbox();
    EXPECT_NEAR((box.x + box.z) / 2.0f, (outer.z - outer.x - 6.0f * 0.005f) / 2.0f, 1e-6f);
    EXPECT_EQ(box.y, 0.0f);
    const Vector label = Find("__msgbox_message")->Getbbox();
    EXPECT_NEAR((label.x + label.z) / 2.0f, (outer.z - outer.x - 6.0f * 0.005f) / 2.0f, 1e-6f);
}

struct Set {
    int buttons;
    std::vector<std::pair<const char*, const char*>> answers;  ///< tag and caption
};

class MessageBoxSetTest : public MessageBoxTest, public testing::WithParamInterface<Set> {};

TEST_P(MessageBoxSetTest, ButtonsOfTheSetStandInAFrameAtAFixedDistanceFromEachOther) {
    Show("message", GetParam().buttons);
    GLWidget* const frame = Find("__msgbox_frm");
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->GetType(), "Frame");
    EXPECT_EQ(frame->GetParent(), Find("__msgbox"));
    float x = 0.0f;
    for (const auto& [tag, caption] : GetParam().answers) {
        GLWidget* const button = Find(tag);
        ASSERT_NE(button, nullptr) << tag;
        EXPECT_EQ(button->GetText(), caption);
        EXPECT_EQ(button->GetParent(), frame);
        EXPECT_FLOAT_EQ(button->Getbbox().x, x);
        EXPECT_EQ(button->Getbbox().y, 0.0f);
        x += 0.2f;
    }
    const auto shown =
        std::count_if(GLWidget::tags.begin(), GLWidget::tags.end(), [](const auto& entry) {
            return entry.second != nullptr && entry.second->GetType() == "Button";
        });
    EXPECT_EQ(static_cast<std::size_t>(shown), GetParam().answers.size());
}

INSTANTIATE_TEST_SUITE_P(
    Sets, MessageBoxSetTest,
    testing::Values(
        Set{3, {{"__msgbox_ok", "OK"}, {"__msgbox_cancel", "Cancel"}}},
        Set{12, {{"__msgbox_yes", "Yes"}, {"__msgbox_no", "No"}}},
        Set{14, {{"__msgbox_yes", "Yes"}, {"__msgbox_no", "No"}, {"__msgbox_cancel", "Cancel"}}}));

TEST_F(MessageBoxTest, ThemeIsReadFromItsFileOnce) {
    EXPECT_NE(Show("message", 1).find("reading theme messagebox.theme\n"), std::string::npos);
    ASSERT_NE(GLWidget::themes["messagebox"], nullptr);
    EXPECT_EQ(Show("message", 1), "");
}

TEST_F(MessageBoxTest, ShowingABoxClearsTheEarlierAnswer) {
    GLWidget::msgboxResult = 8;
    Show("message", 1);
    EXPECT_EQ(GLWidget::msgboxResult, 0u);
}

TEST_F(MessageBoxTest, SecondBoxWhileOneIsOpenChangesNothing) {
    Show("first", 3);
    GLWidget* const window = Find("__msgbox");
    EXPECT_EQ(Show("second", 12), "");
    EXPECT_EQ(Find("__msgbox"), window);
    EXPECT_EQ(Find("__msgbox_message")->GetText(), "first");
    EXPECT_EQ(Find("__msgbox_yes"), nullptr);
    EXPECT_EQ(GLWidget::widgets.size(), 1u);
}

TEST_F(MessageBoxTest, CancelGivesItsCodeAtTheNextUpdateAndClosesTheBox) {
    Show("message", 3);
    Click("__msgbox_cancel");
    EXPECT_EQ(GLWidget::msgboxResult, 0u);
    EXPECT_NE(Find("__msgbox"), nullptr);
    GLWidget::UpdateWidgets(16);
    EXPECT_EQ(GLWidget::msgboxResult, 2u);
    EXPECT_EQ(Find("__msgbox"), nullptr);
    EXPECT_TRUE(GLWidget::widgets.empty());
}

TEST_F(MessageBoxTest, EveryAnswerHasItsCode) {
    const std::tuple<int, const char*, std::uint32_t> cases[] = {
        {1, "__msgbox_ok", 1u},     {3, "__msgbox_ok", 1u},  {3, "__msgbox_cancel", 2u},
        {12, "__msgbox_yes", 4u},   {12, "__msgbox_no", 8u}, {14, "__msgbox_yes", 4u},
        {14, "__msgbox_cancel", 2u}};
    for (const auto& [buttons, tag, code] : cases) {
        Show("message", buttons);
        Click(tag);
        GLWidget::UpdateWidgets(16);
        EXPECT_EQ(GLWidget::msgboxResult, code) << tag;
    }
}

TEST_F(MessageBoxTest, BoxStaysOpenUntilItIsAnswered) {
    Show("message", 3);
    GLWidget::UpdateWidgets(16);
    EXPECT_NE(Find("__msgbox"), nullptr);
    EXPECT_EQ(GLWidget::msgboxResult, 0u);
}

TEST_F(MessageBoxTest, LaterInTheOrderOfTheAnswersWinsIfTwoWereClicked) {
    Show("message", 14);
    Click("__msgbox_no");
    Click("__msgbox_yes");
    Click("__msgbox_cancel");
    GLWidget::UpdateWidgets(16);
    EXPECT_EQ(GLWidget::msgboxResult, 8u);
    EXPECT_EQ(Find("__msgbox"), nullptr);
}

TEST_F(MessageBoxTest, ClosingClearsTheTagsOfBoxAndButtonsButNotOfLabelAndFrame) {
    Show("message", 14);
    GLWidget* const label = Find("__msgbox_message");
    GLWidget* const frame = Find("__msgbox_frm");
    Click("__msgbox_yes");
    GLWidget::UpdateWidgets(16);
    for (const char* tag : {"__msgbox", "__msgbox_ok", "__msgbox_cancel", "__msgbox_yes",
                            "__msgbox_no", "__msgbox_msg"}) {
        ASSERT_EQ(GLWidget::tags.count(tag), 1u) << tag;
        EXPECT_EQ(GLWidget::tags.find(tag)->second, nullptr) << tag;
    }
    EXPECT_EQ(Find("__msgbox_message"), label);
    EXPECT_EQ(label->GetText(), "message");
    EXPECT_EQ(Find("__msgbox_frm"), frame);
    EXPECT_EQ(frame->GetType(), "Frame");
}

TEST_F(MessageBoxTest, LabelAndFrameOfAClosedBoxReferToNoDeletedWidget) {
    Show("message", 3);
    GLWidget* const label = Find("__msgbox_message");
    GLWidget* const frame = Find("__msgbox_frm");
    Click("__msgbox_ok");
    GLWidget::UpdateWidgets(16);
    EXPECT_EQ(label->GetParent(), nullptr);
    EXPECT_EQ(frame->GetParent(), nullptr);
    frame->MouseMove(0.0f, 0.0f);
    frame->MouseClick(true, false, false);
    frame->Update(16);
    frame->Solidify();
}

TEST_F(MessageBoxTest, NextBoxRegistersALabelAndAFrameOfItsOwn) {
    Show("first", 3);
    GLWidget* const label = Find("__msgbox_message");
    GLWidget* const frame = Find("__msgbox_frm");
    Click("__msgbox_ok");
    GLWidget::UpdateWidgets(16);
    Show("second", 12);
    EXPECT_NE(Find("__msgbox_message"), label);
    EXPECT_EQ(Find("__msgbox_message")->GetText(), "second");
    EXPECT_NE(Find("__msgbox_frm"), frame);
}

TEST_F(MessageBoxTest, NoWidgetHasTheTagsOfAClosedBoxNotEvenAnEarlierOne) {
    PlainWidget earlier("__msgbox_ok", nullptr, Vector(0.0f, 0.0f), theme);
    Show("message", 1);
    Click("__msgbox_ok");
    GLWidget::UpdateWidgets(16);
    EXPECT_EQ(GLWidget::msgboxResult, 1u);
    EXPECT_EQ(Find("__msgbox_ok"), nullptr);
}

TEST_F(MessageBoxTest, UnknownSetHasNoButtonsAndCannotBeClosed) {
    Show("message", 5);
    ASSERT_NE(Find("__msgbox_frm"), nullptr);
    GLWidget::MouseMoveWidgets(Vector(400.0f, 300.0f));
    GLWidget::MouseClickWidgets(true, false, false);
    GLWidget::MouseClickWidgets(false, false, false);
    GLWidget::UpdateWidgets(16);
    EXPECT_NE(Find("__msgbox"), nullptr);
    EXPECT_EQ(Find("__msgbox_ok"), nullptr);
    EXPECT_EQ(GLWidget::msgboxResult, 0u);
}

TEST_F(MessageBoxTest, OtherWidgetsKeepReceivingEventsWhileABoxIsOpen) {
    auto* const other = new PlainWidget("other", nullptr, Vector(-1.0f, -1.0f), theme);
    other->size = Vector(2.0f, 2.0f);
    GLWidget::widgets.push_back(other);
    Show("message", 1);
    GLWidget::MouseMoveWidgets(Vector(400.0f, 300.0f));
    GLWidget::MouseClickWidgets(true, false, false);
    EXPECT_TRUE(other->HasFocus());
    EXPECT_EQ(other->clicks, 1);
}

TEST_F(MessageBoxTest, ConstructingAWidgetAfterTheAnswerClearsIt) {
    Show("message", 1);
    Click("__msgbox_ok");
    GLWidget::UpdateWidgets(16);
    EXPECT_EQ(GLWidget::msgboxResult, 1u);
    const PlainWidget widget("w", nullptr, Vector(0.0f, 0.0f), theme);
    EXPECT_EQ(GLWidget::msgboxResult, 0u);
}

TEST_F(MessageBoxTest, ClickThroughTheDispatchFunctionsAnswersTheBox) {
    Show("message", 1);
    const Vector window = Find("__msgbox")->Getbbox();
    const Vector ok = Find("__msgbox_ok")->Getbbox();
    const float x = window.x + 3.0f * 0.005f + (ok.x + ok.z) / 2.0f;
    const float y = window.y + 3.0f * 0.005f + (ok.y + ok.w) / 2.0f;
    const Vector pixel((x / (1.3f * 4.0f / 3.0f) + 1.0f) * 400.0f, (1.0f - y / 1.3f) * 300.0f);
    GLWidget::MouseMoveWidgets(pixel);
    GLWidget::MouseClickWidgets(true, false, false);
    GLWidget::UpdateWidgets(16);
    EXPECT_EQ(GLWidget::msgboxResult, 1u);
    EXPECT_EQ(Find("__msgbox"), nullptr);
}

}  // namespace
