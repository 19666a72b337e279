// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiart/canvas.h"

#include <cmath>

void Canvas::Blank(int width, int height, const Vector& colour) {
    image.Blank(width, height);
    ForEach([&](Point, float* pixel) {
        pixel[0] = colour.x;
        pixel[1] = colour.y;
        pixel[2] = colour.z;
        pixel[3] = colour.w;
    });
}

void Canvas::Over(float* pixel, const Vector& colour, float alpha) {
    if (alpha <= 0.0f)
        return;
    const float rest = pixel[3] * (1.0f - alpha);
    const float sum = alpha + rest;
    const float channels[] = {colour.x, colour.y, colour.z};
    for (int i = 0; i < 3; ++i)
        pixel[i] = (channels[i] * alpha + pixel[i] * rest) / sum;
    pixel[3] = sum;
}

void Canvas::Quantise(int levels) {
    const auto steps = static_cast<float>(levels);
    ForEach([&](Point, float* pixel) {
        for (int i = 0; i < 3; ++i)
            pixel[i] = std::round(pixel[i] * steps) / steps;
    });
}

void Canvas::MakeOpaque() {
    ForEach([](Point, float* pixel) { pixel[3] = 1.0f; });
}
