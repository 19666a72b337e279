// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/button.h"

#include <GL/gl.h>

#include "glwidget/drawing.h"
#include "quarn2/trace.h"

namespace {

constexpr float kHeightInGlyphs = 1.5f;

/// A button's corners are cut this much deeper than a window's.
constexpr float kCornerFactor = 3.0f;

}  // namespace

Button::Button(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
               const std::string& caption)
    : GLWidget(name, parent, position, theme) {
    TraceFrame frame("Button", "Button");
    text = caption;
    const Vector& glyph = GetTheme().fontSize;
    size = Vector(MeasureText(GetTheme(), text) + glyph.x, kHeightInGlyphs * glyph.y);
}

Button::Button(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
               const Vector& size)
    : GLWidget(name, parent, position, theme), image(GetTheme().image) {
    TraceFrame frame("Button", "Button");
    this->size = size;
}

bool Button::MouseClick(bool left, bool middle, bool right) {
    TraceFrame frame("MouseClick", "Button");
    if (focus && !buttons.left) {
        // kept: a press of another mouse button over this one drops a click that was not read yet
        active = left;
        clicked = left;
    } else {
        active = active && left;
        focus = active;
    }
    buttons = {left, middle, right};
    return false;
}

void Button::Render() {
    TraceFrame frame("Render", "Button");
    Assert("glwidget/button", 36, "rendering", rendering);
    const MatrixScope matrix;
    DisableDepthTest();
    glLineWidth(theme->lineWidth);
    if (active)
        Translate(theme->pressOffset.x, theme->pressOffset.y);
    Translate(position.x + size.x / 2.0f, position.y + size.y / 2.0f);
    DrawBox();
    DrawCaption();
}

Vector Button::GetOpaqueBox() const {
    if (theme->corner != 0.0f || !FillIsOpaque())
        return GLWidget::GetOpaqueBox();
    const Vector shift = active ? theme->pressOffset : Vector(0.0f, 0.0f);
    const Vector corner = position + shift;
    return {corner.x, corner.y, corner.x + size.x, corner.y + size.y};
}

void Button::AddAppearance(Fingerprint& print) {
    AddBase(print);
    print.Add(active);
    print.Add(image.GetName());
    print.Add(text);
}

void Button::DrawBox() {
    const float brightness = Brightness(*theme, highlight);
    const float cut = kCornerFactor * theme->corner;
    const bool isPicture = text.empty();
    SetTexturing(isPicture);
    const bool isEnlarged =
        isPicture && image.BindForSize(size.x * PixelsPerUnit(), size.y * PixelsPerUnit());
    // Other fills are small: there a further shader for each way of drawing costs more than it
    // saves.
    if (isEnlarged && image.IsOpaque()) {
        DisableBlending();
    } else {
        EnableBlending();
    }
    SetColour(theme->fillColour, brightness);
    SetPolygonMode(PolygonMode::Fill);
    DrawOutline(size.x, size.y, cut);

    SetTexturing(false);
    SetColour(theme->lineColour, brightness);
    DrawOutlineEdges(size.x, size.y, cut);
    EnableBlending();
}

void Button::DrawCaption() {
    SetColour(theme->textColour);
    Translate(theme->fontSize.x / 2.0f - size.x / 2.0f, theme->fontSize.y / 3.0f - size.y / 2.0f);
    PrintText(*theme, text);
}
