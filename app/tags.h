// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>

#include "country/population.h"

/// The tags by which the game finds its widgets in a layout. Controls, display and the checks of a
/// layout take them from here.
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

/// The widgets and texts of a profession.
struct ProfessionTags {
    std::string_view slider;
    std::string_view less;  ///< button: one hundredth down
    std::string_view more;  ///< button: one hundredth up
    std::string_view label;
    std::string_view plural;
    const char* labelFormat;
};
/// In the order of the professions.
inline constexpr std::array<ProfessionTags, 5> kProfessionTags{{
    {"farmers", "farmers--", "farmers++", "farmerslab", "Farmers", "Farmers: %.0f%%"},
    {"butchers", "butchers--", "butchers++", "butcherslab", "Butchers", "Butchers: %.0f%%"},
    {"educators", "educators--", "educators++", "educatorslab", "Educators", "Educators: %.0f%%"},
    {"warriors", "warriors--", "warriors++", "warriorslab", "Warriors", "Warriors: %.0f%%"},
    {"doctors", "doctors--", "doctors++", "doctorslab", "Doctors", "Doctors: %.0f%%"},
}};
static_assert(kProfessionTags.size() == kProfessions.size());

/// The tag of a value's label is the tag of its slider and this.
inline constexpr std::string_view kLabelSuffix = "lab";
static_assert(std::ranges::all_of(kProfessionTags, [](const ProfessionTags& tags) {
    return tags.label.starts_with(tags.slider) && tags.label.ends_with(kLabelSuffix)
           && tags.label.size() == tags.slider.size() + kLabelSuffix.size();
}));

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

// Labels
inline constexpr std::string_view kLivestockRationLabel = "lrationlab";  // optional
inline constexpr std::string_view kGrainRationLabel = "grationlab";      // optional
inline constexpr std::string_view kStockOrderLabel = "stockbuylab";
inline constexpr std::string_view kGrainOrderLabel = "grainbuylab";
inline constexpr std::string_view kFineOrderLabel = "finebuylab";
inline constexpr std::string_view kStore = "storelab";
inline constexpr std::string_view kPopulation = "popinfo";
inline constexpr std::string_view kContinent = "continentinfo";
inline constexpr std::string_view kFunds = "funds";
inline constexpr std::string_view kDate = "date";
inline constexpr std::string_view kPaper = "paperlab";
inline constexpr std::string_view kFigures = "debuginfo";  // optional
inline constexpr std::string_view kFrameRate = "fps";      // optional

// Labels of what happened and what will happen, all optional
inline constexpr std::string_view kNews = "news";
inline constexpr std::string_view kChronicle = "chronicle";
/// The newest entries of the chronicle, in the room that the newspaper's story leaves.
inline constexpr std::string_view kPaperNews = "papernews";
inline constexpr std::string_view kLivestockOutlook = "livestockoutlook";
inline constexpr std::string_view kGrainOutlook = "grainoutlook";
inline constexpr std::string_view kJusticeLabel = "justiceslidelab";
inline constexpr std::string_view kCrime = "crimelab";
inline constexpr std::string_view kMorale = "moralelab";
inline constexpr std::string_view kTotal = "totallab";

// Pictures, of which one is shown: whether the news is bad. Optional
inline constexpr std::string_view kAlarmPicture = "newsalarm";
inline constexpr std::string_view kCalmPicture = "newscalm";

// Charts of the history, all optional
inline constexpr std::string_view kPeopleChart = "peoplechart";
inline constexpr std::string_view kFoodChart = "foodchart";
inline constexpr std::string_view kTreasuryChart = "treasurychart";
inline constexpr std::string_view kLawChart = "lawchart";

/// The newspaper's window.
inline constexpr std::string_view kNewspaper = "newspaper";

/// The kind of widget that the game needs.
enum class Role {
    Button,
    Slider,
    List,
    Label,
    Window,
    Picture,  ///< a button that shows a picture, whose clicks the game does not read
    Chart,
};

/// A widget of the game.
struct Widget {
    std::string_view tag;
    Role role = Role::Label;
    bool optional = false;  ///< the game works without it
};

/// The widgets of the game that belong to no profession.
inline constexpr Widget kOtherWidgets[] = {
    {kExit, Role::Button},
    {kWeek, Role::Button},
    {kBuy, Role::Button},
    {kSell, Role::Button},
    {kPreviousPage, Role::Button},
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
    {kLivestockRationLabel, Role::Label, true},
    {kGrainRationLabel, Role::Label, true},
    {kStockOrderLabel, Role::Label},
    {kGrainOrderLabel, Role::Label},
    {kFineOrderLabel, Role::Label},
    {kStore, Role::Label},
    {kPopulation, Role::Label},
    {kContinent, Role::Label},
    {kFunds, Role::Label},
    {kDate, Role::Label},
    {kPaper, Role::Label},
    {kFigures, Role::Label, true},
    {kFrameRate, Role::Label, true},
    {kNews, Role::Label, true},
    {kChronicle, Role::Label, true},
    {kPaperNews, Role::Label, true},
    {kLivestockOutlook, Role::Label, true},
    {kGrainOutlook, Role::Label, true},
    {kJusticeLabel, Role::Label, true},
    {kCrime, Role::Label, true},
    {kMorale, Role::Label, true},
    {kTotal, Role::Label, true},
    {kAlarmPicture, Role::Picture, true},
    {kCalmPicture, Role::Picture, true},
    {kPeopleChart, Role::Chart, true},
    {kFoodChart, Role::Chart, true},
    {kTreasuryChart, Role::Chart, true},
    {kLawChart, Role::Chart, true},
    {kPartner, Role::List},
    {kNewspaper, Role::Window},
};

/// All widgets that the game looks for in a layout: four of each profession, then the others.
inline constexpr auto kWidgets = [] {
    std::array<Widget, 4 * kProfessionTags.size() + std::size(kOtherWidgets)> widgets;
    std::size_t count = 0;
    for (const ProfessionTags& tags : kProfessionTags) {
        widgets[count++] = {tags.less, Role::Button};
        widgets[count++] = {tags.more, Role::Button};
        widgets[count++] = {tags.slider, Role::Slider};
        widgets[count++] = {tags.label, Role::Label};
    }
    for (const Widget& other : kOtherWidgets)
        widgets[count++] = other;
    return widgets;
}();

}  // namespace tag
