// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/foodstock.h"

#include <algorithm>

#include "country/rates.h"
#include "quarn2/trace.h"

FoodStock::FoodStock(float firstAmount, float normalRation, float workersYield)
    : amount(firstAmount),
      ration(normalRation),
      baseRation(normalRation),
      yield(workersYield),
      hungryRation(0.75f * normalRation),
      starvingRation(0.5f * normalRation),
      wellFedRation(1.3333334f * normalRation),
      gorgingRation(2.0f * normalRation) {
    TraceFrame frame("FoodStock", "FoodStock");
}

void FoodStock::SetWorkers(float workers) {
    TraceFrame frame("SetWorkers", "FoodStock");
    production = ((baseRation / ration) * workers / kSecondsPerWeek) / (1.0f / yield);
    // Without workers there is no production, even at a ration of 0, where infinity times 0 would
    // be NaN.
    if (workers == 0.0f)
        production = 0.0f;
}

void FoodStock::Consume(float people) {
    TraceFrame frame("Consume", "FoodStock");
    amount -= std::min(amount, ration * people);
}

float FoodStock::HungerFactor() const {
    TraceFrame frame("HungerFactor", "FoodStock");
    return std::max(4.0f - 3.0f * ration / baseRation, 1.0f);
}

void FoodStock::KeepWithin(float capacity) {
    TraceFrame frame("KeepWithin", "FoodStock");
    if (amount < 0.0f)
        amount = 0.0f;
    if (amount > capacity)
        amount = capacity;
}
