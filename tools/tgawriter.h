// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

class TextureData;

/// The image as a run-length-encoded TGA file (type 10), with 24 bits per pixel if it is opaque and
/// 32 otherwise. The rows keep their order. Neither side may exceed 65535.
std::vector<std::uint8_t> EncodeTGA(const TextureData& image);

/// Writes what EncodeTGA returns. A failure is one line on standard error.
[[nodiscard]] bool WriteTGA(const TextureData& image, const std::string& path);
