// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdlib>

// Every draw is one call of rand(). Two draws in one expression could run in either order, so
// each gets a statement of its own.

/// rand() scaled to [0, 1). A double: as a float the largest draws would round to 1.
inline double UnitDraw() {
    return std::rand() / 2147483648.0;
}

/// One of 0.001, 0.002, 0.003 and 0.004.
inline float SmallStep() {
    return static_cast<float>(std::rand() % 4) / 1000.0f + 0.001f;
}
