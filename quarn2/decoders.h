// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "quarn2/decodedimage.h"

// Each of them is an ImageDecoder.

/// Decodes 8-bit RGBA images without interlacing, the top row first. It also writes a line if
/// zlib refuses the image data, as it does with all ordinary files.
[[nodiscard]] bool DecodePNG(const std::string& path, std::span<const std::uint8_t> bytes,
                             DecodedImage& image);

/// Decodes run-length-encoded true-colour images (type 10) of 24 or 32 bits. The rows stay in the
/// order of the file; the origin bit is ignored.
[[nodiscard]] bool DecodeTGA(const std::string& path, std::span<const std::uint8_t> bytes,
                             DecodedImage& image);
