// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// The army's figures and the cost of its upkeep.
class Military {
public:
    float recruits = 1350.0f;   ///< size of the army
    float warriors = 0.0f;      ///< head-count of the profession; nothing else reads it
    float averageSkill = 0.3f;  ///< only training raises it
    float fourthValue = 1.0f;   ///< kept, nothing reads it
    float payRate = 0.9f;       ///< doubloons per recruit and year before the patrols' surcharge
    float patrolling = 0.4f;    ///< surcharge on the pay, as a fraction of it
    float oppressing = 0.0f;    ///< only shown
    bool training = false;      ///< nothing sets it
    bool recruiting = false;    ///< nothing sets it

    void SetWarriors(float count) { warriors = count; }

    /// @return the upkeep in doubloons for that many seconds
    float Cost(float seconds) const;

    /// One round of training and recruiting, for any number of seconds. Not part of a country's
    /// tick.
    void Process(float seconds);
};
