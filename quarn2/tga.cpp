#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iostream>
#include <span>
#include <utility>
#include <vector>

#include "quarn2/bytereader.h"
#include "quarn2/texturedata.h"
#include "quarn2/trace.h"
#include "quarn2/unitbyte.h"

namespace {

constexpr std::size_t kHeaderBytes = 18;
constexpr std::uint8_t kRunLengthTrueColour = 10;
constexpr std::uint8_t kRunBit = 0x80;
constexpr std::size_t kLongestPacket = 128;

struct Header {
    std::uint8_t type = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint8_t depth = 0;

    std::int64_t Pixels() const { return std::int64_t{width} * height; }
    std::size_t BytesPerPixel() const { return depth / 8; }
};

bool ReadHeader(ByteReader in, Header& header) {
    return in.Skip(2) && in.U8(header.type) && in.Skip(9) && in.U16LE(header.width)
           && in.U16LE(header.height) && in.U8(header.depth) && in.Skip(1);
}

using Pixel = std::array<float, 4>;

/// Files hold blue, green, red and perhaps alpha. A depth other than 24 and 32 has no colour
/// that could be read and gives zeros.
Pixel Convert(const std::uint8_t* file, int depth) {
    if (depth == 24)
        return {kUnitOfByte[file[2]], kUnitOfByte[file[1]], kUnitOfByte[file[0]], 1.0f};
    if (depth == 32)
        return {kUnitOfByte[file[2]], kUnitOfByte[file[1]], kUnitOfByte[file[0]],
                kUnitOfByte[file[3]]};
    return {};
}

/// Decodes packets until `pixels` is full.
/// @return false when the packets end too early or the last one is too long
bool Decode(ByteReader in, const Header& header, std::span<Pixel> pixels) {
    const std::size_t bytesPerPixel = header.BytesPerPixel();
    while (!pixels.empty()) {
        std::uint8_t packet = 0;
        if (!in.U8(packet))
            return false;
        const std::size_t count = std::size_t{packet} % kLongestPacket + 1;
        std::span<const std::uint8_t> bytes;
        const bool run = (packet & kRunBit) != 0;
        if (count > pixels.size() || !in.Bytes((run ? 1 : count) * bytesPerPixel, bytes))
            return false;
        if (run) {
            std::fill_n(pixels.begin(), count, Convert(bytes.data(), header.depth));
        } else {
            for (std::size_t pixel = 0; pixel < count; ++pixel)
                pixels[pixel] = Convert(bytes.data() + pixel * bytesPerPixel, header.depth);
        }
        pixels = pixels.subspan(count);
    }
    return true;
}

}  // namespace

bool TextureData::LoadTGA(const std::string& path) {
    TraceFrame frame("LoadTGA", "TextureData");
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::cerr << "Error loading texture tga file '" << path << "'\n";
        return false;
    }
    std::vector<std::uint8_t> bytes{std::istreambuf_iterator<char>(file), {}};
    Header header;
    if (!ReadHeader(ByteReader(bytes), header) || header.type != kRunLengthTrueColour) {
        std::cerr << "Please use compressed TGAs\n";
        return false;
    }
    if (header.Pixels() > kMaxPixels) {
        std::cerr << path << ": " << header.width << " x " << header.height
                  << " pixels are above the limit of " << kMaxPixels << "\n";
        return false;
    }
    std::shared_ptr<float[]> loaded = NewPixels(header.width, header.height);
    ByteReader packets(bytes);
    static_assert(sizeof(Pixel) == 4 * sizeof(float));
    std::span<Pixel> pixels(reinterpret_cast<Pixel*>(loaded.get()),
                            static_cast<std::size_t>(header.Pixels()));
    if (!packets.Skip(kHeaderBytes) || !Decode(packets, header, pixels)) {
        std::cerr << path << ": the image data does not fill the image\n";
        return false;
    }
    width = header.width;
    height = header.height;
    data = std::move(loaded);
    return true;
}
