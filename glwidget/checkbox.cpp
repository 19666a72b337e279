// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/checkbox.h"

#include <algorithm>

#include "glwidget/drawing.h"
#include "quarn2/trace.h"

Checkbox::Checkbox(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
                   const std::string& caption)
    : GLWidget(name, parent, position, theme) {
    TraceFrame frame("Checkbox", "Checkbox");
    text = caption;
    const float side = GetTheme().boxSize;
    const Vector& glyph = GetTheme().fontSize;
    if (text.empty()) {
        size = Vector(side, side);
    } else {
        size = Vector(MeasureText(GetTheme(), text + " ") + side + glyph.x,
                      std::max(side, 2.0f * glyph.y));
    }
}

bool Checkbox::Pressed(bool left, bool middle, bool right) {
    const bool pressed = focus && left && !buttons.left;
    buttons = {left, middle, right};
    return pressed;
}

bool Checkbox::MouseClick(bool left, bool middle, bool right) {
    TraceFrame frame("MouseClick", "Checkbox");
    if (!Pressed(left, middle, right))
        return false;
    active = !active;
    flash = 1.0f;
    return true;
}

void Checkbox::Render() {
    TraceFrame frame("Render", "Checkbox");
    Assert("glwidget/checkbox", 6, "rendering", rendering);
    Draw(checkRect, checkMarkRect);
}

void Checkbox::AddAppearance(Fingerprint& print) {
    AddBase(print);
    print.Add(active);
    print.Add(flash);
    print.Add(text);
}

void Checkbox::Draw(const Vector& box, const Vector& mark) {
    const MatrixScope matrix;
    EnableBlending();
    DisableDepthTest();
    SetTexturing(true);
    theme->image.Bind();

    const float side = theme->boxSize;
    SetColour(theme->fillColour, Brightness(*theme, highlight));
    DrawSheetQuad(position, side, box);
    if (active || flash > kFaded) {
        const float strength = theme->bright * (active ? 1.0f - flash : flash);
        SetColour(theme->fillColour, strength, strength);
        DrawSheetQuad(position, side, mark);
    }

    drawnText.assign(1, ' ').append(text);
    SetColour(theme->textColour);
    Translate(position.x + side, position.y + side / 4.0f);
    PrintText(*theme, drawnText);
}
