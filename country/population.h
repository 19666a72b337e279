// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <iosfwd>
#include <string_view>

#include "country/education.h"
#include "country/grain.h"
#include "country/justice.h"
#include "country/livestock.h"
#include "country/military.h"

/// What a share of the people does. The others are idle, and only the idle have children.
enum class Profession { Farmers, Butchers, Educators, Warriors, Doctors };

inline constexpr std::array kProfessions{Profession::Farmers, Profession::Butchers,
                                         Profession::Educators, Profession::Warriors,
                                         Profession::Doctors};

/// How well the people eat, and so what they say of their food.
enum class FoodState { StarvingFast, StarvingSlowly, Hungry, Content, WellFed, Gorging };

/// The line that the people write in that state; empty if they are content.
std::string_view MessageOf(FoodState state);

/// Numbers of disasters since the country was made, for the chronicle: no rule of the country
/// reads them.
struct DisasterCount {
    int famines = 0;  ///< begun so far; one that begins during another counts too
    int plagues = 0;  ///< as famines
    double deadOfFamine = 0.0;
    double deadOfPlague = 0.0;
};

/// The people of a country: how many there are, what they do, how well they eat, how content
/// they are, and what strikes them.
class Population {
public:
    Livestock livestock;
    Grain grain;
    Justice justice;
    Education education;
    Military military;
    float morale = 0.5f;        ///< a tick raises it to at least 0; no upper bound
    float opinion = 0.5f;       ///< as morale
    float population;           ///< a head-count; disasters may drive it below 0
    float famineChance = 0.0f;  ///< at 1 or more certain in a tick of a week; may be below 0
    float famineTime = 0.0f;    ///< game seconds left; a famine is in progress while above 0
    float plagueTime = 0.0f;    ///< game seconds left; a plague is in progress while above 0
    bool rebellion = false;     ///< never false again once it is true
    bool revolt = false;        ///< only shown
    float elapsed = 0.0f;       ///< game seconds since the country was created
    FoodState foodState = FoodState::Content;  ///< as the last tick found it; no rule reads it
    DisasterCount disasters;

    /// No famine, plague or rebellion begins in a country's first 48 weeks.
    static constexpr float kGracePeriod = 29030400.0f;

    /// Sets the stores, shares and levels that every country begins with.
    explicit Population(int population);

    float Share(Profession profession) const { return shares[Index(profession)]; }
    /// Call Normalise(profession) afterwards: only then does the change take effect.
    void SetShare(Profession profession, float share) { shares[Index(profession)] = share; }

    float Count(Profession profession) const { return Share(profession) * population; }
    /// Negative while the shares add up to more than 1.
    float IdleCount() const { return IdleShare() * population; }

    /// Makes room for the share of `profession`, which was just set: if the shares add up to more
    /// than 1, each of the other four loses a quarter of the excess, but none goes below 0. Then
    /// sets the workers of the food stocks, the educators and the warriors.
    void Normalise(Profession profession);

    /// One tick. Writes what the people say of their food to the message stream.
    void Process(float seconds);

    bool GraceIsOver() const { return elapsed > kGracePeriod; }
    bool InFamine() const { return famineTime > 0.0f; }
    bool InPlague() const { return plagueTime > 0.0f; }

    // What a week changes, for the rules and for the outlook

    /// @param roll  from 0 to 1
    static double DeadOfFamine(double roll) { return roll * 200.0f + 1000.0f; }
    /// @param roll  from 0 to 1
    double DeadOfPlague(double roll) const;
    /// Children of the idle among that many people; below 0 while the shares add up to more than 1.
    float Births(float people) const;
    /// Person-weeks eaten by that many person-weeks of people.
    static float Eaten(float people, bool famine) { return famine ? people * 1.5f : people; }

    /// Where the messages go, one line each, flushed; standard output if this is not called.
    /// @param stream  not owned; null drops the messages
    void SetMessageStream(std::ostream* stream) { messages = stream; }

private:
    static constexpr std::size_t Index(Profession profession) {
        return static_cast<std::size_t>(profession);
    }

    float IdleShare() const;
    FoodState FindFoodState() const;
    void FeelHunger(float seconds);
    void ConsiderRebellion();
    void SufferPlague(float seconds);
    void SufferFamine(float seconds);
    void RollDisasters(float seconds);
    void FeelInjustice(float seconds);
    void Grow(float seconds);
    void Eat(float seconds);
    void FeelJustice(float seconds);
    void Say(std::string_view message) const;

    std::array<float, kProfessions.size()> shares{0.25f, 0.5f};
    std::ostream* messages;  // not owned
};
