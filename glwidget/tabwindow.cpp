// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/tabwindow.h"

#include <GL/gl.h>

#include <algorithm>
#include <iostream>
#include <string>

#include "glwidget/button.h"
#include "glwidget/drawing.h"
#include "quarn2/trace.h"

namespace {

constexpr char kUnnamed[] = "unnamed";

}  // namespace

TabWindow::TabWindow(const std::string& name, GLWidget* parent, const Vector& position,
                     Theme* theme)
    : GLWindow(name, parent, position, theme, "", false) {
    TraceFrame frame("TabWindow", "TabWindow");
}

TabWindow::~TabWindow() {
    // Destroying a button calls Forget, which uses the list: no tab may be deleted yet.
    for (Tab& tab : tabs)
        tab.button.reset();
}

void TabWindow::SetTabText(int index, std::string_view newText) {
    TraceFrame frame("SetTabText", "TabWindow");
    if (index < 0 || static_cast<std::size_t>(index) >= tabs.size())
        return;
    Tab& tab = tabs[static_cast<std::size_t>(index)];
    tab.name = newText;
    if (tab.button)
        tab.button->SetText(newText);
}

bool TabWindow::MouseClick(bool left, bool middle, bool right) {
    TraceFrame frame("MouseClick", "TabWindow");
    const Dispatch dispatch;
    GLWindow::MouseClick(left, middle, right);
    ForEachButton([&](Button& button) { button.MouseClick(left, middle, right); });
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        if (tabs[i].button && tabs[i].button->Clicked()) {
            children = tabs[i].widgets;
            shownTab = static_cast<std::uint32_t>(i);
        }
    }
    return true;
}

bool TabWindow::MouseMove(float x, float y) {
    TraceFrame frame("MouseMove", "TabWindow");
    const Dispatch dispatch;
    ForEachButton([&](Button& button) { button.MouseMove(x, y); });
    return GLWindow::MouseMove(x, y);
}

bool TabWindow::Update(int milliseconds) {
    TraceFrame frame("Update", "TabWindow");
    const Dispatch dispatch;
    GLWindow::Update(milliseconds);
    ForEachButton([&](Button& button) { button.Update(milliseconds); });
    return true;
}

Vector TabWindow::operator+=(const Vector& offset) {
    TraceFrame frame("operator+=", "TabWindow");
    GLWindow::operator+=(offset);
    ForEachButton([&](Button& button) { button += offset; });
    return position;
}

bool TabWindow::Solidify() {
    TraceFrame frame("Solidify", "TabWindow");
    const Dispatch dispatch;
    GLWindow::Solidify();
    if (!tabs.empty())
        children = tabs.front().widgets;  // kept: the first tab's, even if shownTab is another
    const Vector row(position.x + size.y * theme->corner,
                     position.y + size.y - 1.75f * theme->fontSize.y);
    ForEachButton([&](Button& button) { button += row; });
    FitButtons();
    return true;
}

bool TabWindow::AddTab(int index, std::string_view title) {
    TraceFrame frame("AddTab", "TabWindow");
    if (!EnsureTab(index))
        return false;
    Tab& tab = tabs[static_cast<std::size_t>(index)];
    tab.name = title;
    tab.button.reset();
    tab.widgets.clear();
    RebuildButtons();
    return true;
}

bool TabWindow::AddToTab(int index, GLWidget* widget) {
    TraceFrame frame("AddToTab", "TabWindow");
    const Dispatch dispatch;
    if (!EnsureTab(index))
        return false;
    if (!AddChild(widget))
        return false;
    Tab& tab = tabs[static_cast<std::size_t>(index)];
    if (tab.name.empty())
        tab.name = kUnnamed;
    tab.widgets.push_back(widget);
    FitButtons();
    return true;
}

bool TabWindow::Holds(const GLWidget* widget) const {
    return GLWindow::Holds(widget) || std::ranges::any_of(tabs, [&](const Tab& tab) {
               return std::ranges::any_of(
                   tab.widgets, [&](const GLWidget* child) { return child->Holds(widget); });
           });
}

void TabWindow::Forget(const Gone& gone) {
    GLWindow::Forget(gone);
    for (Tab& tab : tabs) {
        std::erase_if(tab.widgets, [&](const GLWidget* widget) { return gone.contains(widget); });
        if (gone.contains(tab.button.get()))
            static_cast<void>(tab.button.release());
    }
}

bool TabWindow::EnsureTab(int index) {
    if (index < 0 || index >= kMaxTabs) {
        std::cerr << "tabwindow " << name << " cannot have a tab " << index << '\n';
        return false;
    }
    const auto needed = static_cast<std::size_t>(index) + 1;
    if (tabs.size() < needed)
        tabs.resize(needed);
    return true;
}

void TabWindow::RebuildButtons() {
    Theme* const buttonTheme = ThemeNamed(kButtonTheme, kButtonTheme);
    Vector offset(0.0f, 0.0f);
    for (std::size_t i = 0; i < tabs.size(); ++i) {
        Tab& tab = tabs[i];
        tab.button.reset();
        const std::string tag = "__" + name + "tab" + std::to_string(i) + tab.name;
        tab.button.reset(new Button(tag, this, offset, buttonTheme, tab.name));
        const Vector box = tab.button->Getbbox();
        offset.x += box.z - box.x + 2.0f * theme->border;
    }
}

void TabWindow::FitButtons() {
    float total = size.y * theme->corner;
    ForEachButton([&](Button& button) {
        const Vector box = button.Getbbox();
        total += box.z - box.x + 2.0f * theme->border;
    });
    size.x = std::max(size.x, total);
}

void TabWindow::Render() {
    TraceFrame frame("Render", "TabWindow");
    DisableDepthTest();
    SetTexturing(false);
    EnableBlending();
    {
        const MatrixScope matrix;
        Translate(position.x + size.x / 2.0f, position.y + size.y / 2.0f);
        glLineWidth(theme->lineWidth);
        DrawPanel();
        DrawSeparator(size.y / 2.0f - 2.0f * theme->fontSize.y);
    }
    DrawButtons();
    DrawChildren();
}

void TabWindow::AddAppearance(Fingerprint& print) {
    FocusShownTab();
    GLWindow::AddAppearance(print);
    print.Add(tabs.size());
    ForEachButton([&](Button& button) { button.AddAppearance(print); });
}

void TabWindow::FocusShownTab() {
    if (shownTab < tabs.size() && tabs[shownTab].button)
        tabs[shownTab].button->Focus();
}

void TabWindow::DrawButtons() {
    const MatrixScope matrix;
    SetColour(theme->textColour);
    FocusShownTab();
    ForEachButton([](Button& button) { button.Render(); });
}
