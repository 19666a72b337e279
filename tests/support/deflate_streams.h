// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

/// Writes the bits of a DEFLATE stream by hand.
class BitWriter {
public:
    /// A number: least significant bit first.
    BitWriter& Number(std::uint32_t value, unsigned bits);
    /// A code: most significant bit first.
    BitWriter& Code(std::uint32_t code, unsigned bits);
    /// A symbol of the fixed literal/length code.
    BitWriter& Fixed(unsigned symbol);
    /// Zero bits up to the next byte.
    BitWriter& Align();
    /// Whole bytes, after Align.
    BitWriter& Append(std::span<const std::uint8_t> more);

    /// The bytes written so far. Unused bits of the last one are zero.
    const Bytes& Written() const { return bytes; }

private:
    Bytes bytes;
    unsigned used = 8;  // bits of the last byte
};

/// One entry of the code lengths of a dynamic block: a length from 0 to 15, or a repeat (16 to
/// 18) with its extra bits.
struct LengthEntry {
    unsigned symbol;
    std::uint32_t extra = 0;
};

/// The header of a dynamic block, whose code length code has all 19 symbols.
void WriteDynamicHeader(BitWriter& out, bool last, unsigned literalSymbols,
                        unsigned distanceSymbols, std::span<const LengthEntry> lengths);

/// Raw streams of the two encoders. `strategy` is one of zlib's.
Bytes DeflateWithZlib(std::span<const std::uint8_t> data, int level, int strategy = 0);
Bytes DeflateWithLibdeflate(std::span<const std::uint8_t> data, int level);

/// How zlib decodes a raw stream, up to `capacity` bytes.
struct ZlibResult {
    bool complete = false;  ///< the stream ended well within the capacity
    Bytes output;
};
ZlibResult InflateWithZlib(std::span<const std::uint8_t> stream, std::size_t capacity);

/// Whether a dynamic block of the stream, which zlib accepts, repeats a code length across the
/// border between the literal/length set and the distance set.
bool RepeatsCrossTheSets(std::span<const std::uint8_t> stream);

/// Contents to compress. `Picture` is RGBA rows of 64 pixels, each after its filter byte.
enum class Content { Text, Zeros, Noise, Picture };
constexpr Content kContents[] = {Content::Text, Content::Zeros, Content::Noise, Content::Picture};
Bytes MakeContent(Content content, std::size_t size);
std::string NameOf(Content content);

/// Bytes between two pages that may not be accessed: doing so ends the process.
class GuardedBytes {
public:
    enum class Against { Front, Back };  ///< the page that the bytes lie next to

    GuardedBytes(std::size_t newSize, Against side);
    GuardedBytes(std::span<const std::uint8_t> bytes, Against side);
    ~GuardedBytes();
    GuardedBytes(const GuardedBytes&) = delete;
    GuardedBytes& operator=(const GuardedBytes&) = delete;

    std::uint8_t* data() { return begin; }
    std::uint32_t size() const { return static_cast<std::uint32_t>(length); }

private:
    std::size_t length;
    std::size_t mapped;
    std::uint8_t* mapping;
    std::uint8_t* begin;
};
