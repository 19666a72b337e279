// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Simulates the country without a window and prints one row per tick or per campaign, to study and
// compare how the country behaves.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "country/rates.h"
#include "country/start.h"
#include "tools/commandline.h"
#include "tools/countrysim/campaign.h"
#include "tools/countrysim/columns.h"

namespace {

constexpr int kBadOption = 2;
constexpr double kMaxWeeks = 1e9;
constexpr char kRealStep[] = "real";
/// One per profession, in their order.
constexpr std::array<const char*, kProfessions.size()> kShareOptions{
    "farmers", "butchers", "educators", "warriors", "doctors"};

/// What --at can change. The first ones are the professions.
constexpr std::array<const char*, 10> kLevers{
    kShareOptions[0], kShareOptions[1], kShareOptions[2], kShareOptions[3], kShareOptions[4],
    "lration",        "gration",        "justice",        "renew",          "trade"};
static_assert(kLevers.size() == static_cast<std::size_t>(Lever::Trade) + 1);

constexpr char kOff[] = "off";  // in place of the weeks of a trade

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
    bool json = false;
    std::vector<std::string> changes;
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

/// Takes WEEK:OPTION=VALUE.
std::optional<Change> ParseChange(const std::string& text) {
    const std::size_t colon = text.find(':');
    const std::size_t equals = text.find('=', std::min(colon, text.size()));
    if (equals == std::string::npos)
        return std::nullopt;
    const std::optional<std::uint32_t> week = ParseSeed(std::string_view(text).substr(0, colon));
    const std::string value = text.substr(equals + 1);
    const auto lever = std::ranges::find(kLevers, text.substr(colon + 1, equals - colon - 1));
    if (!week || *week == 0 || lever == kLevers.end())
        return std::nullopt;
    Change change{*week, static_cast<Lever>(lever - kLevers.begin()), std::nullopt};
    if (change.lever == Lever::Trade && value == kOff)
        return change;
    const bool valid = change.lever == Lever::Renew   ? value == "0" || value == "1"
                       : change.lever == Lever::Trade ? IsNumberWithin(value, 0.0, kMaxWeeks)
                                                      : IsNumberWithin(value, 0.0, 1.0);
    if (!valid)
        return std::nullopt;
    change.level = std::stof(value);
    return change;
}

CLI::Validator ChangeText() {
    return {[](const std::string& text) -> std::string {
                return ParseChange(text) ? "" : "'" + text + "' is not like 20:justice=0.56";
            },
            ""};
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
    app.add_option(
           "--at", options.changes,
           "From the beginning of this week, from 1, OPTION has this value. OPTION is a "
           "profession, lration, gration, justice, renew (0 or 1) or trade (weeks, or off). "
           "Can be given many times")
        ->type_name("WEEK:OPTION=VALUE")
        ->allow_extra_args(false)
        ->check(ChangeText());
    app.add_flag("--json", options.json,
                 "Print each row as a JSON object, one per line, instead of CSV");
    app.footer("Columns, with their units in brackets:\n" + DescribeColumns(TickColumns())
               + "\nColumns of --summary:\n" + DescribeColumns(SummaryColumns()));
}

/// Prints rows as CSV or, one object per line, as JSON.
class RowPrinter {
public:
    RowPrinter(std::span<const Column> theColumns, bool asJson)
        : columns(theColumns), json(asJson) {}

    void PrintHeader() const {
        if (json)
            return;
        for (const Column& column : columns)
            std::printf("%s%s", &column == columns.data() ? "" : ",", column.name);
        std::putchar('\n');
    }

    // The fields of a row, in the order of the columns.
    void Whole(std::int64_t number) {
        Begin();
        std::printf("%lld", static_cast<long long>(number));
    }
    void Number(double number) {
        Begin();
        if (json && !std::isfinite(number)) {
            std::fputs("null", stdout);  // JSON has neither infinity nor NaN
        } else {
            std::printf("%.9g", number);
        }
    }
    void WholeIfAny(const std::optional<std::int64_t>& number) {
        if (number) {
            Whole(*number);
            return;
        }
        Begin();
        if (json)
            std::fputs("null", stdout);
    }
    void EndRow() {
        std::fputs(json ? "}\n" : "\n", stdout);
        next = 0;
    }

private:
    void Begin() {
        if (json) {
            std::printf("%s\"%s\":", next == 0 ? "{" : ",", columns[next].name);
        } else if (next > 0) {
            std::putchar(',');
        }
        ++next;
    }

    std::span<const Column> columns;
    bool json;
    std::size_t next = 0;
};

void PrintRows(const Campaign& campaign, bool json) {
    RowPrinter printer(TickColumns(), json);
    printer.PrintHeader();
    std::int64_t tick = 0;
    // the messages go elsewhere, so that standard output has rows only
    Run(campaign, &std::cerr, [&](const Country& country, double, float) {
        printer.Whole(++tick);
        for (const Column& column : TickColumns()) {
            if (column.figure != nullptr)
                printer.Number(column.figure(country));
        }
        printer.EndRow();
        return true;
    });
}

void PrintSummary(RowPrinter& printer, std::uint32_t seed, const Summary& summary) {
    printer.Whole(seed);
    printer.Whole(summary.weeks);
    for (const std::optional<std::int64_t>& week :
         {summary.famine, summary.plague, summary.rebellion})
        printer.WholeIfAny(week);
    for (const Range& range : {summary.livestock, summary.grain, summary.people, summary.funds,
                               summary.morale, summary.crime}) {
        printer.Number(double{range.lowest});
        printer.Number(double{range.last});
    }
    printer.EndRow();
}

void PrintSummaries(Campaign& campaign, Seeds seeds, bool json) {
    RowPrinter printer(SummaryColumns(), json);
    printer.PrintHeader();
    for (std::uint64_t seed = seeds.from; seed <= seeds.to; ++seed) {
        campaign.seed = static_cast<std::uint32_t>(seed);
        PrintSummary(printer, campaign.seed, Summarise(campaign));
        if (std::ferror(stdout) != 0)
            return;  // the output is closed or full
    }
}

void PrintChronicle(const Campaign& campaign, bool json) {
    const Chronicle chronicle = WriteChronicle(campaign);
    for (std::size_t index = chronicle.Size(); index > 0; --index) {
        const Chronicle::Entry& entry = chronicle.Newest(index - 1);
        std::string text;
        entry.WriteTo(text);
        const std::string date = entry.date.DayText();
        const std::string line = json
                                     ? nlohmann::ordered_json{{"date", date}, {"text", text}}.dump()
                                     : date + ": " + text;
        std::puts(line.c_str());
    }
}

void RunAsAsked(Options& options) {
    Campaign& campaign = options.campaign;
    campaign.newspaper = !options.noNewspaper;
    if (options.step != kRealStep)
        campaign.step = std::stof(options.step);
    campaign.seed = *ParseSeed(options.seed);
    for (const std::string& change : options.changes)
        campaign.changes.push_back(*ParseChange(change));
    std::ranges::stable_sort(campaign.changes, {}, &Change::week);
    const Seeds seeds =
        options.seeds.empty() ? Seeds{campaign.seed, campaign.seed} : *ParseSeeds(options.seeds);
    if (options.summary) {
        PrintSummaries(campaign, seeds, options.json);
    } else if (options.chronicle) {
        PrintChronicle(campaign, options.json);
    } else {
        PrintRows(campaign, options.json);
    }
}

bool ChangesTrade(const Options& options) {
    return std::ranges::any_of(options.changes, [](const std::string& change) {
        return ParseChange(change)->lever == Lever::Trade;
    });
}

int ParseAndRun(int argc, char** argv) {
    CLI::App app(
        "Simulates the country of the game and prints CSV: a row per tick or per campaign.");
    Options options;
    Declare(app, options);
    if (const auto status = ParseCommandLine(app, "countrysim", kBadOption, argc, argv))
        return *status;
    if (options.campaign.bare && ChangesTrade(options)) {
        std::cerr << "countrysim: --bare has no neighbours to trade with\n";
        return kBadOption;
    }
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
