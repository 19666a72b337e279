// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/justice.h"

#include <algorithm>
#include <cmath>

#include "country/random.h"
#include "country/rates.h"
#include "quarn2/trace.h"

namespace {

constexpr float kTenseGap = 0.1f;

/// Weekly change of crime, rolled from [lowest, lowest + spread).
struct Drift {
    float spread;
    float lowest;
};

constexpr Drift kSettling{0.0039999997f, -0.005f};  // the float just below 0.004
constexpr Drift kRising{0.023f, -0.01f};
constexpr Drift kFalling{0.023f, -0.013f};

double RollChange(const Drift& drift, float seconds) {
    const double roll = RollUnit();
    return OverTick(roll * drift.spread + drift.lowest, seconds);
}

}  // namespace

float Justice::Gap() const {
    return std::fabs(crimeLevel - justiceLevel);
}

void Justice::Process(float seconds) {
    TraceFrame frame("Process", "Justice");
    Assert("justice", __LINE__, "seconds >= 0.0f", seconds >= 0.0f);
    const float gap = Gap();
    double change = 0.0;
    if (gap <= kCalmGap) {
        change = RollChange(kSettling, seconds);
    } else if (gap > kTenseGap) {
        change = RollChange(crimeLevel > justiceLevel ? kRising : kFalling, seconds);
    }
    crimeLevel = static_cast<float>(crimeLevel + change);
    crimeLevel = std::clamp(crimeLevel, 0.0f, 1.0f);
}
