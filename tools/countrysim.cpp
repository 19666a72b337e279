// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// The country without a window: one CSV row per tick, so that the model can be studied, plotted
// and compared.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <functional>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>

#include "country/rates.h"
#include "country/world.h"

namespace {

constexpr int kBadOption = 2;
constexpr double kMostWeeks = 1e9;
constexpr char kRealStep[] = "real";

/// A share of the people, and the level that the game's slider for it starts at.
struct ShareOption {
    const char* name;
    const char* help;
    float level;
};

constexpr std::array<ShareOption, kProfessions.size()> kShareOptions{{
    {"--farmers", "Share of the farmers (0.251; bare: 0.25)", 0.251f},
    {"--butchers", "Share of the butchers (0.501; bare: 0.5)", 0.501f},
    {"--educators", "Share of the educators (0.01; bare: 0)", 0.01f},
    {"--warriors", "Share of the warriors (0)", 0.0f},
    {"--doctors", "Share of the doctors (0)", 0.0f},
}};
constexpr float kRationLevel = 0.5f;
constexpr float kJusticeLevel = 0.5f;

struct Options {
    std::uint32_t seed = 1;
    double weeks = 52.0;
    std::string step = "604800";
    std::array<std::optional<float>, kProfessions.size()> shares;
    float livestockRation = kRationLevel;
    float grainRation = kRationLevel;
    std::optional<float> justice;
    bool bare = false;
    bool noNewspaper = false;
};

bool IsNumberWithin(const std::string& text, double lowest, double highest) {
    double number = 0.0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, number);
    // "nan" is a number to the parser, but lies within nothing
    return error == std::errc() && end == last && number >= lowest && number <= highest;
}

CLI::Validator Between(double lowest, double highest) {
    std::ostringstream message;
    message << "must be a number from " << lowest << " to " << highest;
    return {[=, message = message.str()](const std::string& text) {
                return IsNumberWithin(text, lowest, highest) ? std::string() : message;
            },
            ""};
}

/// Takes decimal digits alone. Leading zeros go: to the parser they would mean another base.
CLI::Validator SeedText() {
    return {[](std::string& text) -> std::string {
                std::uint32_t seed = 0;
                const char* const last = text.data() + text.size();
                const auto [end, error] = std::from_chars(text.data(), last, seed);
                if (error != std::errc() || end != last)
                    return "must be a whole number from 0 to 4294967295";
                text = std::to_string(seed);
                return {};
            },
            ""};
}

CLI::Validator StepText() {
    return {[](const std::string& text) -> std::string {
                if (text == kRealStep || IsNumberWithin(text, 1.0, kSecondsPerYear))
                    return {};
                return "must be \"real\" or seconds from 1 to a year";
            },
            ""};
}

void Declare(CLI::App& app, Options& options) {
    const CLI::Validator level = Between(0.0, 1.0);
    app.add_option("--seed", options.seed, "Seed of the random draws")
        ->transform(SeedText())
        ->capture_default_str();
    app.add_option("--weeks", options.weeks, "Weeks to simulate at least, also a fraction")
        ->check(Between(0.0, kMostWeeks))
        ->capture_default_str();
    app.add_option("--step", options.step,
                   "Seconds of a tick, or \"real\" to draw them as the game's clock does")
        ->check(StepText())
        ->capture_default_str();
    for (std::size_t i = 0; i < kShareOptions.size(); ++i) {
        app.add_option(kShareOptions[i].name, options.shares[i], kShareOptions[i].help)
            ->check(level);
    }
    app.add_option("--lration", options.livestockRation, "Level of the livestock ration's slider")
        ->check(level)
        ->capture_default_str();
    app.add_option("--gration", options.grainRation, "Level of the grain ration's slider")
        ->check(level)
        ->capture_default_str();
    app.add_option("--justice", options.justice, "Level of justice (0.5; bare: 0.4)")->check(level);
    app.add_flag("--bare", options.bare,
                 "The player's country alone, with no world around it and no newspaper");
    app.add_flag("--no-newspaper", options.noNewspaper, "Drop the newspaper and its draws");
}

/// What the game's controls do to the country in the first frame.
void Govern(Country& country, const Options& options) {
    if (options.justice || !options.bare)
        country.justice.justiceLevel = options.justice.value_or(kJusticeLevel);
    bool anyShare = false;
    for (const Profession profession : kProfessions) {
        const auto index = static_cast<std::size_t>(profession);
        const std::optional<float> share = options.shares[index];
        if (!share && options.bare)
            continue;
        country.SetShare(profession, share.value_or(kShareOptions[index].level));
        country.Normalise(profession);
        anyShare = true;
    }
    if (!anyShare)
        country.Normalise(Profession::Farmers);
    country.livestock.ration = options.livestockRation * 2.0f * country.livestock.baseRation;
    country.grain.ration = options.grainRation * 2.0f * country.grain.baseRation;
}

void PrintHeader() {
    std::puts(
        "tick,elapsed,population,funds,livestock,grain,livestock_production,grain_production,"
        "morale,opinion,crime,justice,famineChance,famineTime,plagueTime,rebellion");
}

void PrintRow(std::int64_t tick, const Country& country) {
    std::printf("%lld", static_cast<long long>(tick));
    for (const float value :
         {country.elapsed, country.population, country.funds, country.livestock.amount,
          country.grain.amount, country.livestock.production, country.grain.production,
          country.morale, country.opinion, country.justice.crimeLevel, country.justice.justiceLevel,
          country.famineChance, country.famineTime, country.plagueTime})
        std::printf(",%.9g", static_cast<double>(value));
    std::printf(",%d\n", country.rebellion ? 1 : 0);
}

/// Runs the campaign on a country that `tick` advances by the seconds given.
void Simulate(Country& country, const Options& options, const std::function<void(float)>& tick) {
    country.SetMessageStream(&std::cerr);  // the rows have the standard output to themselves
    Govern(country, options);

    const bool real = options.step == kRealStep;
    const float fixedStep = real ? 0.0f : std::stof(options.step);
    const double total = options.weeks * static_cast<double>(kSecondsPerWeek);
    double spent = 0.0;
    PrintHeader();
    for (std::int64_t row = 1; spent < total; ++row) {
        const float seconds = real ? World::DrawClockSeconds() : fixedStep;
        tick(seconds);
        PrintRow(row, country);
        spent += static_cast<double>(seconds);
    }
}

void Run(const Options& options) {
    std::srand(options.seed);
    if (options.bare) {
        Country country(World::kPlayerName, World::kPlayerPeople);
        Simulate(country, options, [&](float seconds) { country.Process(seconds); });
        return;
    }
    World world;
    if (options.noNewspaper) {
        Simulate(world.player, options, [&](float seconds) { world.player.Process(seconds); });
    } else {
        Simulate(world.player, options, [&](float seconds) { world.Advance(seconds); });
    }
}

int ParseAndRun(int argc, char** argv) {
    CLI::App app("Simulates the country of the game and prints a CSV row per tick.");
    Options options;
    Declare(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return app.exit(error);  // help was asked for
        std::string message = error.what();
        std::ranges::replace(message, '\n', ' ');
        std::cerr << "countrysim: " << message << '\n';
        return kBadOption;
    }
    Run(options);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        std::cerr << "countrysim: cannot write the rows\n";
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return ParseAndRun(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "countrysim: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
