// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// What the two food stocks of a country share. A production is fixed when workers are set:
/// a ration that changes later does not move it until they are set again.
class FoodStock {
public:
    float amount;             ///< units in store
    float ration;             ///< units eaten per person and week
    float production = 0.0f;  ///< units gained per game second
    float baseRation;         ///< the ration at which people are neither hungry nor well fed
    float yield;              ///< units per worker and week at the base ration
    float hungryRation;       ///< at or below it people are hungry
    float starvingRation;     ///< at or below it they starve slowly
    float wellFedRation;      ///< at or above it they are well fed
    float gorgingRation;      ///< at or above it they gorge themselves

    FoodStock(float initialAmount, float baseRationOfStock, float yieldOfStock);

    /// Sets `production` for a head-count of workers. Fewer mouths per worker leave more to
    /// store, so that a ration of 0 gives an infinite production.
    void SetWorkers(float workers);

    /// @param people  person-weeks eaten; the stock never goes below 0 this way
    void Consume(float people);

    /// Exactly 0: a single unit keeps the people from starving fast.
    bool IsEmpty() const { return amount == 0.0f; }
    bool IsStarving() const { return ration <= starvingRation; }
    bool IsHungry() const { return ration <= hungryRation; }
    bool IsWellFed() const { return ration >= wellFedRation; }
    bool IsGorging() const { return ration >= gorgingRation; }

    /// 1 at the base ration or more, 4 at none.
    float HungerFactor() const;

protected:
    /// Brings the amount back to 0 to `capacity`.
    void KeepWithin(float capacity);
};
