// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/population.h"

#include <algorithm>
#include <iostream>

#include "country/random.h"
#include "country/rates.h"
#include "quarn2/trace.h"

namespace {

float RollWeeks(float spread, float lowest) {
    const double roll = RollUnit();
    return static_cast<float>((roll * spread + lowest) * kSecondsPerWeek);
}

}  // namespace

Population::Population(int people) : population(static_cast<float>(people)), messages(&std::cout) {
    TraceFrame frame("Population", "Population");
}

float Population::IdleCount() const {
    TraceFrame frame("IdleCount", "Population");
    float sum = 0.0f;
    for (const float share : shares)
        sum += share;
    return (1.0f - sum) * population;
}

void Population::Normalise(Profession profession) {
    TraceFrame frame("Normalise", "Population");
    const float idle = IdleCount();
    if (idle < 0.0f) {
        const float excess = (idle / population) / -4.0f;
        for (const Profession other : kProfessions) {
            if (other != profession)
                shares[Index(other)] -= excess;
        }
        // kept: the sum may still exceed 1 after this
        for (float& share : shares)
            share = std::max(share, 0.0f);
    }
    grain.SetWorkers(Count(Profession::Farmers));
    livestock.SetWorkers(Count(Profession::Butchers));
    education.educators = Count(Profession::Educators);
    military.SetWarriors(Count(Profession::Warriors));
}

void Population::Process(float seconds) {
    TraceFrame frame("Process", "Population");
    Assert("population", __LINE__, "seconds >= 0.0f", seconds >= 0.0f);
    elapsed += seconds;
    FeelHunger(seconds);
    ConsiderRebellion();
    morale = std::max(morale, 0.0f);
    opinion = std::max(opinion, 0.0f);
    if (elapsed < kGracePeriod)
        famineChance = 0.0f;
    SufferPlague(seconds);
    SufferFamine(seconds);
    RollDisasters(seconds);
    FeelInjustice(seconds);
    Grow(seconds);
    if (!rebellion) {
        livestock.Process(seconds);
        grain.Process(seconds);
        justice.Process(seconds);
    }
    Eat(seconds);
    FeelJustice(seconds);
}

void Population::FeelHunger(float seconds) {
    TraceFrame frame("FeelHunger", "Population");
    const float hunger = grain.HungerFactor() * livestock.HungerFactor();
    if (grain.IsEmpty() || livestock.IsEmpty()) {
        morale -= OverTick(RollSmallStep() * 5.0f, seconds);
        famineChance += OverTick(hunger * RollSmallStep() * 5.0f, seconds);
        famineChance = 1.0f;  // kept: certain, but the roll above is still made
        Say("the people are starving fast!");
    } else if (grain.IsStarving() || livestock.IsStarving()) {
        morale -= OverTick(2.0f * RollSmallStep(), seconds);
        famineChance += OverTick(2.0f * RollSmallStep() * hunger, seconds);
        Say("the people are starving slowly!");
    } else if (grain.IsHungry() || livestock.IsHungry()) {
        morale -= OverTick(RollSmallStep() * hunger, seconds);
        famineChance += OverTick(RollSmallStep(), seconds);
        Say("the people are hungry!");
    } else if (grain.IsGorging() || livestock.IsGorging()) {
        morale += OverTick(2.0f * RollSmallStep(), seconds);
        famineChance -= OverTick(2.0f * RollSmallStep(), seconds);
        Say("the people are gorging themselves!");
    } else if (grain.IsWellFed() || livestock.IsWellFed()) {
        morale += OverTick(RollSmallStep(), seconds);
        opinion += OverTick(RollSmallStep(), seconds);
        famineChance -= OverTick(RollSmallStep(), seconds);
        Say("the people are well fed!");
    }
}

void Population::ConsiderRebellion() {
    TraceFrame frame("ConsiderRebellion", "Population");
    if (!(morale < 0.1f))
        return;
    const double roll = RollUnit();
    if (morale * 10.0f < roll && GraceIsOver())
        rebellion = true;
}

void Population::SufferPlague(float seconds) {
    TraceFrame frame("SufferPlague", "Population");
    if (!(plagueTime > 0.0f)) {
        plagueTime = 0.0f;
        return;
    }
    // With 20% doctors a plague ends at full speed, with 50% nobody dies of it.
    const float doctors = Count(Profession::Doctors) / population;
    plagueTime = std::max(plagueTime - std::min(5.0f * doctors, 1.0f) * seconds, 0.0f);
    const double roll = RollUnit();
    const double deaths = (roll * 100.0f + 300.0f) * std::max(1.0f - 2.0f * doctors, 0.0f);
    population = static_cast<float>(population - OverTick(deaths, seconds));
}

void Population::SufferFamine(float seconds) {
    TraceFrame frame("SufferFamine", "Population");
    if (!(famineTime > 0.0f)) {
        famineTime = 0.0f;
        return;
    }
    famineChance = 0.0f;
    famineTime = std::max(famineTime - seconds, 0.0f);
    const double roll = RollUnit();
    population = static_cast<float>(population - OverTick(roll * 200.0f + 1000.0f, seconds));
}

void Population::RollDisasters(float seconds) {
    TraceFrame frame("RollDisasters", "Population");
    // kept: both limits depend on the length of the tick, so only a tick of nearly a week can
    // start a plague
    const float weeks = seconds / kSecondsPerWeek;
    const double famineRoll = RollUnit();
    if (1.0f - famineChance < weeks * famineRoll && GraceIsOver())
        famineTime = RollWeeks(8.0f, 18.0f);
    const double plagueRoll = RollUnit();
    if (0.99f < weeks * plagueRoll && GraceIsOver())
        plagueTime = RollWeeks(4.0f, 8.0f);
}

void Population::FeelInjustice(float seconds) {
    TraceFrame frame("FeelInjustice", "Population");
    if (justice.Gap() >= 0.1f)
        morale -= OverTick(RollSmallStep(), seconds);
    if (justice.crimeLevel <= 0.0f)
        Say("CEEEEELEEEBRAAAATE GOOD TIMES _COME ON_");
}

void Population::Grow(float seconds) {
    TraceFrame frame("Grow", "Population");
    if (!grain.IsStarving() && !livestock.IsStarving())
        population += OverTick(0.0075f * IdleCount(), seconds);
}

void Population::Eat(float seconds) {
    TraceFrame frame("Eat", "Population");
    float people = OverTick(population, seconds);
    if (famineTime > 0.0f)
        people *= 1.5f;
    grain.Consume(people);
    livestock.Consume(people);
}

void Population::FeelJustice(float seconds) {
    TraceFrame frame("FeelJustice", "Population");
    if (!(justice.Gap() < 0.05f) || rebellion)
        return;
    const double roll = RollUnit();
    morale = static_cast<float>(morale + OverTick(roll * 0.003f + 0.001f, seconds));
}

void Population::Say(const char* message) const {
    TraceFrame frame("Say", "Population");
    if (messages != nullptr)
        *messages << message << std::endl;  // each line is flushed
}
