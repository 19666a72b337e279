// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

class Country;
class Date;
class Newspaper;
class World;

/// Turns the country into the texts of the labels. Keeps its buffers between frames, so that a
/// frame in which nothing changed allocates no more than the date's text.
class Display {
public:
    /// Sets the label of a value, the value's name and "lab", to `value * multiplier` in a
    /// printf format of one double, cut at 511 characters.
    void SetValue(std::string_view name, const char* format, double value, double multiplier = 1.0);

    void ShowProfessions(const Country& country);
    void ShowRations(const Country& country);
    /// What the trade sliders ask for.
    void ShowOrder(float livestock, float grain, float fineGoods);
    void ShowStore(const Country& country);
    void ShowPopulation(const Country& country);
    /// The neighbours' prices, which stay as they were drawn at the start.
    void ShowContinent(const World& world);
    void ShowFunds(const Country& country);
    void ShowDate(const Date& date);
    void ShowPage(const Newspaper& newspaper, unsigned page);
    void ShowFigures(const Country& country);
    /// Does nothing where the layout has no place for it.
    void ShowFrameRate(long framesPerSecond);

private:
    std::string continent;
    std::string buffer;
    std::string labelTag;
};
