// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <vector>

#include "country/chronicle.h"
#include "country/country.h"
#include "country/start.h"

/// What the player does, in every week until a change. Levels are those of the game's sliders, 0
/// to 1.
struct Policy {
    /// One per profession. A missing one is the share that the game starts with, or in a bare
    /// campaign the share that a country is made with.
    std::array<std::optional<float>, kProfessions.size()> shares;
    float livestockRation = start::kRation;
    float grainRation = start::kRation;
    std::optional<float> justice;
    /// Set the workers again before every tick, as moving their sliders does.
    bool renew = false;
    /// Weeks of food to keep in store by trading before every tick; no trade if missing.
    std::optional<float> trade;
};

/// What of a policy can change in a later week.
enum class Lever {
    Farmers,  // the professions, in their order
    Butchers,
    Educators,
    Warriors,
    Doctors,
    LivestockRation,
    GrainRation,
    Justice,
    Renew,
    Trade
};

/// A change of the policy, before the first tick of a week.
struct Change {
    std::int64_t week = 1;       ///< from 1
    Lever lever = Lever::Renew;  ///< what changes
    /// The new level of the slider, the weeks of food to keep by trading, or 0 or 1 for Renew.
    /// Without it, trade ends.
    std::optional<float> level;
};

/// A country's time under one policy.
struct Campaign {
    std::uint32_t seed = 1;
    double weeks = 52.0;        ///< the campaign ends with the tick that reaches them
    std::optional<float> step;  ///< seconds of a tick; if missing, random as the game's clock
    bool bare = false;          ///< the country alone: no neighbours, no newspaper, no trade
    bool newspaper = true;      ///< it calls rand() when crime is low
    Policy policy;
    /// In the order of their weeks. A profession's share changes alone, as when a player moves its
    /// slider.
    std::vector<Change> changes;
};

/// Called with the country after each tick.
/// @param spent    seconds before the tick
/// @param seconds  of the tick
/// @return whether the campaign goes on
using Watcher = std::function<bool(const Country& country, double spent, float seconds)>;

/// Seeds rand() and runs the campaign with the random numbers of a game that was started with
/// that seed. The date does not advance: that would take longer than all the rest.
/// @param messages  where the people's messages go; null for nowhere
/// @param begin     called with the country before the campaign
/// @param before    called with the country before each tick, after the trade
void Run(const Campaign& campaign, std::ostream* messages, const Watcher& watch,
         const std::function<void(const Country&)>& begin = {},
         const std::function<void(const Country&)>& before = {});

/// Runs the campaign, without messages and with the date of the game, until its weeks are over or
/// it has no people.
/// @return what happened
Chronicle WriteChronicle(const Campaign& campaign);

/// A figure over a campaign, taken at the end of each tick.
struct Range {
    float lowest;
    float last;
};

/// What happened to a country. Weeks are counted from 1.
struct Summary {
    std::int64_t weeks = 0;  ///< whole weeks survived; without people the campaign is over
    std::optional<std::int64_t> famine;     ///< the week in which the first one began
    std::optional<std::int64_t> plague;     ///< likewise
    std::optional<std::int64_t> rebellion;  ///< the week in which it began
    Range livestock;
    Range grain;
    Range people;
    Range funds;
    Range morale;
    Range crime;
};

/// Runs the campaign, without messages, until its weeks are over or it has no people.
Summary Summarise(const Campaign& campaign);
