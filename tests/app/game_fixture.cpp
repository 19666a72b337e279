// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tests/app/game_fixture.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "app/tags.h"
#include "glwidget/glwidget.h"
#include "tests/support/font_access.h"

namespace {

/// The word of a layout for the widget, and the fields after its place.
struct Statement {
    std::string_view kind;
    std::string_view fields;
};

Statement StatementOf(tag::Role role) {
    switch (role) {
    case tag::Role::Button:
        return {"Butt", "Press"};
    case tag::Role::Slider:
        return {"Slide", "1 0"};
    case tag::Role::List:
        return {"Combo", ""};
    case tag::Role::Window:
        return {"Win", "0 Paper"};
    case tag::Role::Picture:
        return {"Butt", "TEX 1 1"};
    case tag::Role::Chart:
        return {"Chart", "2 1 Weeks"};
    case tag::Role::Label:
        break;
    }
    return {"Label", "-"};
}

/// Distance between two widgets, so that a click hits one of them only.
constexpr float kSpacing = 10.0f;

}  // namespace

void GameTest::SetUp() {
    Toolkit::Get().Reset();
    Toolkit::Get().readViewport = Toolkit::ReadViewportWithoutWindow;
    FontAccess::SetAdvances(GLWidget::font, 0.5f);
    testing::internal::CaptureStderr();
    listening = true;
    app = new App;
}

void GameTest::TearDown() {
    const std::string said = Said();
    if (HasFailure())
        std::fputs(said.c_str(), stderr);
}

std::string GameTest::Said() {
    if (!listening)
        return {};
    listening = false;
    return testing::internal::GetCapturedStderr();
}

void GameTest::WriteLayout(const char* path, std::initializer_list<std::string_view> leftOut) {
    std::ofstream layout(path);
    float y = 0.0f;
    for (const tag::Widget& widget : tag::kWidgets) {
        y += kSpacing;
        if (std::find(leftOut.begin(), leftOut.end(), widget.tag) != leftOut.end())
            continue;
        const Statement statement = StatementOf(widget.role);
        layout << "CADD " << statement.kind << ' ' << widget.tag << " NULL 0 " << -y << ' '
               << statement.fields << '\n';
    }
}

void GameTest::StartLayout(std::initializer_list<std::string_view> leftOut) {
    WriteLayout("layout", leftOut);
    GLWidget::StartGUI("layout");
}

void GameTest::StartGame(unsigned seed) {
    StartLayout();
    std::srand(seed);
    app->CreateWorld();
}

GLWidget& GameTest::Widget(std::string_view tag) {
    return *GLWidget::GetByTag(tag);
}

std::string GameTest::Text(std::string_view tag) {
    return Widget(tag).GetText();
}

void GameTest::Click(std::string_view tag) {
    GLWidget& widget = Widget(tag);
    const Vector box = widget.Getbbox();
    widget.MouseMove((box.x + box.z) / 2.0f, (box.y + box.w) / 2.0f);
    widget.MouseClick(true, false, false);
    widget.MouseClick(false, false, false);
}

void GameTest::SetLevel(std::string_view slider, float level) {
    Widget(slider).SetLevel(level);
}
