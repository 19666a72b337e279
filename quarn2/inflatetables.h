// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// The numbers of RFC 1951.

/// Symbols of the literal/length code; the last two never occur in a valid stream.
inline constexpr std::size_t kLiteralSymbols = 288;
inline constexpr std::size_t kDistanceSymbols = 30;
inline constexpr int kEndOfBlock = 256;

/// §3.2.5: the lengths of the length codes, counted from symbol 257.
inline constexpr std::array<std::int16_t, 29> kBaseLengths = {
    3,  4,  5,  6,  7,  8,  9,  10, 11,  13,  15,  17,  19,  23, 27,
    31, 35, 43, 51, 59, 67, 83, 99, 115, 131, 163, 195, 227, 258};
inline constexpr std::array<std::int16_t, 29> kLengthExtraBits = {
    0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
static_assert(kBaseLengths.back() == 258 && kLengthExtraBits[27] == 5);

/// §3.2.5: the distances of the distance codes.
inline constexpr std::array<std::int16_t, kDistanceSymbols> kBaseDistances = {
    1,   2,   3,   4,   5,   7,    9,    13,   17,   25,   33,   49,   65,    97,    129,
    193, 257, 385, 513, 769, 1025, 1537, 2049, 3073, 4097, 6145, 8193, 12289, 16385, 24577};
inline constexpr std::array<std::int16_t, kDistanceSymbols> kDistanceExtraBits = {
    0, 0, 0, 0, 1, 1, 2, 2,  3,  3,  4,  4,  5,  5,  6,
    6, 7, 7, 8, 8, 9, 9, 10, 10, 11, 11, 12, 12, 13, 13};
static_assert(kBaseDistances.back() == 24577 && kDistanceExtraBits.back() == 13);

/// §3.2.7: the code lengths of the code length code come in this order.
inline constexpr std::array<std::uint8_t, 19> kCodeLengthOrder = {
    16, 17, 18, 0, 8, 7, 9, 6, 10, 5, 11, 4, 12, 3, 13, 2, 14, 1, 15};
static_assert(kCodeLengthOrder.back() == 15);
