// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <span>

#include "quarn2/texturedata.h"

/// One picture that the game's data holds.
struct GalleryPicture {
    const char* file;  ///< below the folder of the data
    TextureData (*draw)();
};

/// Every picture of `data/`.
std::span<const GalleryPicture> Gallery();
