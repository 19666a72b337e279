// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "quarn2/decodedimage.h"
#include "quarn2/vector.h"

/// An image in memory: RGBA pixels of 32-bit floats, nominally 0 to 1, row after row in the
/// order in which the source delivers them. A plain value: a copy shares the array until one of
/// the two is loaded or blanked, which gives it a new array.
class TextureData {
public:
    /// An image's floats stay below 1 GiB.
    static constexpr std::int64_t kMaxPixels = kMaxImagePixels;

    /// 2 by 2 pixels, zeroed.
    TextureData();

    /// Chooses a decoder by the path: TGA if it has "tga" anywhere, else PNG if it has "png".
    /// On failure writes one line on standard error and leaves the image as it was.
    [[nodiscard]] bool Load(const std::string& path);

    /// Reads the file and decodes it with DecodeTGA. Fails as Load does.
    [[nodiscard]] bool LoadTGA(const std::string& path);

    /// Reads the file and decodes it with DecodePNG. Fails as Load does, after the line that
    /// zlib's refusal writes.
    [[nodiscard]] bool LoadPNG(const std::string& path);

    /// Replaces the image by bytes of 3 (or, with `alpha`, 4) per pixel.
    /// @return false for a size that is negative or above kMaxPixels
    bool Load(int newWidth, int newHeight, bool alpha, const std::uint8_t* bytes);

    // The procedural operations; each returns true, Blank unless it is given a size that Load
    // refuses. Perlin, Blur and Blend see the array as `width` rows of `height` pixels;
    // Translate as `height` rows of `width`, like the loaders.

    /// Replaces the image by opaque black pixels.
    bool Blank(int newWidth, int newHeight);
    /// Every colour channel, and with `alpha` the alpha channel, becomes 1 minus its value.
    bool Invert(bool alpha);
    /// Adds fractal value noise to red, then copies red to green and blue. Does not clamp.
    bool Perlin(int octaves, float frequency, float amplitude, float frequencyFactor,
                float amplitudeFactor);
    /// Clamps red, green and blue to 0 to 1.
    bool Clamp();
    /// Rescales red to 0 to 1 over the image's range and copies it to green and blue. An image
    /// of constant red stays as it is.
    bool ScaleClamp();
    /// Smooths all channels with an exponential kernel of `radius` pixels to either side.
    bool Blur(int radius);
    /// Shifts the image right by `dx` and away from row 0 by `dy`, without wrapping around.
    bool Translate(int dx, int dy, const Vector& fill);
    /// Replaces the image by the clamped sum of itself and `other`, scaled to its size, each
    /// weighted by its mode (0 to 9).
    bool Blend(int mode, int otherMode, const TextureData& other);

    /// Pixels.
    int GetWidth() const { return width; }
    /// Pixels.
    int GetHeight() const { return height; }
    /// Four floats per pixel: red, green, blue, alpha. Copies of the image share them.
    float* GetData() { return data.get(); }
    const float* GetData() const { return data.get(); }
    /// Always 32, for every file.
    int GetBitsPerPixel() const { return 32; }

private:
    /// @param notOpened  the line that is written if there is no file that can be opened
    [[nodiscard]] bool LoadFile(const std::string& path, ImageDecoder* decode,
                                const std::string& notOpened);
    /// Whether an image of that size may be made: it is not negative and not above kMaxPixels.
    /// If not, one line on standard error names the limit.
    [[nodiscard]] static bool CanHold(int width, int height);
    std::size_t PixelCount() const {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }

    std::int32_t width = 2;
    std::int32_t height = 2;
    std::shared_ptr<float[]> data;
};
