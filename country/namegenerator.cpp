#include "country/namegenerator.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>
#include <iterator>

#include "country/fragments.h"
#include "quarn2/trace.h"

namespace {

constexpr std::size_t kRowCount = std::size(kFragments);
constexpr std::string_view kWordBreaks = kFragments[22];

constexpr std::array<std::uint32_t, kRowCount> CountAlternatives() {
    std::array<std::uint32_t, kRowCount> counts{};
    for (std::size_t row = 0; row < kRowCount; ++row)
        counts[row] = static_cast<std::uint32_t>(std::ranges::count(kFragments[row], '|')) + 1;
    return counts;
}

constexpr std::array<std::uint32_t, kRowCount> kAlternatives = CountAlternatives();

/// Alternative `index` of row `row`.
struct Candidate {
    std::size_t row;
    std::uint32_t index;
};

void CapitaliseWords(std::string& name) {
    bool startsWord = true;
    for (char& letter : name) {
        if (startsWord)
            letter = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
        startsWord = kWordBreaks.find(letter) != std::string_view::npos;
    }
}

}  // namespace

std::string NameGenerator::Generate() const {
    TraceFrame frame("Generate", "NameGenerator");
    std::string name;
    for (const std::uint32_t* mask = pattern; *mask != 0; ++mask) {
        std::array<Candidate, kRowCount> candidates;
        std::size_t count = 0;
        for (std::size_t row = 0; row < kRowCount; ++row) {
            if ((*mask >> row & 1U) == 0)
                continue;
            const auto draw = static_cast<std::uint32_t>(std::rand());
            candidates[count++] = {row, draw % kAlternatives[row]};
        }
        std::size_t pick = 0;
        if (count > 1)
            pick = static_cast<std::size_t>(std::rand()) % count;
        if (count > 0) {
            const Candidate& chosen = candidates[pick];
            name += Alternative(kFragments[chosen.row], chosen.index);
        }
    }
    CapitaliseWords(name);
    return name;
}

std::string_view NameGenerator::Alternative(std::string_view text, std::uint32_t index) {
    TraceFrame frame("Alternative", "NameGenerator");
    std::size_t begin = 0;
    std::size_t end = text.find('|');
    for (; index > 0 && end != std::string_view::npos; --index) {
        begin = end + 1;
        end = text.find('|', begin);
    }
    return text.substr(begin, end - begin);
}
