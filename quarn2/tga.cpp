// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/decoders.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iostream>
#include <utility>

#include "quarn2/bytereader.h"
#include "quarn2/unitbyte.h"

namespace {

constexpr std::size_t kHeaderBytes = 18;
constexpr std::size_t kMapAndOrigin = 9;
constexpr std::uint8_t kRunLengthTrueColour = 10;
constexpr std::uint8_t kRunBit = 0x80;
constexpr std::size_t kMaxPacketPixels = 128;
constexpr const char* kTooEarly = "the image data ends too early";

struct Header {
    std::uint8_t type = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint8_t depth = 0;  ///< bits per pixel

    std::size_t Pixels() const { return std::size_t{width} * height; }
    std::size_t BytesPerPixel() const { return depth / 8u; }

    /// If every packet is a run of the greatest length.
    std::size_t MinBytes() const {
        return (Pixels() + kMaxPacketPixels - 1) / kMaxPacketPixels * (1 + BytesPerPixel());
    }
};

bool ReadHeader(ByteReader in, Header& h) {
    return in.Skip(2) && in.U8(h.type) && in.Skip(kMapAndOrigin) && in.U16LE(h.width)
           && in.U16LE(h.height) && in.U8(h.depth) && in.Skip(1);
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
/// Pixels of any other depth become zero.
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
        const std::size_t count = packet % kMaxPacketPixels + 1;
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

bool DecodeTGA(const std::string& path, std::span<const std::uint8_t> bytes, DecodedImage& image) {
    // kept: the type counts even if the header is cut off after it.
    std::array<std::uint8_t, kHeaderBytes> headerBytes{};
    const std::size_t headerLength = std::min(bytes.size(), headerBytes.size());
    std::copy_n(bytes.begin(), headerLength, headerBytes.begin());
    Header header;
    if (!ReadHeader(ByteReader(headerBytes), header) || header.type != kRunLengthTrueColour) {
        std::cerr << "Please use compressed TGAs\n";
        return false;
    }
    if (headerLength < headerBytes.size()) {
        std::cerr << path << ": the header ends too early\n";
        return false;
    }
    if (!CanBeDecoded(path, header.width, header.height))
        return false;

    const std::span<const std::uint8_t> packets = bytes.subspan(kHeaderBytes);
    if (packets.size() < header.MinBytes()) {
        std::cerr << path << ": " << kTooEarly << "\n";
        return false;
    }
    std::shared_ptr<float[]> pixels = NewPixels(header.width, header.height);
    const char* const fault = Decode(packets, header, {pixels.get(), header.Pixels() * 4});
    if (fault != nullptr) {
        std::cerr << path << ": " << fault << "\n";
        return false;
    }
    image = {header.width, header.height, std::move(pixels)};
    return true;
}
