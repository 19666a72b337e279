// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <GL/gl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <ostream>
#include <vector>

#include "glwidget/glwidget.h"
#include "quarn2/texturedata.h"
#include "tests/glwidget/widget_test.h"
#include "tests/support/gl_window.h"

/// A pixel's colour, without alpha, which a window may not store.
struct Colour {
    int red, green, blue;

    /// Allows for the rounding of the OpenGL driver.
    friend bool operator==(const Colour& a, const Colour& b) {
        return std::abs(a.red - b.red) <= 2 && std::abs(a.green - b.green) <= 2
               && std::abs(a.blue - b.blue) <= 2;
    }
    friend std::ostream& operator<<(std::ostream& stream, const Colour& colour) {
        return stream << '(' << colour.red << ", " << colour.green << ", " << colour.blue << ')';
    }
};

inline constexpr Colour kBlack{0, 0, 0};

/// Widgets drawn with OpenGL into an 800 by 600 window of black pixels.
class DrawnWidgetTest : public WidgetTest {
protected:
    DrawnWidgetTest() {
        theme->textColour = Vector(1.0f, 1.0f, 1.0f);
        theme->lineColour = Vector(1.0f, 0.0f, 0.0f);
        theme->fillColour = Vector(0.0f, 0.0f, 1.0f);
        theme->dim = 0.6f;
        theme->bright = 1.0f;
    }

    /// Loads glyphs; until then texts are not drawn.
    static void LoadFont() { ASSERT_TRUE(GLWidget::font.Init("data/font.ttf")); }

    /// Sets what the lines of a theme are, so that each of them can be seen.
    static void MakeEveryLineVisible(Theme& look) {
        look.textColour = Vector(0.9f, 0.2f, 0.2f);
        look.lineColour = Vector(0.2f, 0.9f, 0.2f);
        look.fillColour = Vector(0.3f, 0.3f, 0.9f);
        look.opacity = 0.8f;
        look.lineWidth = 4.0f;
        look.border = 0.03f;
        look.corner = 0.15f;
        look.fontSize = Vector(0.08f, 0.1f);
        look.dim = 0.6f;
        look.bright = 0.9f;
        look.pressOffset = Vector(0.05f, -0.05f);
        look.boxSize = 0.2f;
        look.textureName = "NULL";
    }

    /// Gives a theme a sheet of one colour.
    static void PlainSheet(Theme& look, std::uint8_t red, std::uint8_t green, std::uint8_t blue) {
        const std::uint8_t pixel[4] = {red, green, blue, 255};
        TextureData image;
        ASSERT_TRUE(image.Load(1, 1, true, pixel));
        look.image.Load(image, TextureDetails("", 0));
    }

    /// Draws `widgets` and keeps the picture.
    void Draw() {
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        GLWidget::RenderWidgets();
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
        picture = window.Pixels();
    }
    void Draw(GLWidget& widget) {
        GLWidget::widgets = {&widget};
        Draw();
    }

    /// How many values OpenGL returns for the points, lines and polygons of `widgets`, whether or
    /// not they change a pixel: 0 if nothing is drawn.
    static int DrawnValues() {
        std::vector<GLfloat> values(1 << 16);
        glFeedbackBuffer(static_cast<GLsizei>(values.size()), GL_2D, values.data());
        glRenderMode(GL_FEEDBACK);
        GLWidget::RenderWidgets();
        return glRenderMode(GL_RENDER);
    }

    /// The colour at a place in GUI units.
    Colour At(float x, float y) const { return Pixel(Column(x), Row(y)); }

    /// The pixels of a colour between two corners in GUI units.
    int Count(const Colour& colour, float left, float bottom, float right, float top) const {
        return CountIf([&](const Colour& pixel) { return pixel == colour; }, left, bottom, right,
                       top);
    }
    /// The pixels with text: nothing else in the theme has green in it.
    int CountText(float left, float bottom, float right, float top) const {
        return CountIf([](const Colour& pixel) { return pixel.green > 40; }, left, bottom, right,
                       top);
    }
    /// Whether a pixel between two corners differs from the background.
    bool AnythingIn(float left, float bottom, float right, float top) const {
        const int pixels = (Column(right) - Column(left) + 1) * (Row(top) - Row(bottom) + 1);
        return Count(kBlack, left, bottom, right, top) != pixels;
    }

    using MatrixValues = std::array<GLfloat, 16>;
    static constexpr MatrixValues kIdentity{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    static MatrixValues ModelView() {
        MatrixValues values{};
        glGetFloatv(GL_MODELVIEW_MATRIX, values.data());
        return values;
    }

    GLWindowForTests window;

private:
    template <class Predicate>
    int CountIf(const Predicate& counts, float left, float bottom, float right, float top) const {
        int count = 0;
        for (int row = Row(bottom); row <= Row(top); ++row) {
            for (int column = Column(left); column <= Column(right); ++column)
                count += counts(Pixel(column, row)) ? 1 : 0;
        }
        return count;
    }

    static constexpr int kWidth = 800;
    static constexpr int kHeight = 600;

    static int Column(float x) {
        const float share = (x / GLWidget::HalfWidth() + 1.0f) / 2.0f;
        return std::clamp(static_cast<int>(share * kWidth), 0, kWidth - 1);
    }
    static int Row(float y) {
        const float share = (y / GLWidget::guiScale + 1.0f) / 2.0f;
        return std::clamp(static_cast<int>(share * kHeight), 0, kHeight - 1);
    }
    Colour Pixel(int column, int row) const {
        const std::uint8_t* const pixel =
            &picture[4 * static_cast<std::size_t>(row * kWidth + column)];
        return {pixel[0], pixel[1], pixel[2]};
    }

    std::vector<std::uint8_t> picture;
};
