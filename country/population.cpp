// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/population.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iostream>

#include "country/random.h"
#include "country/rates.h"
#include "quarn2/trace.h"

namespace {

/// In the order of FoodState.
constexpr std::array<std::string_view, 6> kMessages{
    "the people are starving fast!", "the people are starving slowly!",
    "the people are hungry!",        "",
    "the people are well fed!",      "the people are gorging themselves!",
};

/// How many of the living are dead when `before` people become `after`: the population may fall
/// below 0.
double Dead(float before, float after) {
    return static_cast<double>(std::max(0.0f, before)) - static_cast<double>(std::max(0.0f, after));
}

float RollWeeks(float spread, float lowest) {
    const double roll = RollUnit();
    return static_cast<float>((roll * spread + lowest) * kSecondsPerWeek);
}

}  // namespace

std::string_view MessageOf(FoodState state) {
    return kMessages[static_cast<std::size_t>(state)];
}

Population::Population(int people) : population(static_cast<float>(people)), messages(&std::cout) {
    TraceFrame frame("Population", "Population");
}

float Population::IdleShare() const {
    TraceFrame frame("IdleShare", "Population");
    float sum = 0.0f;
    for (const float share : shares)
        sum += share;
    return 1.0f - sum;
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

FoodState Population::FindFoodState() const {
    TraceFrame frame("FindFoodState", "Population");
    if (grain.IsEmpty() || livestock.IsEmpty())
        return FoodState::StarvingFast;
    if (grain.IsStarving() || livestock.IsStarving())
        return FoodState::StarvingSlowly;
    if (grain.IsHungry() || livestock.IsHungry())
        return FoodState::Hungry;
    if (grain.IsGorging() || livestock.IsGorging())
        return FoodState::Gorging;
    if (grain.IsWellFed() || livestock.IsWellFed())
        return FoodState::WellFed;
    return FoodState::Content;
}

void Population::FeelHunger(float seconds) {
    TraceFrame frame("FeelHunger", "Population");
    const float hunger = grain.HungerFactor() * livestock.HungerFactor();
    foodState = FindFoodState();
    switch (foodState) {
    case FoodState::StarvingFast:
        morale -= OverTick(RollSmallStep() * 5.0f, seconds);
        famineChance += OverTick(hunger * RollSmallStep() * 5.0f, seconds);
        famineChance = 1.0f;  // kept: certain, but the roll above is still made
        break;
    case FoodState::StarvingSlowly:
        morale -= OverTick(2.0f * RollSmallStep(), seconds);
        famineChance += OverTick(2.0f * RollSmallStep() * hunger, seconds);
        break;
    case FoodState::Hungry:
        morale -= OverTick(RollSmallStep() * hunger, seconds);
        famineChance += OverTick(RollSmallStep(), seconds);
        break;
    case FoodState::Content:
        return;
    case FoodState::Gorging:
        morale += OverTick(2.0f * RollSmallStep(), seconds);
        famineChance -= OverTick(2.0f * RollSmallStep(), seconds);
        break;
    case FoodState::WellFed:
        morale += OverTick(RollSmallStep(), seconds);
        opinion += OverTick(RollSmallStep(), seconds);
        famineChance -= OverTick(RollSmallStep(), seconds);
        break;
    }
    Say(MessageOf(foodState));
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
    if (!InPlague()) {
        plagueTime = 0.0f;
        return;
    }
    // With 20% doctors a plague ends at full speed, with 50% nobody dies of it.
    const float doctors = Count(Profession::Doctors) / population;
    plagueTime = std::max(plagueTime - std::min(5.0f * doctors, 1.0f) * seconds, 0.0f);
    const double roll = RollUnit();
    const float before = population;
    population = static_cast<float>(population - OverTick(DeadOfPlague(roll), seconds));
    disasters.deadOfPlague += Dead(before, population);
}

double Population::DeadOfPlague(double roll) const {
    TraceFrame frame("DeadOfPlague", "Population");
    const float doctors = Count(Profession::Doctors) / population;
    return (roll * 100.0f + 300.0f) * std::max(1.0f - 2.0f * doctors, 0.0f);
}

void Population::SufferFamine(float seconds) {
    TraceFrame frame("SufferFamine", "Population");
    if (!InFamine()) {
        famineTime = 0.0f;
        return;
    }
    famineChance = 0.0f;
    famineTime = std::max(famineTime - seconds, 0.0f);
    const double roll = RollUnit();
    const float before = population;
    population = static_cast<float>(population - OverTick(DeadOfFamine(roll), seconds));
    disasters.deadOfFamine += Dead(before, population);
}

void Population::RollDisasters(float seconds) {
    TraceFrame frame("RollDisasters", "Population");
    // kept: both limits depend on the length of the tick, so only a tick of nearly a week can
    // start a plague
    const float weeks = seconds / kSecondsPerWeek;
    const double famineRoll = RollUnit();
    if (1.0f - famineChance < weeks * famineRoll && GraceIsOver()) {
        famineTime = RollWeeks(8.0f, 18.0f);
        ++disasters.famines;
    }
    const double plagueRoll = RollUnit();
    if (0.99f < weeks * plagueRoll && GraceIsOver()) {
        plagueTime = RollWeeks(4.0f, 8.0f);
        ++disasters.plagues;
    }
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
    population += OverTick(Births(population), seconds);
}

float Population::Births(float people) const {
    TraceFrame frame("Births", "Population");
    if (grain.IsStarving() || livestock.IsStarving())
        return 0.0f;
    return 0.0075f * (IdleShare() * people);
}

void Population::Eat(float seconds) {
    TraceFrame frame("Eat", "Population");
    const float people = Eaten(OverTick(population, seconds), InFamine());
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

void Population::Say(std::string_view message) const {
    TraceFrame frame("Say", "Population");
    if (messages != nullptr)
        *messages << message << std::endl;  // each line is flushed
}
