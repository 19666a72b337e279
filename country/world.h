// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <memory>

#include "country/country.h"
#include "country/date.h"
#include "country/newspaper.h"

/// The date, the player's country, the twelve others and the newspaper.
///
/// Making a world draws 243 times from rand() and does not seed it.
class World {
public:
    static constexpr std::size_t kCountryCount = 12;
    static constexpr char kPlayerName[] = "Merovinska";
    static constexpr int kPlayerPeople = 38685;

    Date date;
    Country player;
    Newspaper newspaper;
    /// The countries to trade with, in order of creation; all present.
    std::array<std::unique_ptr<Country>, kCountryCount> countries;

    World();
    World(const World&) = delete;  // countries refer to each other
    World& operator=(const World&) = delete;

    /// Advances the player's country, the newspaper and the date. The others only trade.
    void Advance(float seconds);

    /// Draws what the clock advances by each real second: 300 to 359 game seconds.
    static float RollClockSeconds();
};
