// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstddef>

#include "quarn2/texturedata.h"
#include "quarn2/vector.h"
#include "tools/guiart/shapes.h"

/// An image to paint on. Its first row is the bottom one, as in OpenGL.
class Canvas {
public:
    /// Transparent black.
    Canvas(int width, int height) { Blank(width, height, Vector(0.0f, 0.0f, 0.0f, 0.0f)); }
    /// All of one colour.
    Canvas(int width, int height, const Vector& colour) { Blank(width, height, colour); }

    int Width() const { return image.GetWidth(); }
    int Height() const { return image.GetHeight(); }
    TextureData& Image() { return image; }
    const TextureData& Image() const { return image; }
    float* At(int x, int y) {
        return image.GetData() + static_cast<std::ptrdiff_t>(y * image.GetWidth() + x) * 4;
    }

    /// Calls `change` with each pixel's centre and its four values.
    template <typename Change>
    void ForEach(Change change) {
        for (int y = 0; y < Height(); ++y) {
            for (int x = 0; x < Width(); ++x)
                change(Point{static_cast<float>(x) + 0.5f, static_cast<float>(y) + 0.5f}, At(x, y));
        }
    }

    /// Paints a shape: `distance` gives a point's distance to its edge, negative inside.
    template <typename Distance>
    void Paint(const Vector& colour, Distance distance) {
        ForEach([&](Point p, float* pixel) {
            Over(pixel, colour, colour.w * shape::Coverage(distance(p)));
        });
    }

    /// Lays a picture of the same size over this one.
    void Lay(const Canvas& top) { image.Blend(kOneLessOtherAlpha, kOtherAlpha, top.image); }

    /// Rounds red, green and blue to steps of 1 / `levels`: pixels that are equal make the file
    /// smaller.
    void Quantise(int levels);
    void MakeOpaque();

private:
    // modes of Blend
    static constexpr int kOtherAlpha = 3;
    static constexpr int kOneLessOtherAlpha = 5;

    void Blank(int width, int height, const Vector& colour);
    static void Over(float* pixel, const Vector& colour, float alpha);

    TextureData image;
};
