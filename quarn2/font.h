// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Draws text from one font file: a texture and a display list for each code 0 to 127.
/// Lengths are font units (64 rasterised pixels) times the size.
class FontRender {
public:
    /// Loads the font file and builds the glyph lists. A failure is one line on standard error.
    [[nodiscard]] bool Init(const std::string& path);

    /// Reads only the advances from the font file and needs no OpenGL: for programs that measure
    /// text but do not draw it. Fails as Init does.
    [[nodiscard]] bool Measure(const std::string& path);

    /// Scales what Print draws and Length measures; 1 and 1 at first.
    /// @return true
    bool SetSize(float x, float y);

    /// Width of the widest line of the printf-style text, which is cut after twice the format's
    /// length plus 511 characters. Characters of code 128 and above have no width.
    float Length(const char* format, ...) __attribute__((format(printf, 2, 3)));

    /// Draws the printf-style text, at most 8191 characters, at the current model-view position
    /// in the current colour. Lines go downwards by kLineStep times the vertical size; the
    /// model-view matrix neither scales nor turns this step.
    /// @return true
    bool Print(const char* format, ...) __attribute__((format(printf, 2, 3)));

    /// Pen advance of a code at size 1; 0 outside 0 to 127.
    float Advance(int code) const {
        return code >= 0 && code < kGlyphCount ? advances[code] : 0.0f;
    }

    /// From one line to the next, as a multiple of the vertical size.
    static constexpr float kLineStep = 1.3f;
    /// Codes that have a glyph, from 0.
    static constexpr int kGlyphCount = 128;

private:
    friend class FontAccess;  // tests set the advances where there is no OpenGL

    float LineLength(std::string_view line) const;
    /// @param scratch  zeroed, one byte longer than `text`
    float LongestLine(std::string_view text, char* scratch) const;

    float sizeX = 1.0f;
    float sizeY = 1.0f;
    std::uint32_t listBase = 0;
    float advances[kGlyphCount] = {};
};
