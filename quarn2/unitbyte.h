// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>

/// byte / 255.0 as a float, for each byte: a look-up gives exactly the bits that the division
/// gives.
inline constexpr std::array<float, 256> kUnitOfByte = [] {
    std::array<float, 256> units{};
    for (std::size_t byte = 0; byte < units.size(); ++byte)
        units[byte] = static_cast<float>(static_cast<double>(byte) / 255.0);
    return units;
}();
