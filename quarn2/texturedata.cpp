// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/texturedata.h"

#include <cstddef>
#include <iostream>
#include <utility>

#include "quarn2/trace.h"
#include "quarn2/unitbyte.h"

TextureData::TextureData() : data(std::make_shared<float[]>(std::size_t{2} * 2 * 4)) {}

std::shared_ptr<float[]> TextureData::NewPixels(std::int64_t width, std::int64_t height) {
    return std::make_shared_for_overwrite<float[]>(static_cast<std::size_t>(width * height * 4));
}

bool TextureData::SizeFits(const std::string& path, std::int64_t width, std::int64_t height) {
    if (width >= 1 && height >= 1 && height <= kMaxPixels / width)
        return true;
    std::cerr << path << ": an image of " << width << " x " << height
              << " pixels cannot be loaded; it must have from 1 to " << kMaxPixels << " pixels\n";
    return false;
}

bool TextureData::CanHold(int width, int height) {
    if (width >= 0 && height >= 0 && std::int64_t{width} * height <= kMaxPixels)
        return true;
    std::cerr << "An image of " << width << " x " << height
              << " pixels cannot be held; it may have up to " << kMaxPixels << " pixels\n";
    return false;
}

bool TextureData::Load(const std::string& path) {
    TraceFrame frame("Load", "TextureData");
    // "tga" first: in a folder whose name holds it, every file is one.
    if (path.find("tga") != std::string::npos)
        return LoadTGA(path);
    if (path.find("png") != std::string::npos)
        return LoadPNG(path);
    std::cerr << path << ": Unsupported texture format\n";
    return false;
}

bool TextureData::Load(int newWidth, int newHeight, bool alpha, const std::uint8_t* bytes) {
    TraceFrame frame("Load", "TextureData");
    if (!CanHold(newWidth, newHeight))
        return false;
    const std::int64_t pixels = std::int64_t{newWidth} * newHeight;
    std::shared_ptr<float[]> loaded = NewPixels(newWidth, newHeight);
    float* out = loaded.get();
    for (std::int64_t pixel = 0; pixel < pixels; ++pixel) {
        *out++ = kUnitOfByte[*bytes++];
        *out++ = kUnitOfByte[*bytes++];
        *out++ = kUnitOfByte[*bytes++];
        *out++ = alpha ? kUnitOfByte[*bytes++] : 1.0f;
    }
    width = newWidth;
    height = newHeight;
    data = std::move(loaded);
    return true;
}
