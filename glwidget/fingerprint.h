// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <string_view>
#include <type_traits>

#include "quarn2/vector.h"

class Theme;

/// One number for a sequence of values. Sequences of one length that differ in a single 64-bit
/// word always have different numbers; all others have the same one with a chance of about 1 in
/// 2^64. Allocates nothing.
class Fingerprint {
public:
    void Add(std::uint64_t word) {
        // Both steps can be undone, so a difference once made stays.
        state = (state ^ word) * kFactor;
        state ^= state >> 32U;
    }
    template <typename Value>
    requires std::is_arithmetic_v<Value> || std::is_enum_v<Value>
    void Add(Value value) {
        if constexpr (std::is_floating_point_v<Value>) {
            Add(std::uint64_t{std::bit_cast<std::uint32_t>(static_cast<float>(value))});
        } else {
            Add(static_cast<std::uint64_t>(value));
        }
    }
    /// A position or size: x and y.
    void AddPair(const Vector& pair) {
        Add(std::uint64_t{std::bit_cast<std::uint32_t>(pair.x)} << 32U
            | std::bit_cast<std::uint32_t>(pair.y));
    }
    /// A colour or a box: all four.
    void Add(const Vector& vector) {
        AddPair(vector);
        AddPair(Vector(vector.z, vector.w));
    }
    void Add(std::string_view text);
    /// All that can be seen of a theme. It must not change until the last Add.
    void Add(const Theme& theme);

    std::uint64_t Number() const { return state; }

private:
    static constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15;  // 2^64 / golden ratio, odd
    static constexpr std::size_t kThemesKept = 32;

    /// Most widgets share a few themes.
    struct KnownTheme {
        const Theme* theme = nullptr;
        std::uint64_t number = 0;
    };

    std::uint64_t state = kFactor;
    std::array<KnownTheme, kThemesKept> known{};
};
