// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include "glwidget/glwidget.h"

/// `Butt caption`, one word, or `Butt TEX width height`, both above 0, at most 10: a push button
/// with a caption or with the picture of its theme. A press sets `clicked`; `active` is true while
/// the button is held down.
class Button : public GLWidget {
public:
    Button(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
           const std::string& caption);
    /// Shows the whole of the theme's image.
    Button(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
           const Vector& size);

    /// @return false
    bool MouseClick(bool left, bool middle, bool right) override;
    void Render() override;
    void AddAppearance(Fingerprint& print) override;
    std::string GetType() override { return "Button"; }
    void SetFocussed(GLWidget*) override {}
    /// Its box, if no corner is cut and the fill is opaque.
    Vector GetOpaqueBox() const override;

private:
    bool FillIsOpaque() const { return !text.empty() || image.IsOpaque(); }
    void DrawBox();
    void DrawCaption();

    Texture image;
};
