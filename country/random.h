// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdlib>

// A roll is one call of rand(). Two rolls in one expression could run in either order, so each
// roll is a statement of its own.

/// rand() scaled to [0, 1). A double, because the largest rolls would be rounded to 1 as floats.
inline double RollUnit() {
    return std::rand() / 2147483648.0;
}

/// One of 0.001, 0.002, 0.003 and 0.004.
inline float RollSmallStep() {
    return static_cast<float>(std::rand() % 4) / 1000.0f + 0.001f;
}
