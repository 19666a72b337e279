// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "country/date.h"
#include "country/population.h"

class Country;

/// What happened to a country, and when: one entry per event, the last thousand of them.
///
/// It compares the country before and after each advance. It rolls nothing, changes nothing in the
/// country, and allocates memory only for an entry.
class Chronicle {
public:
    enum class Event {
        LivestockBought,
        LivestockSold,
        GrainBought,
        GrainSold,
        DebtBegun,
        DebtEnded,
        GraceEnded,
        StarvingFast,
        StarvingSlowly,
        Hungry,
        Content,
        WellFed,
        Gorging,
        HerdSlaughtered,
        HerdLimited,
        HerdShrinking,
        HerdEmpty,
        HerdFilled,
        GranaryEmpty,
        GranaryFilled,
        RebellionBegun,
        RebellionEnded,
        PlagueEnded,
        PlagueBegun,
        PlagueRenewed,
        FamineEnded,
        FamineBegun,
        FamineRenewed,
        NobodyLeft,
    };
    static constexpr std::size_t kEventCount = 29;

    /// What happened, on which day, and the numbers of it.
    struct Entry {
        Event event;
        Date date;
        std::int64_t second;  ///< game seconds since the chronicle began
        /// The numbers in the sentence of the entry, in the order of the sentence, not rounded.
        std::array<double, 2> numbers;

        /// Whether the event is bad for the country.
        bool IsAlarm() const;
        /// Appends the sentence. Weeks and numbers below 10 are rounded to tenths, other numbers
        /// and all numbers of people to whole ones.
        void WriteTo(std::string& text) const;
    };

    static constexpr std::size_t kMaxEntries = 1000;
    /// An entry is news for eight weeks, unless a newer one takes its place.
    static constexpr std::int64_t kNewsSeconds = std::int64_t{8} * 604800;

    /// @param country  the one to write about, as it is at the beginning
    explicit Chronicle(const Country& country);

    /// Notes what the player did since the last advance. Call it before the country's tick.
    /// @param date  before the advance
    void NoteBefore(const Country& country, const Date& date);

    /// Notes what the tick did. Nothing more is noted once nobody is left.
    /// @param date     after the advance
    /// @param seconds  of the advance
    void NoteAfter(const Country& country, const Date& date, long seconds);

    /// At most kMaxEntries.
    std::size_t Size() const { return entries.size(); }
    /// @param index  0 for the newest entry; less than Size()
    const Entry& Newest(std::size_t index) const;
    /// The number of all entries so far, also of those that are no longer kept. Every new entry
    /// changes it.
    std::uint64_t Count() const { return count; }
    /// The newest entry if it is at most eight weeks old, or if it says that nobody is left. Else
    /// the newest one that tells of a trouble which still lasts; null without one. Valid until the
    /// next advance or trade.
    const Entry* News() const;

private:
    /// A famine, a plague or a rebellion in progress.
    struct Disaster {
        std::int64_t begin;  ///< second of the chronicle
        double deadBefore;   ///< the country's count when it began
    };

    void Note(Event event, const Date& date, double first = 0.0, double second = 0.0);
    void NoteTrades(const Country& country, const Date& date);
    void NoteDebt(const Country& country, const Date& date);
    void NoteFood(const Country& country, const Date& date);
    void NoteHerd(const Country& country, const Date& date, float seconds);
    void NoteGranary(const Country& country, const Date& date);
    void NoteDisasters(const Country& country, const Date& date);
    void NoteNobodyLeft(const Country& country, const Date& date);
    bool IsOld(const Entry& entry) const { return now - entry.second > kNewsSeconds; }
    bool Lasts(const Entry& entry) const;
    void FindLasting();
    void Begin(std::optional<Disaster>& disaster, double dead) const;
    void NoteEnd(std::optional<Disaster>& disaster, Event event, const Date& date, double dead);

    std::vector<Entry> entries;  // a ring once it is full
    std::uint64_t count = 0;
    std::int64_t now = 0;  // second

    // The country as it was last seen.
    float fundsSeen;
    FoodState foodSeen;
    bool inGrace;
    bool herdSeen;
    bool granarySeen;
    int faminesSeen;
    int plaguesSeen;
    bool nobodySeen;
    // The country before the advance.
    float herdBefore;
    float productionBefore;

    std::optional<Disaster> famine;
    std::optional<Disaster> plague;
    std::optional<Disaster> rebellion;
    std::optional<Entry> lasting;  // the newest trouble that still lasts, once no entry is news
    bool lastingKnown = false;
};
