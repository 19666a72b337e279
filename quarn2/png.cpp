// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/decoders.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <utility>
#include <vector>

#include "quarn2/bytereader.h"
#include "quarn2/inflate.h"
#include "quarn2/unitbyte.h"

namespace {

constexpr std::uint32_t kSignatureStart = 0x89504E47;
constexpr std::uint32_t kSignatureEnd = 0x0D0A1A0A;
constexpr std::uint32_t kHeaderType = 0x49484452;     // "IHDR"
constexpr std::uint32_t kImageDataType = 0x49444154;  // "IDAT"
constexpr std::size_t kChecksumBytes = 4;
constexpr std::uint8_t kTrueColourWithAlpha = 6;
constexpr std::size_t kPixelBytes = 4;

/// The room that zlib is told of. It refuses data that needs more.
constexpr std::size_t kZlibAttemptBytes = 32;
constexpr std::size_t kZlibHeaderBytes = 2;

struct Chunk {
    std::uint32_t type = 0;
    std::span<const std::uint8_t> data;
};

/// Reads the chunks of a file. kept: the file counts as words of two bytes, so the last byte of
/// an odd length is never read.
class PNGReader {
public:
    explicit PNGReader(std::span<const std::uint8_t> file) : in(file.first(file.size() / 2 * 2)) {}

    [[nodiscard]] bool ReadSignature() {
        std::uint32_t start = 0;
        std::uint32_t end = 0;
        return in.U32BE(start) && in.U32BE(end) && start == kSignatureStart && end == kSignatureEnd;
    }

    bool AtEnd() const { return in.Left() == 0; }

    /// @return false when the file ends within the chunk
    [[nodiscard]] bool ReadChunk(Chunk& chunk) {
        std::uint32_t length = 0;
        if (!in.U32BE(length) || !in.U32BE(chunk.type) || !in.Bytes(length, chunk.data))
            return false;
        // The checksum is not checked, so one that an odd length has cut off does not matter.
        return in.Skip(std::min(kChecksumBytes, in.Left()));
    }

private:
    ByteReader in;
};

struct Header {
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    std::uint8_t bitDepth = 0;
    std::uint8_t colourType = 0;
    std::uint8_t compression = 0;
    std::uint8_t filter = 0;
    std::uint8_t interlace = 0;

    [[nodiscard]] bool Read(ByteReader in) {
        return in.U32BE(width) && in.U32BE(height) && in.U8(bitDepth) && in.U8(colourType)
               && in.U8(compression) && in.U8(filter) && in.U8(interlace);
    }

    bool Supported() const {
        return colourType == kTrueColourWithAlpha && bitDepth != 16 && compression == 0
               && filter == 0 && interlace == 0;
    }
};

/// What the chunks of a file say. Without a header the image has a single pixel.
struct Picture {
    std::uint32_t width = 1;
    std::uint32_t height = 1;
    std::vector<std::uint8_t> data;  ///< the zlib stream, joined from all its chunks

    std::size_t RowBytes() const { return width * kPixelBytes; }
};

bool TakeHeader(const std::string& path, const Chunk& chunk, Picture& picture) {
    Header header;
    if (!header.Read(ByteReader(chunk.data))) {
        std::cerr << path << ": the image header is too short\n";
        return false;
    }
    if (!header.Supported()) {
        std::cerr << "Unsupported format of PNG. Make sure it is RGBA, non-interlaced.\n";
        return false;
    }
    picture.width = header.width;
    picture.height = header.height;
    return true;
}

bool ReadPicture(const std::string& path, std::span<const std::uint8_t> file, Picture& picture) {
    PNGReader reader(file);
    if (!reader.ReadSignature()) {
        std::cerr << path << " is not a valid png file - header invalid\n";
        return false;
    }
    picture.data.reserve(file.size());
    // kept: the end chunk does not end the file, whose rest must be chunks as well
    while (!reader.AtEnd()) {
        Chunk chunk;
        if (!reader.ReadChunk(chunk)) {
            std::cerr << path << ": the file ends within a chunk\n";
            return false;
        }
        if (chunk.type == kHeaderType && !TakeHeader(path, chunk, picture))
            return false;
        if (chunk.type == kImageDataType)
            picture.data.insert(picture.data.end(), chunk.data.begin(), chunk.data.end());
    }
    if (picture.data.empty()) {
        std::cerr << path << ": there is no image data\n";
        return false;
    }
    return true;
}

/// Compression method "deflate" with the 32 KiB window that the encoders use.
bool HasExpectedCompression(std::uint8_t methodAndWindow) {
    return (methodAndWindow & 1) == 0 && methodAndWindow >> 4 == 7;
}

/// @param capacity  bytes that may be produced; the buffer has room for kZlibAttemptBytes too
/// @return false, with the messages written, when the stream cannot be decoded
bool Decompress(std::span<const std::uint8_t> stream, std::uint8_t* buffer, std::size_t capacity,
                std::size_t& produced) {
    // kept: zlib gets the data without the header that it needs. It refuses all ordinary files,
    // which is reported each time.
    uLongf length = kZlibAttemptBytes;
    const int zlibCode =
        uncompress(buffer, &length, stream.data(), static_cast<uLong>(stream.size()));
    if (zlibCode == Z_OK) {
        produced = length;
        return true;
    }
    std::cerr << "Could not decompress PNG data using zlib. Error code: " << zlibCode << '\n';
    std::uint32_t count = 0;
    const int ownCode = Inflate(buffer, static_cast<std::uint32_t>(capacity), &count, stream.data(),
                                static_cast<std::uint32_t>(stream.size()));
    if (ownCode != 0) {
        std::cerr << "Could not decompress PNG data using own Inflate. Error code: " << ownCode
                  << '\n';
        return false;
    }
    produced = count;
    return true;
}

// The filters add to each byte what its neighbours predict: the byte of the pixel to the left,
// of the pixel above, or of the one above the left one; 0 where there is none.

using Row = std::span<std::uint8_t>;
using ConstRow = std::span<const std::uint8_t>;
using Channels = std::array<int, kPixelBytes>;

void UndoSub(ConstRow in, Row out) {
    Channels left{};
    for (std::size_t pixel = 0; pixel < in.size(); pixel += kPixelBytes) {
        for (std::size_t channel = 0; channel < kPixelBytes; ++channel) {
            left[channel] = (in[pixel + channel] + left[channel]) & 0xFF;
            out[pixel + channel] = static_cast<std::uint8_t>(left[channel]);
        }
    }
}

void UndoUp(ConstRow in, ConstRow above, Row out) {
    for (std::size_t i = 0; i < in.size(); ++i)
        out[i] = static_cast<std::uint8_t>(in[i] + above[i]);
}

void UndoAverage(ConstRow in, ConstRow above, Row out) {
    Channels left{};
    for (std::size_t pixel = 0; pixel < in.size(); pixel += kPixelBytes) {
        for (std::size_t channel = 0; channel < kPixelBytes; ++channel) {
            const std::size_t i = pixel + channel;
            left[channel] = (in[i] + (left[channel] + above[i]) / 2) & 0xFF;
            out[i] = static_cast<std::uint8_t>(left[channel]);
        }
    }
}

/// Whichever of the three is nearest to left + up - upperLeft; on a tie the first of them.
int PaethPrediction(int left, int up, int upperLeft) {
    const int toLeft = std::abs(up - upperLeft);
    const int toUp = std::abs(left - upperLeft);
    const int toUpperLeft = std::abs(left + up - 2 * upperLeft);
    if (toLeft <= toUp && toLeft <= toUpperLeft)
        return left;
    return toUp <= toUpperLeft ? up : upperLeft;
}

void UndoPaeth(ConstRow in, ConstRow above, Row out) {
    Channels left{};
    Channels upperLeft{};
    for (std::size_t pixel = 0; pixel < in.size(); pixel += kPixelBytes) {
        for (std::size_t channel = 0; channel < kPixelBytes; ++channel) {
            const std::size_t i = pixel + channel;
            const int up = above[i];
            left[channel] = (in[i] + PaethPrediction(left[channel], up, upperLeft[channel])) & 0xFF;
            out[i] = static_cast<std::uint8_t>(left[channel]);
            upperLeft[channel] = up;
        }
    }
}

constexpr std::uint8_t kNone = 0;
constexpr std::uint8_t kSub = 1;
constexpr std::uint8_t kUp = 2;
constexpr std::uint8_t kAverage = 3;
constexpr std::uint8_t kPaeth = 4;

void UndoFilter(std::uint8_t filter, ConstRow in, ConstRow above, Row out) {
    switch (filter) {
    case kNone:
        std::copy(in.begin(), in.end(), out.begin());
        break;
    case kSub:
        UndoSub(in, out);
        break;
    case kUp:
        UndoUp(in, above, out);
        break;
    case kAverage:
        UndoAverage(in, above, out);
        break;
    case kPaeth:
        UndoPaeth(in, above, out);
        break;
    }
}

/// The bytes of a row after its filter byte. kept: a first row with the filter Up has none and
/// gives no pixels, which shifts every later row.
std::size_t FilteredBytes(std::size_t row, std::uint8_t filter, std::size_t rowBytes) {
    return row == 0 && filter == kUp ? 0 : rowBytes;
}

/// Whether all rows are there and have filters that exist.
bool CheckRows(const std::string& path, const Picture& picture, ConstRow data) {
    std::size_t position = 0;
    for (std::size_t row = 0; row < picture.height; ++row) {
        const std::uint8_t filter = position < data.size() ? data[position] : kNone;
        if (filter > kPaeth) {
            std::cerr << "unsupported filter format at byte " << position << ": " << int{filter}
                      << '\n';
            return false;
        }
        const std::size_t bytes = 1 + FilteredBytes(row, filter, picture.RowBytes());
        if (data.size() - position < bytes) {
            std::cerr << path << ": the image data ends in row " << row << " of " << picture.height
                      << '\n';
            return false;
        }
        position += bytes;
    }
    return true;
}

/// Undoes the filters of rows that have been checked.
/// @param pixels  takes four floats per pixel
void DecodeRows(const Picture& picture, ConstRow data, float* pixels) {
    const std::size_t rowBytes = picture.RowBytes();
    float* const end = pixels + picture.height * rowBytes;
    std::vector<std::uint8_t> above(rowBytes);
    std::vector<std::uint8_t> current(rowBytes);
    for (std::size_t row = 0; row < picture.height; ++row) {
        const std::uint8_t filter = data.front();
        const ConstRow filtered = data.subspan(1, FilteredBytes(row, filter, rowBytes));
        data = data.subspan(1 + filtered.size());
        if (filtered.empty())
            continue;
        UndoFilter(filter, filtered, above, current);
        for (const std::uint8_t byte : current)
            *pixels++ = kUnitOfByte[byte];
        above.swap(current);
    }
    std::fill(pixels, end, 0.0f);
}

}  // namespace

bool DecodePNG(const std::string& path, std::span<const std::uint8_t> bytes, DecodedImage& image) {
    Picture picture;
    if (!ReadPicture(path, bytes, picture) || !CanBeDecoded(path, picture.width, picture.height))
        return false;
    if (!HasExpectedCompression(picture.data.front())) {
        std::cerr << "Invalid compression format.\n";
        return false;
    }
    // The decoders are told the length of the whole stream although they start after its
    // header: as many bytes more let them read that far.
    const std::size_t length = picture.data.size();
    picture.data.resize(length + kZlibHeaderBytes);
    const ConstRow stream = ConstRow(picture.data).subspan(kZlibHeaderBytes, length);

    const std::size_t capacity = picture.RowBytes() * picture.height + picture.height;
    const auto inflated =
        std::make_unique_for_overwrite<std::uint8_t[]>(std::max(capacity, kZlibAttemptBytes));
    std::size_t produced = 0;
    if (!Decompress(stream, inflated.get(), capacity, produced))
        return false;

    const ConstRow rows(inflated.get(), produced);
    if (!CheckRows(path, picture, rows))
        return false;
    std::shared_ptr<float[]> pixels = NewPixels(picture.width, picture.height);
    DecodeRows(picture, rows, pixels.get());
    image = {static_cast<std::int32_t>(picture.width), static_cast<std::int32_t>(picture.height),
             std::move(pixels)};
    return true;
}
