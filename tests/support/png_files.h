// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "tests/support/deflate_streams.h"

/// 8-bit RGBA pixels, top row first.
struct Pixels {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    Bytes rgba;

    bool operator==(const Pixels&) const = default;
};

/// A picture with gradients, edges, noise and varying alpha.
Pixels MakePixels(std::uint32_t width, std::uint32_t height);

/// The rows, each after its filter byte. `filter` gives the type for each row.
Bytes FilterRows(const Pixels& pixels, const std::function<std::uint8_t(std::uint32_t)>& filter);

/// A zlib stream with the 32 KiB window, as zlib writes it.
Bytes ZlibStream(std::span<const std::uint8_t> data, int level = 6);

Bytes Joined(std::initializer_list<Bytes> parts);

Bytes PngSignature();
/// `type` has four letters.
Bytes PngChunk(const std::string& type, std::span<const std::uint8_t> data);

/// The fields of an image header, by default those of a file that can be loaded.
struct PngHeader {
    std::uint32_t width = 1;
    std::uint32_t height = 1;
    std::uint8_t bitDepth = 8;
    std::uint8_t colourType = 6;
    std::uint8_t compression = 0;
    std::uint8_t filter = 0;
    std::uint8_t interlace = 0;

    Bytes Chunk() const;
};

/// A file with one header, one image data chunk and an end.
Bytes PngFile(const PngHeader& header, std::span<const std::uint8_t> imageData);
Bytes PngFile(const Pixels& pixels, const std::function<std::uint8_t(std::uint32_t)>& filter);

/// The image data of all chunks of a well-formed file.
Bytes ImageDataOf(std::span<const std::uint8_t> file);

/// Written and read by libpng. Reading a file that libpng refuses gives no pixels.
Bytes EncodeWithLibpng(const Pixels& pixels);
Pixels DecodeWithLibpng(std::span<const std::uint8_t> file);
