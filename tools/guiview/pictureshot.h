// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

#include "tools/guiview/layoutsource.h"

namespace guiview {

/// What is done with a layout before its picture is taken.
struct Pose {
    SampleTexts texts;
    bool longestGameTexts = false;
    std::vector<std::string> clicked;  ///< tags, in order
    std::string hovered;               ///< a tag, or empty; the mouse is over this widget
    std::string pressed;               ///< a tag, or empty; the left button is held down on it
};

/// Draws a layout, without a display, and writes the picture as a PNG file.
/// @param crop  cuts off the empty part around the widgets
/// @return false, after one line on standard error, when that cannot be done
[[nodiscard]] bool TakePicture(const LayoutSource& layout, const Pose& pose, bool crop,
                               const std::string& file);

/// Clears the screen as the game does and draws the widgets. Needs a current OpenGL context.
void DrawScreen();

}  // namespace guiview
