// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/namegenerator.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <cstdlib>
#include <iterator>

#include "country/fragments.h"
#include "quarn2/trace.h"

namespace {

constexpr std::size_t kRowCount = std::size(kFragments);
constexpr std::size_t kMaxAlternatives = 25;  // in a row
constexpr std::string_view kWordBreaks = kFragments[22];

/// A row of fragments, split at the separators.
struct Row {
    std::array<std::string_view, kMaxAlternatives> alternatives;
    std::uint32_t count;
};

constexpr std::array<Row, kRowCount> SplitRows() {
    std::array<Row, kRowCount> rows{};
    for (std::size_t i = 0; i < kRowCount; ++i) {
        rows[i].count = static_cast<std::uint32_t>(std::ranges::count(kFragments[i], '|')) + 1;
        for (std::uint32_t index = 0; index < rows[i].count; ++index)
            rows[i].alternatives[index] = NameGenerator::Alternative(kFragments[i], index);
    }
    return rows;
}

constexpr std::array<Row, kRowCount> kRows = SplitRows();
constexpr std::uint32_t kAllRows = (1U << kRowCount) - 1;

/// The fragment for one position: a roll for every row that it allows, then one more if there
/// are several rows.
std::string_view RollFragment(std::uint32_t mask) {
    std::array<std::string_view, kRowCount> candidates;
    std::uint32_t count = 0;
    for (std::uint32_t allowed = mask & kAllRows; allowed != 0; allowed &= allowed - 1) {
        const Row& row = kRows[static_cast<std::size_t>(std::countr_zero(allowed))];
        const auto roll = static_cast<std::uint32_t>(std::rand());
        candidates[count] = row.alternatives[roll % row.count];
        ++count;
    }
    if (count < 2)
        return count == 0 ? std::string_view() : candidates[0];
    const auto roll = static_cast<std::uint32_t>(std::rand());
    return candidates[roll % count];
}

void CapitaliseWords(std::string& name) {
    bool startsWord = true;
    for (char& letter : name) {
        if (startsWord)
            letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
        startsWord = kWordBreaks.find(letter) != std::string_view::npos;
    }
}

}  // namespace

NameGenerator::NameGenerator(const std::uint32_t* masks) : pattern(masks) {
    TraceFrame frame("NameGenerator", "NameGenerator");
}

std::string NameGenerator::Generate() const {
    TraceFrame frame("Generate", "NameGenerator");
    std::string name;
    for (const std::uint32_t* mask = pattern; *mask != 0; ++mask)
        name += RollFragment(*mask);
    CapitaliseWords(name);
    return name;
}
