// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// Crime, which drifts on its own, and the justice that the player sets against it. Both levels
/// are fractions.
class Justice {
public:
    float crimeLevel = 0.6f;    ///< 0 to 1
    float justiceLevel = 0.4f;  ///< 0 to 1

    /// The distance between the two levels; it also moves the people's morale.
    float Gap() const;

    /// Lets crime drift. Far above the level of justice it tends to grow further, far below it to
    /// shrink further; close to it, it creeps down.
    void Process(float seconds);
};
