// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

/// Crime, which changes by itself, and justice, which the player sets against it. Both levels
/// are fractions.
class Justice {
public:
    /// Crime that is no further away than this from the level of justice falls slowly.
    static constexpr float kCalmGap = 0.05f;

    float crimeLevel = 0.6f;    ///< 0 to 1
    float justiceLevel = 0.4f;  ///< 0 to 1

    /// The distance between the two levels. The people's morale depends on it too.
    float Gap() const;

    /// Changes crime for `seconds`. Crime far above the level of justice tends to rise, crime far
    /// below it tends to fall; crime close to it falls slowly.
    void Process(float seconds);
};
