// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include "country/foodstock.h"

/// Heads of animals, raised by the butchers.
class Livestock : public FoodStock {
public:
    float growthLimit = 0.75f;  ///< in one tick the herd grows to amount / growthLimit at most

    Livestock();

    /// Advances the herd. A herd that cannot grow as fast as its butchers would make it loses
    /// that production for good.
    void Process(float seconds);

private:
    bool OutgrowsHerd(float rate, float seconds) const;
    void LowerToGrowthLimit(float seconds);
};
