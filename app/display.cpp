// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "app/display.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "app/lines.h"
#include "app/tags.h"
#include "country/country.h"
#include "country/newspaper.h"
#include "country/outlook.h"
#include "country/rates.h"
#include "country/world.h"
#include "glwidget/glwidget.h"
#include "glwidget/label.h"
#include "quarn2/trace.h"

namespace {

constexpr double kPercent = 100.0;
/// Size of the buffer that a value is formatted in; longer text is cut.
constexpr std::size_t kLabelSize = 512;

void SetText(std::string_view label, const std::string& text) {
    GLWidget::GetByTag(label)->SetText(text);
}

/// Appends the parts of a label's text to a string that is used again in every frame.
class TextWriter {
public:
    explicit TextWriter(std::string& target) : text(target) { text.clear(); }

    TextWriter& operator<<(std::string_view piece) {
        text += piece;
        return *this;
    }
    /// Six significant digits, as a stream writes a number by default.
    TextWriter& operator<<(float number) {
        // adding zero turns a negative zero into zero
        return Format("%g", static_cast<double>(number) + 0.0);
    }
    TextWriter& operator<<(long number) { return Format("%ld", number); }
    // Not operator<<, because a text literal would be converted to bool and not to string_view.
    TextWriter& Flag(bool flag) { return *this << (flag ? 1L : 0L); }
    TextWriter& Rounded(float number) { return *this << std::lround(number); }

private:
    template <typename Number>
    TextWriter& Format(const char* format, Number number) {
        std::array<char, 32> digits;
        const int length = std::snprintf(digits.data(), digits.size(), format, number);
        text.append(digits.data(), static_cast<std::size_t>(length));
        return *this;
    }

    std::string& text;
};

}  // namespace

void Display::SetValue(std::string_view name, const char* format, double value, double multiplier) {
    TraceFrame frame("SetValue", "Display");
    Format(format, value * multiplier);
    labelTag = name;
    labelTag += tag::kLabelSuffix;
    SetText(labelTag, buffer);
}

void Display::Format(const char* format, double shown) {
    std::array<char, kLabelSize> text;
    std::snprintf(text.data(), text.size(), format, shown);
    if (std::signbit(shown)) {
        // A negative value that the format rounds to zero is shown as 0, not as -0.
        std::array<char, kLabelSize> negativeZero;
        std::snprintf(negativeZero.data(), negativeZero.size(), format, -0.0);
        if (std::string_view(text.data()) == negativeZero.data())
            std::snprintf(text.data(), text.size(), format, 0.0);
    }
    buffer = text.data();
}

void Display::ShowProfessions(const Country& country) {
    TraceFrame frame("ShowProfessions", "Display");
    for (const Profession profession : kProfessions) {
        const float part = country.Count(profession) / country.population;
        SetValue(tag::Of(profession).slider, tag::Of(profession).labelFormat,
                 static_cast<double>(part), kPercent);
    }
}

void Display::ShowRations(const Country& country) {
    TraceFrame frame("ShowRations", "Display");
    if (GLWidget::GetByTag(tag::kLivestockRationLabel, false) != nullptr) {
        SetValue(tag::kLivestockRation, "Livestock Ration: %.3f",
                 static_cast<double>(country.livestock.ration));
    }
    if (GLWidget::GetByTag(tag::kGrainRationLabel, false) != nullptr) {
        SetValue(tag::kGrainRation, "Grain Ration: %.3f",
                 static_cast<double>(country.grain.ration));
    }
}

void Display::ShowOrder(float livestock, float grain, float fineGoods) {
    TraceFrame frame("ShowOrder", "Display");
    SetValue(tag::kStockOrder, "Livestock to Buy/Sell: %.0f", static_cast<double>(livestock));
    SetValue(tag::kGrainOrder, "Grain to Buy/Sell: %.0f", static_cast<double>(grain));
    SetValue(tag::kFineOrder, "Fine Goods to Buy: %.0f", static_cast<double>(fineGoods));
}

void Display::ShowStore(const Country& country) {
    TraceFrame frame("ShowStore", "Display");
    TextWriter text(buffer);
    text << "Livestock: ";
    text.Rounded(country.livestock.amount) << "\nGrain: ";
    text.Rounded(country.grain.amount);
    SetText(tag::kStore, buffer);
}

void Display::ShowPopulation(const Country& country) {
    TraceFrame frame("ShowPopulation", "Display");
    TextWriter text(buffer);
    text << "Population Statistics: \nTotal: ";
    text.Rounded(country.population);
    for (const Profession profession : kProfessions) {
        text << "\n" << tag::Of(profession).plural << ": ";
        text.Rounded(country.Count(profession));
    }
    text << "\nIdle: ";
    text.Rounded(country.IdleCount());
    SetText(tag::kPopulation, buffer);
}

void Display::ShowContinent(const World& world) {
    TraceFrame frame("ShowContinent", "Display");
    if (continent.empty()) {
        TextWriter text(continent);
        text << "Continent Information: \n"
                "Buy Cost of Livestock, Grain. Sell Cost of Livestock, Grain.\n";
        long number = 0;
        for (const auto& country : world.countries) {
            text << "Country " << ++number << ": " << country->name << " - "
                 << country->livestockBuyPrice << " " << country->grainBuyPrice << " "
                 << country->livestockSellPrice << " " << country->grainSellPrice << "\n";
        }
    }
    SetText(tag::kContinent, continent);
}

void Display::ShowFunds(const Country& country) {
    TraceFrame frame("ShowFunds", "Display");
    TextWriter text(buffer);
    text << "Government funds: " << country.funds << " doubloons";
    SetText(tag::kFunds, buffer);
}

void Display::ShowDate(const Date& date) {
    TraceFrame frame("ShowDate", "Display");
    TextWriter text(buffer);
    text << "The date is " << date.Text();
    SetText(tag::kDate, buffer);
}

void Display::ShowPage(const Newspaper& newspaper, unsigned page) {
    TraceFrame frame("ShowPage", "Display");
    TextWriter text(buffer);
    text << "Page " << static_cast<long>(page) + 1 << "\n";
    if (page < newspaper.Stories().size())
        text << newspaper.Stories()[page];
    SetText(tag::kPaper, buffer);
}

void Display::ShowFigures(const Country& country) {
    TraceFrame frame("ShowFigures", "Display");
    if (GLWidget::GetByTag(tag::kFigures, false) == nullptr)
        return;
    const Military& military = country.military;
    TextWriter text(buffer);
    text << "The Justice level is " << country.justice.justiceLevel << "\nThe Crime level is "
         << country.justice.crimeLevel << "\n\nThe population's morale is " << country.morale
         << "\nThe population's opinion is " << country.opinion
         << "\nThe military's recruits: " << military.recruits
         << "\nThe military's average skill: " << military.averageSkill
         << "\nThe military's weekly cost: " << military.Cost(kSecondsPerWeek)
         << "\nThe military oppressing: " << military.oppressing
         << "\nThe military patrolling: " << military.patrolling
         << "\nThe famine chance: " << country.famineChance << "    Famine: ";
    text.Flag(country.famineTime > 0.0f) << "    Famine Length: ";
    text.Rounded(country.famineTime) << "\nPlague: ";
    text.Flag(country.plagueTime > 0.0f) << "    Plague Length: ";
    text.Rounded(country.plagueTime) << "\nRevolt: ";
    text.Flag(country.revolt) << "    Rebellion: ";
    text.Flag(country.rebellion);
    SetText(tag::kFigures, buffer);
}

void Display::ShowOutlook(const Country& country) {
    TraceFrame frame("ShowOutlook", "Display");
    buffer = "Livestock ";
    LivestockOutlook(country).WriteTo(buffer);
    livestockOutlook.Show(tag::kLivestockOutlook, buffer);
    buffer = "Grain ";
    GrainOutlook(country).WriteTo(buffer);
    grainOutlook.Show(tag::kGrainOutlook, buffer);
}

void Display::Sentence::Show(std::string_view tag, const std::string& text) {
    auto* const label = dynamic_cast<Label*>(GLWidget::GetByTag(tag, false));
    if (label == nullptr)
        return;
    if (text != given) {
        given = text;
        broken = text;
        lines::BreakToFit(broken, *label);
        lines::FillUp(broken, lines::RoomOf(*label));
    }
    label->SetText(broken);
}

void Display::ShowGlance(const Country& country) {
    TraceFrame frame("ShowGlance", "Display");
    const auto show = [&](std::string_view label, const char* format, float value) {
        if (GLWidget* const widget = GLWidget::GetByTag(label, false)) {
            Format(format, static_cast<double>(value));
            widget->SetText(buffer);
        }
    };
    show(tag::kJusticeLabel, "Justice: %.2f", country.justice.justiceLevel);
    show(tag::kCrime, "Crime: %.2f", country.justice.crimeLevel);
    show(tag::kMorale, "Morale: %.2f", country.morale);
    if (GLWidget* const widget = GLWidget::GetByTag(tag::kTotal, false)) {
        TextWriter text(buffer);
        text << "Total: ";
        text.Rounded(country.population) << ", idle: ";
        text.Rounded(country.IdleCount());
        widget->SetText(buffer);
    }
}

void Display::ShowFrameRate(long framesPerSecond) {
    TraceFrame frame("ShowFrameRate", "Display");
    GLWidget* const label = GLWidget::GetByTag(tag::kFrameRate, false);
    if (label == nullptr)
        return;
    TextWriter text(buffer);
    text << "FPS: " << framesPerSecond;
    label->SetText(buffer);
}
