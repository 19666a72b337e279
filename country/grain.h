#pragma once

#include "country/foodstock.h"

/// Units of grain, grown by the farmers.
class Grain : public FoodStock {
public:
    Grain();

    void Process(float seconds);
};
