// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>

class Country;
class Date;
class Newspaper;
class World;

/// Writes the country's figures to the labels. Its buffers are used again in every frame, so a
/// frame in which nothing changes allocates only the date's text.
class Display {
public:
    /// Sets the label whose tag is `name` and "lab" to `value * multiplier`, in a printf format of
    /// one double, cut at 511 characters.
    void SetValue(std::string_view name, const char* format, double value, double multiplier = 1.0);

    void ShowProfessions(const Country& country);
    void ShowRations(const Country& country);
    /// The size of the order that the trade sliders stand for.
    void ShowOrder(float livestock, float grain, float fineGoods);
    void ShowStore(const Country& country);
    void ShowPopulation(const Country& country);
    /// The neighbours' prices, which never change.
    void ShowContinent(const World& world);
    void ShowFunds(const Country& country);
    void ShowDate(const Date& date);
    void ShowPage(const Newspaper& newspaper, unsigned page);
    void ShowFigures(const Country& country);
    // Each of these labels is written only if the layout has it.
    void ShowOutlook(const Country& country);
    void ShowGlance(const Country& country);
    /// Does nothing if the layout has no label for it.
    void ShowFrameRate(long framesPerSecond);

private:
    /// Writes a value to `buffer`, in a printf format with one conversion.
    void Format(const char* format, double shown);

    /// A sentence in a label of several lines, broken again only when it changes.
    class Sentence {
    public:
        void Show(std::string_view tag, const std::string& text);

    private:
        std::string given;
        std::string broken;
    };

    Sentence livestockOutlook;
    Sentence grainOutlook;
    std::string continent;
    std::string buffer;
    std::string labelTag;
};
