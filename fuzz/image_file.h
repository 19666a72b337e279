// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/target.h"
#include "quarn2/texturedata.h"

/// Loads the bytes as a file with one of the decoders: either an image comes out, with a value
/// for every channel, or the image that was there stays.
inline void LoadImageFile(bool (TextureData::*load)(const std::string&), const std::uint8_t* bytes,
                          std::size_t size) {
    static const MemoryFile file;
    const QuietErrors quiet;
    file.Write({bytes, size});
    constexpr std::array<std::uint8_t, 12> kOld = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    TextureData image;
    Require(image.Load(1, 3, true, kOld.data()));
    const float* const before = image.GetData();
    if ((image.*load)(file.Path())) {
        const auto count = static_cast<std::size_t>(image.GetWidth())
                           * static_cast<std::size_t>(image.GetHeight()) * 4;
        Require(image.GetData() != before);
        Require(std::all_of(image.GetData(), image.GetData() + count,
                            [](float value) { return value >= 0.0f && value <= 1.0f; }));
    } else {
        Require(image.GetData() == before);
        for (std::size_t i = 0; i < kOld.size(); ++i)
            Require(before[i] == static_cast<float>(kOld[i] / 255.0));
    }
}
