// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/history.h"

#include <algorithm>

#include "country/country.h"
#include "country/rates.h"
#include "quarn2/trace.h"

namespace {

constexpr auto kWeekSeconds = static_cast<long>(kSecondsPerWeek);
/// Thinning makes room for this many samples at least, so that it is rare.
constexpr std::size_t kRoom = History::kMaxSamples / 8;

std::uint8_t MarksOf(const Country& country) {
    unsigned bits = country.InFamine() ? History::kFamine : 0U;
    bits |= country.InPlague() ? History::kPlague : 0U;
    bits |= country.rebellion ? History::kRebellion : 0U;
    return static_cast<std::uint8_t>(bits);
}

}  // namespace

void History::Add(const Country& country, long seconds) {
    TraceFrame frame("Add", "History");
    const std::uint8_t marksBefore = marksNow;
    marksNow = MarksOf(country);
    marksSince = static_cast<std::uint8_t>(marksSince | marksBefore | marksNow);
    sinceWeek += seconds;
    if (sinceWeek < kWeekSeconds)
        return;
    passed += sinceWeek / kWeekSeconds;
    sinceWeek %= kWeekSeconds;
    if (weeks.capacity() == 0)
        Reserve();
    if (Size() == kMaxSamples)
        Thin();
    Append(country);
}

void History::Append(const Country& country) {
    TraceFrame frame("Append", "History");
    const float eaten = Population::Eaten(country.population, country.InFamine());
    const float units = eaten * country.grain.ration;
    const float heads = eaten * country.livestock.ration;
    // Without butchers at work no herd is too small.
    const float raised =
        country.rebellion ? 0.0f : std::max(country.livestock.production * kSecondsPerWeek, 0.0f);
    const float limit = raised / (1.0f / country.livestock.growthLimit - 1.0f);
    const std::array<float, kFigureCount> sample{
        country.population,
        country.IdleCount(),
        country.grain.amount,
        units,
        country.grain.amount / units,
        country.livestock.amount,
        heads,
        country.livestock.amount / heads,
        limit / heads,
        country.funds,
        country.morale,
        country.justice.crimeLevel,
        country.justice.justiceLevel,
    };
    weeks.push_back(static_cast<float>(passed));
    for (std::size_t index = 0; index < kFigureCount; ++index)
        figures[index].push_back(sample[index]);
    marks.push_back(marksSince);
    marksSince = 0;
}

void History::Reserve() {
    TraceFrame frame("Reserve", "History");
    weeks.reserve(kMaxSamples);
    for (std::vector<float>& figure : figures)
        figure.reserve(kMaxSamples);
    marks.reserve(kMaxSamples);
}

void History::Thin() {
    TraceFrame frame("Thin", "History");
    for (;; oldStride *= 2) {
        KeepEvery(oldStride);
        if (Size() + kRoom <= kMaxSamples)
            return;
    }
}

void History::KeepEvery(std::int64_t stride) {
    TraceFrame frame("KeepEvery", "History");
    std::size_t kept = 0;
    std::uint8_t dropped = 0;  // marks of the samples dropped since the last one that is kept
    for (std::size_t index = 0; index < Size(); ++index) {
        const auto week = static_cast<std::int64_t>(weeks[index]);
        dropped = static_cast<std::uint8_t>(dropped | marks[index]);
        if (week % stride != 0 && week <= passed - kRecentWeeks)
            continue;
        weeks[kept] = weeks[index];
        for (std::vector<float>& figure : figures)
            figure[kept] = figure[index];
        marks[kept] = dropped;
        dropped = 0;
        ++kept;
    }
    weeks.resize(kept);
    for (std::vector<float>& figure : figures)
        figure.resize(kept);
    marks.resize(kept);
}
