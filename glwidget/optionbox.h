// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "glwidget/checkbox.h"

/// `Opt caption`, the rest of the line: a box of a group of which one is active: its container
/// tells the others when one is chosen.
class Optionbox : public Checkbox {
public:
    using Checkbox::Checkbox;

    /// Chooses this option. @return false when it is the active one already
    bool MouseClick(bool left, bool middle, bool right) override;
    void Render() override;
    bool Unique() override { return true; }
    std::string GetType() override { return "Optionbox"; }
    void SetFocussed(GLWidget* other) override;
};
