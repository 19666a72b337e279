// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/grain.h"

#include "quarn2/trace.h"

namespace {

constexpr float kInitialAmount = 24000.0f;
constexpr float kBaseRation = 0.2f;
constexpr float kYield = 0.8f;
constexpr float kCapacity = 20000000.0f;

}  // namespace

Grain::Grain() : FoodStock(kInitialAmount, kBaseRation, kYield) {
    TraceFrame frame("Grain", "Grain");
}

void Grain::Process(float seconds) {
    TraceFrame frame("Process", "Grain");
    Assert("grain", __LINE__, "seconds >= 0.0f", seconds >= 0.0f);
    if (seconds > 0.0f)  // an infinite production times 0 would be NaN
        amount += production * seconds;
    KeepWithin(kCapacity);
}
