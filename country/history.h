// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

class Country;

/// A country's figures at the end of each week, as arrays for charts.
///
/// Every week is kept for ten years. Older weeks are thinned evenly, so that the memory is bounded
/// and the oldest weeks of a long reign are still there.
class History {
public:
    enum class Figure {
        Population,
        Idle,
        Grain,
        GrainNeed,   ///< units that the people eat in a week
        GrainWeeks,  ///< the store in weeks of need
        Livestock,
        LivestockNeed,   ///< heads that the people eat in a week
        LivestockWeeks,  ///< the herd in weeks of need
        LivestockLimit,  ///< the herd, in weeks of need, below which a week loses it
        Funds,
        Morale,
        Crime,
        Justice,
    };
    static constexpr std::size_t kFigureCount = 13;

    // What a sample is marked with: bits
    static constexpr std::uint8_t kFamine = 1;
    static constexpr std::uint8_t kPlague = 2;
    static constexpr std::uint8_t kRebellion = 4;

    static constexpr std::size_t kMaxSamples = 1040;
    static constexpr std::int64_t kRecentWeeks = 520;  ///< kept, every one

    /// Adds a sample if a week is over. Call it after each advance. An advance of several weeks
    /// adds one sample, for the last of them.
    void Add(const Country& country, long seconds);

    /// Of all arrays.
    std::size_t Size() const { return weeks.size(); }
    /// The number of each sample's week, the first week being 1. Always rising.
    std::span<const float> Weeks() const { return weeks; }
    /// A value per sample. A need of nothing makes the weeks of need infinite.
    std::span<const float> Of(Figure figure) const {
        return figures[static_cast<std::size_t>(figure)];
    }
    /// Disasters per sample: those that were in progress at any time since the sample before it.
    std::span<const std::uint8_t> Marks() const { return marks; }
    /// Whole weeks so far. It changes whenever a sample is added.
    std::int64_t WeeksPassed() const { return passed; }

private:
    void Append(const Country& country);
    void Reserve();
    void Thin();
    void KeepEvery(std::int64_t stride);

    std::vector<float> weeks;
    std::array<std::vector<float>, kFigureCount> figures;
    std::vector<std::uint8_t> marks;
    std::int64_t passed = 0;
    long sinceWeek = 0;           // seconds
    std::uint8_t marksNow = 0;    // at the end of the last advance
    std::uint8_t marksSince = 0;  // at any time since the last sample
    std::int64_t oldStride = 1;   // weeks between two samples that are not recent
};
