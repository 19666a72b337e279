// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <string>

#include "glwidget/theme.h"
#include "quarn2/vector.h"

// What the widgets share in drawing and in measuring their texts.

/// Saves the current matrix and restores it at the end of the scope.
class MatrixScope {
public:
    MatrixScope();
    ~MatrixScope();
    MatrixScope(const MatrixScope&) = delete;
    MatrixScope& operator=(const MatrixScope&) = delete;
};

/// Source alpha over one minus source alpha.
void EnableBlending();
/// For what is opaque: every pixel is the same as with blending, and the pixel below is not read.
void DisableBlending();
/// Whether what is drawn next is blended with what is below it.
bool IsBlending();
void SetTexturing(bool on);
void DisableDepthTest();

void Translate(float x, float y);

/// Brightness between the theme's `dim` and, at full highlight, its `bright`. A highlight beyond
/// 0 or 1 counts as 0 or 1.
float Brightness(const Theme& theme, float highlight);

/// The colour's red, green and blue times `brightness`.
void SetColour(const Vector& colour, float brightness = 1.0f, float alpha = 1.0f);

/// Whether outlines are drawn filled or as their edges. Leave it at Fill.
enum class PolygonMode { Fill, Line };
void SetPolygonMode(PolygonMode mode);

enum class Shape { LineStrip, Triangle, Quad, Polygon };

/// A place in the texture and one on the screen.
struct Vertex {
    float s, t, x, y;
};

/// Draws in the current colour, from arrays: between glBegin and glEnd the colour would be a value
/// of each vertex, and Mesa would compile, load and run further shaders that interpolate it.
/// @param vertices  as many as the shape has, not none
void DrawShape(Shape shape, std::span<const Vertex> vertices);

/// A box centred at the origin with the top left and the bottom right corner cut.
/// @param cut  as a fraction of the height, in both directions, so that the cut is square
void DrawOutline(float width, float height, float cut);
/// The edges of the outline, as lines: the pixels of PolygonMode::Line in less time.
void DrawOutlineEdges(float width, float height, float cut);

/// A square of the GUI sheet.
/// @param corner  lower left
/// @param rect    texture coordinates (s1, t1, s2, t2)
void DrawSheetQuad(const Vector& corner, float side, const Vector& rect);

void DrawLine(float fromX, float fromY, float toX, float toY);

// Font::Print takes a printf format. The two functions below take the text of a widget instead, in
// which "%%" and a single "%" are both drawn as "%". They set the size of the shared font first.

/// Width of the widest line.
float MeasureText(const Theme& theme, const std::string& text);
/// Draws at the current model-view position in the current colour.
void PrintText(const Theme& theme, const std::string& text);

/// `text` with each "%" doubled that is not half of a "%%" pair; nothing else changes.
std::string EscapeFormat(const std::string& text);
