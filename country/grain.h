// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include "country/foodstock.h"

/// Units of grain, grown by the farmers.
class Grain : public FoodStock {
public:
    Grain();

    /// Adds what the farmers grow; the store holds at most 20 million units. Seconds below 0 fail
    /// an assertion.
    void Process(float seconds);
};
