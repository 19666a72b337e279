// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <memory>

#include "country/chronicle.h"
#include "country/country.h"
#include "country/date.h"
#include "country/history.h"
#include "country/newspaper.h"
#include "country/start.h"

/// The date, the player's country with its chronicle and history, its twelve neighbours and the
/// newspaper.
///
/// Making a world calls rand() 243 times and does not seed it.
class World {
public:
    Date date;
    Country player;
    Newspaper newspaper;
    Chronicle chronicle;  ///< of the player's country; no rule reads it
    History history;      ///< as the chronicle
    /// The neighbours to trade with, in order of creation; none is null.
    std::array<std::unique_ptr<Country>, start::kNeighbours> countries;

    World();
    World(const World&) = delete;  // countries keep each other's addresses
    World& operator=(const World&) = delete;

    /// Advances the player's country, the newspaper and the date, and writes the chronicle and
    /// the history. The neighbours stay as they are.
    void Advance(float seconds);

    /// A random 300 to 359: the game seconds by which the clock advances in a real second.
    static float RollClockSeconds();
};
