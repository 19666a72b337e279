// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

class Country;
class World;

/// Reads what the player did to the widgets and changes the country. Each question about a
/// click is asked once: asking clears it.
namespace controls {

/// Whether the exit button was clicked.
bool ExitPressed();
/// Whether the button that lets a week pass was clicked.
bool WeekPressed();

/// The -- and ++ buttons of both rations move their sliders by one hundredth.
void StepRations();

/// The justice slider, where the layout has one, sets the level of justice.
void SetJustice(Country& country);

/// Sets every profession's share whose slider is moved, by its buttons or by dragging.
/// @param all  set the five shares whether moved or not
void SetProfessions(Country& country, bool all);

/// A ration follows its slider as long as the layout shows the ration.
void SetRations(Country& country);

/// The partner after this frame's choice in the list, for which the player may have called.
Country* ChoosePartner(Country* partner, const World& world);

/// What the trade sliders ask for, in heads, units and doubloons.
struct Order {
    float livestock;
    float grain;
    float fineGoods;
};
/// The trade sliders' levels in goods, as far as the funds would reach.
Order ReadOrder(const Country& country, const Country& partner);

/// Buys and sells when asked to. A refused purchase is said in a message box.
void Trade(Country& country, Country& partner);

/// Puts the three trade sliders to 0.
void ClearOrder();

/// Turns the newspaper's page.
void TurnPage(unsigned& page, std::size_t stories);

}  // namespace controls
