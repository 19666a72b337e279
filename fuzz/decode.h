// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "fuzz/target.h"
#include "quarn2/decodedimage.h"

/// Decodes the bytes: either an image comes out, with a value for every channel, or nothing is
/// changed.
inline void Decode(ImageDecoder* decode, const std::uint8_t* bytes, std::size_t size) {
    const QuietErrors quiet;
    DecodedImage image;
    if (decode("image", {bytes, size}, image)) {
        Require(image.width > 0 && image.height > 0);
        const float* const values = image.pixels.get();
        Require(values != nullptr);
        const auto count =
            static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height) * 4;
        Require(std::all_of(values, values + count,
                            [](float value) { return value >= 0.0f && value <= 1.0f; }));
    } else {
        Require(image.width == 0 && image.height == 0 && image.pixels == nullptr);
    }
}
