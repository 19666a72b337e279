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

}  // namespace tag
