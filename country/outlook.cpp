// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/outlook.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>

#include "country/population.h"
#include "country/rates.h"
#include "quarn2/trace.h"

namespace {

constexpr float kSteadyPart = 0.001f;

/// Person-weeks eaten in the week, by the rolls of the disasters in progress.
float EatenInAWeek(const Population& people, double roll) {
    float count = people.population;
    if (people.InPlague())
        count = static_cast<float>(count - OverTick(people.DeadOfPlague(roll), kSecondsPerWeek));
    if (people.InFamine())
        count =
            static_cast<float>(count - OverTick(Population::DeadOfFamine(roll), kSecondsPerWeek));
    count += OverTick(people.Births(count), kSecondsPerWeek);
    // A famine that ends in the week is over when the people eat.
    const bool famine = people.famineTime > kSecondsPerWeek;
    return Population::Eaten(OverTick(count, kSecondsPerWeek), famine);
}

/// The store after the week.
template <typename Store>
float AmountAfter(Store store, bool rebellion, float eaten) {
    if (!rebellion)
        store.Process(kSecondsPerWeek);
    store.Consume(eaten);
    return store.amount;
}

Outlook::Trend TrendOf(const Outlook& outlook) {
    if (!(outlook.amount > 0.0f))
        return outlook.lowest > 0.0f ? Outlook::Trend::Grows : Outlook::Trend::Empty;
    if (!(outlook.highest > 0.0f))
        return Outlook::Trend::RunsOut;
    const float little = outlook.amount * kSteadyPart;
    if (outlook.lowest >= outlook.amount - little && outlook.highest <= outlook.amount + little)
        return Outlook::Trend::Steady;
    if (outlook.lowest > outlook.amount)
        return Outlook::Trend::Grows;
    return outlook.highest < outlook.amount ? Outlook::Trend::Lasts : Outlook::Trend::Uncertain;
}

template <typename Store>
Outlook LookAt(const Store& store, const Population& people) {
    const float one = AmountAfter(store, people.rebellion, EatenInAWeek(people, 0.0));
    const float other = AmountAfter(store, people.rebellion, EatenInAWeek(people, 1.0));
    Outlook outlook{store.amount, std::min(one, other), std::max(one, other),
                    Outlook::Trend::Steady};
    outlook.trend = TrendOf(outlook);
    if (outlook.trend == Outlook::Trend::Lasts)
        outlook.weeks = outlook.amount / (outlook.amount - outlook.lowest);
    return outlook;
}

HerdOutlook::Butchers ButchersOf(const Population& people, const Outlook& outlook) {
    const Livestock& herd = people.livestock;
    if (people.rebellion || !(people.Count(Profession::Butchers) > 0.0f))
        return HerdOutlook::Butchers::None;
    if (!(herd.production > 0.0f))
        return HerdOutlook::Butchers::Idle;
    if (!herd.OutgrowsHerd(herd.production, kSecondsPerWeek))
        return HerdOutlook::Butchers::Raise;
    Livestock next = herd;
    next.Process(kSecondsPerWeek);
    if (!(next.production < herd.production))
        return HerdOutlook::Butchers::None;  // infinite: no step of the rule lowers it
    return outlook.highest > 0.0f ? HerdOutlook::Butchers::TakeMore
                                  : HerdOutlook::Butchers::TakeAll;
}

template <typename... Values>
void Append(std::string& text, const char* format, Values... values) {
    std::array<char, 160> buffer;
    const int length = std::snprintf(buffer.data(), buffer.size(), format, values...);
    text.append(buffer.data(), std::min(static_cast<std::size_t>(length), buffer.size() - 1));
}

}  // namespace

void Outlook::WriteTo(std::string& text) const {
    TraceFrame frame("WriteTo", "Outlook");
    switch (trend) {
    case Trend::Empty:
        text += "is empty";
        break;
    case Trend::RunsOut:
        text += "lasts less than a week";
        break;
    case Trend::Lasts:
        Append(text, weeks < 2.0f ? "lasts %.0f week" : "lasts %.0f weeks",
               static_cast<double>(std::floor(weeks)));
        break;
    case Trend::Steady:
        text += "hardly changes";
        break;
    case Trend::Uncertain:
        text += "may grow or shrink";
        break;
    case Trend::Grows:
        text += "grows";
        break;
    }
}

void HerdOutlook::WriteTo(std::string& text) const {
    TraceFrame frame("WriteTo", "HerdOutlook");
    const double percent = static_cast<double>(part) * 100.0;
    const double limitPercent = static_cast<double>(limit) * 100.0;
    if (trend == Trend::Empty)
        return Outlook::WriteTo(text);
    if (butchers == Butchers::TakeAll) {
        // Rounded up, so that it is never shown as the limit.
        return Append(text, "is lost if you press Week: butchers take %.1f%%, the limit is %.1f%%",
                      std::ceil(percent * 10.0) / 10.0, limitPercent);
    }
    Outlook::WriteTo(text);
    if (butchers == Butchers::Raise) {
        Append(text, ", butchers take %.1f%%, above %.1f%% it is lost",
               std::floor(percent * 10.0) / 10.0, limitPercent);
    } else if (butchers == Butchers::TakeMore) {
        Append(text, ", butchers take more than %.1f%%", limitPercent);
    } else if (butchers == Butchers::Idle) {
        text += ", butchers idle: move their slider";
    }
}

Outlook GrainOutlook(const Population& people) {
    TraceFrame frame("GrainOutlook", "Outlook");
    return LookAt(people.grain, people);
}

HerdOutlook LivestockOutlook(const Population& people) {
    TraceFrame frame("LivestockOutlook", "Outlook");
    const Livestock& herd = people.livestock;
    const Outlook outlook = LookAt(herd, people);
    return {outlook, ButchersOf(people, outlook), herd.production * kSecondsPerWeek / herd.amount,
            1.0f / herd.growthLimit - 1.0f};
}
