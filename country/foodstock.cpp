// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/foodstock.h"

#include <algorithm>

#include "country/rates.h"
#include "quarn2/trace.h"

FoodStock::FoodStock(float initialAmount, float baseRationOfStock, float yieldOfStock)
    : amount(initialAmount),
      ration(baseRationOfStock),
      baseRation(baseRationOfStock),
      yield(yieldOfStock),
      hungryRation(0.75f * baseRationOfStock),
      starvingRation(0.5f * baseRationOfStock),
      wellFedRation(1.3333334f * baseRationOfStock),
      gorgingRation(2.0f * baseRationOfStock) {
    TraceFrame frame("FoodStock", "FoodStock");
}

void FoodStock::SetWorkers(float workers) {
    TraceFrame frame("SetWorkers", "FoodStock");
    production = ((baseRation / ration) * workers / kSecondsPerWeek) / (1.0f / yield);
    // Nobody makes nothing, also at a ration of 0, where infinity times 0 is not a number.
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
