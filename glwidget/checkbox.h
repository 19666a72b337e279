// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "glwidget/glwidget.h"

/// `Check caption`, the rest of the line: a tick box with a caption after it.
class Checkbox : public GLWidget {
public:
    Checkbox(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
             const std::string& caption);

    /// Ticks or unticks.
    bool MouseClick(bool left, bool middle, bool right) override;
    void Render() override;
    void AddAppearance(Fingerprint& print) override;
    std::string GetType() override { return "Checkbox"; }
    void SetFocussed(GLWidget*) override {}

protected:
    /// Remembers the buttons. @return whether the left one went down over the widget
    bool Pressed(bool left, bool middle, bool right);
    /// @param box   the empty box's rectangle of the sheet
    /// @param mark  the rectangle of the mark that is drawn over it when it is active
    void Draw(const Vector& box, const Vector& mark);

private:
    std::string drawnText;  // the caption after a blank
};
