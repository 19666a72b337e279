// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "tools/guiview/scene.h"

namespace guiview {

// What the live view draws over the widgets. Needs a current OpenGL context.

/// An outline around what can be seen of each widget, with its tag.
void DrawOutlines(const Scene& scene);

/// A line of text at the upper or lower edge of the screen, away from the mouse.
/// @param mouseY  in GUI units
void DrawNote(const std::string& text, float mouseY);

/// Tag, kind, box and theme in one line.
std::string DescribeNode(const Node& node);

}  // namespace guiview
