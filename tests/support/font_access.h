// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>

#include "quarn2/font.h"

/// Sets the advances of a font, so that texts can be measured without OpenGL.
class FontAccess {
public:
    /// Gives every glyph the same advance at size 1.
    static void SetAdvances(FontRender& font, float advance) {
        std::fill(std::begin(font.advances), std::end(font.advances), advance);
    }
    static void SetAdvance(FontRender& font, char glyph, float advance) {
        font.advances[static_cast<unsigned char>(glyph)] = advance;
    }
    static float SizeX(const FontRender& font) { return font.sizeX; }
    static float SizeY(const FontRender& font) { return font.sizeY; }
};
