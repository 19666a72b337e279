// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "app/controls.h"

#include <cstdio>

#include "app/tags.h"
#include "country/country.h"
#include "country/start.h"
#include "country/world.h"
#include "glwidget/glwidget.h"
#include "quarn2/trace.h"

namespace {

constexpr float kStep = 0.01f;  // one click of -- or ++ moves a slider by this

/// Whether the button was clicked since it was last asked.
bool Pressed(std::string_view button) {
    return GLWidget::GetByTag(button)->BeenClicked();
}

/// Moves the slider if its buttons were clicked.
/// @return whether one of them was clicked
bool StepSlider(GLWidget& slider, std::string_view less, std::string_view more) {
    const bool down = Pressed(less);
    if (down)
        slider.SetLevel(slider.GetLevel() - kStep);
    const bool up = Pressed(more);
    if (up)
        slider.SetLevel(slider.GetLevel() + kStep);
    return down || up;
}

float Level(std::string_view slider) {
    return GLWidget::GetByTag(slider)->GetLevel();
}

}  // namespace

bool controls::ExitPressed() {
    return Pressed(tag::kExit);
}

bool controls::WeekPressed() {
    return Pressed(tag::kWeek);
}

void controls::StepRations() {
    TraceFrame frame("StepRations", "App");
    StepSlider(*GLWidget::GetByTag(tag::kLivestockRation), tag::kLivestockRationLess,
               tag::kLivestockRationMore);
    StepSlider(*GLWidget::GetByTag(tag::kGrainRation), tag::kGrainRationLess,
               tag::kGrainRationMore);
}

void controls::SetJustice(Country& country) {
    TraceFrame frame("SetJustice", "App");
    if (const GLWidget* slider = GLWidget::GetByTag(tag::kJustice, false))
        country.justice.justiceLevel = slider->GetLevel();
}

void controls::SetProfessions(Country& country, bool all) {
    TraceFrame frame("SetProfessions", "App");
    for (const Profession profession : kProfessions) {
        const tag::ProfessionTags& tags = tag::Of(profession);
        GLWidget& slider = *GLWidget::GetByTag(tags.slider);
        const bool stepped = StepSlider(slider, tags.less, tags.more);
        if (stepped || all || slider.Dragging()) {
            country.SetShare(profession, slider.GetLevel());
            country.Normalise(profession);
        }
    }
}

void controls::SetRations(Country& country) {
    TraceFrame frame("SetRations", "App");
    // kept: the test is on the label, not on the slider
    if (GLWidget::GetByTag(tag::kLivestockRationLabel, false) != nullptr)
        country.livestock.ration =
            start::RationAt(Level(tag::kLivestockRation), country.livestock.baseRation);
    if (GLWidget::GetByTag(tag::kGrainRationLabel, false) != nullptr)
        country.grain.ration = start::RationAt(Level(tag::kGrainRation), country.grain.baseRation);
}

Country* controls::ChoosePartner(Country* partner, const World& world) {
    TraceFrame frame("ChoosePartner", "App");
    GLWidget& list = *GLWidget::GetByTag(tag::kPartner);
    if (!list.BeenChanged())
        return partner;
    ClearOrder();
    // kept: the list's texts are names of countries, without this number, so the partner never
    // changes
    int number = 0;
    std::sscanf(list.GetCurrentText().c_str(), "Country %i", &number);
    const auto& others = world.countries;
    if (number > 0 && static_cast<std::size_t>(number) <= others.size())
        return others[static_cast<std::size_t>(number) - 1].get();
    return partner;
}

controls::Order controls::ReadOrder(const Country& country, const Country& partner) {
    TraceFrame frame("ReadOrder", "App");
    return {country.LivestockOrder(partner, Level(tag::kStockOrder)),
            country.GrainOrder(partner, Level(tag::kGrainOrder)),
            country.FineGoodsOrder(Level(tag::kFineOrder))};
}

void controls::Trade(Country& country, Country& partner) {
    TraceFrame frame("Trade", "App");
    if (Pressed(tag::kBuy)) {
        const Order order = ReadOrder(country, partner);
        if (country.BuyPossible(order.livestock, order.grain, order.fineGoods, &partner)) {
            country.Buy(order.livestock, order.grain, order.fineGoods, &partner);
            ClearOrder();
        } else {
            GLWidget::MessageBox("You cannot buy this much from this country.", 1);
        }
    }
    if (Pressed(tag::kSell)) {
        const Order order = ReadOrder(country, partner);
        country.Sell(order.livestock, order.grain, &partner);
        ClearOrder();
    }
}

void controls::ClearOrder() {
    TraceFrame frame("ClearOrder", "App");
    for (const std::string_view slider : {tag::kStockOrder, tag::kGrainOrder, tag::kFineOrder})
        GLWidget::GetByTag(slider)->SetLevel(0.0f);
}

void controls::TurnPage(unsigned& page, std::size_t stories) {
    TraceFrame frame("TurnPage", "App");
    const bool back = Pressed(tag::kPreviousPage);
    if (back && page != 0)
        --page;
    // kept: the same button is asked again, and its click was cleared above, so this is never true
    const bool forward = Pressed(tag::kPreviousPage);
    if (forward && page < stories)
        ++page;
}
