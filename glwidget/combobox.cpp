// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/combobox.h"

#include <GL/gl.h>

#include <algorithm>
#include <cmath>

#include "glwidget/button.h"
#include "glwidget/drawing.h"
#include "quarn2/trace.h"

namespace {

constexpr char kButtonCaption[] = " ";
constexpr float kOpenDepth = -1.0f;

/// Half of the drop button's arrow, as a share of the button's shorter side.
constexpr float kArrowShare = 0.25f;

}  // namespace

Combobox::Combobox(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme)
    : GLWidget(name, parent, position, theme) {
    TraceFrame frame("Combobox", "Combobox");
    Theme* const buttonTheme = ThemeNamed(kButtonTheme, kButtonTheme);
    dropButton.reset(
        new Button("__" + name + "dropbox", this, Vector(0.0f, 0.0f), buttonTheme, kButtonCaption));
    children.push_back(dropButton.get());
    const float margins = 2.0f * GetTheme().Margin();
    const Vector button = dropButton->Getbbox();
    size = Vector(margins + button.z, margins + button.w);
}

Combobox::~Combobox() {
    // Destroying the button calls Forget, which uses dropButton.
    dropButton.reset();
}

void Combobox::Forget(const Gone& gone) {
    GLWidget::Forget(gone);
    if (gone.contains(dropButton.get()))
        static_cast<void>(dropButton.release());
}

Vector Combobox::ButtonBox() const {
    return dropButton ? dropButton->Getbbox() : Vector(0.0f, 0.0f, 0.0f, 0.0f);
}

bool Combobox::AddText(std::string_view newText) {
    TraceFrame frame("AddText", "Combobox");
    GLWidget::AddText(newText);
    // The box never shrinks, so texts for which it has room need not be measured again.
    if (measuredWith != fontLoads)
        measured = 0;
    measuredWith = fontLoads;
    for (; measured < texts.size(); ++measured) {
        const float width = MeasureText(*theme, texts[measured]) + 2.0f * theme->fontSize.x;
        size.x = std::max(size.x, 2.0f * theme->Margin() + width + ButtonBox().z);
    }
    return true;
}

bool Combobox::SetCurrentText(std::int32_t index) {
    TraceFrame frame("SetCurrentText", "Combobox");
    if (index >= 0 && index < ItemCount())
        current = index;
    return true;
}

bool Combobox::MouseMove(float x, float y) {
    TraceFrame frame("MouseMove", "Combobox");
    mouse = Vector(x, y);
    container::MoveMouse(children, x - position.x, y - position.y);
    return true;
}

bool Combobox::MouseClick(bool left, bool middle, bool right) {
    TraceFrame frame("MouseClick", "Combobox");
    const Dispatch dispatch;
    container::Click(children, left, middle, right);
    const bool held = (dropButton && dropButton->Clicked()) || (left && MouseInBox());
    if (!edgeLatch && held && !buttons.left) {
        edgeLatch = true;
        open = !open;
        left = false;  // the list must not use this press again
    } else if (!held) {
        edgeLatch = false;
    }
    UseList(left);
    depth = open ? kOpenDepth : 0.0f;
    buttons = {left, middle, right};
    return true;
}

void Combobox::UseList(bool left) {
    if (!MouseInList()) {
        hovered = -1;
        return;
    }
    // kept: rounded, so that each row begins half a row too high and the lowest half row has the
    // index after the last item
    const float rowHeight = 2.0f * theme->fontSize.y;
    const auto row = static_cast<std::int32_t>(std::lround((position.y - mouse.y) / rowHeight));
    if (left == buttons.left) {
        hovered = row;
        return;
    }
    if (row != current)
        changed = true;
    SetCurrentText(row);
    open = false;
}

float Combobox::ListHeight() const {
    return 2.0f * static_cast<float>(texts.size()) * theme->fontSize.y;
}

bool Combobox::MouseInBox() const {
    return position.x < mouse.x && mouse.x < position.x + size.x && position.y < mouse.y
           && mouse.y < position.y + size.y;
}

bool Combobox::MouseInList() const {
    return open && position.x < mouse.x && mouse.x < position.x + size.x
           && position.y - ListHeight() < mouse.y && mouse.y < position.y;
}

void Combobox::Render() {
    TraceFrame frame("Render", "Combobox");
    DisableDepthTest();
    SetTexturing(false);
    EnableBlending();
    const MatrixScope matrix;
    Translate(position.x, position.y);
    DrawBox();
    if (open)
        DrawList();
}

void Combobox::AddAppearance(Fingerprint& print) {
    AddBase(print);
    print.Add(current);
    print.Add(open);
    if (open) {
        print.Add(hovered);
        print.Add(texts.size());
        for (const std::string& item : texts)
            print.Add(item);
    } else {
        print.Add(GetCurrentText());
    }
    print.Add(dropButton != nullptr);
    if (dropButton)
        dropButton->AddAppearance(print);
}

void Combobox::DrawBox() const {
    DrawPanel(0.0f, size.y);
    DrawButton();
    if (current < 0 || current >= ItemCount())
        return;
    // While the list is open its first row covers the lower part of the box.
    const float bottom = open ? theme->fontSize.y : 0.0f;
    DrawItem(texts[static_cast<std::size_t>(current)], (bottom + size.y) / 2.0f);
}

void Combobox::DrawButton() const {
    if (!dropButton)
        return;
    dropButton->Render();
    DrawArrow();
}

void Combobox::DrawArrow() const {
    const Vector button = dropButton->Getbbox();
    const float x = (button.x + button.z) / 2.0f;
    const float y = (button.y + button.w) / 2.0f;
    const float half = kArrowShare * std::min(button.z - button.x, button.w - button.y);
    SetColour(theme->fillColour, theme->bright);
    const Vertex vertices[] = {{0.0f, 0.0f, x - half, y + half / 2.0f},
                               {0.0f, 0.0f, x + half, y + half / 2.0f},
                               {0.0f, 0.0f, x, y - half}};
    DrawShape(Shape::Triangle, vertices);
}

void Combobox::DrawList() const {
    // The middle of the first row is the lower edge of the box.
    const float top = texts.empty() ? 0.0f : theme->fontSize.y;
    DrawPanel(-ListHeight(), ListHeight() + top);
    if (hovered >= 0 && hovered < ItemCount())
        DrawMark();
    for (std::size_t row = 0; row < texts.size(); ++row)
        DrawItem(texts[row], -2.0f * static_cast<float>(row) * theme->fontSize.y);
    DrawButton();
}

void Combobox::DrawPanel(float bottom, float height) const {
    const MatrixScope matrix;
    Translate(size.x / 2.0f, bottom + height / 2.0f);
    glLineWidth(theme->lineWidth);
    // The list's corners are cut no deeper than the box's, however long the list is.
    const float cut = height > 0.0f ? theme->corner * size.y / height : 0.0f;
    container::DrawPanel(*theme, Brightness(*theme, highlight), size.x, height, cut);
}

void Combobox::DrawMark() const {
    const float middle = -2.0f * static_cast<float>(hovered) * theme->fontSize.y;
    const float top = middle + theme->fontSize.y;
    const float bottom = std::max(middle - theme->fontSize.y, -ListHeight());
    SetColour(theme->fillColour, theme->bright, theme->opacity);
    glRectf(0.0f, bottom, size.x, top);
    SetPolygonMode(PolygonMode::Line);
    SetColour(theme->lineColour, theme->bright, theme->opacity);
    glRectf(0.0f, bottom, size.x, top);
    SetPolygonMode(PolygonMode::Fill);
}

float Combobox::ItemLeft() const {
    return ButtonBox().z + theme->Margin() + theme->fontSize.x;
}

void Combobox::DrawItem(const std::string& item, float y) const {
    const MatrixScope matrix;
    Translate(ItemLeft(), y - theme->fontSize.y / 2.0f);
    SetColour(theme->textColour);
    PrintText(*theme, item);
}
