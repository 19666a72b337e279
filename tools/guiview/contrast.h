// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>

namespace guiview {

/// Red, green and blue as OpenGL draws them, 0 to 1.
using Rgb = std::array<float, 3>;

/// Relative luminance of an sRGB colour (WCAG 2).
double Luminance(const Rgb& colour);

/// From 1, for equal colours, to 21, for black and white (WCAG 2).
double ContrastRatio(const Rgb& a, const Rgb& b);

}  // namespace guiview
