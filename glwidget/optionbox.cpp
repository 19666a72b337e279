// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/optionbox.h"

#include "quarn2/trace.h"

bool Optionbox::MouseClick(bool left, bool middle, bool right) {
    TraceFrame frame("MouseClick", "Optionbox");
    if (!Pressed(left, middle, right) || active)
        return false;
    active = true;
    flash = 1.0f;
    return true;
}

void Optionbox::Render() {
    TraceFrame frame("Render", "Optionbox");
    Assert("glwidget/optionbox", 35, "rendering", rendering);
    Draw(optionRect, optionMarkRect);
}

void Optionbox::SetFocussed(GLWidget*) {
    TraceFrame frame("SetFocussed", "Optionbox");
    if (active)
        flash = 1.0f;
    active = false;
}
