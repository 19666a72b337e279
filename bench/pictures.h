// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>

#include "quarn2/texturedata.h"
#include "tests/support/png_files.h"

// Pictures like those of artists, the same on every run.

inline constexpr std::uint32_t kPictureSize = 1024;

/// Clouds in three colours, with the grain of a camera of up to `grain` steps.
inline Pixels MakePhotograph(unsigned grain) {
    Pixels photograph{kPictureSize, kPictureSize,
                      Bytes(std::size_t{kPictureSize} * kPictureSize * 4, 255)};
    std::minstd_rand random(1);
    for (std::size_t channel = 0; channel < 3; ++channel) {
        TextureData clouds;
        clouds.Blank(kPictureSize, kPictureSize);
        clouds.Perlin(6, 0.3f + 0.1f * static_cast<float>(channel), 1, 0.5f, 0.5f);
        clouds.ScaleClamp();
        for (std::size_t i = channel; i < photograph.rgba.size(); i += 4) {
            const auto value = std::lround(clouds.GetData()[i] * 200 + 20)
                               + static_cast<long>(random() % (grain + 1));
            photograph.rgba[i] = static_cast<std::uint8_t>(std::min(value, 255L));
        }
    }
    return photograph;
}

/// Panels with gradients, borders, rounded corners and shadows, transparent between.
inline Pixels MakeInterface() {
    Pixels sheet{kPictureSize, kPictureSize, {}};
    for (std::uint32_t y = 0; y < kPictureSize; ++y) {
        for (std::uint32_t x = 0; x < kPictureSize; ++x) {
            const auto dx = static_cast<int>(x % 256) - 128;
            const auto dy = static_cast<int>(y % 128) - 64;
            const double corner =
                std::hypot(std::max(std::abs(dx) - 90, 0), std::max(std::abs(dy) - 30, 0));
            const auto shade = static_cast<std::uint8_t>(160 + dy / 2 + static_cast<int>(x / 256));
            const double alpha = std::clamp(20 - corner, 0.0, 8.0) / 8;
            const bool border = corner > 9 && corner < 12;
            sheet.rgba.insert(sheet.rgba.end(),
                              {border ? std::uint8_t{40} : shade, border ? std::uint8_t{30} : shade,
                               std::uint8_t{90}, static_cast<std::uint8_t>(alpha * 255)});
        }
    }
    return sheet;
}

/// A picture and the file that libpng makes of it.
struct Sample {
    const char* name;
    Pixels pixels;
    Bytes file;
};

inline const Sample& SampleAt(std::int64_t index) {
    static const auto samples = [] {
        std::array<Sample, 3> made = {{{"smooth photograph", MakePhotograph(1), {}},
                                       {"grainy photograph", MakePhotograph(12), {}},
                                       {"interface", MakeInterface(), {}}}};
        for (Sample& sample : made)
            sample.file = EncodeWithLibpng(sample.pixels);
        return made;
    }();
    return samples[static_cast<std::size_t>(index)];
}
inline constexpr std::int64_t kSamples = 3;
