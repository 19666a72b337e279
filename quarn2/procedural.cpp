// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iostream>
#include <limits>
#include <numeric>
#include <span>
#include <utility>
#include <vector>

#include "quarn2/texturedata.h"
#include "quarn2/trace.h"

namespace {

constexpr std::size_t kChannels = 4;
constexpr std::size_t kAlpha = 3;

// Noise. Lattice points are unsigned, so that their arithmetic wraps at 32 bits.

/// Between -1 and 1, always the same for a point.
float Noise(std::uint32_t x, std::uint32_t y) {
    std::uint32_t n = x + 57 * y;
    n = n << 13 ^ n;
    const std::uint32_t mixed = (n * (n * n * 15731 + 789221) + 1376312589) & 0x7FFFFFFF;
    return 1.0f - static_cast<float>(static_cast<std::int32_t>(mixed)) / 1073741824.0f;
}

/// The noise of a point and its eight neighbours, averaged.
float SmoothNoise(std::uint32_t x, std::uint32_t y) {
    return Noise(x, y) / 4
           + (Noise(x + 1, y) + Noise(x - 1, y) + Noise(x, y + 1) + Noise(x, y - 1)) / 8
           + (Noise(x + 1, y + 1) + Noise(x + 1, y - 1) + Noise(x - 1, y + 1) + Noise(x - 1, y - 1))
                 / 16;
}

/// Rises from 0 at t = 0 to 1 at t = 1, along a cosine.
float CosineWeight(float t) {
    return (1 - std::cos(t * 3.1415927f)) * 0.5f;
}

/// @param weight  of `b`, from CosineWeight
float CosineInterpolate(float a, float b, float weight) {
    return a * (1 - weight) + b * weight;
}

/// A coordinate between two lattice points.
struct LatticePosition {
    std::uint32_t point;  ///< the next one towards zero
    float weight;         ///< of the point after that
};

LatticePosition LatticePositionOf(float coordinate) {
    // NaN, infinity and values outside int32 become INT32_MIN.
    constexpr float kBound = 2147483648.0f;
    const std::int32_t point = coordinate >= -kBound && coordinate < kBound
                                   ? static_cast<std::int32_t>(coordinate)
                                   : std::numeric_limits<std::int32_t>::min();
    return {static_cast<std::uint32_t>(point),
            CosineWeight(coordinate - static_cast<float>(point))};
}

/// The noise along one line of the lattice. The columns are the same on every line.
class LatticeLine {
public:
    void Evaluate(const std::vector<LatticePosition>& columns, std::uint32_t y) {
        values.resize(columns.size());
        float left = 0;
        float right = 0;
        for (std::size_t j = 0; j < columns.size(); ++j) {
            const std::uint32_t x = columns[j].point;
            if (j == 0 || x != columns[j - 1].point) {
                left = j != 0 && x == columns[j - 1].point + 1 ? right : SmoothNoise(x, y);
                right = SmoothNoise(x + 1, y);
            }
            values[j] = CosineInterpolate(left, right, columns[j].weight);
        }
    }

    const float* Values() const { return values.data(); }

private:
    std::vector<float> values;
};

/// Adds one octave of noise to `rows` rows of as many values as there are columns. The lattice
/// is evaluated once per cell: all pixels between two of its lines use the same two.
void AddOctave(std::vector<float>& values, std::size_t rows, float rowStep,
               const std::vector<LatticePosition>& columns, float amplitude) {
    LatticeLine upper;
    LatticeLine lower;
    std::uint32_t point = 0;
    float* value = values.data();
    for (std::size_t i = 0; i < rows; ++i) {
        const LatticePosition row = LatticePositionOf(static_cast<float>(i) / rowStep);
        if (i == 0 || row.point != point) {
            if (i != 0 && row.point == point + 1) {
                std::swap(upper, lower);
            } else {
                upper.Evaluate(columns, row.point);
            }
            lower.Evaluate(columns, row.point + 1);
            point = row.point;
        }
        for (std::size_t j = 0; j < columns.size(); ++j) {
            *value++ +=
                CosineInterpolate(upper.Values()[j], lower.Values()[j], row.weight) * amplitude;
        }
    }
}

// Blur: a weighted mean over the neighbours in the image, in one direction after the other.

/// The weights from -reach to reach: exponential in the distance itself, not in its square.
std::vector<float> BlurKernel(int radius, std::size_t reach) {
    std::vector<float> kernel(2 * reach + 1, 1.0f);
    const float s = static_cast<float>(radius) / 2 + 1;
    for (std::size_t distance = 0; distance <= reach && radius != 0; ++distance) {
        const float weight =
            std::exp(static_cast<float>(distance) / (-2 * s * s)) / (6.2831855f * s);
        kernel[reach - distance] = kernel[reach + distance] = weight;
    }
    return kernel;
}

/// sums[k] is the sum of values[k + n * stride] * weights[n], added in the order of n.
template <std::size_t Count>
void SumWeighted(const float* values, std::size_t stride, std::span<const float> weights,
                 float* sums) {
    std::array<float, Count> block{};  // stays in registers
    for (const float weight : weights) {
        for (std::size_t k = 0; k < Count; ++k)
            block[k] += values[k] * weight;
        values += stride;
    }
    std::copy(block.begin(), block.end(), sums);
}

void SumWeighted(const float* values, std::size_t stride, std::span<const float> weights,
                 std::span<float> sums) {
    constexpr std::size_t kBlock = 32;
    std::size_t k = 0;
    for (; k + kBlock <= sums.size(); k += kBlock)
        SumWeighted<kBlock>(values + k, stride, weights, &sums[k]);
    for (; k < sums.size(); ++k)
        SumWeighted<1>(values + k, stride, weights, &sums[k]);
}

/// Blurs across lines of `length` pixels. Colours of wholly transparent pixels are left out.
void BlurAcross(std::span<float> pixels, std::size_t length, std::span<const float> kernel) {
    // A colour of 0 that is added with a weight of 0 is left out.
    std::vector<float> colours(pixels.begin(), pixels.end());
    std::vector<float> presence(pixels.size() / kChannels, 1.0f);
    for (std::size_t pixel = 0; pixel < presence.size(); ++pixel) {
        if (colours[pixel * kChannels + kAlpha] == 0) {
            std::fill_n(&colours[pixel * kChannels], kChannels, 0.0f);
            presence[pixel] = 0;
        }
    }
    const std::size_t lines = presence.size() / length;
    const std::size_t reach = kernel.size() / 2;
    std::vector<float> sums(length * kChannels);
    std::vector<float> colourWeights(length);
    float* out = pixels.data();
    for (std::size_t line = 0; line < lines; ++line) {
        const std::size_t first = line - std::min(line, reach);
        const std::size_t last = std::min(line + reach, lines - 1);
        const auto weights = kernel.subspan(first + reach - line, last - first + 1);
        SumWeighted(&colours[first * sums.size()], sums.size(), weights, sums);
        SumWeighted(&presence[first * length], length, weights, colourWeights);
        const float alphaWeights = std::accumulate(weights.begin(), weights.end(), 0.0f);
        const float* sum = sums.data();
        for (const float weight : colourWeights) {
            // If all neighbours are transparent, the sums are 0 and any divisor will do.
            const float divisor = weight != 0 ? weight : 1;
            for (std::size_t channel = 0; channel < kAlpha; ++channel)
                *out++ = *sum++ / divisor;
            *out++ = *sum++ / alphaWeights;
        }
    }
}

/// Blurs along each line of `length` pixels.
void BlurAlong(std::span<float> pixels, std::size_t length, std::span<const float> kernel) {
    const std::size_t reach = kernel.size() / 2;
    const std::size_t floats = length * kChannels;
    std::vector<float> weights;
    for (std::size_t pixel = 0; pixel < length; ++pixel) {
        const std::size_t first = pixel - std::min(pixel, reach);
        const std::size_t last = std::min(pixel + reach, length - 1);
        const auto used = kernel.subspan(first + reach - pixel, last - first + 1);
        weights.insert(weights.end(), kChannels, std::accumulate(used.begin(), used.end(), 0.0f));
    }
    // The zeros beyond both ends add nothing.
    std::vector<float> padded(floats + 2 * reach * kChannels);
    std::vector<float> sums(floats);
    for (float* line = pixels.data(); line != pixels.data() + pixels.size(); line += floats) {
        std::copy_n(line, floats, &padded[reach * kChannels]);
        SumWeighted(padded.data(), kChannels, kernel, sums);
        std::transform(sums.begin(), sums.end(), weights.begin(), line, std::divides<>());
    }
}

// Blend

constexpr int kBlendModes = 10;

float Grey(const float* pixel) {
    return (pixel[0] + pixel[1] + pixel[2]) / 3;
}

/// What a contribution is multiplied by in a mode above 0.
float BlendWeight(int mode, const float* own, const float* other) {
    switch (mode) {
    case 2:
        return own[kAlpha];
    case 3:
        return other[kAlpha];
    case 4:
        return 1 - own[kAlpha];
    case 5:
        return 1 - other[kAlpha];
    case 6:
        return Grey(own);
    case 7:
        return Grey(other);
    case 8:
        return 1 - Grey(own);
    case 9:
        return 1 - Grey(other);
    default:
        return 1;
    }
}

void AddContribution(float* sum, const float* colour, int mode, const float* own,
                     const float* other) {
    if (mode == 0)
        return;
    const float weight = BlendWeight(mode, own, other);
    for (std::size_t channel = 0; channel < kChannels; ++channel)
        sum[channel] += colour[channel] * weight;
}

/// Which of `count` rows or columns is shown at `index` of `shownCount`, rounded down.
std::size_t Sampled(std::int32_t count, std::int32_t index, std::int32_t shownCount) {
    const float position =
        static_cast<float>(count) * (static_cast<float>(index) / static_cast<float>(shownCount));
    return static_cast<std::size_t>(std::min(static_cast<std::int32_t>(position), count - 1));
}

}  // namespace

bool TextureData::Blank(int newWidth, int newHeight) {
    TraceFrame frame("Blank", "TextureData");
    if (!CanHold(newWidth, newHeight))
        return false;
    std::shared_ptr<float[]> blank = NewPixels(newWidth, newHeight);
    width = newWidth;
    height = newHeight;
    data = std::move(blank);
    float* out = data.get();
    for (std::size_t pixel = 0; pixel < PixelCount(); ++pixel) {
        out = std::fill_n(out, kAlpha, 0.0f);
        *out++ = 1.0f;
    }
    return true;
}

bool TextureData::Invert(bool alpha) {
    TraceFrame frame("Invert", "TextureData");
    const std::size_t channels = alpha ? kChannels : kAlpha;
    float* pixel = data.get();
    for (std::size_t left = PixelCount(); left > 0; --left, pixel += kChannels) {
        for (std::size_t channel = 0; channel < channels; ++channel)
            pixel[channel] = 1.0f - pixel[channel];
    }
    return true;
}

bool TextureData::Perlin(int octaves, float frequency, float amplitude, float frequencyFactor,
                         float amplitudeFactor) {
    TraceFrame frame("Perlin", "TextureData");
    const auto rows = static_cast<std::size_t>(width);
    float* const pixels = data.get();
    std::vector<float> red(PixelCount());
    for (std::size_t pixel = 0; pixel < red.size(); ++pixel)
        red[pixel] = pixels[pixel * kChannels];
    std::vector<LatticePosition> columns(static_cast<std::size_t>(height));
    for (int octave = 0; octave < octaves; ++octave) {
        const float columnStep = static_cast<float>(width) * frequency;
        for (std::size_t j = 0; j < columns.size(); ++j)
            columns[j] = LatticePositionOf(static_cast<float>(j) / columnStep);
        AddOctave(red, rows, static_cast<float>(height) * frequency, columns, amplitude);
        frequency *= frequencyFactor;
        amplitude *= amplitudeFactor;
    }
    for (std::size_t pixel = 0; pixel < red.size(); ++pixel)
        std::fill_n(pixels + pixel * kChannels, kAlpha, red[pixel]);
    return true;
}

bool TextureData::Clamp() {
    TraceFrame frame("Clamp", "TextureData");
    float* pixel = data.get();
    for (std::size_t left = PixelCount(); left > 0; --left, pixel += kChannels) {
        for (std::size_t channel = 0; channel < kAlpha; ++channel)
            pixel[channel] = std::clamp(pixel[channel], 0.0f, 1.0f);
    }
    return true;
}

bool TextureData::ScaleClamp() {
    TraceFrame frame("ScaleClamp", "TextureData");
    float* pixels = data.get();
    const std::size_t count = PixelCount() * kChannels;
    if (count == 0)
        return true;
    float lowest = pixels[0];
    float highest = pixels[0];
    for (std::size_t pixel = 0; pixel < count; pixel += kChannels) {
        lowest = std::min(lowest, pixels[pixel]);
        highest = std::max(highest, pixels[pixel]);
    }
    if (lowest == highest)
        return true;  // there is no range to scale over
    for (std::size_t pixel = 0; pixel < count; pixel += kChannels)
        std::fill_n(pixels + pixel, kAlpha, (pixels[pixel] - lowest) / (highest - lowest));
    return true;
}

bool TextureData::Blur(int radius) {
    TraceFrame frame("Blur", "TextureData");
    const std::span<float> pixels(data.get(), PixelCount() * kChannels);
    if (radius < 0 || pixels.empty())
        return true;
    // No neighbour is further away than the image is long.
    const auto reach = static_cast<std::size_t>(std::min(radius, std::max(width, height) - 1));
    const std::vector<float> kernel = BlurKernel(radius, reach);
    const auto length = static_cast<std::size_t>(height);
    BlurAcross(pixels, length, kernel);
    BlurAlong(pixels, length, kernel);
    return true;
}

bool TextureData::Translate(int dx, int dy, const Vector& fill) {
    TraceFrame frame("Translate", "TextureData");
    const std::array<float, kChannels> colour = {fill.x, fill.y, fill.z, fill.w};
    const auto paint = [&colour](float* from, std::size_t pixels) {
        for (std::size_t pixel = 0; pixel < pixels; ++pixel)
            from = std::copy(colour.begin(), colour.end(), from);
    };
    // Moves a run of pixels by `shift` within itself and paints what that uncovers.
    const auto move = [&paint](float* run, std::int64_t pixels, std::int64_t shift) {
        shift = std::clamp(shift, -pixels, pixels);
        const auto uncovered = static_cast<std::size_t>(std::abs(shift));
        const std::size_t kept = (static_cast<std::size_t>(pixels) - uncovered) * kChannels;
        float* const inner = run + uncovered * kChannels;
        if (shift <= 0) {
            std::copy_n(inner, kept, run);
            paint(run + kept, uncovered);
        } else {
            std::copy_backward(run, run + kept, inner + kept);
            paint(run, uncovered);
        }
    };
    for (std::int64_t row = 0; row < height; ++row)
        move(data.get() + row * width * std::int64_t{kChannels}, width, dx);
    // Rows lie one after the other, so all columns move at once.
    move(data.get(), std::int64_t{width} * height, std::int64_t{dy} * width);
    return true;
}

bool TextureData::Blend(int mode, int otherMode, const TextureData& other) {
    TraceFrame frame("Blend", "TextureData");
    for (const int used : {mode, otherMode}) {
        if (used < 0 || used >= kBlendModes) {
            std::cerr << "Unknown texture operation\n";
            Assert("texturedata", 469, "0", false);
        }
    }
    const bool empty = other.PixelCount() == 0;
    constexpr std::array<float, kChannels> kNothing{};
    // The sums have their own array, because the other image may share the array of this one.
    std::vector<float> sums(PixelCount() * kChannels);
    const float* own = data.get();
    float* sum = sums.data();
    for (std::int32_t i = 0; i < width; ++i) {
        const std::size_t row =
            Sampled(other.width, i, width) * static_cast<std::size_t>(other.height);
        for (std::int32_t j = 0; j < height; ++j, own += kChannels, sum += kChannels) {
            const std::size_t pixel = row + Sampled(other.height, j, height);
            const float* sample = empty ? kNothing.data() : other.data.get() + pixel * kChannels;
            AddContribution(sum, own, mode, own, sample);
            AddContribution(sum, sample, otherMode, own, sample);
        }
    }
    std::transform(sums.begin(), sums.end(), data.get(),
                   [](float value) { return std::clamp(value, 0.0f, 1.0f); });
    return true;
}
