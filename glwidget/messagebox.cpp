// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/messagebox.h"

#include <array>
#include <string_view>
#include <vector>

#include "glwidget/button.h"
#include "glwidget/frame.h"
#include "glwidget/glwidget.h"
#include "glwidget/glwindow.h"
#include "glwidget/label.h"
#include "quarn2/trace.h"

namespace {

struct Answer {
    std::string_view tag;
    std::string_view caption;
    std::uint32_t code;
};

constexpr Answer kOk{"__msgbox_ok", "OK", 1};
constexpr Answer kCancel{"__msgbox_cancel", "Cancel", 2};
constexpr Answer kYes{"__msgbox_yes", "Yes", 4};
constexpr Answer kNo{"__msgbox_no", "No", 8};
constexpr std::array kAnswers{kOk, kCancel, kYes, kNo};

constexpr int kOkAlone = 1;
constexpr float kMessageHeight = 0.2f;  ///< above the buttons
constexpr float kButtonStep = 0.2f;     ///< kept: also for wide captions

/// The buttons of a set, from left to right. An unknown set has none.
std::vector<Answer> AnswersOf(int buttons) {
    switch (buttons) {
    case 3:
        return {kOk, kCancel};
    case 12:
        return {kYes, kNo};
    case 14:
        return {kYes, kNo, kCancel};
    default:
        return {};
    }
}

Button* MakeButton(GLWidget* parent, float x, Theme* theme, const Answer& answer) {
    auto* const button = new Button(std::string(answer.tag), parent, Vector(x, 0.0f), theme,
                                    std::string(answer.caption));
    parent->AddChild(button);
    return button;
}

GLWidget* MakeButtonRow(GLWidget* window, Theme* theme, int buttons) {
    auto* const row = new Frame("__msgbox_frm", window, Vector(0.0f, 0.0f), theme, false);
    window->AddChild(row);
    float x = 0.0f;
    for (const Answer& answer : AnswersOf(buttons)) {
        MakeButton(row, x, theme, answer);
        x += kButtonStep;
    }
    return row;
}

}  // namespace

bool ShowMessageBox(const std::string& message, int buttons) {
    Theme* const theme = GLWidget::ThemeNamed("messagebox", "messagebox.theme");
    if (GLWidget::GetByTag("__msgbox", false) != nullptr)
        return true;

    auto* const window =
        new GLWindow("__msgbox", nullptr, Vector(0.0f, 0.0f), theme, "Message box", true);
    GLWidget::widgets.push_back(window);
    auto* const label =
        new Label("__msgbox_message", window, Vector(0.0f, kMessageHeight), theme, message);
    window->AddChild(label);
    GLWidget* const answers = buttons == kOkAlone ? MakeButton(window, 0.0f, theme, kOk)
                                                  : MakeButtonRow(window, theme, buttons);
    window->Solidify();
    window->Centre(answers, true, false);
    window->Centre(label, true, false);
    const Vector box = window->Getbbox();
    *window += Vector(-(box.z - box.x) / 2.0f, -(box.w - box.y) / 2.0f);
    return true;
}

void CompleteMessageBox() {
    TraceFrame frame("CompleteMessageBox", "GLWidget");
    bool answered = false;
    for (const Answer& answer : kAnswers) {
        const auto entry = GLWidget::tags.find(answer.tag);
        if (entry == GLWidget::tags.end() || entry->second == nullptr
            || !entry->second->BeenClicked())
            continue;
        GLWidget::msgboxResult = answer.code;
        answered = true;
    }
    if (!answered)
        return;
    // kept: the label's tag is "__msgbox_message", so label and frame are not destroyed
    for (const std::string_view tag : {std::string_view("__msgbox"), kOk.tag, kCancel.tag, kYes.tag,
                                       kNo.tag, std::string_view("__msgbox_msg")}) {
        GLWidget::Destroy(GLWidget::GetByTag(tag, false));
        GLWidget::tags.find(tag)->second = nullptr;
    }
}
