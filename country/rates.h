// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

inline constexpr float kSecondsPerDay = 86400.0f;
inline constexpr float kSecondsPerWeek = 604800.0f;
inline constexpr float kSecondsPerYear = 31449600.0f;  ///< 52 weeks
inline constexpr float kWeeksPerYear = 52.0f;

/// The part of a weekly rate that belongs to a tick. A rate that was computed from a roll is a
/// double, and so is the result.
template <typename Rate>
constexpr Rate OverTick(Rate weekly, float seconds) {
    return weekly * seconds / kSecondsPerWeek;
}
