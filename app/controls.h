// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

class Country;
class World;

/// Reads what the player did with the widgets and changes the country. Asking for a click clears
/// it, so each click is asked for once.
namespace controls {

/// Whether the exit button was clicked.
bool ExitPressed();
/// Whether the button that lets a week pass was clicked.
bool WeekPressed();

/// The -- and ++ buttons of both rations move their sliders by one hundredth.
void StepRations();

/// The justice slider, if the layout has one, sets the level of justice.
void SetJustice(Country& country);

/// Sets the share of each profession whose slider is moved by its buttons or dragged.
/// @param all  set all five shares, moved or not
void SetProfessions(Country& country, bool all);

/// Sets each ration from its slider if the layout has the label of that ration.
void SetRations(Country& country);

/// The partner after a possible choice in the list; a choice sets the trade sliders to 0.
Country* ChoosePartner(Country* partner, const World& world);

/// In heads, units and doubloons.
struct Order {
    float livestock;
    float grain;
    float fineGoods;
};
/// The order that the trade sliders' levels stand for.
Order ReadOrder(const Country& country, const Country& partner);

/// Buys or sells if the player clicked the button. A message box reports a refused purchase.
void Trade(Country& country, Country& partner);

/// Sets the three trade sliders to 0.
void ClearOrder();

/// Changes the newspaper's page if the player clicked the button.
void TurnPage(unsigned& page, std::size_t stories);

}  // namespace controls
