// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guisheet.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "tools/guiart/shapes.h"

namespace {

// Sizes in pixels. Widgets draw a picture 12 to 23 pixels wide, so that its mipmaps of 12 and 24
// pixels are used. Cells and margins are whole pixels in all mipmaps down to an eighth of the size.
constexpr int kSheet = 256;
constexpr int kCell = 48;
constexpr int kMargin = 8;
constexpr int kPitch = kCell + 2 * kMargin;

using shape::Coverage;

/// Cells are painted around their centre.
constexpr Point kCentre{0.0f, 0.0f};

struct Colour {
    float grey, alpha;
};

constexpr Colour kTransparent{1.0f, 0.0f};
constexpr float kMinAlpha = 0.5f / 255.0f;  // less is 0 in a file

/// `top` laid over `bottom`; white where both are transparent, so that filtering never darkens
/// an edge.
Colour Over(Colour top, Colour bottom) {
    const float alpha = top.alpha + bottom.alpha * (1.0f - top.alpha);
    if (alpha < kMinAlpha)
        return kTransparent;
    const float rest = bottom.alpha * (1.0f - top.alpha);
    return {(top.grey * top.alpha + bottom.grey * rest) / alpha, alpha};
}

constexpr Colour kOutline{0.05f, 0.9f};  // a light shape must be seen on a light panel
constexpr Colour kHollow{0.05f, 0.6f};
constexpr float kOutlineWidth = 2.75f;
constexpr float kRimWidth = 4.5f;

Colour Painted(float distance, Colour paint, Colour below) {
    return Over({paint.grey, paint.alpha * Coverage(distance)}, below);
}

/// Lit from above: the top of the cell is white.
Colour Lit(Point p, float darkest) {
    const float height = std::clamp(p.y / static_cast<float>(kCell) + 0.5f, 0.0f, 1.0f);
    return {darkest + (1.0f - darkest) * height, 1.0f};
}

/// A lit shape with a dark outline around it.
Colour Raised(Point p, float distance, float darkest) {
    const Colour outline = Painted(distance - kOutlineWidth, kOutline, kTransparent);
    return Painted(distance, Lit(p, darkest), outline);
}

/// A rim around a dark hollow, through which the panel can be seen.
Colour Rimmed(Point p, float distance) {
    const Colour outline = Painted(distance - kOutlineWidth, kOutline, kTransparent);
    const float inner = distance + kRimWidth;
    const Colour rim{Lit(p, 0.75f).grey, Coverage(distance) * (1.0f - Coverage(inner))};
    const Colour hollow{kHollow.grey, kHollow.alpha * Coverage(inner)};
    const Colour ground{outline.grey, outline.alpha * (1.0f - Coverage(distance))};
    return Over(rim, Over(hollow, ground));
}

constexpr float kRadius = 20.5f;  // leaves room for the outline

Colour OptionRing(Point p) {
    return Rimmed(p, shape::Disc(p, kCentre, kRadius));
}

Colour OptionDot(Point p) {
    return Raised(p, shape::Disc(p, kCentre, 9.5f), 0.8f);
}

Colour TickBox(Point p) {
    return Rimmed(p, shape::RoundedBox(p, kCentre, {19.0f, 19.0f}, 4.5f));
}

Colour Tick(Point p) {
    constexpr Point kLeft{-10.5f, 1.0f};
    constexpr Point kLow{-3.0f, -9.5f};
    constexpr Point kHigh{13.0f, 13.5f};
    constexpr float kHalfWidth = 4.25f;
    const float distance = shape::Path(p, {kLeft, kLow, kHigh}, kHalfWidth);
    return Raised(p, distance, 0.9f);
}

/// It is bright with black lines, because sliders draw it half transparent.
Colour Knob(Point p) {
    constexpr Colour kBlack{0.0f, 1.0f};
    const Colour edge = Painted(shape::Disc(p, kCentre, 23.5f), kBlack, kTransparent);
    const Colour stud = Painted(shape::Disc(p, kCentre, 22.0f), Lit(p, 0.8f), edge);
    const Colour groove = Painted(shape::Disc(p, kCentre, 8.0f), kBlack, stud);
    return Painted(shape::Disc(p, kCentre, 5.5f), {1.0f, 1.0f}, groove);
}

using Picture = Colour (*)(Point);
constexpr Picture kPaint[] = {OptionRing, OptionDot, TickBox, Tick, Knob};
static_assert(std::size(kPaint) == kSheetPictures.size());

int Edge(int cell) {
    return kMargin + cell * kPitch;
}

float* PixelAt(TextureData& sheet, int x, int y) {
    return sheet.GetData() + static_cast<std::ptrdiff_t>(y * kSheet + x) * 4;
}

void Paint(TextureData& sheet, const SheetPicture& picture, Picture paint) {
    constexpr float kToCentre = 0.5f - static_cast<float>(kCell) / 2.0f;
    for (int y = 0; y < kCell; ++y) {
        for (int x = 0; x < kCell; ++x) {
            const Colour colour =
                paint({static_cast<float>(x) + kToCentre, static_cast<float>(y) + kToCentre});
            float* pixel = PixelAt(sheet, Edge(picture.column) + x, Edge(picture.row) + y);
            std::fill_n(pixel, 3, colour.grey);
            pixel[3] = colour.alpha;
        }
    }
}

}  // namespace

Vector SheetPicture::Rectangle() const {
    const auto coordinate = [](int pixel) {
        return static_cast<float>(pixel) / static_cast<float>(kSheet);
    };
    return {coordinate(Edge(column)), coordinate(Edge(row)), coordinate(Edge(column) + kCell),
            coordinate(Edge(row) + kCell)};
}

TextureData DrawGuiSheet() {
    std::vector<std::uint8_t> white(std::size_t{kSheet} * kSheet * 4, 255);
    for (std::size_t alpha = 3; alpha < white.size(); alpha += 4)
        white[alpha] = 0;
    TextureData sheet;
    sheet.Load(kSheet, kSheet, true, white.data());
    for (std::size_t i = 0; i < kSheetPictures.size(); ++i)
        Paint(sheet, kSheetPictures[i], kPaint[i]);
    return sheet;
}
