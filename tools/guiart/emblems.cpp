// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiart/emblems.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>

#include "tools/guiart/canvas.h"

namespace {

constexpr int kSmall = 32;

const Vector kWax(0.42f, 0.075f, 0.06f, 1.0f);
const Vector kDarkWax(0.3f, 0.045f, 0.04f, 1.0f);
const Vector kLight(0.97f, 0.92f, 0.79f, 1.0f);
const Vector kBrass(0.87f, 0.66f, 0.3f, 1.0f);
const Vector kInk(0.16f, 0.1f, 0.05f, 1.0f);
const Vector kMoss(0.13f, 0.25f, 0.16f, 1.0f);
const Vector kDarkBrass(0.45f, 0.29f, 0.1f, 1.0f);
const Vector kBlack(0.0f, 0.0f, 0.0f, 1.0f);
const Vector kWhite(1.0f, 1.0f, 1.0f, 1.0f);
const Vector kYellow(1.0f, 0.9f, 0.3f, 1.0f);

float Union(std::initializer_list<float> distances) {
    return std::min(distances);
}

/// A background of one colour, that of sealing wax at first, a little lighter at the top.
Canvas Tile(const Vector& colour = kWax) {
    Canvas tile(kSmall, kSmall, colour);
    tile.ForEach([](Point p, float* pixel) {
        const float light = 0.86f + 0.28f * p.y / kSmall;
        for (int i = 0; i < 3; ++i)
            pixel[i] *= light;
    });
    return tile;
}

/// Paints a figure with a thin dark edge, so that it stands out from the background.
template <typename Distance>
void Charge(Canvas& canvas, const Vector& colour, Distance distance) {
    canvas.Paint(kDarkWax, [&](Point p) { return distance(p) - 1.0f; });
    canvas.Paint(colour, distance);
}

/// A knight's shield: straight at the top, with round sides that meet in a point below.
float Shield(Point p, Point top, float halfWidth, float height) {
    // The lower half of the shield is the part that two discs have in common.
    const float straight = height * 0.4f;
    const float drop = height - straight;
    const float radius = (halfWidth * halfWidth + drop * drop) / (2.0f * halfWidth);
    const float middle = top.y - straight;
    const float left = shape::Disc(p, {top.x + halfWidth - radius, middle}, radius);
    const float right = shape::Disc(p, {top.x - halfWidth + radius, middle}, radius);
    // they overlap the box above, so that there is no seam between
    const float lower = std::max({left, right, p.y - (middle + straight / 2.0f)});
    const float upper = shape::RoundedBox(p, {top.x, top.y - straight / 2.0f},
                                          {halfWidth, straight / 2.0f + 0.5f}, 0.0f);
    return std::min(lower, upper);
}

}  // namespace

TextureData DrawFarmer() {
    Canvas tile = Tile();
    Charge(tile, kLight, [](Point p) {
        float nearest = 100.0f;
        for (const float lean : {-9.5f, -5.0f, 0.0f, 5.0f, 9.5f}) {
            const Point head{16.0f + lean, 27.0f - std::fabs(lean) * 0.45f};
            nearest =
                std::min(nearest, shape::Stroke(p, {16.0f + lean * 0.15f, 14.0f}, head, 1.1f));
            nearest = std::min(nearest, shape::Ellipse(p, {head.x, head.y - 2.0f}, {2.1f, 4.2f}));
            nearest = std::min(nearest, shape::Stroke(p, {16.0f + lean * 0.15f, 13.0f},
                                                      {16.0f + lean * 0.6f, 4.0f}, 1.1f));
        }
        return nearest;
    });
    Charge(tile, kBrass, [](Point p) {
        return shape::RoundedBox(p, {16.0f, 13.5f}, {4.5f, 1.8f}, 1.0f);
    });
    return tile.Image();
}

TextureData DrawButcher() {
    Canvas tile = Tile();
    Charge(tile, kBrass, [](Point p) {
        return shape::Stroke(p, {21.0f, 11.0f}, {27.0f, 5.0f}, 2.0f);
    });
    Charge(tile, kLight, [](Point p) {
        return shape::Polygon(
            p, {{4.0f, 17.0f}, {14.0f, 28.0f}, {25.0f, 17.5f}, {21.0f, 9.0f}, {15.5f, 7.0f}});
    });
    tile.Paint(kDarkWax, [](Point p) { return shape::Disc(p, {13.5f, 23.0f}, 1.7f); });
    return tile.Image();
}

TextureData DrawEducator() {
    Canvas tile = Tile();
    Charge(tile, kLight, [](Point p) {
        return Union({shape::Polygon(p, {{3.5f, 22.5f},
                                         {10.0f, 25.0f},
                                         {16.0f, 22.5f},
                                         {16.0f, 7.0f},
                                         {10.0f, 9.5f},
                                         {3.5f, 7.0f}}),
                      shape::Polygon(p, {{28.5f, 22.5f},
                                         {22.0f, 25.0f},
                                         {16.0f, 22.5f},
                                         {16.0f, 7.0f},
                                         {22.0f, 9.5f},
                                         {28.5f, 7.0f}})});
    });
    tile.Paint(kDarkWax, [](Point p) {
        return shape::Stroke(p, {16.0f, 7.0f}, {16.0f, 22.0f}, 0.8f);
    });
    for (const float line : {19.5f, 16.0f, 12.5f}) {
        tile.Paint(kInk, [&](Point p) {
            return Union({shape::Stroke(p, {6.5f, line}, {13.0f, line}, 0.55f),
                          shape::Stroke(p, {19.0f, line}, {25.5f, line}, 0.55f)});
        });
    }
    return tile.Image();
}

TextureData DrawWarrior() {
    Canvas tile = Tile();
    Charge(tile, kBrass, [](Point p) { return Shield(p, {16.0f, 25.0f}, 10.5f, 21.0f); });
    Charge(tile, kLight, [](Point p) {
        return Union(
            {shape::Polygon(
                 p,
                 {{14.3f, 12.5f}, {14.3f, 26.0f}, {16.0f, 29.5f}, {17.7f, 26.0f}, {17.7f, 12.5f}}),
             shape::Stroke(p, {11.0f, 12.0f}, {21.0f, 12.0f}, 1.3f),
             shape::Stroke(p, {16.0f, 12.0f}, {16.0f, 6.5f}, 1.2f),
             shape::Disc(p, {16.0f, 5.0f}, 1.9f)});
    });
    return tile.Image();
}

TextureData DrawDoctor() {
    Canvas tile = Tile();
    Charge(tile, kBrass, [](Point p) {
        return Union({shape::Stroke(p, {16.0f, 3.5f}, {16.0f, 26.0f}, 1.3f),
                      shape::Disc(p, {16.0f, 27.0f}, 2.4f)});
    });
    Charge(tile, kLight, [](Point p) {
        return Union({shape::Path(p,
                                  {{12.5f, 4.5f},
                                   {19.0f, 7.5f},
                                   {20.0f, 9.5f},
                                   {18.5f, 11.5f},
                                   {12.5f, 13.8f},
                                   {11.3f, 15.8f},
                                   {12.5f, 18.0f},
                                   {19.0f, 20.3f},
                                   {20.3f, 22.3f},
                                   {19.0f, 24.2f}},
                                  1.35f),
                      shape::Ellipse(p, {21.3f, 24.6f}, {3.0f, 1.9f})});
    });
    return tile.Image();
}

TextureData DrawLivestock() {
    Canvas tile = Tile();
    Charge(tile, kBrass, [](Point p) {
        return Union(
            {shape::Path(p, {{11.5f, 20.0f}, {6.5f, 21.0f}, {4.5f, 24.0f}, {5.0f, 28.0f}}, 1.6f),
             shape::Path(p, {{20.5f, 20.0f}, {25.5f, 21.0f}, {27.5f, 24.0f}, {27.0f, 28.0f}},
                         1.6f)});
    });
    Charge(tile, kLight, [](Point p) {
        return Union(
            {shape::Polygon(p, {{10.0f, 22.0f}, {22.0f, 22.0f}, {20.5f, 9.0f}, {11.5f, 9.0f}}),
             shape::Ellipse(p, {16.0f, 7.5f}, {5.5f, 4.0f}),
             shape::Ellipse(p, {7.5f, 17.8f}, {3.6f, 1.7f}),
             shape::Ellipse(p, {24.5f, 17.8f}, {3.6f, 1.7f})});
    });
    tile.Paint(kInk, [](Point p) {
        return Union({shape::Disc(p, {12.8f, 17.0f}, 1.3f), shape::Disc(p, {19.2f, 17.0f}, 1.3f),
                      shape::Disc(p, {14.0f, 7.2f}, 1.0f), shape::Disc(p, {18.0f, 7.2f}, 1.0f)});
    });
    return tile.Image();
}

TextureData DrawGrain() {
    Canvas tile = Tile();
    Charge(tile, kBrass, [](Point p) {
        return shape::Stroke(p, {16.0f, 3.0f}, {16.0f, 24.0f}, 1.1f);
    });
    Charge(tile, kLight, [](Point p) {
        float nearest = shape::Ellipse(p, {16.0f, 26.5f}, {2.2f, 3.6f});
        for (const float y : {21.0f, 15.5f, 10.0f}) {
            for (const float side : {-1.0f, 1.0f}) {
                nearest = std::min(nearest, shape::Stroke(p, {16.0f + side * 2.6f, y - 1.5f},
                                                          {16.0f + side * 6.2f, y + 3.2f}, 1.9f));
            }
        }
        return nearest;
    });
    return tile.Image();
}

TextureData DrawLaw() {
    Canvas tile = Tile();
    Charge(tile, kBrass, [](Point p) {
        return Union({shape::Stroke(p, {16.0f, 6.0f}, {16.0f, 27.0f}, 1.3f),
                      shape::Stroke(p, {10.5f, 4.8f}, {21.5f, 4.8f}, 1.5f),
                      shape::Stroke(p, {5.5f, 23.5f}, {26.5f, 23.5f}, 1.3f)});
    });
    Charge(tile, kLight, [](Point p) {
        float nearest = 100.0f;
        for (const float x : {7.0f, 25.0f}) {
            nearest = std::min(nearest, std::max(shape::Disc(p, {x, 14.0f}, 4.8f), p.y - 14.0f));
            nearest = std::min(
                nearest, shape::Path(p, {{x - 4.0f, 14.0f}, {x, 22.5f}, {x + 4.0f, 14.0f}}, 0.7f));
        }
        return nearest;
    });
    return tile.Image();
}

TextureData DrawAlarm() {
    Canvas tile = Tile();
    Charge(tile, kLight, [](Point p) {
        return shape::Polygon(p, {{16.0f, 28.5f}, {29.0f, 4.5f}, {3.0f, 4.5f}});
    });
    tile.Paint(kInk, [](Point p) {
        return Union({shape::Stroke(p, {16.0f, 20.0f}, {16.0f, 12.5f}, 1.7f),
                      shape::Disc(p, {16.0f, 8.2f}, 1.8f)});
    });
    return tile.Image();
}

TextureData DrawCalm() {
    Canvas tile = Tile(kMoss);
    Charge(tile, kLight, [](Point p) {
        return shape::RoundedBox(p, {16.0f, 16.0f}, {12.0f, 8.5f}, 1.0f);
    });
    tile.Paint(kInk, [](Point p) {
        return shape::Path(p, {{4.5f, 24.0f}, {16.0f, 14.0f}, {27.5f, 24.0f}}, 0.9f);
    });
    return tile.Image();
}

namespace {

TextureData DrawOrnamentWith(const Vector& ground, const Vector& ink) {
    constexpr float kMiddle = 32.0f;
    Canvas paper(64, kSmall, ground);
    paper.Paint(ink, [](Point p) {
        const Point at{std::fabs(p.x - kMiddle), p.y - 16.0f};
        return Union({shape::Stroke(at, {0.0f, 0.0f}, {24.0f, 0.0f}, 0.9f),
                      shape::Polygon(at, {{-0.1f, 6.5f}, {5.0f, 0.0f}, {-0.1f, -6.5f}}),
                      shape::Ellipse(at, {14.0f, 4.2f}, {5.5f, 2.6f}),
                      shape::Ellipse(at, {14.0f, -4.2f}, {5.5f, 2.6f}),
                      shape::Disc(at, {25.5f, 0.0f}, 2.6f)});
    });
    return paper.Image();
}

/// @param edge  lightens the upper edge and darkens the lower one
TextureData DrawSign(bool isPlus, const Vector& ground, const Vector& ink, float edge) {
    constexpr float kEdge = 3.0f;
    Canvas button(kSmall, kSmall, ground);
    button.ForEach([&](Point p, float* pixel) {
        float light = 1.0f;
        if (p.y > kSmall - kEdge || p.x < kEdge)
            light += edge;
        else if (p.y < kEdge || p.x > kSmall - kEdge)
            light -= edge;
        for (int i = 0; i < 3; ++i)
            pixel[i] = std::clamp(pixel[i] * light, 0.0f, 1.0f);
    });
    button.Paint(ink, [&](Point p) {
        const float across = shape::RoundedBox(p, {16.0f, 16.0f}, {8.0f, 2.2f}, 0.0f);
        const float up = shape::RoundedBox(p, {16.0f, 16.0f}, {2.0f, 9.0f}, 0.0f);
        return isPlus ? std::min(across, up) : across;
    });
    return button.Image();
}

}  // namespace

TextureData DrawOrnament() {
    return DrawOrnamentWith(Vector(0.94f, 0.93f, 0.89f, 1.0f), Vector(0.35f, 0.32f, 0.27f, 1.0f));
}

TextureData DrawPlainOrnament() {
    return DrawOrnamentWith(kBlack, kWhite);
}

TextureData DrawMinus() {
    return DrawSign(false, kDarkBrass, kWhite, 0.45f);
}

TextureData DrawPlus() {
    return DrawSign(true, kDarkBrass, kWhite, 0.45f);
}

TextureData DrawPlainMinus() {
    return DrawSign(false, kYellow, kBlack, 0.0f);
}

TextureData DrawPlainPlus() {
    return DrawSign(true, kYellow, kBlack, 0.0f);
}

void MakeBlackAndWhite(TextureData& picture) {
    constexpr float kDark = 0.32f;
    constexpr float kBright = 0.5f;
    const int count = picture.GetWidth() * picture.GetHeight();
    for (int i = 0; i < count; ++i) {
        float* const pixel = picture.GetData() + static_cast<std::ptrdiff_t>(i) * 4;
        const float light = 0.3f * pixel[0] + 0.59f * pixel[1] + 0.11f * pixel[2];
        std::fill_n(pixel, 3, std::clamp((light - kDark) / (kBright - kDark), 0.0f, 1.0f));
    }
}

namespace {

TextureData DrawArmsOn(const Vector& ground) {
    constexpr int kWidth = 64;
    constexpr int kHeight = 128;
    Canvas arms(kWidth, kHeight, ground);
    const auto cloth = [](Point p) {
        return shape::Polygon(
            p, {{6.0f, 118.0f}, {58.0f, 118.0f}, {58.0f, 8.0f}, {32.0f, 24.0f}, {6.0f, 8.0f}});
    };
    Canvas shadow(kWidth, kHeight);
    shadow.Paint(Vector(0.2f, 0.12f, 0.05f, 0.5f), cloth);
    shadow.Image().Blur(3);
    shadow.Image().Translate(1, -2, Vector(0.0f, 0.0f, 0.0f, 0.0f));
    arms.Lay(shadow);
    arms.MakeOpaque();
    arms.Paint(kBrass, cloth);
    arms.Paint(kWax, [&](Point p) { return cloth(p) + 2.0f; });
    // The rod that it hangs from.
    arms.Paint(kInk, [](Point p) {
        return shape::Stroke(p, {3.0f, 119.0f}, {61.0f, 119.0f}, 2.8f);
    });
    arms.Paint(kBrass, [](Point p) {
        return Union({shape::Stroke(p, {3.0f, 119.0f}, {61.0f, 119.0f}, 1.8f),
                      shape::Disc(p, {3.8f, 119.0f}, 2.8f), shape::Disc(p, {60.2f, 119.0f}, 2.8f)});
    });
    // The crown.
    const auto crown = [](Point p) {
        return Union({shape::Polygon(p, {{20.0f, 90.0f},
                                         {17.5f, 105.0f},
                                         {25.5f, 97.0f},
                                         {32.0f, 108.0f},
                                         {38.5f, 97.0f},
                                         {46.5f, 105.0f},
                                         {44.0f, 90.0f}}),
                      shape::Disc(p, {17.5f, 105.5f}, 1.8f), shape::Disc(p, {32.0f, 108.5f}, 2.0f),
                      shape::Disc(p, {46.5f, 105.5f}, 1.8f)});
    };
    Charge(arms, kBrass, crown);
    arms.Paint(kDarkWax, [](Point p) {
        return shape::Stroke(p, {21.5f, 93.0f}, {42.5f, 93.0f}, 0.7f);
    });
    // The shield: a chevron between three coins.
    const auto shield = [](Point p) { return Shield(p, {32.0f, 84.0f}, 20.0f, 52.0f); };
    Charge(arms, kBrass, shield);
    arms.Paint(kInk, [&](Point p) { return shield(p) + 2.0f; });
    arms.Paint(kLight, [&](Point p) {
        const float chevron =
            shape::Path(p, {{10.0f, 47.0f}, {32.0f, 66.0f}, {54.0f, 47.0f}}, 4.2f);
        return std::max(chevron, shield(p) + 2.0f);
    });
    arms.Paint(kBrass, [](Point p) {
        return Union({shape::Disc(p, {20.5f, 74.0f}, 3.8f), shape::Disc(p, {43.5f, 74.0f}, 3.8f),
                      shape::Disc(p, {32.0f, 47.5f}, 3.8f)});
    });
    return arms.Image();
}

}  // namespace

TextureData DrawArms() {
    return DrawArmsOn(Vector(0.955f, 0.955f, 0.947f, 1.0f));
}

TextureData DrawPlainArms() {
    TextureData arms = DrawArmsOn(kBlack);
    MakeBlackAndWhite(arms);
    return arms;
}

TextureData DrawSeal() {
    constexpr int kSide = 64;
    constexpr Point kCentre{32.0f, 32.0f};
    Canvas seal(kSide, kSide, Vector(0.955f, 0.955f, 0.947f, 1.0f));
    // The edge of the wax is irregular.
    const auto wax = [&](Point p) {
        const float angle = std::atan2(p.y - kCentre.y, p.x - kCentre.x);
        return shape::Disc(
            p, kCentre,
            28.2f + 1.2f * std::sin(3.0f * angle + 0.6f) + 0.9f * std::sin(7.0f * angle));
    };
    Canvas shadow(kSide, kSide);
    shadow.Paint(Vector(0.2f, 0.12f, 0.05f, 0.6f), wax);
    shadow.Image().Blur(3);
    shadow.Image().Translate(1, -2, Vector(0.0f, 0.0f, 0.0f, 0.0f));
    seal.Lay(shadow);
    seal.MakeOpaque();
    seal.Paint(kDarkWax, wax);
    // The light comes from the upper left: the outer side of the rim is lit from there, and its
    // inner side from the other.
    seal.ForEach([&](Point p, float* pixel) {
        const float distance = wax(p);
        if (distance > -0.5f)
            return;
        const float lit = ((p.y - kCentre.y) - (p.x - kCentre.x)) / 40.0f;
        const float radius = shape::Disc(p, kCentre, 0.0f);
        float light = 1.0f;
        if (radius > 25.0f) {
            light = 1.05f + 0.45f * lit;
        } else if (radius > 22.0f) {
            light = 0.9f - 0.4f * lit;
        }
        const float colour[] = {0.52f, 0.085f, 0.07f};
        for (int i = 0; i < 3; ++i)
            pixel[i] = std::clamp(colour[i] * light, 0.0f, 1.0f);
    });
    return seal.Image();
}
