// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace guiview {

/// How many letters must be added, removed, replaced or swapped with the next one to turn one word
/// into the other. Upper and lower case are the same.
std::size_t EditDistance(std::string_view from, std::string_view to);

/// The known words that are most similar to a misspelt one: at most one letter in three is wrong.
/// @return those with the fewest wrong letters, in their order; none if no word is similar
std::vector<std::string> MostSimilar(std::string_view word, const std::vector<std::string>& known);

/// The first of MostSimilar.
std::optional<std::string> Similar(std::string_view word, const std::vector<std::string>& known);

/// The end of a report that a word is unknown; empty without a suggestion.
std::string DidYouMean(const std::optional<std::string>& suggestion);

}  // namespace guiview
