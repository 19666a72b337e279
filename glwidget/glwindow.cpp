// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/glwindow.h"

#include <GL/gl.h>

#include <algorithm>

#include "glwidget/container.h"
#include "glwidget/drawing.h"
#include "quarn2/trace.h"

namespace {

bool Encloses(const Vector& outer, const Vector& inner) {
    return inner.x >= outer.x && inner.y >= outer.y && outer.z >= inner.z && outer.w >= inner.w;
}

}  // namespace

GLWindow::GLWindow(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
                   const std::string& title, bool movable)
    : GLWidget(name, parent, position, theme), movable(movable) {
    TraceFrame frame("GLWindow", "GLWindow");
    text = title;
    dragging = false;
}

bool GLWindow::MouseClick(bool left, bool middle, bool right) {
    TraceFrame frame("MouseClick", "GLWindow");
    const Dispatch dispatch;
    container::Click(children, left, middle, right);
    if (container::AnyHasFocus(children))
        return false;
    dragging = left && focus && movable;
    return true;
}

bool GLWindow::MouseMove(float x, float y) {
    TraceFrame frame("MouseMove", "GLWindow");
    const Dispatch dispatch;
    mouse = Vector(x, y);
    if (dragging)
        DragBy(mouse - grab);
    // Also while a move is refused: when the window may move again, it jumps by what was refused.
    grab = mouse;
    const float margin = theme->Margin();
    container::MoveMouse(children, x - position.x - margin, y - position.y - margin);
    if (!container::AnyHasFocus(children))
        focus = Within() || dragging;
    return true;
}

Vector GLWindow::InnerOrigin() const {
    const float margin = theme->Margin();
    return {position.x + margin, position.y + margin};
}

void GLWindow::DragBy(const Vector& delta) {
    const Vector stay = position;
    position += delta;
    if (parent != nullptr && !Encloses(parent->GetValidArea(), Getbbox()))
        position = stay;
}

bool GLWindow::AddChild(GLWidget* child) {
    TraceFrame frame("AddChild", "GLWindow");
    const Dispatch dispatch;
    if (!GLWidget::AddChild(child))
        return false;
    size.x = std::max(size.x, TitleWidth());
    return true;
}

float GLWindow::TitleWidth() const {
    return MeasureText(*theme, text) + 2.0f * theme->fontSize.x;
}

Vector GLWindow::GetValidArea() {
    TraceFrame frame("GetValidArea", "GLWindow");
    return container::ValidArea(position, size, *theme);
}

bool GLWindow::Solidify() {
    TraceFrame frame("Solidify", "GLWindow");
    const Dispatch dispatch;
    GLWidget::Solidify();
    size.x = std::max(size.x, TitleWidth());
    // kept: room for the title is added after the window was moved to the screen's edge, so that
    // a window at the top edge can reach beyond it
    const float extra = 2.0f * theme->Margin() + 2.0f * theme->fontSize.y;
    ForEach(children,
            [&](GLWidget& child) { size.y = std::max(size.y, child.Getbbox().w + extra); });
    return true;
}

void GLWindow::SetFocussed(GLWidget* other) {
    TraceFrame frame("SetFocussed", "GLWindow");
    container::PassFocussed(children, other);
}

bool GLWindow::Within() {
    TraceFrame frame("Within", "GLWindow");
    const float top = position.y + size.y;
    const float titleBottom = top - 2.0f * theme->fontSize.y;
    return movable && position.x <= mouse.x && mouse.x <= position.x + size.x
           && titleBottom <= mouse.y && mouse.y <= top;
}

void GLWindow::Render() {
    TraceFrame frame("Render", "GLWindow");
    {
        const MatrixScope matrix;
        Translate(position.x + size.x / 2.0f, position.y + size.y / 2.0f);
        DisableDepthTest();
        SetTexturing(false);
        glLineWidth(theme->corner);  // kept: the cut of the corners is the line's width too
        DrawPanel();
        const float belowTitle = size.y / 2.0f - 1.5f * theme->fontSize.y;
        DrawSeparator(std::min(belowTitle, size.y / 2.0f - theme->corner * size.y));
        DrawTitle();
    }
    DrawChildren();
}

void GLWindow::AddAppearance(Fingerprint& print) {
    AddBase(print);
    print.Add(text);
    container::AddAppearance(children, print);
}

void GLWindow::DrawPanel() {
    textured = false;
    if (textured)  // kept: no window is drawn with the sheet any more
        SetTexturing(true);
    container::DrawPanel(*theme, Brightness(*theme, highlight), size.x, size.y, theme->corner);
}

void GLWindow::DrawSeparator(float y) const {
    if (theme->opacity == 0.0f)
        return;
    SetColour(theme->lineColour, Brightness(*theme, highlight), theme->opacity);
    DrawLine(-size.x / 2.0f, y, size.x / 2.0f, y);
}

void GLWindow::DrawTitle() const {
    const float baseline = size.y / 2.0f - 1.5f * theme->fontSize.y + theme->fontSize.y / 3.0f;
    Translate(theme->corner * size.y - size.x / 2.0f, baseline);
    SetColour(theme->textColour);
    PrintText(*theme, text);
}

void GLWindow::DrawChildren() const {
    const MatrixScope matrix;
    const Vector origin = InnerOrigin();
    Translate(origin.x, origin.y);
    container::Render(children);
}
