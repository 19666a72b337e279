// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <iosfwd>
#include <span>
#include <string>
#include <variant>

#include "glwidget/field.h"
#include "quarn2/texture.h"
#include "quarn2/vector.h"

/// The lines of a theme file, in order.
enum class ThemeLine {
    TextColour,
    LineColour,
    FillColour,
    FourthColour,
    Opacity,
    SixthValue,
    LineWidth,
    Border,
    Corner,
    TenthValue,
    FontSize,
    Brightness,
    PressOffset,
    BoxSize,
    Picture,
    Fade
};

/// How a widget looks. Lengths are GUI units unless stated. A new theme holds the built-in
/// values with no texture loaded.
class Theme {
public:
    Vector textColour{1.0f, 1.0f, 1.0f, 1.0f};
    Vector lineColour{1.0f, 0.71f, 0.16f, 1.0f};
    Vector fillColour{0.8f, 0.8f, 0.8f, 1.0f};
    Vector fourthColour{0.3f, 0.3f, 0.3f, 1.0f};  ///< read and kept, used by nothing
    float opacity = 1.0f;
    float sixthValue = 0.8f;  ///< read and kept, used by nothing
    float lineWidth = 2.0f;   ///< pixels
    float border = 0.005f;
    float corner = 0.1f;        ///< cut of an outline's corners, as a fraction of its height
    float tenthValue = 0.003f;  ///< read and kept, used by nothing
    Vector fontSize{0.04f, 0.05f, 0.0f, 1.0f};  ///< glyph width and height
    float dim = 0.7f;                           ///< brightness away from the mouse
    float bright = 1.0f;                        ///< brightness under the mouse
    Vector pressOffset{0.005f, -0.005f, 0.0f, 1.0f};
    float boxSize = 0.1f;                 ///< side of a tick box or knob
    std::string textureName = "gui.tga";  ///< "NULL" for none
    bool fade = true;                     ///< the highlight fades; off, it is always full
    Texture image;

    /// Between the edge of a container, or of the screen, and what it holds.
    float Margin() const { return 3.0f * border; }

    /// Fills `theme` from a theme file and writes every value on standard error. A value that
    /// is missing or malformed leaves the field as it was; so does a file that cannot be read.
    static void Read(Theme& theme, const std::string& path);
    /// @param path  as which the file is reported
    static void Read(Theme& theme, std::istream& file, const std::string& path);

    /// What a line of a theme file sets.
    struct Line {
        using Member =
            std::variant<Vector Theme::*, float Theme::*, bool Theme::*, std::string Theme::*>;

        ValueLine values;
        Member member;
        float Theme::*second = nullptr;  ///< for the second value of two
    };
    /// All sixteen, in the order of ThemeLine.
    static std::span<const Line> Lines();

    /// Sets `theme` to the built-in values and loads their texture.
    static void BuiltIn(Theme& theme);

private:
    void ReadLines(std::istream& file, const std::string& path);
    void LoadImage();
};
