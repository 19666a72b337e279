// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <span>
#include <string_view>

/// Room for every text of NumberText, with the zero at its end.
inline constexpr std::size_t kNumberTextSize = 48;

/// A number as people read it: "1,234,567", "-0.25", "2.5 billion", "infinite"; "unknown" for NaN.
/// Allocates nothing.
/// @param decimals  digits after the point of numbers below a billion
/// @param buffer    holds the text; at least kNumberTextSize characters
std::string_view NumberText(double value, int decimals, std::span<char> buffer);
