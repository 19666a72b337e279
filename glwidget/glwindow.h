// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "glwidget/glwidget.h"

/// `Win movable title`, 0 or 1 and the rest of the line: a titled panel, which the user drags by
/// its title bar when it is movable. A window with a parent stays inside the parent's valid area.
class GLWindow : public GLWidget {
public:
    GLWindow(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
             const std::string& title, bool movable);

    /// @return false while a child has the focus
    bool MouseClick(bool left, bool middle, bool right) override;
    using GLWidget::MouseMove;
    bool MouseMove(float x, float y) override;
    void Render() override;
    void AddAppearance(Fingerprint& print) override;
    std::string GetType() override { return "GLWindow"; }
    /// Widens the window to its title.
    bool AddChild(GLWidget* child) override;
    Vector GetValidArea() override;
    bool Solidify() override;
    void SetFocussed(GLWidget* other) override;
    /// Over the title bar of a movable window.
    bool Within() override;

    /// Where the children's coordinates begin, in the parent's.
    Vector InnerOrigin() const;
    bool IsMovable() const { return movable; }

protected:
    /// Fills the panel and draws its outline, around the model-view origin.
    void DrawPanel();
    /// Draws a line across the panel, `y` above its middle.
    void DrawSeparator(float y) const;
    void DrawChildren() const;

private:
    float TitleWidth() const;
    void DragBy(const Vector& delta);
    void DrawTitle() const;

    bool movable;
    bool textured = false;
    Vector grab{0.0f, 0.0f};  // mouse at the last move
};
