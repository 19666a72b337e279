// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

/// Reads bytes front to back. Every operation returns false, and leaves its argument alone,
/// once fewer bytes are left than it needs.
class ByteReader {
public:
    /// @param bytes  not copied; they outlive the reader
    explicit ByteReader(std::span<const std::uint8_t> bytes) : rest(bytes) {}

    /// Bytes not read yet.
    std::size_t Left() const { return rest.size(); }

    /// Skips `count` bytes.
    [[nodiscard]] bool Skip(std::size_t count) {
        if (rest.size() < count)
            return false;
        rest = rest.subspan(count);
        return true;
    }

    /// One byte.
    [[nodiscard]] bool U8(std::uint8_t& value) {
        if (rest.empty())
            return false;
        value = rest.front();
        rest = rest.subspan(1);
        return true;
    }

    /// Two bytes, the low one first, as in TGA.
    [[nodiscard]] bool U16LE(std::uint16_t& value) {
        if (rest.size() < 2)
            return false;
        value = static_cast<std::uint16_t>(rest[0] | rest[1] << 8);
        rest = rest.subspan(2);
        return true;
    }

    /// Four bytes, the high one first, as in PNG.
    [[nodiscard]] bool U32BE(std::uint32_t& value) {
        if (rest.size() < 4)
            return false;
        value = std::uint32_t{rest[0]} << 24 | std::uint32_t{rest[1]} << 16
                | std::uint32_t{rest[2]} << 8 | std::uint32_t{rest[3]};
        rest = rest.subspan(4);
        return true;
    }

    /// The next `count` bytes, not copied.
    [[nodiscard]] bool Bytes(std::size_t count, std::span<const std::uint8_t>& bytes) {
        if (rest.size() < count)
            return false;
        bytes = rest.first(count);
        rest = rest.subspan(count);
        return true;
    }

private:
    std::span<const std::uint8_t> rest;
};
