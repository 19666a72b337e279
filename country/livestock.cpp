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

/// What a herd that cannot grow fast enough loses of its production at a time.
constexpr float kProductionStep = 0.1f;

/// Where floats change their spacing on the way down from `production`. Every step that ends
/// above it takes off the same amount.
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
            return;  // infinite, or so large that a step is lost in the rounding

        // Millions of steps can lie ahead, so those of equal size are counted instead of taken:
        // they end at exactly start - count * step, and what outgrows the herd at one of them
        // does so at all before it.
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
        long enough = equalSteps;  // or as far as equal steps go
        while (enough - tooFew > 1) {
            const long middle = tooFew + (enough - tooFew) / 2;
            (OutgrowsHerd(after(middle), seconds) ? tooFew : enough) = middle;
        }
        production = after(enough);
    }
}
