// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Simulates the country without a window and prints one CSV row per tick or per campaign, to study
// and compare how the country behaves.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <string_view>

#include "country/rates.h"
#include "country/start.h"
#include "tools/commandline.h"
#include "tools/countrysim/campaign.h"

namespace {

constexpr int kBadOption = 2;
constexpr double kMaxWeeks = 1e9;
constexpr char kRealStep[] = "real";
constexpr char kSummaryHelp[] =
    "Columns of --summary: seed; weeks survived, which are the whole weeks at whose end there "
    "were people (nothing else ends a country, and the campaign ends with them); the week, from "
    "1, of the first famine, the first plague and the rebellion, empty when there was none; then "
    "lowest and last, of the figures at the ends of the ticks, of livestock, grain, people, "
    "funds, morale and crime.";

/// One per profession, in their order.
constexpr std::array<const char*, kProfessions.size()> kShareOptions{
    "farmers", "butchers", "educators", "warriors", "doctors"};

/// Campaigns of these seeds, both included.
struct Seeds {
    std::uint32_t from = 1;
    std::uint32_t to = 1;
};

struct Options {
    std::string seed = "1";
    std::string seeds;  // used instead of `seed` if not empty
    std::string step = "604800";
    bool noNewspaper = false;
    bool summary = false;
    bool chronicle = false;
    Campaign campaign;
};

bool IsNumberWithin(const std::string& text, double lowest, double highest) {
    double number = 0.0;
    const char* const last = text.data() + text.size();
    const auto [end, error] = std::from_chars(text.data(), last, number);
    // the parser takes "nan" as a number, but both comparisons with it are false
    return error == std::errc() && end == last && number >= lowest && number <= highest;
}

/// The level that holds if the option is missing, and that of a bare campaign if it differs.
std::string Missing(float level, float bareLevel) {
    std::ostringstream text;
    text << " (" << level;
    if (bareLevel != level)
        text << "; bare: " << bareLevel;
    text << ')';
    return text.str();
}

CLI::Validator Between(double lowest, double highest) {
    std::ostringstream message;
    message << "must be a number from " << lowest << " to " << highest;
    return {[=, message = message.str()](const std::string& text) {
                return IsNumberWithin(text, lowest, highest) ? std::string() : message;
            },
            ""};
}

/// Takes decimal digits only; leading zeros are ignored.
std::optional<std::uint32_t> ParseSeed(std::string_view text) {
    std::uint32_t seed = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), seed);
    if (error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return seed;
}

/// Takes FROM-TO, where TO is not less than FROM.
std::optional<Seeds> ParseSeeds(std::string_view text) {
    const std::size_t dash = std::min(text.find('-'), text.size());
    const std::optional<std::uint32_t> from = ParseSeed(text.substr(0, dash));
    const std::optional<std::uint32_t> to = ParseSeed(text.substr(std::min(dash + 1, text.size())));
    if (!from || !to || *from > *to)
        return std::nullopt;
    return Seeds{*from, *to};
}

CLI::Validator SeedText() {
    return {[](const std::string& text) -> std::string {
                return ParseSeed(text) ? "" : "must be a whole number from 0 to 4294967295";
            },
            ""};
}

CLI::Validator SeedsText() {
    return {[](const std::string& text) -> std::string {
                return ParseSeeds(text) ? "" : "must be two seeds in order, as in 1-1000";
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
    Policy& policy = options.campaign.policy;
    CLI::Option* seed = app.add_option("--seed", options.seed, "Seed of the random numbers");
    seed->check(SeedText())->capture_default_str();
    CLI::Option* seeds = app.add_option("--seeds", options.seeds,
                                        "A campaign for each seed FROM-TO, with --summary");
    seeds->check(SeedsText())->excludes(seed);
    app.add_option("--weeks", options.campaign.weeks, "Weeks to simulate at least, also a fraction")
        ->check(Between(0.0, kMaxWeeks))
        ->capture_default_str();
    app.add_option("--step", options.step,
                   "Seconds of a tick, or \"real\" for random ones as those of the game's clock")
        ->check(StepText())
        ->capture_default_str();
    const Population bareCountry(0);
    for (const Profession profession : kProfessions) {
        const auto i = static_cast<std::size_t>(profession);
        const std::string name = kShareOptions[i];
        app.add_option("--" + name, policy.shares[i],
                       "Share of the " + name
                           + Missing(start::Share(profession), bareCountry.Share(profession)))
            ->check(level);
    }
    app.add_option("--lration", policy.livestockRation, "Level of the livestock ration's slider")
        ->check(level)
        ->capture_default_str();
    app.add_option("--gration", policy.grainRation, "Level of the grain ration's slider")
        ->check(level)
        ->capture_default_str();
    app.add_option("--justice", policy.justice,
                   "Level of justice" + Missing(start::kJustice, bareCountry.justice.justiceLevel))
        ->check(level);
    app.add_flag("--renew", policy.renew,
                 "Set the workers again before every tick, as moving their sliders does");
    CLI::Option* bare =
        app.add_flag("--bare", options.campaign.bare,
                     "The player's country alone, with no neighbours and no newspaper");
    app.add_option("--trade", policy.trade,
                   "Before every tick sell the food that is more than so many weeks' need to the "
                   "first neighbour, and buy what is missing, as far as the funds allow")
        ->check(Between(0.0, kMaxWeeks))
        ->excludes(bare);
    app.add_flag("--no-newspaper", options.noNewspaper,
                 "Leave out the newspaper and its random numbers");
    CLI::Option* summary =
        app.add_flag("--summary", options.summary, "A row per campaign instead of one per tick");
    seeds->needs(summary);
    app.add_flag("--chronicle", options.chronicle,
                 "Print what happened, a line per event, instead of rows; the last 1000 events")
        ->excludes(summary);
    app.footer(kSummaryHelp);
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

void PrintRows(const Campaign& campaign) {
    PrintHeader();
    std::int64_t tick = 0;
    // the messages go elsewhere, so that standard output has rows only
    Run(campaign, &std::cerr, [&](const Country& country, double, float) {
        PrintRow(++tick, country);
        return true;
    });
}

void PrintSummaryHeader() {
    std::puts(
        "seed,weeks,famine,plague,rebellion,livestock_lowest,livestock_last,grain_lowest,"
        "grain_last,people_lowest,people_last,funds_lowest,funds_last,morale_lowest,morale_last,"
        "crime_lowest,crime_last");
}

void PrintSummary(std::uint32_t seed, const Summary& summary) {
    std::printf("%lu,%lld", static_cast<unsigned long>(seed),
                static_cast<long long>(summary.weeks));
    for (const std::optional<std::int64_t>& week :
         {summary.famine, summary.plague, summary.rebellion}) {
        std::putchar(',');
        if (week)
            std::printf("%lld", static_cast<long long>(*week));
    }
    for (const Range& range : {summary.livestock, summary.grain, summary.people, summary.funds,
                               summary.morale, summary.crime}) {
        std::printf(",%.9g,%.9g", static_cast<double>(range.lowest),
                    static_cast<double>(range.last));
    }
    std::putchar('\n');
}

void PrintSummaries(Campaign& campaign, Seeds seeds) {
    PrintSummaryHeader();
    for (std::uint64_t seed = seeds.from; seed <= seeds.to; ++seed) {
        campaign.seed = static_cast<std::uint32_t>(seed);
        PrintSummary(campaign.seed, Summarise(campaign));
        if (std::ferror(stdout) != 0)
            return;  // the output is closed or full
    }
}

void PrintChronicle(const Campaign& campaign) {
    const Chronicle chronicle = WriteChronicle(campaign);
    for (std::size_t index = chronicle.Size(); index > 0; --index) {
        const Chronicle::Entry& entry = chronicle.Newest(index - 1);
        std::string line = entry.date.DayText() + ": ";
        entry.WriteTo(line);
        std::puts(line.c_str());
    }
}

void RunAsAsked(Options& options) {
    Campaign& campaign = options.campaign;
    campaign.newspaper = !options.noNewspaper;
    if (options.step != kRealStep)
        campaign.step = std::stof(options.step);
    campaign.seed = *ParseSeed(options.seed);
    const Seeds seeds =
        options.seeds.empty() ? Seeds{campaign.seed, campaign.seed} : *ParseSeeds(options.seeds);
    if (options.summary) {
        PrintSummaries(campaign, seeds);
    } else if (options.chronicle) {
        PrintChronicle(campaign);
    } else {
        PrintRows(campaign);
    }
}

int ParseAndRun(int argc, char** argv) {
    CLI::App app(
        "Simulates the country of the game and prints CSV: a row per tick or per campaign.");
    Options options;
    Declare(app, options);
    if (const auto status = ParseCommandLine(app, "countrysim", kBadOption, argc, argv))
        return *status;
    RunAsAsked(options);
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
