// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>

#include "country/population.h"

/// The numbers that a reign begins with, and what the levels of the player's sliders mean. The
/// game and the simulation without a window begin alike because both take them from here.
namespace start {

inline constexpr char kDate[] = "1358/05/16 00:00:00";

// The player's country
inline constexpr char kName[] = "Merovinska";
inline constexpr int kPeople = 38685;

/// First levels of the professions' sliders. Farmers and butchers are a little above the 0.25 and
/// 0.5 that every country is made with.
inline constexpr std::array<float, kProfessions.size()> kShares{0.251f, 0.501f, 0.01f, 0.0f, 0.0f};
/// First level of one profession's slider.
constexpr float Share(Profession profession) {
    return kShares[static_cast<std::size_t>(profession)];
}
inline constexpr float kJustice = 0.5f;  ///< first level of the justice slider
inline constexpr float kRation = 0.5f;   ///< first level of both ration sliders

/// A ration slider in the middle gives the base ration, at its right end twice that.
constexpr float RationAt(float level, float baseRation) {
    return level * 2.0f * baseRation;
}

// The neighbours
inline constexpr std::size_t kNeighbours = 12;
inline constexpr float kMinNeighbourPeople = 20000.0f;
inline constexpr float kMaxNeighbourPeople = 70000.0f;
/// Indices of the neighbours that sell fine goods to the player.
inline constexpr std::array<std::size_t, 3> kSellersOfFineGoods{0, 2, 5};
/// Index of the neighbour that the player trades with.
inline constexpr std::size_t kPartner = 0;

}  // namespace start
