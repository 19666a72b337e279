// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "glwidget/glwidget.h"

/// `Frame border`, 0 or 1: groups widgets, with or without an outline around them. Never has the
/// focus itself.
class Frame : public GLWidget {
public:
    Frame(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
          bool bordered);

    bool MouseClick(bool left, bool middle, bool right) override;
    using GLWidget::MouseMove;
    bool MouseMove(float x, float y) override;
    void Render() override;
    void AddAppearance(Fingerprint& print) override;
    std::string GetType() override { return "Frame"; }
    Vector GetValidArea() override;
    void SetFocussed(GLWidget* other) override;

    /// Where the children's coordinates begin, in the parent's.
    Vector InnerOrigin() const;

private:
    void DrawBorder() const;

    bool bordered;
};
