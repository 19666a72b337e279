// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/chronicle.h"

#include <array>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <string_view>

#include "country/country.h"
#include "country/rates.h"
#include "quarn2/trace.h"

namespace {

struct Row {
    Chronicle::Event event;
    bool alarm;
    /// Each {word} stands for the next number and that word, in the singular for 1. An empty
    /// sentence is what the people say in the food state of the event.
    std::string_view sentence;
};

constexpr std::array<Row, Chronicle::kEventCount> kRows{{
    {Chronicle::Event::LivestockBought, false,
     "The country bought {heads} of livestock for {doubloons}."},
    {Chronicle::Event::LivestockSold, false,
     "The country sold {heads} of livestock for {doubloons}."},
    {Chronicle::Event::GrainBought, false, "The country bought {units} of grain for {doubloons}."},
    {Chronicle::Event::GrainSold, false, "The country sold {units} of grain for {doubloons}."},
    {Chronicle::Event::DebtBegun, true, "The treasury has a debt of {doubloons}."},
    {Chronicle::Event::DebtEnded, false, "The debt is paid. The treasury has {doubloons}."},
    {Chronicle::Event::GraceEnded, false,
     "The year of grace is over. Famine, plague and rebellion can begin."},
    {Chronicle::Event::StarvingFast, true, ""},
    {Chronicle::Event::StarvingSlowly, true, ""},
    {Chronicle::Event::Hungry, true, ""},
    {Chronicle::Event::Content, false, "The people have enough to eat."},
    {Chronicle::Event::WellFed, false, ""},
    {Chronicle::Event::Gorging, false, ""},
    {Chronicle::Event::HerdSlaughtered, true,
     "The butchers took more than a third of the herd. All {heads} were slaughtered."},
    {Chronicle::Event::HerdLimited, true,
     "The butchers wanted more than a third of the herd. Now they raise {heads} a week."},
    {Chronicle::Event::HerdShrinking, true,
     "The butchers wanted more than a third of the herd. Now they slaughter {heads} a week."},
    {Chronicle::Event::HerdEmpty, true, "The herd is gone."},
    {Chronicle::Event::HerdFilled, false, "The herd has {heads} again."},
    {Chronicle::Event::GranaryEmpty, true, "The granary is empty."},
    {Chronicle::Event::GranaryFilled, false, "The granary has {units} again."},
    {Chronicle::Event::RebellionBegun, true,
     "The people rebel. Farmers and butchers stop working."},
    {Chronicle::Event::RebellionEnded, false,
     "The rebellion is over. It lasted {weeks}. Famine and plague killed {people} in it."},
    {Chronicle::Event::PlagueEnded, false,
     "The plague is over. It lasted {weeks} and killed {people}."},
    {Chronicle::Event::PlagueBegun, true,
     "A plague begins. If a fifth of the people are doctors, it will last {weeks}."},
    {Chronicle::Event::PlagueRenewed, true,
     "The plague begins again. If a fifth of the people are doctors, it will last {weeks}."},
    {Chronicle::Event::FamineEnded, false,
     "The famine is over. It lasted {weeks} and killed {people}."},
    {Chronicle::Event::FamineBegun, true, "A famine begins. It will last {weeks}."},
    {Chronicle::Event::FamineRenewed, true, "The famine goes on. It will last {weeks} more."},
    {Chronicle::Event::NobodyLeft, true, "Nobody is left in the country."},
}};

constexpr bool RowsAreInOrder() {
    for (std::size_t i = 0; i < kRows.size(); ++i) {
        if (kRows[i].event != static_cast<Chronicle::Event>(i))
            return false;
    }
    return true;
}
static_assert(RowsAreInOrder());
static_assert(kRows.back().event == Chronicle::Event::NobodyLeft);

const Row& RowOf(Chronicle::Event event) {
    return kRows[static_cast<std::size_t>(event)];
}

/// The event of a food state, and the other way round: both are in the same order.
constexpr auto kFirstFood = static_cast<int>(Chronicle::Event::StarvingFast);
static_assert(static_cast<int>(Chronicle::Event::Gorging) - kFirstFood
              == static_cast<int>(FoodState::Gorging));

Chronicle::Event EventOf(FoodState state) {
    return static_cast<Chronicle::Event>(kFirstFood + static_cast<int>(state));
}

FoodState StateOf(Chronicle::Event event) {
    return static_cast<FoodState>(static_cast<int>(event) - kFirstFood);
}

/// What the people say, with a capital letter.
void WriteMessage(std::string& text, FoodState state) {
    const std::size_t begin = text.size();
    text += MessageOf(state);
    text[begin] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[begin])));
}

/// "1 week", "2.5 weeks", "1 person", "34 people".
void WriteNumber(std::string& text, double number, std::string_view word) {
    std::array<char, 330> digits;  // the longest double has 309 digits before the point
    const bool tenths = word == "weeks" || (word != "people" && std::fabs(number) < 10.0);
    const double unit = tenths ? 10.0 : 1.0;
    const double rounded = std::round(number * unit) / unit + 0.0;  // adding 0 turns -0 into 0
    const bool whole = rounded == std::round(rounded);
    const int length =
        std::snprintf(digits.data(), digits.size(), whole ? "%.0f " : "%.1f ", rounded);
    text.append(digits.data(), static_cast<std::size_t>(length));
    if (rounded != 1.0)
        text += word;
    else if (word == "people")
        text += "person";
    else
        text += word.substr(0, word.size() - 1);
}

double Weeks(std::int64_t seconds) {
    return static_cast<double>(seconds) / static_cast<double>(kSecondsPerWeek);
}

double Weeks(float seconds) {
    return static_cast<double>(seconds / kSecondsPerWeek);
}

bool IsUsedUp(const FoodStock& stock) {
    return !(stock.amount > 0.0f);
}

/// At least one unit, so that a trace of food is no news.
bool IsFilled(const FoodStock& stock) {
    return stock.amount >= 1.0f;
}

bool HasPeople(const Country& country) {
    return country.population > 0.0f;
}

double Dead(const Country& country) {
    return country.disasters.deadOfFamine + country.disasters.deadOfPlague;
}

}  // namespace

bool Chronicle::Entry::IsAlarm() const {
    return RowOf(event).alarm;
}

void Chronicle::Entry::WriteTo(std::string& text) const {
    TraceFrame frame("WriteTo", "Chronicle");
    std::string_view rest = RowOf(event).sentence;
    if (rest.empty())
        return WriteMessage(text, StateOf(event));
    for (const double number : numbers) {
        const std::size_t begin = rest.find('{');
        if (begin == std::string_view::npos)
            break;
        const std::size_t end = rest.find('}');
        text += rest.substr(0, begin);
        WriteNumber(text, number, rest.substr(begin + 1, end - begin - 1));
        rest.remove_prefix(end + 1);
    }
    text += rest;
}

Chronicle::Chronicle(const Country& country)
    : fundsSeen(country.funds),
      foodSeen(country.foodState),
      inGrace(!country.GraceIsOver()),
      herdSeen(!IsUsedUp(country.livestock)),
      granarySeen(!IsUsedUp(country.grain)),
      faminesSeen(country.disasters.famines),
      plaguesSeen(country.disasters.plagues),
      nobodySeen(!HasPeople(country)),
      herdBefore(country.livestock.amount),
      productionBefore(country.livestock.production) {
    TraceFrame frame("Chronicle", "Chronicle");
    if (country.InFamine())
        Begin(famine, country.disasters.deadOfFamine);
    if (country.InPlague())
        Begin(plague, country.disasters.deadOfPlague);
    if (country.rebellion)
        Begin(rebellion, Dead(country));
}

void Chronicle::NoteBefore(const Country& country, const Date& date) {
    TraceFrame frame("NoteBefore", "Chronicle");
    herdBefore = country.livestock.amount;
    productionBefore = country.livestock.production;
    if (nobodySeen)
        return;
    NoteTrades(country, date);
    NoteDebt(country, date);
}

void Chronicle::NoteAfter(const Country& country, const Date& date, long seconds) {
    TraceFrame frame("NoteAfter", "Chronicle");
    now += seconds;
    if (nobodySeen)
        return;
    NoteDebt(country, date);
    if (inGrace && country.GraceIsOver()) {
        inGrace = false;
        Note(Event::GraceEnded, date);
    }
    if (HasPeople(country)) {
        NoteFood(country, date);
        NoteHerd(country, date, static_cast<float>(seconds));
        NoteGranary(country, date);
    }
    NoteDisasters(country, date);
    NoteNobodyLeft(country, date);
    FindLasting();
}

void Chronicle::NoteTrades(const Country& country, const Date& date) {
    TraceFrame frame("NoteTrades", "Chronicle");
    const auto note = [&](Event event, const Deal& deal) {
        if (deal.goods > 0.0)
            Note(event, date, deal.goods, deal.doubloons);
    };
    note(Event::LivestockSold, country.trades.livestockSold);
    note(Event::GrainSold, country.trades.grainSold);
    note(Event::LivestockBought, country.trades.livestockBought);
    note(Event::GrainBought, country.trades.grainBought);
}

void Chronicle::NoteDebt(const Country& country, const Date& date) {
    TraceFrame frame("NoteDebt", "Chronicle");
    const double funds = static_cast<double>(country.funds);
    if (country.funds < 0.0f && !(fundsSeen < 0.0f))
        Note(Event::DebtBegun, date, -funds);
    if (fundsSeen < 0.0f && !(country.funds < 0.0f))
        Note(Event::DebtEnded, date, funds);
    fundsSeen = country.funds;
}

void Chronicle::NoteFood(const Country& country, const Date& date) {
    TraceFrame frame("NoteFood", "Chronicle");
    if (country.foodState != foodSeen)
        Note(EventOf(country.foodState), date);
    foodSeen = country.foodState;
}

void Chronicle::NoteHerd(const Country& country, const Date& date, float seconds) {
    TraceFrame frame("NoteHerd", "Chronicle");
    const float production = country.livestock.production;
    // A tick lowers the production only if the butchers want more than the herd can grow by.
    const bool lowered = production < productionBefore && herdBefore >= 1.0f;
    if (lowered && herdBefore + production * seconds <= 0.0f) {
        Note(Event::HerdSlaughtered, date, static_cast<double>(herdBefore));
        herdSeen = false;
    } else if (lowered) {
        const Event event = production < 0.0f ? Event::HerdShrinking : Event::HerdLimited;
        Note(event, date, std::fabs(static_cast<double>(production * kSecondsPerWeek)));
    }
    if (herdSeen && IsUsedUp(country.livestock)) {
        herdSeen = false;
        Note(Event::HerdEmpty, date);
    } else if (!herdSeen && IsFilled(country.livestock)) {
        herdSeen = true;
        Note(Event::HerdFilled, date, static_cast<double>(country.livestock.amount));
    }
}

void Chronicle::NoteGranary(const Country& country, const Date& date) {
    TraceFrame frame("NoteGranary", "Chronicle");
    if (granarySeen && IsUsedUp(country.grain)) {
        granarySeen = false;
        Note(Event::GranaryEmpty, date);
    } else if (!granarySeen && IsFilled(country.grain)) {
        granarySeen = true;
        Note(Event::GranaryFilled, date, static_cast<double>(country.grain.amount));
    }
}

void Chronicle::NoteDisasters(const Country& country, const Date& date) {
    TraceFrame frame("NoteDisasters", "Chronicle");
    const DisasterCount& counted = country.disasters;
    if (country.rebellion && !rebellion) {
        Begin(rebellion, Dead(country));
        Note(Event::RebellionBegun, date);
    } else if (!country.rebellion && rebellion) {
        NoteEnd(rebellion, Event::RebellionEnded, date, Dead(country));
    }

    if (plague && !country.InPlague())
        NoteEnd(plague, Event::PlagueEnded, date, counted.deadOfPlague);
    if (counted.plagues != plaguesSeen) {
        Note(plague ? Event::PlagueRenewed : Event::PlagueBegun, date, Weeks(country.plagueTime));
        if (!plague)
            Begin(plague, counted.deadOfPlague);
    }
    plaguesSeen = counted.plagues;

    if (famine && !country.InFamine())
        NoteEnd(famine, Event::FamineEnded, date, counted.deadOfFamine);
    if (counted.famines != faminesSeen) {
        Note(famine ? Event::FamineRenewed : Event::FamineBegun, date, Weeks(country.famineTime));
        if (!famine)
            Begin(famine, counted.deadOfFamine);
    }
    faminesSeen = counted.famines;
}

void Chronicle::NoteNobodyLeft(const Country& country, const Date& date) {
    TraceFrame frame("NoteNobodyLeft", "Chronicle");
    if (HasPeople(country))
        return;
    NoteEnd(rebellion, Event::RebellionEnded, date, Dead(country));
    NoteEnd(plague, Event::PlagueEnded, date, country.disasters.deadOfPlague);
    NoteEnd(famine, Event::FamineEnded, date, country.disasters.deadOfFamine);
    Note(Event::NobodyLeft, date);
    nobodySeen = true;
}

void Chronicle::Begin(std::optional<Disaster>& disaster, double dead) const {
    disaster = Disaster{now, dead};
}

void Chronicle::NoteEnd(std::optional<Disaster>& disaster, Event event, const Date& date,
                        double dead) {
    TraceFrame frame("NoteEnd", "Chronicle");
    if (disaster)
        Note(event, date, Weeks(now - disaster->begin), dead - disaster->deadBefore);
    disaster.reset();
}

void Chronicle::Note(Event event, const Date& date, double first, double second) {
    TraceFrame frame("Note", "Chronicle");
    const Entry entry{event, date, now, {first, second}};
    if (entries.size() < kMaxEntries)
        entries.push_back(entry);
    else
        entries[count % kMaxEntries] = entry;
    ++count;
}

const Chronicle::Entry& Chronicle::Newest(std::size_t index) const {
    TraceFrame frame("Newest", "Chronicle");
    Assert("chronicle", __LINE__, "index < Size()", index < Size());
    return entries[(count - 1 - index) % kMaxEntries];
}

const Chronicle::Entry* Chronicle::News() const {
    TraceFrame frame("News", "Chronicle");
    if (entries.empty())
        return nullptr;
    if (nobodySeen || !IsOld(Newest(0)))
        return &Newest(0);
    return lasting ? &*lasting : nullptr;
}

bool Chronicle::Lasts(const Entry& entry) const {
    switch (entry.event) {
    case Event::DebtBegun:
        return fundsSeen < 0.0f;
    case Event::StarvingFast:
    case Event::StarvingSlowly:
    case Event::Hungry:
        return entry.event == EventOf(foodSeen);
    case Event::HerdEmpty:
    case Event::HerdSlaughtered:
        return !herdSeen;
    case Event::GranaryEmpty:
        return !granarySeen;
    case Event::RebellionBegun:
        return rebellion.has_value();
    case Event::PlagueBegun:
    case Event::PlagueRenewed:
        return plague.has_value();
    case Event::FamineBegun:
    case Event::FamineRenewed:
        return famine.has_value();
    default:
        return false;
    }
}

void Chronicle::FindLasting() {
    TraceFrame frame("FindLasting", "Chronicle");
    // A trouble lasts until another entry says that it has ended, so one search is enough.
    const bool wanted = !entries.empty() && IsOld(Newest(0));
    if (!wanted)
        lasting.reset();
    for (std::size_t index = 0; wanted && !lastingKnown && !lasting && index < Size(); ++index) {
        if (Lasts(Newest(index)))
            lasting = Newest(index);
    }
    lastingKnown = wanted;
}
