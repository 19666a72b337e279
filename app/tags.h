// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <string_view>

#include "country/population.h"

/// The names by which the game finds its widgets: what a layout of the game must define. Kept
/// in one place, so that the controls, the display and a layout agree.
namespace tag {

// Buttons
inline constexpr std::string_view kExit = "exitbut";
inline constexpr std::string_view kWeek = "update";
inline constexpr std::string_view kBuy = "buybut";
inline constexpr std::string_view kSell = "sellbut";
inline constexpr std::string_view kPreviousPage = "PrevPage";

// Sliders
inline constexpr std::string_view kJustice = "justiceslide";  // optional
inline constexpr std::string_view kLivestockRation = "lration";
inline constexpr std::string_view kGrainRation = "gration";
inline constexpr std::string_view kStockOrder = "stockbuy";
inline constexpr std::string_view kGrainOrder = "grainbuy";
inline constexpr std::string_view kFineOrder = "finebuy";

/// The slider of a profession and what hangs on it.
struct ProfessionTags {
    std::string_view slider;
    std::string_view less;  ///< button: one hundredth down
    std::string_view more;  ///< button: one hundredth up
    std::string_view plural;
    const char* labelFormat;
};
/// In the order of the professions.
inline constexpr std::array<ProfessionTags, 5> kProfessionTags{{
    {"farmers", "farmers--", "farmers++", "Farmers", "Farmers: %.0f%%"},
    {"butchers", "butchers--", "butchers++", "Butchers", "Butchers: %.0f%%"},
    {"educators", "educators--", "educators++", "Educators", "Educators: %.0f%%"},
    {"warriors", "warriors--", "warriors++", "Warriors", "Warriors: %.0f%%"},
    {"doctors", "doctors--", "doctors++", "Doctors", "Doctors: %.0f%%"},
}};
static_assert(kProfessionTags.size() == kProfessions.size());

/// The row of a profession.
constexpr const ProfessionTags& Of(Profession profession) {
    return kProfessionTags[static_cast<std::size_t>(profession)];
}

inline constexpr std::string_view kLivestockRationLess = "lration--";
inline constexpr std::string_view kLivestockRationMore = "lration++";
inline constexpr std::string_view kGrainRationLess = "gration--";
inline constexpr std::string_view kGrainRationMore = "gration++";

/// The drop-down list of trade partners.
inline constexpr std::string_view kPartner = "countrysel";

// Labels; a value's label is the value's name and "lab"
inline constexpr std::string_view kLivestockRationLabel = "lrationlab";  // optional
inline constexpr std::string_view kGrainRationLabel = "grationlab";      // optional
inline constexpr std::string_view kStore = "storelab";
inline constexpr std::string_view kPopulation = "popinfo";
inline constexpr std::string_view kContinent = "continentinfo";
inline constexpr std::string_view kFunds = "funds";
inline constexpr std::string_view kDate = "date";
inline constexpr std::string_view kPaper = "paperlab";
inline constexpr std::string_view kFigures = "debuginfo";  // optional
inline constexpr std::string_view kFrameRate = "fps";      // optional

/// The newspaper's window.
inline constexpr std::string_view kNewspaper = "newspaper";

/// What a widget does for the game, and so what it must be.
enum class Role { Button, Slider, List, Label, Window };

/// A widget that a layout of the game must have.
struct Widget {
    std::string_view tag;
    Role role;
    bool optional = false;  ///< the game does without it
};

/// All widgets of the game, for those who check a layout.
inline constexpr Widget kWidgets[] = {
    {kExit, Role::Button},
    {kWeek, Role::Button},
    {kBuy, Role::Button},
    {kSell, Role::Button},
    {kPreviousPage, Role::Button},
    {"farmers--", Role::Button},
    {"farmers++", Role::Button},
    {"butchers--", Role::Button},
    {"butchers++", Role::Button},
    {"educators--", Role::Button},
    {"educators++", Role::Button},
    {"warriors--", Role::Button},
    {"warriors++", Role::Button},
    {"doctors--", Role::Button},
    {"doctors++", Role::Button},
    {kLivestockRationLess, Role::Button},
    {kLivestockRationMore, Role::Button},
    {kGrainRationLess, Role::Button},
    {kGrainRationMore, Role::Button},
    {kJustice, Role::Slider, true},
    {kLivestockRation, Role::Slider},
    {kGrainRation, Role::Slider},
    {kStockOrder, Role::Slider},
    {kGrainOrder, Role::Slider},
    {kFineOrder, Role::Slider},
    {"farmers", Role::Slider},
    {"butchers", Role::Slider},
    {"educators", Role::Slider},
    {"warriors", Role::Slider},
    {"doctors", Role::Slider},
    {kPartner, Role::List},
    {"farmerslab", Role::Label},
    {"butcherslab", Role::Label},
    {"educatorslab", Role::Label},
    {"warriorslab", Role::Label},
    {"doctorslab", Role::Label},
    {kLivestockRationLabel, Role::Label, true},
    {kGrainRationLabel, Role::Label, true},
    {"stockbuylab", Role::Label},
    {"grainbuylab", Role::Label},
    {"finebuylab", Role::Label},
    {kStore, Role::Label},
    {kPopulation, Role::Label},
    {kContinent, Role::Label},
    {kFunds, Role::Label},
    {kDate, Role::Label},
    {kPaper, Role::Label},
    {kFigures, Role::Label, true},
    {kFrameRate, Role::Label, true},
    {kNewspaper, Role::Window},
};

}  // namespace tag
