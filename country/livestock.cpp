// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/livestock.h"

#include <cmath>

#include "quarn2/trace.h"

namespace {

constexpr float kInitialAmount = 15000.0f;
constexpr float kBaseRation = 0.1f;
constexpr float kYield = 0.2f;
constexpr float kCapacity = 10000000.0f;

/// The production of a herd that cannot grow fast enough is lowered in steps of this size.
constexpr float kProductionStep = 0.1f;

/// The next smaller value at which the spacing of floats changes. Every step that ends above it
/// subtracts exactly the same amount.
double EndOfSpacing(float production) {
    const int exponent = std::ilogb(production);
    return production > 0.0f ? std::ldexp(1.0, exponent) : -std::ldexp(1.0, exponent + 1);
}

}  // namespace

Livestock::Livestock() : FoodStock(kInitialAmount, kBaseRation, kYield) {
    TraceFrame frame("Livestock", "Livestock");
}

void Livestock::Process(float seconds) {
    TraceFrame frame("Process", "Livestock");
    Assert("livestock", __LINE__, "seconds >= 0.0f", seconds >= 0.0f);
    if (seconds > 0.0f) {
        LowerToGrowthLimit(seconds);
        amount += production * seconds;
    }
    KeepWithin(kCapacity);
}

bool Livestock::OutgrowsHerd(float rate, float seconds) const {
    return amount / growthLimit < rate * seconds + amount;
}

void Livestock::LowerToGrowthLimit(float seconds) {
    TraceFrame frame("LowerToGrowthLimit", "Livestock");
    while (OutgrowsHerd(production, seconds)) {
        const float lowered = production - kProductionStep;
        if (!(lowered < production))
            return;  // infinite, or so large that a step is rounded away

        // Millions of steps may be needed, so the number of equal steps is computed instead:
        // `count` of them end at exactly start - count * step, and a production that is too high
        // after some steps is too high after fewer.
        const double start = production;
        const double step = start - lowered;
        const auto equalSteps =
            std::lround(std::ceil((start - EndOfSpacing(production)) / step)) - 1;
        if (equalSteps < 2) {
            production = lowered;
            continue;
        }
        const auto after = [=](long count) {
            return static_cast<float>(start - static_cast<double>(count) * step);
        };
        long tooFew = 0;
        long enough = equalSteps;  // if it is not enough, the loop goes on from there
        while (enough - tooFew > 1) {
            const long middle = tooFew + (enough - tooFew) / 2;
            (OutgrowsHerd(after(middle), seconds) ? tooFew : enough) = middle;
        }
        production = after(enough);
    }
}
