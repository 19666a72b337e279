// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/slider.h"

#include <GL/gl.h>

#include <algorithm>

#include "glwidget/container.h"
#include "glwidget/drawing.h"
#include "quarn2/trace.h"

namespace {

constexpr float kTrackOpacity = 0.5f;

}  // namespace

Slider::Slider(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
               const Vector& extent)
    : GLWidget(name, parent, position, theme), extent(extent) {
    TraceFrame frame("Slider", "Slider");
    const float knob = GetTheme().boxSize;
    this->position.y -= knob / 2.0f;
    level = 0.5f;
    dragging = false;
    size = IsVertical() ? Vector(knob, extent.y) : Vector(extent.x, knob);
}

bool Slider::MouseClick(bool left, bool middle, bool right) {
    TraceFrame frame("MouseClick", "Slider");
    const Dispatch dispatch;
    container::Click(children, left, middle, right);
    if (container::AnyHasFocus(children))
        return false;
    if (focus && !buttons.left) {
        dragging = left;
    } else {
        dragging = dragging && left;
        focus = dragging;
    }
    buttons = {left, middle, right};
    return true;
}

bool Slider::MouseMove(float x, float y) {
    TraceFrame frame("MouseMove", "Slider");
    const Dispatch dispatch;
    mouse = Vector(x, y);
    const bool hasPrevious = previous.x > kNowhere.x && previous.y > kNowhere.y;
    if (dragging && Within() && hasPrevious) {
        // kept: a step that would reach or pass an end is ignored, not shortened
        const float moved = LevelAfterMove();
        if (moved > 0.0f && moved < 1.0f)
            level = moved;
    }
    previous = mouse;
    container::MoveMouse(children, x, y);
    if (!container::AnyHasFocus(children))
        focus = Within() || dragging;
    return true;
}

float Slider::LevelAfterMove() const {
    return IsVertical() ? level + (mouse.y - previous.y) * (1.0f / extent.y)
                        : level + (mouse.x - previous.x) * (1.0f / extent.x);
}

Vector Slider::Getbbox() {
    TraceFrame frame("Getbbox", "Slider");
    const float knob = theme->boxSize;
    if (IsVertical()) {
        return {position.x - knob / 2.0f, position.y, position.x + size.x + knob / 2.0f,
                position.y + size.y + knob};
    }
    return {position.x, position.y - knob / 2.0f, position.x + size.x + knob,
            position.y + size.y + knob / 2.0f};
}

bool Slider::Within() {
    TraceFrame frame("Within", "Slider");
    const Vector box = GrabBox();
    return box.x <= mouse.x && mouse.x <= box.z && box.y <= mouse.y && mouse.y <= box.w;
}

Vector Slider::GrabBox() const {
    const float half = theme->boxSize / 2.0f;
    return {position.x - half, position.y - half, position.x + size.x + half,
            position.y + size.y + half};
}

Vector Slider::DrawnBox() const {
    const Vector track = Track();
    const Vector first = KnobBox(0.0f);
    const Vector last = KnobBox(1.0f);
    return {std::min(track.x, first.x), std::min(track.y, first.y), std::max(track.z, last.z),
            std::max(track.w, last.w)};
}

Vector Slider::Track() const {
    const float half = theme->boxSize / 2.0f;
    if (IsVertical())
        return {position.x + half, position.y, position.x + half, position.y + extent.y};
    return {position.x, position.y + half, position.x + extent.x, position.y + half};
}

Vector Slider::KnobCorner(float atLevel) const {
    const float half = theme->boxSize / 2.0f;
    if (IsVertical())
        return {position.x, position.y + atLevel * extent.y - half};
    return {position.x + atLevel * extent.x - half, position.y};
}

Vector Slider::KnobBox(float atLevel) const {
    const float side = theme->boxSize;
    const Vector corner = KnobCorner(atLevel);
    // kept: the turned picture stands to the left of a vertical track
    const float left = IsVertical() ? corner.x - side : corner.x;
    return {left, corner.y, left + side, corner.y + side};
}

void Slider::Render() {
    TraceFrame frame("Render", "Slider");
    Assert("glwidget/slider", 97, "rendering", rendering);
    const MatrixScope matrix;
    EnableBlending();
    SetTexturing(false);
    DisableDepthTest();
    SetColour(theme->fillColour, Brightness(*theme, highlight), kTrackOpacity);
    DrawTrack();
    DrawKnob();
}

void Slider::AddAppearance(Fingerprint& print) {
    AddBase(print);
    print.AddPair(extent);
    print.Add(level);
}

void Slider::DrawTrack() const {
    const Vector track = Track();
    glLineWidth(theme->lineWidth);
    DrawLine(track.x, track.y, track.z, track.w);
}

void Slider::DrawKnob() const {
    theme->image.Bind();
    SetTexturing(true);
    const Vector corner = KnobCorner(level);
    Translate(corner.x, corner.y);
    if (IsVertical())
        glRotatef(90.0f, 0.0f, 0.0f, 1.0f);
    DrawSheetQuad(Vector(0.0f, 0.0f), theme->boxSize, sliderRect);
}
