// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/suggestion.h"

#include <algorithm>
#include <cctype>

#include "tools/guiview/finding.h"

namespace guiview {

namespace {

constexpr std::size_t kLettersPerMistake = 3;

bool SameLetter(char a, char b) {
    return std::tolower(static_cast<unsigned char>(a))
           == std::tolower(static_cast<unsigned char>(b));
}

}  // namespace

std::size_t EditDistance(std::string_view from, std::string_view to) {
    // Each row has the distances from the first letters of `from` to all beginnings of `to`.
    std::vector<std::size_t> twoBefore;
    std::vector<std::size_t> before;
    std::vector<std::size_t> row(to.size() + 1);
    for (std::size_t j = 0; j < row.size(); ++j)
        row[j] = j;
    for (std::size_t i = 1; i <= from.size(); ++i) {
        twoBefore = std::move(before);
        before = row;
        row[0] = i;
        for (std::size_t j = 1; j <= to.size(); ++j) {
            const std::size_t replaced =
                before[j - 1] + (SameLetter(from[i - 1], to[j - 1]) ? 0 : 1);
            row[j] = std::min({replaced, before[j] + 1, row[j - 1] + 1});
            if (i > 1 && j > 1 && SameLetter(from[i - 1], to[j - 2])
                && SameLetter(from[i - 2], to[j - 1]))
                row[j] = std::min(row[j], twoBefore[j - 2] + 1);
        }
    }
    return row.back();
}

std::vector<std::string> MostSimilar(std::string_view word, const std::vector<std::string>& known) {
    std::size_t least = word.size() / kLettersPerMistake;
    std::vector<std::string> similar;
    for (const std::string& candidate : known) {
        const std::size_t distance = EditDistance(word, candidate);
        if (distance > least)
            continue;
        if (distance < least)
            similar.clear();
        least = distance;
        similar.push_back(candidate);
    }
    return similar;
}

std::optional<std::string> Similar(std::string_view word, const std::vector<std::string>& known) {
    const std::vector<std::string> similar = MostSimilar(word, known);
    return similar.empty() ? std::nullopt : std::optional(similar.front());
}

std::string DidYouMean(const std::optional<std::string>& suggestion) {
    return suggestion ? "; did you mean " + Quoted(*suggestion) + "?" : std::string();
}

}  // namespace guiview
