// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <span>

#include "quarn2/texturedata.h"

/// A picture file of the game's data.
struct GalleryPicture {
    const char* file;  ///< path in the folder of the data
    TextureData (*draw)();
};

/// Every picture of `data/`.
std::span<const GalleryPicture> Gallery();
