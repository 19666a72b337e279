// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

/// What a decoder makes of a file's bytes.
struct DecodedImage {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::shared_ptr<float[]> pixels;  ///< RGBA, row after row, as in TextureData
};

/// A decoder. It reads no files and needs no OpenGL.
/// @param path  names the file in messages
/// @param image  set on success alone
/// @return false, after one line on standard error, if the bytes are not such an image
using ImageDecoder = bool(const std::string& path, std::span<const std::uint8_t> bytes,
                          DecodedImage& image);

/// An image's floats stay below 1 GiB.
inline constexpr std::int64_t kMaxImagePixels = (std::int64_t{1} << 26) - 1;

/// Whether a decoder may allocate such an image: it has from 1 to kMaxImagePixels pixels. If
/// not, one line on standard error names the file and the limit.
[[nodiscard]] bool CanBeDecoded(const std::string& path, std::int64_t width, std::int64_t height);

/// An uninitialised array of four floats per pixel.
std::shared_ptr<float[]> NewPixels(std::int64_t width, std::int64_t height);
