// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/texturedata.h"

#include <cstddef>
#include <iostream>
#include <utility>
#include <vector>

#include "quarn2/decoders.h"
#include "quarn2/readfile.h"
#include "quarn2/trace.h"
#include "quarn2/unitbyte.h"

namespace {

/// More than the file of the largest image could ever need.
constexpr std::uintmax_t kMaxFileBytes = std::uintmax_t{1} << 29;

}  // namespace

TextureData::TextureData() : data(std::make_shared<float[]>(std::size_t{2} * 2 * 4)) {}

bool TextureData::CanHold(int width, int height) {
    if (width >= 0 && height >= 0 && std::int64_t{width} * height <= kMaxPixels)
        return true;
    std::cerr << "An image of " << width << " x " << height
              << " pixels cannot be held; it may have up to " << kMaxPixels << " pixels\n";
    return false;
}

bool TextureData::Load(const std::string& path) {
    TraceFrame frame("Load", "TextureData");
    // kept: "tga" first, so that it decides for every file below a folder with "tga" in its name
    if (path.find("tga") != std::string::npos)
        return LoadTGA(path);
    if (path.find("png") != std::string::npos)
        return LoadPNG(path);
    std::cerr << path << ": Unsupported texture format\n";
    return false;
}

bool TextureData::LoadTGA(const std::string& path) {
    TraceFrame frame("LoadTGA", "TextureData");
    return LoadFile(path, DecodeTGA, "Error loading texture tga file '" + path + "'");
}

bool TextureData::LoadPNG(const std::string& path) {
    TraceFrame frame("LoadPNG", "TextureData");
    return LoadFile(path, DecodePNG, "Error opening " + path);
}

bool TextureData::LoadFile(const std::string& path, ImageDecoder* decode,
                           const std::string& notOpened) {
    std::vector<std::uint8_t> bytes;
    const FileProblem problem = ReadWholeFile(path, kMaxFileBytes, bytes);
    if (problem == FileProblem::TooLarge || problem == FileProblem::CannotBeRead) {
        std::cerr << Describe(path, problem, kMaxFileBytes) << '\n';
        return false;
    }
    if (problem != FileProblem::None) {
        std::cerr << notOpened << '\n';
        return false;
    }
    DecodedImage image;
    if (!decode(path, bytes, image))
        return false;
    width = image.width;
    height = image.height;
    data = std::move(image.pixels);
    return true;
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
