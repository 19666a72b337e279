// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include "country/foodstock.h"

/// Units of grain, grown by the farmers.
class Grain : public FoodStock {
public:
    Grain();

    void Process(float seconds);
};
