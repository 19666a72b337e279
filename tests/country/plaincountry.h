// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "country/country.h"

/// A second implementation of the country's tick: all rules in one function, on plain numbers. The
/// country must give exactly the same figures with exactly the same rolls.
struct PlainCountry {
    float funds;
    float population;
    float livestock, livestockRation, livestockProduction;
    float grain, grainRation, grainProduction;
    float crime, justice;
    float morale, opinion;
    float famineChance, famineTime, plagueTime, elapsed;
    float shares[5];
    bool rebellion;
    FoodState food = FoodState::Content;
    int famines = 0, plagues = 0;
    double deadOfFamine = 0.0, deadOfPlague = 0.0;

    explicit PlainCountry(const Country& country)
        : funds(country.funds),
          population(country.population),
          livestock(country.livestock.amount),
          livestockRation(country.livestock.ration),
          livestockProduction(country.livestock.production),
          grain(country.grain.amount),
          grainRation(country.grain.ration),
          grainProduction(country.grain.production),
          crime(country.justice.crimeLevel),
          justice(country.justice.justiceLevel),
          morale(country.morale),
          opinion(country.opinion),
          famineChance(country.famineChance),
          famineTime(country.famineTime),
          plagueTime(country.plagueTime),
          elapsed(country.elapsed),
          rebellion(country.rebellion) {
        for (int i = 0; i < 5; ++i)
            shares[i] = country.Share(static_cast<Profession>(i));
    }

    static double U() { return std::rand() / 2147483648.0; }
    static float K() { return static_cast<float>(std::rand() % 4) / 1000.0f + 0.001f; }
    static float F(double value) { return static_cast<float>(value); }

    static double Living(float people) { return people > 0.0f ? static_cast<double>(people) : 0.0; }

    float Idle() const {
        return (1.0f - (shares[0] + shares[1] + shares[2] + shares[3] + shares[4])) * population;
    }

    void Tick(float s) {
        constexpr float W = 604800.0f;
        const float upper = 0.2f * population * 25.0f * 0.025f * (1.0f + 0.8f * 0.05f);
        const float lower = 0.8f * population * 0.5f * 0.025f * (1.0f + 0.8f * 0.05f);
        funds += (upper + lower) / 52.0f * s / W;
        funds -= (0.4f + 1.0f) * 0.9f * 1350.0f * s / 31449600.0f;

        float gf = 4.0f - 3.0f * grainRation / 0.2f;
        if (gf < 1.0f)
            gf = 1.0f;
        float lf = 4.0f - 3.0f * livestockRation / 0.1f;
        if (lf < 1.0f)
            lf = 1.0f;
        const float h = gf * lf;
        elapsed += s;

        food = FoodState::Content;
        if (grain == 0.0f || livestock == 0.0f) {
            food = FoodState::StarvingFast;
            morale -= K() * 5.0f * s / W;
            K();
            famineChance = 1.0f;
        } else if (grainRation <= 0.5f * 0.2f || livestockRation <= 0.5f * 0.1f) {
            food = FoodState::StarvingSlowly;
            morale -= 2.0f * K() * s / W;
            famineChance += 2.0f * K() * h * s / W;
        } else if (grainRation <= 0.75f * 0.2f || livestockRation <= 0.75f * 0.1f) {
            food = FoodState::Hungry;
            morale -= K() * h * s / W;
            famineChance += K() * s / W;
        } else if (grainRation >= 2.0f * 0.2f || livestockRation >= 2.0f * 0.1f) {
            food = FoodState::Gorging;
            morale += 2.0f * K() * s / W;
            famineChance -= 2.0f * K() * s / W;
        } else if (grainRation >= 1.3333334f * 0.2f || livestockRation >= 1.3333334f * 0.1f) {
            food = FoodState::WellFed;
            morale += K() * s / W;
            opinion += K() * s / W;
            famineChance -= K() * s / W;
        }

        if (morale < 0.1f) {
            const double u = U();
            if (morale * 10.0f < u && elapsed > 29030400.0f)
                rebellion = true;
        }
        if (morale < 0.0f)
            morale = 0.0f;
        if (opinion < 0.0f)
            opinion = 0.0f;
        if (elapsed < 29030400.0f)
            famineChance = 0.0f;

        if (plagueTime > 0.0f) {
            const float d = shares[4] * population / population;
            plagueTime -= (5.0f * d < 1.0f ? 5.0f * d : 1.0f) * s;
            if (plagueTime < 0.0f)
                plagueTime = 0.0f;
            const float exposed = 1.0f - 2.0f * d > 0.0f ? 1.0f - 2.0f * d : 0.0f;
            const double before = Living(population);
            population = F(population - (U() * 100.0 + 300.0) * exposed * s / W);
            deadOfPlague += before - Living(population);
        } else {
            plagueTime = 0.0f;
        }
        if (famineTime > 0.0f) {
            famineChance = 0.0f;
            famineTime -= s;
            if (famineTime < 0.0f)
                famineTime = 0.0f;
            const double before = Living(population);
            population = F(population - (U() * 200.0 + 1000.0) * s / W);
            deadOfFamine += before - Living(population);
        } else {
            famineTime = 0.0f;
        }

        double u = U();
        const bool famineBegins = 1.0f - famineChance < s / W * u && elapsed > 29030400.0f;
        famines += famineBegins ? 1 : 0;
        if (famineBegins)
            famineTime = F((U() * 8.0 + 18.0) * W);
        u = U();
        const bool plagueBegins = 0.99f < s / W * u && elapsed > 29030400.0f;
        plagues += plagueBegins ? 1 : 0;
        if (plagueBegins)
            plagueTime = F((U() * 4.0 + 8.0) * W);

        if (std::fabs(crime - justice) >= 0.1f)
            morale -= K() * s / W;
        if (!(grainRation <= 0.5f * 0.2f || livestockRation <= 0.5f * 0.1f))
            population += 0.0075f * Idle() * s / W;

        if (!rebellion) {
            if (s > 0.0f) {
                while (livestock / 0.75f < livestockProduction * s + livestock
                       && livestockProduction - 0.1f < livestockProduction)
                    livestockProduction -= 0.1f;
                livestock += livestockProduction * s;
            }
            livestock = std::min(std::max(livestock, 0.0f), 10000000.0f);
            if (s > 0.0f)
                grain += grainProduction * s;
            grain = std::min(std::max(grain, 0.0f), 20000000.0f);

            const float gap = std::fabs(crime - justice);
            if (gap <= 0.05f) {
                crime = F(crime + (U() * 0.0039999997f - 0.005f) * s / W);
            } else if (gap > 0.1f) {
                const float lowest = crime > justice ? -0.01f : -0.013f;
                crime = F(crime + (U() * 0.023f + lowest) * s / W);
            }
            crime = std::min(std::max(crime, 0.0f), 1.0f);
        }

        float eaters = population * s / W;
        if (famineTime > 0.0f)
            eaters *= 1.5f;
        grain -= std::min(grain, grainRation * eaters);
        livestock -= std::min(livestock, livestockRation * eaters);
        if (std::fabs(crime - justice) < 0.05f && !rebellion)
            morale = F(morale + (U() * 0.003f + 0.001f) * s / W);
    }
};
