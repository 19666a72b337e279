// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>

#include "country/date.h"
#include "country/namegenerator.h"
#include "country/newspaper.h"
#include "country/rates.h"
#include "country/world.h"
#include "tools/countrysim/campaign.h"

namespace {

constexpr long kWeek = 604800;

/// Adds a second and looks at every field, the simplest way to follow the rules of the calendar.
void AddSecondTheLongWay(Date& date) {
    static constexpr int kMonthLengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    ++date.second;
    if (date.second > 59) {
        date.second = 0;
        ++date.minute;
    }
    if (date.minute > 59) {
        date.minute = 0;
        ++date.hour;
    }
    if (date.hour > 23) {
        date.hour = 0;
        ++date.day;
    }
    const bool leapDay = date.month == 2 && date.year % 4 == 0;
    if (date.day > kMonthLengths[date.month - 1] + (leapDay ? 1 : 0)) {
        date.day = 1;
        ++date.month;
    }
    if (date.month > 12) {
        date.month = 1;
        ++date.year;
    }
}

void DateWeek(benchmark::State& state) {
    Date date("1358/05/16 00:00:00");
    for ([[maybe_unused]] auto _ : state) {
        date.Advance(kWeek);
        benchmark::DoNotOptimize(date);
    }
    state.SetItemsProcessed(state.iterations() * kWeek);
}
BENCHMARK(DateWeek)->Unit(benchmark::kMicrosecond);

void DateWeekNormalisingEveryField(benchmark::State& state) {
    Date date("1358/05/16 00:00:00");
    for ([[maybe_unused]] auto _ : state) {
        for (long second = 0; second < kWeek; ++second)
            AddSecondTheLongWay(date);
        benchmark::DoNotOptimize(date);
    }
    state.SetItemsProcessed(state.iterations() * kWeek);
}
BENCHMARK(DateWeekNormalisingEveryField)->Unit(benchmark::kMicrosecond);

/// A country as the game's first frame leaves it, without its messages.
void Govern(Country& country) {
    country.SetMessageStream(nullptr);
    country.justice.justiceLevel = start::kJustice;
    for (const Profession profession : kProfessions)
        country.SetShare(profession, start::Share(profession));
    country.Normalise(Profession::Doctors);
}

/// Ticks of the seconds given in campaigns of 200 weeks.
void Tick(benchmark::State& state) {
    const auto seconds = static_cast<float>(state.range(0));
    const int ticksOfCampaign = static_cast<int>(200.0f * kSecondsPerWeek / seconds);
    unsigned seed = 0;
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        std::srand(++seed);
        Country country(start::kName, start::kPeople);
        Newspaper newspaper(&country);
        Govern(country);
        state.ResumeTiming();
        for (int tick = 0; tick < ticksOfCampaign; ++tick) {
            country.Process(seconds);
            newspaper.Update(seconds);
        }
    }
    state.SetItemsProcessed(state.iterations() * ticksOfCampaign);
}
BENCHMARK(Tick)->ArgName("seconds")->Arg(kWeek)->Arg(330);

/// What `countrysim --summary` does for a row: creates the world and runs its ticks. With 1 the
/// country is fed and lives long, with 0 it ends early.
void CampaignSummary(benchmark::State& state) {
    Campaign campaign;
    campaign.weeks = 200.0;
    campaign.step = kSecondsPerWeek;
    if (state.range(0) != 0) {
        campaign.policy.shares = {0.26f, 0.52f, 0.0f, 0.0f, 0.1f};
        campaign.policy.justice = 0.56f;
        campaign.policy.renew = true;
    }
    campaign.seed = 0;
    std::int64_t ticks = 0;
    for ([[maybe_unused]] auto _ : state) {
        ++campaign.seed;
        ticks += Summarise(campaign).weeks;
    }
    state.SetItemsProcessed(ticks);
}
BENCHMARK(CampaignSummary)->ArgName("fed")->Arg(0)->Arg(1);

/// What a click on the week button does in the world.
void WorldWeek(benchmark::State& state) {
    std::srand(1);
    World world;
    Govern(world.player);
    for ([[maybe_unused]] auto _ : state)
        world.Advance(kSecondsPerWeek);
}
BENCHMARK(WorldWeek)->Unit(benchmark::kMicrosecond);

void WorldCreation(benchmark::State& state) {
    std::srand(1);
    for ([[maybe_unused]] auto _ : state) {
        World world;
        benchmark::DoNotOptimize(world);
    }
}
BENCHMARK(WorldCreation);

/// An edition at a crime level in hundredths: below 15 the stories have random names.
void Edition(benchmark::State& state) {
    std::srand(1);
    Country country(start::kName, start::kPeople);
    Newspaper newspaper(&country);
    country.justice.crimeLevel = static_cast<float>(state.range(0)) / 100.0f;
    for ([[maybe_unused]] auto _ : state) {
        newspaper.Print();
        benchmark::DoNotOptimize(newspaper);
    }
}
BENCHMARK(Edition)->ArgName("crime")->Arg(2)->Arg(7)->Arg(12)->Arg(50);

void Name(benchmark::State& state) {
    std::srand(1);
    const NameGenerator names(NameGenerator::kCountryPattern);
    for ([[maybe_unused]] auto _ : state)
        benchmark::DoNotOptimize(names.Generate());
}
BENCHMARK(Name);

/// Only the sixteen random numbers of a country's name: the lowest cost of the case above.
void NameRolls(benchmark::State& state) {
    std::srand(1);
    for ([[maybe_unused]] auto _ : state) {
        for (int roll = 0; roll < 16; ++roll)
            benchmark::DoNotOptimize(std::rand());
    }
}
BENCHMARK(NameRolls);

/// Butchers with almost no ration: one tick takes back millions of steps of production.
void HerdWithHugeProduction(benchmark::State& state) {
    Livestock livestock;
    for ([[maybe_unused]] auto _ : state) {
        livestock.amount = 15000.0f;
        livestock.production = 2000000.0f;
        livestock.Process(330.0f);
    }
    benchmark::DoNotOptimize(livestock);
}
BENCHMARK(HerdWithHugeProduction);

}  // namespace

BENCHMARK_MAIN();
