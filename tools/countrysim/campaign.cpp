// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/countrysim/campaign.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "country/newspaper.h"
#include "country/rates.h"
#include "country/start.h"
#include "country/world.h"

namespace {

void SetShares(Country& country, const Policy& policy, bool bare) {
    bool anyShare = false;
    for (const Profession profession : kProfessions) {
        const auto index = static_cast<std::size_t>(profession);
        const std::optional<float> share = policy.shares[index];
        if (!share && bare)
            continue;
        country.SetShare(profession, share.value_or(start::Share(profession)));
        country.Normalise(profession);
        anyShare = true;
    }
    if (!anyShare)
        country.Normalise(Profession::Farmers);
}

/// Does to the country what the game's controls do in the first frame, in the same order: the
/// workers are set before the rations.
void Govern(Country& country, const Policy& policy, bool bare) {
    if (policy.justice || !bare)
        country.justice.justiceLevel = policy.justice.value_or(start::kJustice);
    SetShares(country, policy, bare);
    country.livestock.ration =
        start::RationAt(policy.livestockRation, country.livestock.baseRation);
    country.grain.ration = start::RationAt(policy.grainRation, country.grain.baseRation);
}

/// Sells the food that is more than `weeks` of need, then buys what is missing, livestock first,
/// as far as the funds reach. Without funds there is no trade, because the size of every order
/// follows from the funds.
void Trade(Country& country, const Country& partner, float weeks) {
    if (!(country.funds > 0.0f))
        return;
    const float people = std::max(country.population, 0.0f);
    const float herd = weeks * people * country.livestock.ration;
    const float granary = weeks * people * country.grain.ration;
    country.Sell(std::max(country.livestock.amount - herd, 0.0f),
                 std::max(country.grain.amount - granary, 0.0f), &partner);
    const float heads = std::min(std::max(herd - country.livestock.amount, 0.0f),
                                 country.funds / partner.livestockBuyPrice);
    country.Buy(heads, 0.0f, 0.0f, &partner);
    const float units = std::min(std::max(granary - country.grain.amount, 0.0f),
                                 std::max(country.funds, 0.0f) / partner.grainBuyPrice);
    country.Buy(0.0f, units, 0.0f, &partner);
}

std::int64_t WholeWeeks(double seconds) {
    return static_cast<std::int64_t>(seconds / static_cast<double>(kSecondsPerWeek));
}

/// Does what the game's controls do when the player moves one slider.
void Apply(const Change& change, Country& country, Policy& policy) {
    const float level = change.level.value_or(0.0f);
    switch (change.lever) {
    case Lever::Farmers:
    case Lever::Butchers:
    case Lever::Educators:
    case Lever::Warriors:
    case Lever::Doctors: {
        const auto profession = static_cast<Profession>(change.lever);
        policy.shares[static_cast<std::size_t>(profession)] = level;
        country.SetShare(profession, level);
        country.Normalise(profession);
        break;
    }
    case Lever::LivestockRation:
        country.livestock.ration = start::RationAt(level, country.livestock.baseRation);
        break;
    case Lever::GrainRation:
        country.grain.ration = start::RationAt(level, country.grain.baseRation);
        break;
    case Lever::Justice:
        country.justice.justiceLevel = level;
        break;
    case Lever::Renew:
        policy.renew = level != 0.0f;
        break;
    case Lever::Trade:
        policy.trade = change.level;
        break;
    }
}

/// @param partner  null for none
/// @param paper    null for none
void RunIn(Country& country, const Country* partner, Newspaper* paper, const Campaign& campaign,
           const Watcher& watch, const std::function<void(const Country&)>& before) {
    Policy policy = campaign.policy;
    auto change = campaign.changes.begin();
    const double total = campaign.weeks * static_cast<double>(kSecondsPerWeek);
    for (double spent = 0.0; spent < total;) {
        for (; change != campaign.changes.end() && WholeWeeks(spent) + 1 >= change->week; ++change)
            Apply(*change, country, policy);
        if (policy.renew)
            SetShares(country, policy, campaign.bare);
        if (policy.trade && partner != nullptr)
            Trade(country, *partner, *policy.trade);
        const float seconds = campaign.step ? *campaign.step : World::RollClockSeconds();
        if (before)
            before(country);
        country.Process(seconds);
        if (paper != nullptr)
            paper->Update(seconds);
        if (!watch(country, spent, seconds))
            return;
        spent += static_cast<double>(seconds);
    }
}

void Note(Range& range, float value, bool first) {
    range.lowest = first ? value : std::min(range.lowest, value);
    range.last = value;
}

/// Adds the country's figures to the summary.
void NoteFigures(Summary& summary, const Country& country, bool first) {
    Note(summary.livestock, country.livestock.amount, first);
    Note(summary.grain, country.grain.amount, first);
    Note(summary.people, country.population, first);
    Note(summary.funds, country.funds, first);
    Note(summary.morale, country.morale, first);
    Note(summary.crime, country.justice.crimeLevel, first);
}

void NoteOnce(std::optional<std::int64_t>& when, bool happens, std::int64_t week) {
    if (happens && !when)
        when = week;
}

}  // namespace

void Run(const Campaign& campaign, std::ostream* messages, const Watcher& watch,
         const std::function<void(const Country&)>& begin,
         const std::function<void(const Country&)>& before) {
    const auto govern = [&](Country& country) {
        country.SetMessageStream(messages);
        Govern(country, campaign.policy, campaign.bare);
        if (begin)
            begin(country);
    };
    std::srand(campaign.seed);
    if (campaign.bare) {
        Country country(start::kName, start::kPeople);
        govern(country);
        RunIn(country, nullptr, nullptr, campaign, watch, before);
        return;
    }
    World world;
    govern(world.player);
    RunIn(world.player, world.countries[start::kPartner].get(),
          campaign.newspaper ? &world.newspaper : nullptr, campaign, watch, before);
}

Summary Summarise(const Campaign& campaign) {
    Summary summary{};
    bool first = true;
    Run(
        campaign, nullptr,
        [&](const Country& country, double spent, float seconds) {
            const std::int64_t week = WholeWeeks(spent) + 1;
            NoteOnce(summary.famine, country.famineTime > 0.0f, week);
            NoteOnce(summary.plague, country.plagueTime > 0.0f, week);
            NoteOnce(summary.rebellion, country.rebellion, week);
            NoteFigures(summary, country, first);
            first = false;
            if (!(country.population > 0.0f))
                return false;
            summary.weeks = WholeWeeks(spent + static_cast<double>(seconds));
            return true;
        },
        [&](const Country& country) { NoteFigures(summary, country, true); });
    return summary;
}

Chronicle WriteChronicle(const Campaign& campaign) {
    Date date(start::kDate);
    std::optional<Chronicle> chronicle;
    Run(
        campaign, nullptr,
        [&](const Country& country, double, float seconds) {
            const long wholeSeconds = std::lround(seconds);
            date.Advance(wholeSeconds);
            chronicle->NoteAfter(country, date, wholeSeconds);
            return country.population > 0.0f;
        },
        [&](const Country& country) { chronicle.emplace(country); },
        [&](const Country& country) { chronicle->NoteBefore(country, date); });
    return *chronicle;
}
