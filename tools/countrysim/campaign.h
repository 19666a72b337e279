// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>

#include "country/country.h"

/// What the player does, the same from the first week to the last. Levels are those of the
/// game's sliders, 0 to 1.
struct Policy {
    /// One per profession. What is missing is what the game starts with, in a bare campaign what
    /// a country is made with.
    std::array<std::optional<float>, kProfessions.size()> shares;
    float livestockRation = 0.5f;
    float grainRation = 0.5f;
    std::optional<float> justice;
    /// Set the workers to work anew before every tick, as a touch of their sliders does.
    bool renew = false;
    /// Weeks of food to keep in store by trading before every tick; no trade when missing.
    std::optional<float> trade;
};

/// What the sliders of the professions stand at when the game begins.
inline constexpr std::array<float, kProfessions.size()> kFirstShares{0.251f, 0.501f, 0.01f, 0.0f,
                                                                     0.0f};
inline constexpr float kFirstJustice = 0.5f;

/// A country's time under one policy.
struct Campaign {
    std::uint32_t seed = 1;
    double weeks = 52.0;        ///< the last tick reaches them or passes them
    std::optional<float> step;  ///< seconds of a tick; drawn as the game's clock does when missing
    bool bare = false;          ///< the country alone: no world around it, no newspaper, no trade
    bool newspaper = true;      ///< it draws from rand() when crime is rare
    Policy policy;
};

/// Told of the country after each tick.
/// @param spent    seconds before the tick
/// @param seconds  of the tick
/// @return whether the campaign goes on
using Watcher = std::function<bool(const Country& country, double spent, float seconds)>;

/// Seeds rand() and runs the campaign with the draws of a game started with that seed. The date,
/// which draws nothing, stands still.
/// @param messages  where the people's messages go; null for nowhere
/// @param begin     told of the country before the first tick
void Run(const Campaign& campaign, std::ostream* messages, const Watcher& watch,
         const std::function<void(const Country&)>& begin = {});

/// A figure over a campaign: at the ends of its ticks.
struct Range {
    float lowest;
    float last;
};

/// What became of a country. Weeks are counted from 1.
struct Summary {
    std::int64_t weeks = 0;  ///< whole weeks at whose end there were people; then it is over
    std::optional<std::int64_t> famine;     ///< the week in which the first one began
    std::optional<std::int64_t> plague;     ///< likewise
    std::optional<std::int64_t> rebellion;  ///< the week in which it broke out
    Range livestock;
    Range grain;
    Range people;
    Range funds;
    Range morale;
    Range crime;
};

/// Runs the campaign without a word until its weeks or its people are used up.
Summary Summarise(const Campaign& campaign);
