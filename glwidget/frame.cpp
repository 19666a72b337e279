// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/frame.h"

#include <GL/gl.h>

#include "glwidget/container.h"
#include "glwidget/drawing.h"
#include "quarn2/trace.h"

Frame::Frame(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
             bool bordered)
    : GLWidget(name, parent, position, theme), bordered(bordered) {
    TraceFrame frame("Frame", "Frame");
    focus = false;
    highlight = 0.0f;
}

bool Frame::MouseClick(bool left, bool middle, bool right) {
    TraceFrame frame("MouseClick", "Frame");
    container::Click(children, left, middle, right);
    return true;
}

bool Frame::MouseMove(float x, float y) {
    TraceFrame frame("MouseMove", "Frame");
    mouse = Vector(x, y);
    const Vector origin = InnerOrigin();
    container::MoveMouse(children, x - origin.x, y - origin.y);
    return true;
}

Vector Frame::InnerOrigin() const {
    const float margin = bordered ? theme->Margin() : 0.0f;
    return {position.x + margin, position.y + margin};
}

Vector Frame::GetValidArea() {
    TraceFrame frame("GetValidArea", "Frame");
    return container::ValidArea(position, size, *theme);
}

void Frame::SetFocussed(GLWidget* other) {
    TraceFrame frame("SetFocussed", "Frame");
    container::PassFocussed(children, other);
}

void Frame::Render() {
    TraceFrame frame("Render", "Frame");
    DisableDepthTest();
    SetTexturing(false);
    glLineWidth(theme->lineWidth);
    if (bordered)
        DrawBorder();
    const MatrixScope matrix;
    const Vector origin = InnerOrigin();
    Translate(origin.x, origin.y);
    container::Render(children);
}

void Frame::AddAppearance(Fingerprint& print) {
    AddBase(print);
    print.Add(bordered);
    container::AddAppearance(children, print);
}

void Frame::DrawBorder() const {
    const MatrixScope matrix;
    Translate(position.x + size.x / 2.0f, position.y + size.y / 2.0f);
    EnableBlending();
    if (theme->opacity == 0.0f)
        return;
    SetColour(theme->lineColour, theme->dim, theme->opacity);
    DrawOutlineEdges(size.x, size.y, theme->corner);
}
