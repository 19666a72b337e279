// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/tgawriter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <iostream>
#include <iterator>
#include <span>

#include "quarn2/texturedata.h"

namespace {

constexpr std::uint8_t kRunLengthTrueColour = 10;
constexpr std::uint8_t kEightAlphaBits = 8;  // the first row is the bottom one, as with 0
constexpr std::uint8_t kOpaque = 255;
constexpr std::uint8_t kRunBit = 0x80;
constexpr std::size_t kLongestPacket = 128;

using Pixel = std::array<std::uint8_t, 4>;  // blue, green, red, alpha

std::uint8_t ByteOf(float value) {
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0f, 1.0f) * 255.0f));
}

std::uint8_t Low(int value) {
    return static_cast<std::uint8_t>(value & 0xFF);
}

std::uint8_t High(int value) {
    return static_cast<std::uint8_t>(value >> 8);
}

/// How many pixels at the start are equal.
std::size_t RunLength(std::span<const Pixel> pixels) {
    const auto other = std::find_if(pixels.begin(), pixels.end(),
                                    [&](const Pixel& pixel) { return pixel != pixels.front(); });
    return static_cast<std::size_t>(other - pixels.begin());
}

/// How many pixels there are before the next two that are equal.
std::size_t RawLength(std::span<const Pixel> pixels) {
    return static_cast<std::size_t>(std::adjacent_find(pixels.begin(), pixels.end())
                                    - pixels.begin());
}

void EncodeRow(std::span<const Pixel> row, int pixelBytes, std::vector<std::uint8_t>& file) {
    while (!row.empty()) {
        const std::size_t equal = RunLength(row);
        const bool run = equal > 1;
        const std::size_t count = std::min(run ? equal : RawLength(row), kLongestPacket);
        file.push_back(static_cast<std::uint8_t>((run ? kRunBit : 0) | (count - 1)));
        for (const Pixel& pixel : row.first(run ? 1 : count))
            file.insert(file.end(), pixel.begin(), pixel.begin() + pixelBytes);
        row = row.subspan(count);
    }
}

bool IsOpaque(const TextureData& image) {
    const float* alpha = image.GetData() + 3;
    const std::ptrdiff_t count = std::ptrdiff_t{image.GetWidth()} * image.GetHeight();
    for (std::ptrdiff_t pixel = 0; pixel < count; ++pixel) {
        if (ByteOf(alpha[pixel * 4]) != kOpaque)
            return false;
    }
    return true;
}

}  // namespace

std::vector<std::uint8_t> EncodeTGA(const TextureData& image) {
    const int width = image.GetWidth();
    const int height = image.GetHeight();
    const bool opaque = IsOpaque(image);
    const int pixelBytes = opaque ? 3 : 4;
    std::vector<std::uint8_t> file{0,
                                   0,
                                   kRunLengthTrueColour,
                                   0,
                                   0,
                                   0,
                                   0,
                                   0,  // no colour map
                                   0,
                                   0,
                                   0,
                                   0,  // origin
                                   Low(width),
                                   High(width),
                                   Low(height),
                                   High(height),
                                   static_cast<std::uint8_t>(8 * pixelBytes),
                                   opaque ? std::uint8_t{0} : kEightAlphaBits};
    const float* value = image.GetData();
    std::vector<Pixel> row(static_cast<std::size_t>(width));
    for (int y = 0; y < height; ++y) {
        for (Pixel& pixel : row) {
            pixel = {ByteOf(value[2]), ByteOf(value[1]), ByteOf(value[0]), ByteOf(value[3])};
            value += 4;
        }
        EncodeRow(row, pixelBytes, file);
    }
    return file;
}

bool WriteTGA(const TextureData& image, const std::string& path) {
    const std::vector<std::uint8_t> bytes = EncodeTGA(image);
    std::ofstream file(path, std::ios::binary);
    std::copy(bytes.begin(), bytes.end(), std::ostreambuf_iterator<char>(file));
    file.close();
    if (!file)
        std::cerr << path << ": cannot be written\n";
    return static_cast<bool>(file);
}
