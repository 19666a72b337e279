// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/overlay.h"

#include <GL/gl.h>

#include "glwidget/drawing.h"

namespace guiview {

namespace {

constexpr float kLetter = 0.042f;  ///< glyph width and height; no theme changes it
constexpr float kLineHeight = 1.2f * kLetter;
constexpr Vector kLine{1.0f, 0.0f, 0.9f};
constexpr Vector kPaper{0.1f, 0.0f, 0.1f};
constexpr Vector kInk{1.0f, 1.0f, 1.0f};

/// GUI units over the whole screen, without depth test and with blending.
class ScreenScope {
public:
    ScreenScope() {
        glPushAttrib(GL_ENABLE_BIT | GL_LINE_BIT | GL_CURRENT_BIT);
        glMatrixMode(GL_PROJECTION);
        glPushMatrix();
        glLoadIdentity();
        const double width = GLWidget::HalfWidth();
        const double height = GLWidget::guiScale;
        glOrtho(-width, width, -height, height, -1.0, 1.0);
        glMatrixMode(GL_MODELVIEW);
        glPushMatrix();
        glLoadIdentity();
        DisableDepthTest();
        SetTexturing(false);
        EnableBlending();
        glLineWidth(1.0f);
    }
    ~ScreenScope() {
        glPopMatrix();
        glMatrixMode(GL_PROJECTION);
        glPopMatrix();
        glMatrixMode(GL_MODELVIEW);
        glPopAttrib();
    }
    ScreenScope(const ScreenScope&) = delete;
    ScreenScope& operator=(const ScreenScope&) = delete;
};

/// Writes on a dark strip. x and y are the strip's lower left corner.
void Write(const std::string& text, float x, float y) {
    GLWidget::font.SetSize(kLetter, kLetter);
    const float width = GLWidget::font.Length("%s", text.c_str());
    SetColour(kPaper, 1.0f, 0.85f);
    glRectf(x, y, x + width + kLetter, y + kLineHeight);
    SetColour(kInk);
    const MatrixScope matrix;
    Translate(x + kLetter / 2.0f, y + kLetter / 3.0f);
    GLWidget::font.Print("%s", text.c_str());
}

}  // namespace

void DrawOutlines(const Scene& scene) {
    const ScreenScope screen;
    SetColour(kLine);
    for (const Node* node : scene.Nodes()) {
        if (!node->shown)
            continue;
        glBegin(GL_LINE_LOOP);
        glVertex2f(node->drawn.left, node->drawn.bottom);
        glVertex2f(node->drawn.right, node->drawn.bottom);
        glVertex2f(node->drawn.right, node->drawn.top);
        glVertex2f(node->drawn.left, node->drawn.top);
        glEnd();
    }
    for (const Node* node : scene.Nodes()) {
        if (node->shown)
            Write(std::string(node->Tag()), node->drawn.left, node->drawn.top - kLineHeight);
    }
}

void DrawNote(const std::string& text, float mouseY) {
    const ScreenScope screen;
    const float y = mouseY < 0.0f ? GLWidget::guiScale - kLineHeight : -GLWidget::guiScale;
    Write(text, -GLWidget::HalfWidth(), y);
}

std::string DescribeNode(const Node& node) {
    return std::string(node.Tag()) + "  " + std::string(node.KindWord()) + " "
           + DescribeBox(node.box) + "  " + ThemeName(node.widget->GetTheme());
}

}  // namespace guiview
