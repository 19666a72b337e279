// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/inflate.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <iostream>
#include <limits>
#include <span>

#include "quarn2/inflatetables.h"

namespace {

constexpr std::uint32_t kLongestCode = 15;
constexpr int kFailed = -1;

/// §3.2.7: symbols 16 to 18 of the code length code. The first repeats the length before it, the
/// others repeat zero.
struct Repeat {
    std::size_t base;
    std::uint32_t extraBits;
};
constexpr int kRepeatLast = 16;
constexpr std::array<Repeat, 3> kRepeats = {{{3, 2}, {3, 3}, {11, 7}}};

/// A canonical code as DEFLATE uses them: how many codes there are of each length, and the
/// symbols ordered by length and, within a length, by value.
struct HuffmanTable {
    std::array<std::int32_t, kLongestCode + 1> counts{};
    std::array<std::int32_t, kLiteralSymbols> symbols{};
};

/// Over-subscribed and incomplete codes are not refused: decoding fails when bits come that are
/// no code.
constexpr HuffmanTable BuildHuffmanTable(std::span<const std::uint8_t> lengths) {
    HuffmanTable table;
    for (const std::uint8_t length : lengths)
        ++table.counts[length];
    std::array<std::size_t, kLongestCode + 1> offsets{};
    for (std::size_t length = 1; length < kLongestCode; ++length)
        offsets[length + 1] = offsets[length] + static_cast<std::size_t>(table.counts[length]);
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol) {
        const std::uint8_t length = lengths[symbol];
        if (length != 0 && offsets[length] < kLiteralSymbols)
            table.symbols[offsets[length]++] = static_cast<std::int32_t>(symbol);
    }
    return table;
}

/// §3.2.6: the lengths of the fixed literal/length code.
constexpr std::array<std::uint8_t, kLiteralSymbols> FixedLengths() {
    std::array<std::uint8_t, kLiteralSymbols> lengths{};
    for (std::size_t symbol = 0; symbol < lengths.size(); ++symbol)
        lengths[symbol] = symbol < 144 ? 8 : symbol < 256 ? 9 : symbol < 280 ? 7 : 8;
    return lengths;
}

constexpr std::array<std::uint8_t, kDistanceSymbols> FixedDistanceLengths() {
    std::array<std::uint8_t, kDistanceSymbols> lengths{};
    lengths.fill(5);
    return lengths;
}

constexpr HuffmanTable kFixedCodes = BuildHuffmanTable(FixedLengths());
constexpr HuffmanTable kFixedDistances = BuildHuffmanTable(FixedDistanceLengths());

/// Returns the bits of the input, least significant first, from a buffer of 64 that is refilled
/// by whole words while the input lasts.
class BitReader {
public:
    explicit BitReader(std::span<const std::uint8_t> input)
        : next(input.data()), end(next + input.size()) {}

    /// @return the next `count` bits (up to 16), or kFailed when fewer are left
    int ReadBits(std::uint32_t count) {
        if (available < count)
            Refill();
        if (available < count)
            return kFailed;
        const std::uint64_t value = bits & ((std::uint64_t{1} << count) - 1);
        Drop(count);
        return static_cast<int>(value);
    }

    /// Takes one bit after the other, the most significant bit of the code first, until they are
    /// a code of that length.
    /// @return the symbol, or kFailed when no code matches or the input ends within it
    int DecodeSymbol(const HuffmanTable& table) {
        if (available < kLongestCode)
            Refill();
        std::uint64_t rest = bits;
        const std::int32_t* symbols = table.symbols.data();
        std::uint32_t code = 0;  // minus the first code of this length
        for (std::uint32_t length = 1; length <= kLongestCode; ++length) {
            code = code << 1 | static_cast<std::uint32_t>(rest & 1);
            rest >>= 1;
            const auto count = static_cast<std::uint32_t>(table.counts[length]);
            if (code < count) {
                if (length > available)
                    return kFailed;
                Drop(length);
                return symbols[code];
            }
            symbols += count;
            code -= count;
        }
        return kFailed;
    }

    /// Discards the rest of the current byte.
    /// @return the bytes that follow it
    std::span<const std::uint8_t> AlignToByte() {
        next -= available / 8;
        bits = 0;
        available = 0;
        return {next, end};
    }

    /// Skips bytes that AlignToByte returned.
    void SkipBytes(std::size_t count) { next += count; }

private:
    void Drop(std::uint32_t count) {
        bits >>= count;
        available -= count;
    }

    void Refill() {
        if constexpr (std::endian::native == std::endian::little) {
            if (static_cast<std::size_t>(end - next) >= sizeof(std::uint64_t)) {
                // The last byte may fit only in part. Its bits are set all the same: the next
                // refill sets them again to the same values.
                std::uint64_t word = 0;
                std::memcpy(&word, next, sizeof(word));
                bits |= word << available;
                next += (63 - available) / 8;
                available |= 56;
                return;
            }
        }
        while (available <= 56 && next != end) {
            bits |= std::uint64_t{*next++} << available;
            available += 8;
        }
    }

    const std::uint8_t* next;
    const std::uint8_t* end;
    std::uint64_t bits = 0;
    std::uint32_t available = 0;
};

/// Writes `length` bytes that repeat those `distance` before `to`.
void CopyMatch(std::uint8_t* to, std::uint32_t distance, std::uint32_t length) {
    const std::uint8_t* from = to - distance;
    // Each copy doubles the number of bytes that can be copied at once.
    while (length > distance) {
        std::memcpy(to, from, distance);
        to += distance;
        length -= distance;
        distance *= 2;
    }
    std::memcpy(to, from, length);
}

class Decoder {
public:
    Decoder(std::uint8_t* newOutput, std::uint32_t newCapacity, std::span<const std::uint8_t> input)
        : in(input), output(newOutput), capacity(newCapacity) {}

    std::uint32_t Produced() const { return produced; }

    int DecodeStream() {
        int last = 0;
        while (last == 0) {
            last = in.ReadBits(1);
            const int type = in.ReadBits(2);
            if (type == 3) {
                std::cerr << "Invalid block type\n";
                return 1;
            }
            if (!DecodeBlock(type)) {
                std::cerr << "Error decompressing block\n";
                return 1;
            }
        }
        return 0;
    }

private:
    bool DecodeBlock(int type) {
        switch (type) {
        case 0:
            return StoredBlock();
        case 1:
            return FixedBlock();
        case 2:
            return DynamicBlock();
        default:
            return false;  // the input has ended
        }
    }

    bool StoredBlock() {
        in.AlignToByte();
        const int length = in.ReadBits(16);
        const int complement = in.ReadBits(16);
        if (length == kFailed || complement == kFailed)
            return false;
        if (length != (complement ^ 0xFFFF)) {
            std::cerr << "Stored block has invalid length: " << length << ' ' << complement << '\n';
            return false;
        }
        const auto count = static_cast<std::uint32_t>(length);
        const std::span<const std::uint8_t> stored = in.AlignToByte();
        if (count > capacity - produced)
            return false;
        if (output != nullptr) {
            if (count > stored.size())
                return false;
            std::copy_n(stored.data(), count, output + produced);
            in.SkipBytes(count);
        }
        produced += count;
        return true;
    }

    bool FixedBlock() { return DecodeCodes(kFixedCodes, kFixedDistances); }

    bool DynamicBlock() {
        const int codes = in.ReadBits(5);
        const int distances = in.ReadBits(5);
        const int codeLengths = in.ReadBits(4);
        if (codes == kFailed || distances == kFailed || codeLengths == kFailed)
            return false;
        std::array<std::uint8_t, kCodeLengthOrder.size()> orderedLengths{};
        for (std::size_t i = 0; i < static_cast<std::size_t>(codeLengths) + 4; ++i) {
            const int length = in.ReadBits(3);
            if (length == kFailed)
                return false;
            orderedLengths[kCodeLengthOrder[i]] = static_cast<std::uint8_t>(length);
        }
        const HuffmanTable lengthTable = BuildHuffmanTable(orderedLengths);

        std::array<std::uint8_t, kLiteralSymbols> lengthStorage{};
        std::array<std::uint8_t, 32> distanceStorage{};
        const auto lengths = std::span(lengthStorage).first(static_cast<std::size_t>(codes) + 257);
        const auto distanceLengths =
            std::span(distanceStorage).first(static_cast<std::size_t>(distances) + 1);
        return ReadCodeLengths(lengthTable, lengths)
               && ReadCodeLengths(lengthTable, distanceLengths)
               && DecodeCodes(BuildHuffmanTable(lengths), BuildHuffmanTable(distanceLengths));
    }

    /// Fills one set of code lengths. kept: a repeat that goes past the end of the set does not
    /// continue in the next set.
    bool ReadCodeLengths(const HuffmanTable& table, std::span<std::uint8_t> lengths) {
        std::size_t index = 0;
        while (index < lengths.size()) {
            const int symbol = in.DecodeSymbol(table);
            if (symbol == kFailed)
                return false;
            if (symbol < kRepeatLast) {
                lengths[index++] = static_cast<std::uint8_t>(symbol);
                continue;
            }
            const Repeat& repeat = kRepeats[static_cast<std::size_t>(symbol - kRepeatLast)];
            const int extra = in.ReadBits(repeat.extraBits);
            if (extra == kFailed || (symbol == kRepeatLast && index == 0))
                return false;
            const std::uint8_t value = symbol == kRepeatLast ? lengths[index - 1] : std::uint8_t{0};
            const std::size_t end =
                std::min(lengths.size(), index + repeat.base + static_cast<std::size_t>(extra));
            while (index < end)
                lengths[index++] = value;
        }
        return true;
    }

    /// Decodes symbols up to and including the end of the block.
    bool DecodeCodes(const HuffmanTable& codes, const HuffmanTable& distances) {
        // Copies, which can stay in registers: a byte written to the output may be part of a
        // member, as far as the compiler knows.
        BitReader bits = in;
        std::uint32_t count = produced;
        bool complete = false;
        while (true) {
            const int symbol = bits.DecodeSymbol(codes);
            if (symbol < kEndOfBlock) {
                if (symbol == kFailed || count == capacity)
                    break;
                if (output != nullptr)
                    output[count] = static_cast<std::uint8_t>(symbol);
                ++count;
                continue;
            }
            if (symbol == kEndOfBlock) {
                complete = true;
                break;
            }
            std::uint32_t length = 0;
            std::uint32_t distance = 0;
            if (!ReadLength(bits, symbol, length) || !ReadDistance(bits, distances, distance))
                break;
            if (distance > count || length > capacity - count)
                break;
            if (output != nullptr)
                CopyMatch(output + count, distance, length);
            count += length;
        }
        in = bits;
        produced = count;
        return complete;
    }

    static bool ReadLength(BitReader& bits, int symbol, std::uint32_t& length) {
        const auto code = static_cast<std::size_t>(symbol - kEndOfBlock - 1);
        return code < kBaseLengths.size()
               && ReadValue(bits, kBaseLengths[code], kLengthExtraBits[code], length);
    }

    static bool ReadDistance(BitReader& bits, const HuffmanTable& table, std::uint32_t& distance) {
        // kFailed becomes a number above every code.
        const auto code = static_cast<std::size_t>(bits.DecodeSymbol(table));
        return code < kBaseDistances.size()
               && ReadValue(bits, kBaseDistances[code], kDistanceExtraBits[code], distance);
    }

    static bool ReadValue(BitReader& bits, std::int16_t base, std::int16_t extraBits,
                          std::uint32_t& value) {
        const int extra = bits.ReadBits(static_cast<std::uint32_t>(extraBits));
        value = static_cast<std::uint32_t>(base + extra);
        return extra != kFailed;
    }

    BitReader in;
    std::uint8_t* output;  // not owned; null: the bytes are only counted
    std::uint32_t capacity;
    std::uint32_t produced = 0;
};

}  // namespace

int Inflate(std::uint8_t* output, std::uint32_t capacity, std::uint32_t* outputCount,
            const std::uint8_t* input, std::uint32_t inputLength) {
    Decoder decoder(output, capacity, {input, inputLength});
    const int result = decoder.DecodeStream();
    *outputCount = decoder.Produced();
    return result;
}

int Inflate(std::uint8_t* output, std::uint32_t* outputCount, const std::uint8_t* input,
            std::uint32_t inputLength) {
    return Inflate(output, std::numeric_limits<std::uint32_t>::max(), outputCount, input,
                   inputLength);
}
