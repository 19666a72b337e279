// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// What the two food stocks of a country have in common. Setting the workers sets the
/// production; a later change of the ration does not change it until the workers are set again.
class FoodStock {
public:
    float amount;             ///< units in store
    float ration;             ///< units eaten per person and week
    float production = 0.0f;  ///< units gained per game second
    float baseRation;         ///< the normal ration: people are neither hungry nor well fed
    float yield;              ///< units per worker and week at the base ration
    float hungryRation;       ///< at or below it people are hungry
    float starvingRation;     ///< at or below it they starve slowly
    float wellFedRation;      ///< at or above it they are well fed
    float gorgingRation;      ///< at or above it they gorge themselves

    FoodStock(float amount, float baseRation, float yield);

    /// Sets `production` for a head-count of workers. A smaller ration gives a higher production,
    /// a ration of 0 an infinite one.
    void SetWorkers(float workers);

    /// @param people  person-weeks eaten; the stock never goes below 0 this way
    void Consume(float people);

    /// Only at exactly 0: people with a single unit in store do not starve fast.
    bool IsEmpty() const { return amount == 0.0f; }
    bool IsStarving() const { return ration <= starvingRation; }
    bool IsHungry() const { return ration <= hungryRation; }
    bool IsWellFed() const { return ration >= wellFedRation; }
    bool IsGorging() const { return ration >= gorgingRation; }

    /// 1 at the base ration or more, 4 at a ration of 0.
    float HungerFactor() const;

protected:
    /// Limits the amount to the range from 0 to `capacity`.
    void KeepWithin(float capacity);
};
