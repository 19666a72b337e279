// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tests/support/deflate_streams.h"

#include <libdeflate.h>
#include <sys/mman.h>
#include <unistd.h>
#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <memory>
#include <random>
#include <string_view>

namespace {

constexpr int kRawWindow = -15;

/// Stops the test program if a function of this file fails, which says nothing about what is
/// tested.
void Demand(bool condition) {
    if (!condition)
        std::abort();
}

/// Reads bits of a stream at any position.
class BitCursor {
public:
    BitCursor(std::span<const std::uint8_t> newBytes, std::size_t newPosition)
        : bytes(newBytes), position(newPosition) {}

    unsigned Number(unsigned bits) {
        unsigned value = 0;
        for (unsigned bit = 0; bit < bits; ++bit)
            value |= Bit() << bit;
        return value;
    }

    unsigned Bit() {
        Demand(position / 8 < bytes.size());
        const unsigned bit = unsigned{bytes[position / 8]} >> position % 8 & 1U;
        ++position;
        return bit;
    }

private:
    std::span<const std::uint8_t> bytes;
    std::size_t position;
};

constexpr std::array<unsigned, 3> kRepeatBits = {2, 3, 7};
constexpr std::array<std::size_t, 19> kLengthOrder = {16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                      11, 4,  12, 3, 13, 2, 14, 1, 15};

/// Whether a repeat of the dynamic block that begins at `position` crosses the sets.
bool BlockRepeatsAcross(std::span<const std::uint8_t> stream, std::size_t position) {
    BitCursor in(stream, position);
    in.Number(1);
    if (in.Number(2) != 2)
        return false;
    const unsigned literals = in.Number(5) + 257;
    const unsigned distances = in.Number(5) + 1;
    const unsigned given = in.Number(4) + 4;
    std::array<unsigned, 19> lengths{};
    for (unsigned i = 0; i < given; ++i)
        lengths[kLengthOrder[i]] = in.Number(3);

    const auto symbol = [&] {
        unsigned code = 0;
        unsigned first = 0;
        for (unsigned length = 1; length <= 7; ++length) {
            code = code << 1 | in.Bit();
            const auto count =
                static_cast<unsigned>(std::count(lengths.begin(), lengths.end(), length));
            if (code < first + count) {
                for (unsigned candidate = 0, skip = code - first;; ++candidate) {
                    if (lengths[candidate] == length && skip-- == 0)
                        return candidate;
                }
            }
            first = (first + count) << 1;
        }
        Demand(false);
        return 0U;
    };
    for (unsigned index = 0; index < literals + distances;) {
        const unsigned entry = symbol();
        unsigned count = 1;
        if (entry >= 16)
            count = (entry == 18 ? 11 : 3) + in.Number(kRepeatBits[entry - 16]);
        const bool reachesAcross = index < literals && index + count > literals;
        const bool looksBackAcross = index == literals && entry == 16;
        if (reachesAcross || looksBackAcross)
            return true;
        index += count;
    }
    return false;
}

}  // namespace

BitWriter& BitWriter::Number(std::uint32_t value, unsigned bits) {
    for (unsigned bit = 0; bit < bits; ++bit) {
        if (used == 8) {
            bytes.push_back(0);
            used = 0;
        }
        bytes.back() = static_cast<std::uint8_t>(bytes.back() | (value >> bit & 1U) << used++);
    }
    return *this;
}

BitWriter& BitWriter::Code(std::uint32_t code, unsigned bits) {
    for (unsigned bit = bits; bit > 0; --bit)
        Number(code >> (bit - 1), 1);
    return *this;
}

BitWriter& BitWriter::Fixed(unsigned symbol) {
    if (symbol < 144)
        return Code(0x30 + symbol, 8);
    if (symbol < 256)
        return Code(0x190 + symbol - 144, 9);
    if (symbol < 280)
        return Code(symbol - 256, 7);
    return Code(0xC0 + symbol - 280, 8);
}

BitWriter& BitWriter::Align() {
    used = 8;
    return *this;
}

BitWriter& BitWriter::Append(std::span<const std::uint8_t> more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
    return *this;
}

void WriteDynamicHeader(BitWriter& out, bool last, unsigned literalSymbols,
                        unsigned distanceSymbols, std::span<const LengthEntry> lengths) {
    out.Number(last ? 1 : 0, 1).Number(2, 2);
    out.Number(literalSymbols - 257, 5).Number(distanceSymbols - 1, 5).Number(15, 4);
    for (const std::size_t symbol : kLengthOrder)
        out.Number(symbol < 13 ? 4 : 5, 3);
    for (const LengthEntry& entry : lengths) {
        const bool fourBits = entry.symbol < 13;
        out.Code(fourBits ? entry.symbol : 26 + entry.symbol - 13, fourBits ? 4 : 5);
        if (entry.symbol >= 16)
            out.Number(entry.extra, kRepeatBits[entry.symbol - 16]);
    }
}

Bytes DeflateWithZlib(std::span<const std::uint8_t> data, int level, int strategy) {
    z_stream stream{};
    Demand(deflateInit2(&stream, level, Z_DEFLATED, kRawWindow, 8, strategy) == Z_OK);
    Bytes compressed(deflateBound(&stream, static_cast<uLong>(data.size())));
    stream.next_in = const_cast<Bytef*>(data.data());
    stream.avail_in = static_cast<uInt>(data.size());
    stream.next_out = compressed.data();
    stream.avail_out = static_cast<uInt>(compressed.size());
    Demand(deflate(&stream, Z_FINISH) == Z_STREAM_END);
    compressed.resize(stream.total_out);
    deflateEnd(&stream);
    return compressed;
}

Bytes DeflateWithLibdeflate(std::span<const std::uint8_t> data, int level) {
    const std::unique_ptr<libdeflate_compressor, decltype(&libdeflate_free_compressor)> compressor(
        libdeflate_alloc_compressor(level), libdeflate_free_compressor);
    Demand(compressor != nullptr);
    Bytes compressed(libdeflate_deflate_compress_bound(compressor.get(), data.size()));
    compressed.resize(libdeflate_deflate_compress(compressor.get(), data.data(), data.size(),
                                                  compressed.data(), compressed.size()));
    Demand(!compressed.empty());
    return compressed;
}

ZlibResult InflateWithZlib(std::span<const std::uint8_t> stream, std::size_t capacity) {
    ZlibResult result;
    result.output.resize(std::max<std::size_t>(capacity, 1));
    z_stream state{};
    Demand(inflateInit2(&state, kRawWindow) == Z_OK);
    state.next_in = const_cast<Bytef*>(stream.data());
    state.avail_in = static_cast<uInt>(stream.size());
    state.next_out = result.output.data();
    state.avail_out = static_cast<uInt>(capacity);
    result.complete = inflate(&state, Z_FINISH) == Z_STREAM_END;
    result.output.resize(state.total_out);
    inflateEnd(&state);
    return result;
}

bool RepeatsCrossTheSets(std::span<const std::uint8_t> stream) {
    z_stream state{};
    Demand(inflateInit2(&state, kRawWindow) == Z_OK);
    state.next_in = const_cast<Bytef*>(stream.data());
    state.avail_in = static_cast<uInt>(stream.size());
    bool crosses = false;
    bool atBlock = true;  // data_type reports only the ends of blocks
    int result = Z_OK;
    Bytes scratch(std::size_t{1} << 16);
    while (result == Z_OK && !crosses) {
        if (atBlock) {
            const auto unused = static_cast<std::size_t>(state.data_type & 7);
            crosses = BlockRepeatsAcross(stream, std::size_t{state.total_in} * 8 - unused);
        }
        state.next_out = scratch.data();
        state.avail_out = static_cast<uInt>(scratch.size());
        result = inflate(&state, Z_BLOCK);
        const bool blockEnded = (state.data_type & 128) != 0;
        const bool lastBlock = (state.data_type & 64) != 0;
        atBlock = blockEnded && !lastBlock;
    }
    inflateEnd(&state);
    return crosses;
}

Bytes MakeContent(Content content, std::size_t size) {
    Bytes bytes(size);
    std::minstd_rand random(static_cast<unsigned>(size) + 1);
    switch (content) {
    case Content::Text: {
        constexpr std::string_view kWords[] = {"grain ", "herd ",  "the ",  "of ",    "justice\n",
                                               "plague", "ration", "trade", " market"};
        Bytes text;
        while (text.size() < size) {
            const std::string_view word = kWords[random() % std::size(kWords)];
            text.insert(text.end(), word.begin(), word.end());
        }
        std::copy_n(text.begin(), size, bytes.begin());
        break;
    }
    case Content::Zeros:
        break;
    case Content::Noise:
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(random() >> 8);
        break;
    case Content::Picture: {
        constexpr std::size_t kRowBytes = 1 + 64 * 4;
        for (std::size_t i = 0; i < size; ++i) {
            const std::size_t column = i % kRowBytes;
            if (column == 0) {
                bytes[i] = static_cast<std::uint8_t>(i / kRowBytes % 5);
            } else if (column % 4 != 0) {  // alpha is constant, so its difference is 0
                bytes[i] = static_cast<std::uint8_t>(random() % 5 + random() % 5 - 4);
            }
        }
        break;
    }
    }
    return bytes;
}

std::string NameOf(Content content) {
    constexpr const char* kNames[] = {"text", "zeros", "noise", "a filtered picture"};
    return kNames[static_cast<std::size_t>(content)];
}

GuardedBytes::GuardedBytes(std::size_t newSize, Against side) : length(newSize) {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    const std::size_t inner = (length + page - 1) / page * page;
    mapped = inner + 2 * page;
    void* memory =
        mmap(nullptr, mapped, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    Demand(memory != MAP_FAILED);
    mapping = static_cast<std::uint8_t*>(memory);
    Demand(inner == 0 || mprotect(mapping + page, inner, PROT_READ | PROT_WRITE) == 0);
    begin = mapping + page + (side == Against::Back ? inner - length : 0);
}

GuardedBytes::GuardedBytes(std::span<const std::uint8_t> bytes, Against side)
    : GuardedBytes(bytes.size(), side) {
    std::copy(bytes.begin(), bytes.end(), begin);
}

GuardedBytes::~GuardedBytes() {
    munmap(mapping, mapped);
}
