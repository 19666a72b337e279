// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include "country/foodstock.h"

/// The herd, in heads of animals. The butchers raise it.
class Livestock : public FoodStock {
public:
    float growthLimit = 0.75f;  ///< in one tick the herd grows to amount / growthLimit at most

    Livestock();

    /// Advances the herd. If the butchers' work is more than the herd can grow by, the production
    /// is lowered, and stays so until the workers are set again.
    void Process(float seconds);

    /// Whether a production of `rate` is more than the herd can grow by in `seconds`.
    bool OutgrowsHerd(float rate, float seconds) const;

private:
    void LowerToGrowthLimit(float seconds);
};
