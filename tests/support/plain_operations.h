// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "quarn2/texturedata.h"

// The slow operations of an image, written one pixel after the other as in their formulas. The
// fast ones must give the same result to the last bit.

/// The floats of an image as `width` rows of `height` pixels, as some of the operations see it.
struct PlainImage {
    explicit PlainImage(const TextureData& image)
        : width(image.GetWidth()),
          height(image.GetHeight()),
          data(image.GetData(), image.GetData()
                                    + static_cast<std::size_t>(image.GetWidth())
                                          * static_cast<std::size_t>(image.GetHeight()) * 4) {}

    float& At(int i, int j, int channel) {
        return data[static_cast<std::size_t>((i * height + j) * 4 + channel)];
    }

    int width;
    int height;
    std::vector<float> data;
};

inline float PlainNoise(std::int32_t x, std::int32_t y) {
    auto n = static_cast<std::uint32_t>(x) + 57U * static_cast<std::uint32_t>(y);
    n = (n << 13) ^ n;
    const std::uint32_t bits = (n * (n * n * 15731U + 789221U) + 1376312589U) & 0x7FFFFFFFU;
    return 1.0f - static_cast<float>(bits) / 1073741824.0f;
}

inline float PlainSmoothNoise(std::int32_t x, std::int32_t y) {
    const auto noise = [x, y](std::uint32_t dx, std::uint32_t dy) {
        return PlainNoise(static_cast<std::int32_t>(static_cast<std::uint32_t>(x) + dx),
                          static_cast<std::int32_t>(static_cast<std::uint32_t>(y) + dy));
    };
    constexpr std::uint32_t kBack = 0xFFFF'FFFF;
    return noise(0, 0) / 4 + (noise(1, 0) + noise(kBack, 0) + noise(0, 1) + noise(0, kBack)) / 8
           + (noise(1, 1) + noise(1, kBack) + noise(kBack, 1) + noise(kBack, kBack)) / 16;
}

inline float PlainCosineInterpolate(float a, float b, float t) {
    const float g = (1 - std::cos(t * 3.1415927f)) * 0.5f;
    return a * (1 - g) + b * g;
}

inline float PlainInterpolatedNoise(float x, float y) {
    const auto ix = static_cast<std::int32_t>(x);
    const auto iy = static_cast<std::int32_t>(y);
    const float fx = x - static_cast<float>(ix);
    const float fy = y - static_cast<float>(iy);
    return PlainCosineInterpolate(
        PlainCosineInterpolate(PlainSmoothNoise(ix, iy), PlainSmoothNoise(ix + 1, iy), fx),
        PlainCosineInterpolate(PlainSmoothNoise(ix, iy + 1), PlainSmoothNoise(ix + 1, iy + 1), fx),
        fy);
}

inline void PlainPerlin(PlainImage& image, int octaves, float f, float a, float frequencyFactor,
                        float amplitudeFactor) {
    for (int octave = 0; octave < octaves; ++octave) {
        for (int i = 0; i < image.width; ++i) {
            for (int j = 0; j < image.height; ++j) {
                const float x = static_cast<float>(j) / (static_cast<float>(image.width) * f);
                const float y = static_cast<float>(i) / (static_cast<float>(image.height) * f);
                image.At(i, j, 0) += PlainInterpolatedNoise(x, y) * a;
            }
        }
        f = f * frequencyFactor;
        a = a * amplitudeFactor;
    }
    for (int i = 0; i < image.width; ++i)
        for (int j = 0; j < image.height; ++j)
            image.At(i, j, 1) = image.At(i, j, 2) = image.At(i, j, 0);
}

inline void PlainBlur(PlainImage& image, int radius) {
    const float s = static_cast<float>(radius) / 2 + 1;
    std::vector<float> kernel;
    for (int d = -radius; d <= radius; ++d) {
        const auto distance = static_cast<float>(d < 0 ? -d : d);
        kernel.push_back(radius == 0 ? 1 : std::exp(distance / (-2 * s * s)) / (6.2831855f * s));
    }
    for (const bool firstPass : {true, false}) {
        PlainImage scratch = image;
        for (int i = 0; i < image.width; ++i) {
            for (int j = 0; j < image.height; ++j) {
                for (int channel = 0; channel < 4; ++channel) {
                    float sum = 0;
                    float weights = 0;
                    for (int d = -radius; d <= radius; ++d) {
                        const int ni = firstPass ? i + d : i;
                        const int nj = firstPass ? j : j + d;
                        if (ni < 0 || ni >= image.width || nj < 0 || nj >= image.height)
                            continue;
                        if (firstPass && channel != 3 && image.At(ni, nj, 3) == 0)
                            continue;
                        const float weight = kernel[static_cast<std::size_t>(d + radius)];
                        sum += image.At(ni, nj, channel) * weight;
                        weights += weight;
                    }
                    scratch.At(i, j, channel) = weights != 0 ? sum / weights : 0;
                }
            }
        }
        image = scratch;
    }
}
