// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// The army's figures and the price of its upkeep.
class Military {
public:
    float recruits = 1350.0f;  ///< size of the army
    float warriors = 0.0f;     ///< head-count of the profession; nothing else reads it
    float averageSkill = 0.3f;
    float fourthValue = 1.0f;  ///< kept, read by nothing
    float payRate = 0.9f;      ///< doubloons per recruit and year before the patrols' surcharge
    float patrolling = 0.4f;
    float oppressing = 0.0f;
    bool training = false;
    bool recruiting = false;

    void SetWarriors(float count) { warriors = count; }

    /// @return the upkeep in doubloons for that many seconds
    float Cost(float seconds) const;

    /// One round of training and recruiting, whatever the seconds. Not part of a country's tick.
    void Process(float seconds);
};
