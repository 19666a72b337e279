// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

#include "quarn2/bytereader.h"
#include "quarn2/texturedata.h"
#include "quarn2/trace.h"
#include "quarn2/unitbyte.h"

namespace {

constexpr std::size_t kHeaderBytes = 18;
constexpr std::size_t kMapAndOrigin = 9;
constexpr std::uint8_t kRunLengthTrueColour = 10;
constexpr std::uint8_t kRunBit = 0x80;
constexpr std::size_t kLongestPacket = 128;
constexpr const char* kTooEarly = "the image data ends too early";

struct Header {
    std::uint8_t type = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint8_t depth = 0;  ///< bits per pixel

    std::size_t Pixels() const { return std::size_t{width} * height; }
    std::size_t BytesPerPixel() const { return depth / 8u; }

    /// Every packet a run of the greatest length.
    std::size_t FewestBytes() const {
        return (Pixels() + kLongestPacket - 1) / kLongestPacket * (1 + BytesPerPixel());
    }
    /// Every packet a single pixel.
    std::size_t MostBytes() const { return Pixels() * (1 + BytesPerPixel()); }
};

bool ReadHeader(ByteReader in, Header& h) {
    return in.Skip(2) && in.U8(h.type) && in.Skip(kMapAndOrigin) && in.U16LE(h.width)
           && in.U16LE(h.height) && in.U8(h.depth) && in.Skip(1);
}

/// Reads until the file ends or `bytes` is full.
/// @return how many bytes there were
std::size_t ReadBytes(std::ifstream& file, std::span<std::uint8_t> bytes) {
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return static_cast<std::size_t>(file.gcount());
}

/// Reads what is left of the file, as far as an image of this header can use it.
std::vector<std::uint8_t> ReadPackets(std::ifstream& file, const Header& header) {
    const std::streamoff start = file.tellg();
    file.seekg(0, std::ios::end);
    const std::streamoff end = file.tellg();
    file.seekg(start);
    if (!file || end <= start)
        return {};
    std::vector<std::uint8_t> bytes(
        std::min(static_cast<std::size_t>(end - start), header.MostBytes()));
    bytes.resize(ReadBytes(file, bytes));
    return bytes;
}

using Pixel = std::array<float, 4>;

/// Files hold blue, green, red and perhaps alpha.
struct Opaque {
    Pixel operator()(const std::uint8_t* file) const {
        return {kUnitOfByte[file[2]], kUnitOfByte[file[1]], kUnitOfByte[file[0]], 1.0f};
    }
};
struct WithAlpha {
    Pixel operator()(const std::uint8_t* file) const {
        return {kUnitOfByte[file[2]], kUnitOfByte[file[1]], kUnitOfByte[file[0]],
                kUnitOfByte[file[3]]};
    }
};
/// A depth other than 24 and 32 has no colours that could be told.
struct Nothing {
    Pixel operator()(const std::uint8_t*) const { return {}; }
};

/// Decodes packets until `values` is full.
/// @return what is wrong with them, or null
template <typename Convert>
const char* Decode(ByteReader in, std::size_t bytesPerPixel, std::span<float> values,
                   Convert convert) {
    float* out = values.data();
    std::size_t pixelsLeft = values.size() / 4;
    while (pixelsLeft > 0) {
        std::uint8_t packet = 0;
        std::span<const std::uint8_t> bytes;
        if (!in.U8(packet))
            return kTooEarly;
        const bool run = (packet & kRunBit) != 0;
        const std::size_t count = packet % kLongestPacket + 1;
        if (count > pixelsLeft)
            return "a packet runs past the last pixel";
        if (!in.Bytes((run ? 1 : count) * bytesPerPixel, bytes))
            return kTooEarly;
        const std::size_t step = run ? 0 : bytesPerPixel;
        for (std::size_t i = 0; i < count; ++i) {
            const Pixel pixel = convert(bytes.data() + i * step);
            out = std::copy(pixel.begin(), pixel.end(), out);
        }
        pixelsLeft -= count;
    }
    return nullptr;
}

const char* Decode(std::span<const std::uint8_t> packets, const Header& header,
                   std::span<float> values) {
    const ByteReader in(packets);
    switch (header.depth) {
    case 24:
        return Decode(in, 3, values, Opaque{});
    case 32:
        return Decode(in, 4, values, WithAlpha{});
    default:
        return Decode(in, header.BytesPerPixel(), values, Nothing{});
    }
}

}  // namespace

bool TextureData::LoadTGA(const std::string& path) {
    TraceFrame frame("LoadTGA", "TextureData");
    std::error_code error;
    std::ifstream file;
    // A folder opens, but does not read; a pipe may wait for its writer for ever.
    if (std::filesystem::is_regular_file(path, error))
        file.open(path, std::ios::binary);
    if (!file.is_open()) {
        std::cerr << "Error loading texture tga file '" << path << "'\n";
        return false;
    }
    std::array<std::uint8_t, kHeaderBytes> headerBytes{};
    const bool whole = ReadBytes(file, headerBytes) == headerBytes.size();
    Header header;
    if (!ReadHeader(ByteReader(headerBytes), header) || header.type != kRunLengthTrueColour) {
        std::cerr << "Please use compressed TGAs\n";
        return false;
    }
    if (!whole) {
        std::cerr << path << ": the header ends too early\n";
        return false;
    }
    if (!SizeFits(path, header.width, header.height))
        return false;

    const std::vector<std::uint8_t> packets = ReadPackets(file, header);
    if (packets.size() < header.FewestBytes()) {
        std::cerr << path << ": " << kTooEarly << "\n";
        return false;
    }
    std::shared_ptr<float[]> loaded = NewPixels(header.width, header.height);
    const char* const fault = Decode(packets, header, {loaded.get(), header.Pixels() * 4});
    if (fault != nullptr) {
        std::cerr << path << ": " << fault << "\n";
        return false;
    }
    width = header.width;
    height = header.height;
    data = std::move(loaded);
    return true;
}
