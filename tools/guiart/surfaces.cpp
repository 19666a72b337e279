// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiart/surfaces.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "tools/guiart/canvas.h"

namespace {

constexpr float kScreenWidth = 800.0f;
constexpr float kScreenHeight = 600.0f;

/// Blur leaves the colours of pixels with less alpha out.
constexpr float kMinAlpha = 0.004f;

const Vector kWhite(1.0f, 1.0f, 1.0f, 1.0f);

/// Fractal noise around 0, mostly between -1 and 1.
/// @param frequency  the size of its largest specks, as a part of the side
TextureData Noise(int side, int octaves, float frequency) {
    TextureData noise;
    noise.Blank(side, side);
    noise.Perlin(octaves, frequency, 1.0f, 0.5f, 0.5f);
    return noise;
}

float ValueAt(const TextureData& noise, int x, int y) {
    return noise.GetData()[static_cast<std::ptrdiff_t>(y * noise.GetWidth() + x) * 4];
}

TextureData DrawDeskBelow(std::span<const SheetPlace> places) {
    constexpr int kSide = 512;
    constexpr float kBoard = 64.0f;  // pixels from joint to joint
    constexpr int kLevels = 96;
    const TextureData grain = Noise(kSide, 5, 0.25f);
    const TextureData knots = Noise(kSide, 3, 0.5f);

    Canvas desk(kSide, kSide, Vector(0.0f, 0.0f, 0.0f, 1.0f));
    desk.ForEach([&](Point p, float* pixel) {
        // Wood has long fibres: along a board, eight pixels show one value of the noise.
        const int along = static_cast<int>(p.x) / 8;
        const int across = static_cast<int>(p.y);
        const float fibre = ValueAt(grain, along, across);
        const float ring =
            std::sin((p.y + 14.0f * ValueAt(knots, static_cast<int>(p.x), across)) * 0.55f);
        const float joint = std::fabs(std::remainder(p.y, kBoard));
        float light = 0.8f + 0.16f * fibre + 0.07f * ring;
        if (joint < 1.0f)
            light *= 0.55f;
        const float wood[] = {0.28f, 0.175f, 0.105f};
        for (int i = 0; i < 3; ++i)
            pixel[i] = wood[i] * light;
    });

    const auto toTexels = [](const SheetPlace& place, float grow) {
        constexpr float kX = kSide / kScreenWidth;
        constexpr float kY = kSide / kScreenHeight;
        const Point low{static_cast<float>(place.left) * kX,
                        (kScreenHeight - static_cast<float>(place.bottom)) * kY};
        const Point high{static_cast<float>(place.right) * kX,
                         (kScreenHeight - static_cast<float>(place.top)) * kY};
        return [=](Point p) {
            return shape::RoundedBox(
                p, {(low.x + high.x) / 2.0f, (low.y + high.y) / 2.0f},
                {(high.x - low.x) / 2.0f + grow, (high.y - low.y) / 2.0f + grow}, 0.0f);
        };
    };
    Canvas shadows(kSide, kSide);
    for (const SheetPlace& place : places)
        shadows.Paint(Vector(0.0f, 0.0f, 0.0f, 0.85f), toTexels(place, 0.0f));
    shadows.Image().Blur(3);
    shadows.Image().Translate(1, -2, Vector(0.0f, 0.0f, 0.0f, 0.0f));
    desk.Lay(shadows);
    desk.Quantise(kLevels);
    // The sheets cover this, and plain black makes the file smaller.
    for (const SheetPlace& place : places)
        desk.Paint(Vector(0.0f, 0.0f, 0.0f, 1.0f), toTexels(place, -2.0f));
    desk.MakeOpaque();
    return desk.Image();
}

}  // namespace

TextureData DrawDesk() {
    return DrawDeskBelow(kSheetPlaces);
}

TextureData DrawLargeDesk() {
    return DrawDeskBelow(kLargeSheetPlaces);
}

TextureData DrawParchment() {
    constexpr int kSide = 256;
    constexpr int kLevels = 85;
    constexpr float kMiddle = kSide / 2.0f;
    const TextureData clouds = Noise(kSide, 4, 0.35f);

    Canvas parchment(kSide, kSide, kWhite);
    parchment.ForEach([&](Point p, float* pixel) {
        const float cloud = ValueAt(clouds, static_cast<int>(p.x), static_cast<int>(p.y));
        const float light = 0.972f + 0.03f * cloud;
        pixel[0] = light;
        pixel[1] = light;
        pixel[2] = light - 0.008f + 0.01f * cloud;
    });
    // The edges are brown from use.
    Canvas edges(kSide, kSide, Vector(0.62f, 0.44f, 0.24f, 0.0f));
    edges.ForEach([&](Point p, float* pixel) {
        const float inside = -shape::RoundedBox(p, {kMiddle, kMiddle}, {kMiddle, kMiddle}, 10.0f)
                             + 5.0f * ValueAt(clouds, static_cast<int>(p.y), static_cast<int>(p.x));
        pixel[3] = inside < 4.0f ? 0.55f : kMinAlpha;
    });
    edges.Image().Blur(7);
    parchment.Lay(edges);
    parchment.Image().Clamp();
    parchment.Quantise(kLevels);
    parchment.MakeOpaque();
    return parchment.Image();
}

TextureData DrawNewsprint() {
    constexpr int kSide = 256;
    constexpr int kLevels = 85;
    constexpr float kRuleFromTop = 22.0f;
    constexpr float kCrownWidth = 0.36f;  // the sheet is much wider than the picture
    constexpr float kRuleMargin = 9.0f;
    const TextureData pulp = Noise(kSide, 3, 0.06f);

    Canvas newsprint(kSide, kSide, kWhite);
    newsprint.ForEach([&](Point p, float* pixel) {
        const float fibre = ValueAt(pulp, static_cast<int>(p.x) / 4, static_cast<int>(p.y));
        std::fill_n(pixel, 3, 0.975f + 0.025f * fibre);
    });
    // A pale crown. Stories are printed over it, so it shows on days with little news.
    newsprint.Paint(Vector(0.35f, 0.32f, 0.27f, 0.13f), [](Point p) {
        const Point at{std::fabs(p.x - kSide / 2.0f) / kCrownWidth, p.y - 100.0f};
        const float spikes = shape::Polygon(at, {{-1.0f, 0.0f},
                                                 {52.0f, 0.0f},
                                                 {66.0f, 62.0f},
                                                 {30.0f, 30.0f},
                                                 {0.0f, 76.0f},
                                                 {-1.0f, 74.0f}});
        const float band = shape::RoundedBox(at, {0.0f, -12.0f}, {53.0f, 6.0f}, 2.0f);
        const float pearls =
            std::min(shape::Disc(at, {66.0f, 68.0f}, 6.5f), shape::Disc(at, {0.0f, 83.0f}, 7.5f));
        return std::min({spikes, band, pearls});
    });
    const float line = kSide - kRuleFromTop;
    newsprint.Paint(Vector(0.35f, 0.32f, 0.27f, 1.0f), [&](Point p) {
        return std::max(std::fabs(p.y - line) - 0.6f,
                        std::fabs(p.x - kSide / 2.0f) - (kSide / 2.0f - kRuleMargin));
    });
    newsprint.Image().Clamp();
    newsprint.Quantise(kLevels);
    return newsprint.Image();
}

TextureData DrawCloth() {
    constexpr int kWidth = 512;
    constexpr int kHeight = 32;
    constexpr int kLevels = 128;
    const TextureData folds = Noise(kWidth, 3, 0.2f);
    Canvas cloth(kWidth, kHeight, Vector(0.0f, 0.0f, 0.0f, 1.0f));
    cloth.ForEach([&](Point p, float* pixel) {
        const float fold = ValueAt(folds, static_cast<int>(p.x), 40);
        const float round = 1.0f - std::pow(std::fabs(p.y / 16.0f - 1.0f), 3.0f) * 0.3f;
        const float light = (0.95f + 0.12f * fold) * round;
        pixel[0] = 0.40f * light;
        pixel[1] = 0.075f * light;
        pixel[2] = 0.06f * light;
    });
    for (const float seam : {4.0f, 28.0f}) {
        cloth.Paint(Vector(0.78f, 0.6f, 0.28f, 0.9f),
                    [&](Point p) { return std::fabs(p.y - seam) - 0.5f; });
    }
    cloth.Quantise(kLevels);
    return cloth.Image();
}
