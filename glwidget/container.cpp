// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/container.h"

#include <algorithm>

#include "glwidget/button.h"
#include "glwidget/drawing.h"
#include "glwidget/glwidget.h"
#include "glwidget/theme.h"

namespace container {

namespace {

constexpr float kLayerDepth = -0.5f;

void RenderChild(GLWidget& child) {
    const MatrixScope matrix;
    child.Render();
}

}  // namespace

void Click(const Children& children, bool left, bool middle, bool right) {
    const GLWidget::Dispatch dispatch;
    GLWidget* clicked = nullptr;
    GLWidget::ForEach(children, [&](GLWidget& child) {
        const bool wasClicked = child.MouseClick(left, middle, right);
        if (wasClicked && child.Unique() && !child.IsDestroyed())
            clicked = &child;
    });
    if (clicked == nullptr || clicked->IsDestroyed())
        return;
    GLWidget::ForEach(children, [&](GLWidget& child) {
        if (&child != clicked)
            child.SetFocussed(clicked);
    });
}

void MoveMouse(const Children& children, float x, float y) {
    GLWidget::ForEach(children, [&](GLWidget& child) { child.MouseMove(x, y); });
}

void PassFocussed(const Children& children, GLWidget* other) {
    GLWidget::ForEach(children, [&](GLWidget& child) { child.SetFocussed(other); });
}

bool AnyHasFocus(const Children& children) {
    return std::ranges::any_of(
        children, [](const GLWidget* child) { return child->HasFocus() && !child->IsDestroyed(); });
}

void Render(const Children& children) {
    GLWidget::ForEach(children, [](GLWidget& child) {
        if (child.GetDepth() > kLayerDepth)
            RenderChild(child);
    });
    // kept: a child whose depth is exactly kLayerDepth is in neither layer
    GLWidget::ForEach(children, [](GLWidget& child) {
        if (child.GetDepth() < kLayerDepth)
            RenderChild(child);
    });
}

void AddAppearance(const Children& children, Fingerprint& print) {
    print.Add(children.size());
    for (GLWidget* child : children) {
        const float depth = child->GetDepth();
        print.Add(depth > kLayerDepth);
        print.Add(depth < kLayerDepth);
        child->AddAppearance(print);
    }
}

void DrawPanel(const Theme& theme, float brightness, float width, float height, float cut) {
    // kept: the first panel of a picture is filled without blending, even if its opacity is 0
    if (theme.opacity != 0.0f || !IsBlending()) {
        SetColour(theme.fillColour, brightness, theme.opacity);
        SetPolygonMode(PolygonMode::Fill);
        DrawOutline(width, height, cut);
    }
    SetTexturing(false);
    EnableBlending();
    if (theme.opacity == 0.0f)
        return;
    SetColour(theme.lineColour, brightness, theme.opacity);
    DrawOutlineEdges(width, height, cut);
}

Vector ValidArea(const Vector& position, const Vector& size, const Theme& theme) {
    // kept: every margin is a fraction of the width, the vertical ones too
    const float margin = 0.01f * size.x;
    const float titleHeight = 1.5f * theme.fontSize.y;
    return {position.x + margin, position.y + margin, position.x + 0.99f * size.x,
            position.y + size.y - margin - theme.lineWidth - titleHeight};
}

}  // namespace container

void UnregisterAndDelete::operator()(GLWidget* widget) const {
    GLWidget::Destroy(widget);
}
