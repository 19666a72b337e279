// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

inline constexpr float kSecondsPerDay = 86400.0f;
inline constexpr float kSecondsPerWeek = 604800.0f;
inline constexpr float kSecondsPerYear = 31449600.0f;  ///< 52 weeks
inline constexpr float kWeeksPerYear = 52.0f;

/// What a weekly rate comes to in a tick. A rate that took part in a unit draw is a double and
/// stays one until it is added to its field.
template <typename Rate>
constexpr Rate OverTick(Rate weekly, float seconds) {
    return weekly * seconds / kSecondsPerWeek;
}
