// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>

#include "quarn2/texturedata.h"
#include "quarn2/vector.h"

/// One picture of the sheet that widgets draw with.
struct SheetPicture {
    const char* name;  ///< as the toolkit names its rectangle
    int column, row;   ///< its cell, from the lower left

    /// Texture coordinates (s1, t1, s2, t2).
    Vector Rectangle() const;
};

// In the order of the toolkit configuration, whose rectangles are
//   optionRect      0.03125  0.03125  0.21875  0.21875
//   optionMarkRect  0.28125  0.03125  0.46875  0.21875
//   checkRect       0.53125  0.03125  0.71875  0.21875
//   checkMarkRect   0.78125  0.03125  0.96875  0.21875
//   sliderRect      0.03125  0.28125  0.21875  0.46875
inline constexpr std::array<SheetPicture, 5> kSheetPictures{{
    {"optionRect", 0, 0},
    {"optionMarkRect", 1, 0},
    {"checkRect", 2, 0},
    {"checkMarkRect", 3, 0},
    {"sliderRect", 0, 1},
}};

/// Draws the sheet: light shapes, which themes colour, on transparent white. The first row is the
/// bottom one, as in OpenGL.
TextureData DrawGuiSheet();
