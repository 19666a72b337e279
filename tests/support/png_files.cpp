// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tests/support/png_files.h"

#include <png.h>
#include <zlib.h>

#include <algorithm>
#include <cstdlib>
#include <random>

namespace {

void Demand(bool condition) {
    if (!condition)
        std::abort();
}

Bytes BigEndian(std::uint32_t value) {
    return {static_cast<std::uint8_t>(value >> 24), static_cast<std::uint8_t>(value >> 16),
            static_cast<std::uint8_t>(value >> 8), static_cast<std::uint8_t>(value)};
}

std::uint8_t Predict(std::uint8_t filter, int left, int up, int upperLeft) {
    switch (filter) {
    case 1:
        return static_cast<std::uint8_t>(left);
    case 2:
        return static_cast<std::uint8_t>(up);
    case 3:
        return static_cast<std::uint8_t>((left + up) / 2);
    case 4: {
        const int p = left + up - upperLeft;
        const int a = std::abs(p - left);
        const int b = std::abs(p - up);
        const int c = std::abs(p - upperLeft);
        return static_cast<std::uint8_t>(a <= b && a <= c ? left : b <= c ? up : upperLeft);
    }
    default:
        return 0;
    }
}

}  // namespace

Pixels MakePixels(std::uint32_t width, std::uint32_t height) {
    Pixels pixels{width, height, {}};
    std::minstd_rand random(width * 31 + height);
    for (std::uint32_t y = 0; y < height; ++y) {
        for (std::uint32_t x = 0; x < width; ++x) {
            const bool inside = (x / 16 + y / 16) % 3 == 0;
            pixels.rgba.push_back(static_cast<std::uint8_t>(std::size_t{x} * 3 + random() % 4));
            pixels.rgba.push_back(static_cast<std::uint8_t>(std::size_t{y} * 2 + random() % 4));
            pixels.rgba.push_back(static_cast<std::uint8_t>(inside ? 200 : x + y));
            pixels.rgba.push_back(static_cast<std::uint8_t>(inside ? 255 : 255 - y / 2));
        }
    }
    return pixels;
}

Bytes FilterRows(const Pixels& pixels, const std::function<std::uint8_t(std::uint32_t)>& filter) {
    Bytes filtered;
    const std::size_t rowBytes = std::size_t{pixels.width} * 4;
    for (std::uint32_t row = 0; row < pixels.height; ++row) {
        const std::uint8_t type = filter(row);
        filtered.push_back(type);
        const std::uint8_t* bytes = pixels.rgba.data() + row * rowBytes;
        for (std::size_t i = 0; i < rowBytes; ++i) {
            const int left = i >= 4 ? bytes[i - 4] : 0;
            const int up = row > 0 ? bytes[i - rowBytes] : 0;
            const int upperLeft = row > 0 && i >= 4 ? bytes[i - rowBytes - 4] : 0;
            filtered.push_back(
                static_cast<std::uint8_t>(bytes[i] - Predict(type, left, up, upperLeft)));
        }
    }
    return filtered;
}

Bytes ZlibStream(std::span<const std::uint8_t> data, int level) {
    uLongf length = compressBound(static_cast<uLong>(data.size()));
    Bytes stream(length);
    Demand(compress2(stream.data(), &length, data.data(), static_cast<uLong>(data.size()), level)
           == Z_OK);
    stream.resize(length);
    return stream;
}

Bytes Joined(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

Bytes PngSignature() {
    return {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
}

Bytes PngChunk(const std::string& type, std::span<const std::uint8_t> data) {
    const Bytes checked =
        Joined({Bytes(type.begin(), type.end()), Bytes(data.begin(), data.end())});
    const uLong checksum = crc32(0, checked.data(), static_cast<uInt>(checked.size()));
    return Joined({BigEndian(static_cast<std::uint32_t>(data.size())), checked,
                   BigEndian(static_cast<std::uint32_t>(checksum))});
}

Bytes PngHeader::Chunk() const {
    return PngChunk("IHDR", Joined({BigEndian(width),
                                    BigEndian(height),
                                    {bitDepth, colourType, compression, filter, interlace}}));
}

Bytes PngFile(const PngHeader& header, std::span<const std::uint8_t> imageData) {
    return Joined(
        {PngSignature(), header.Chunk(), PngChunk("IDAT", imageData), PngChunk("IEND", {})});
}

Bytes PngFile(const Pixels& pixels, const std::function<std::uint8_t(std::uint32_t)>& filter) {
    return PngFile({.width = pixels.width, .height = pixels.height},
                   ZlibStream(FilterRows(pixels, filter)));
}

Bytes ImageDataOf(std::span<const std::uint8_t> file) {
    Bytes data;
    for (std::size_t position = 8; position + 12 <= file.size();) {
        std::size_t length = 0;
        for (std::size_t i = 0; i < 4; ++i)
            length = length << 8 | file[position + i];
        const auto type = file.subspan(position + 4, 4);
        const auto content = file.subspan(position + 8, length);
        if (std::equal(type.begin(), type.end(), "IDAT"))
            data.insert(data.end(), content.begin(), content.end());
        position += 12 + length;
    }
    return data;
}

Bytes EncodeWithLibpng(const Pixels& pixels) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = pixels.width;
    image.height = pixels.height;
    image.format = PNG_FORMAT_RGBA;
    png_alloc_size_t size = 0;
    Demand(png_image_write_to_memory(&image, nullptr, &size, 0, pixels.rgba.data(), 0, nullptr)
           != 0);
    Bytes file(size);
    Demand(png_image_write_to_memory(&image, file.data(), &size, 0, pixels.rgba.data(), 0, nullptr)
           != 0);
    file.resize(size);
    return file;
}

Pixels DecodeWithLibpng(std::span<const std::uint8_t> file) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, file.data(), file.size()) == 0)
        return {};
    image.format = PNG_FORMAT_RGBA;
    Pixels pixels{image.width, image.height, Bytes(PNG_IMAGE_SIZE(image))};
    if (png_image_finish_read(&image, nullptr, pixels.rgba.data(), 0, nullptr) == 0)
        return {};
    return pixels;
}
