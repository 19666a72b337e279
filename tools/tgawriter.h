// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

class TextureData;

/// The image as a run-length-encoded TGA file (type 10), rows in the array's order: of 24 bits when
/// it is opaque, else of 32.
/// Neither side may exceed 65535.
std::vector<std::uint8_t> EncodeTGA(const TextureData& image);

/// Writes EncodeTGA's bytes. On failure one line on standard error.
[[nodiscard]] bool WriteTGA(const TextureData& image, const std::string& path);
