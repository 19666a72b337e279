// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/drawing.h"

#include <GL/gl.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include "glwidget/toolkit.h"

namespace {

void AppendEscaped(std::string& result, const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        result += text[i];
        if (text[i] != '%')
            continue;
        result += '%';
        if (i + 1 < text.size() && text[i + 1] == '%')
            ++i;
    }
}

/// The text as a format, valid until the next call. All calls use one buffer, so that drawing
/// allocates nothing once the longest text with a "%" has been drawn.
const char* AsFormat(const std::string& text) {
    if (text.find('%') == std::string::npos)
        return text.c_str();
    std::string& buffer = Toolkit::Get().formatText;
    buffer.clear();
    AppendEscaped(buffer, text);
    return buffer.c_str();
}

void UseFontOf(const Theme& theme) {
    Toolkit::Get().font.SetSize(theme.fontSize.x, theme.fontSize.y);
}

/// The corners of a box around the origin, two of them cut, back to the first.
std::array<Vertex, 7> Outline(float width, float height, float cut) {
    const float right = width / 2.0f;
    const float left = -right;
    const float top = height / 2.0f;
    const float bottom = -top;
    const float side = cut * height;
    return {{{0.0f, 0.0f, left, bottom},
             {0.0f, 1.0f - cut, left, top - side},
             {cut, 1.0f, left + side, top},
             {1.0f, 1.0f, right, top},
             {1.0f, cut, right, bottom + side},
             {1.0f, 0.0f, right - side, bottom},
             {0.0f, 0.0f, left, bottom}}};
}

}  // namespace

MatrixScope::MatrixScope() {
    glPushMatrix();
}

MatrixScope::~MatrixScope() {
    glPopMatrix();
}

void EnableBlending() {
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void DisableBlending() {
    glDisable(GL_BLEND);
}

bool IsBlending() {
    return glIsEnabled(GL_BLEND) == GL_TRUE;
}

void SetTexturing(bool on) {
    if (on) {
        glEnable(GL_TEXTURE_2D);
    } else {
        glDisable(GL_TEXTURE_2D);
    }
}

void DisableDepthTest() {
    glDisable(GL_DEPTH_TEST);
}

void Translate(float x, float y) {
    glTranslatef(x, y, 0.0f);
}

float Brightness(const Theme& theme, float highlight) {
    // After a long frame the highlight is beyond 0 or 1 until the next one.
    const float part = std::clamp(highlight, 0.0f, 1.0f);
    return (1.0f - part) * theme.dim + part * theme.bright;
}

void SetColour(const Vector& colour, float brightness, float alpha) {
    glColor4f(brightness * colour.x, brightness * colour.y, brightness * colour.z, alpha);
}

void SetPolygonMode(PolygonMode mode) {
    glPolygonMode(GL_FRONT_AND_BACK, mode == PolygonMode::Fill ? GL_FILL : GL_LINE);
}

void DrawShape(Shape shape, std::span<const Vertex> vertices) {
    constexpr GLenum kModes[] = {GL_LINE_STRIP, GL_TRIANGLES, GL_QUADS, GL_POLYGON};
    glEnableClientState(GL_VERTEX_ARRAY);
    glEnableClientState(GL_TEXTURE_COORD_ARRAY);
    glVertexPointer(2, GL_FLOAT, sizeof(Vertex), &vertices.front().x);
    glTexCoordPointer(2, GL_FLOAT, sizeof(Vertex), &vertices.front().s);
    glDrawArrays(kModes[static_cast<std::size_t>(shape)], 0, static_cast<GLsizei>(vertices.size()));
    glDisableClientState(GL_TEXTURE_COORD_ARRAY);
    glDisableClientState(GL_VERTEX_ARRAY);
}

void DrawOutline(float width, float height, float cut) {
    DrawShape(Shape::Polygon, Outline(width, height, cut));
}

void DrawOutlineEdges(float width, float height, float cut) {
    DrawShape(Shape::LineStrip, Outline(width, height, cut));
}

void DrawSheetQuad(const Vector& corner, float side, const Vector& rect) {
    const Vertex vertices[] = {{rect.x, rect.y, corner.x, corner.y},
                               {rect.x, rect.w, corner.x, corner.y + side},
                               {rect.z, rect.w, corner.x + side, corner.y + side},
                               {rect.z, rect.y, corner.x + side, corner.y}};
    DrawShape(Shape::Quad, vertices);
}

void DrawLine(float fromX, float fromY, float toX, float toY) {
    const Vertex vertices[] = {{0.0f, 0.0f, fromX, fromY}, {0.0f, 0.0f, toX, toY}};
    DrawShape(Shape::LineStrip, vertices);
}

float MeasureText(const Theme& theme, const std::string& text) {
    UseFontOf(theme);
    return Toolkit::Get().font.Length(AsFormat(text));
}

void PrintText(const Theme& theme, const std::string& text) {
    UseFontOf(theme);
    Toolkit::Get().font.Print(AsFormat(text));
}

std::string EscapeFormat(const std::string& text) {
    std::string result;
    AppendEscaped(result, text);
    return result;
}
