// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/gamecheck.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <iterator>
#include <set>

#include "app/tags.h"
#include "country/chronicle.h"
#include "country/country.h"
#include "country/fragments.h"
#include "country/namegenerator.h"
#include "country/newspaper.h"
#include "country/world.h"
#include "glwidget/glwidget.h"
#include "tools/guiview/suggestion.h"

namespace guiview {

namespace {

std::string_view WordFor(tag::Role role) {
    switch (role) {
    case tag::Role::Button:
    case tag::Role::Picture:
        return "Butt";
    case tag::Role::Slider:
        return "Slide";
    case tag::Role::List:
        return "Combo";
    case tag::Role::Label:
        return "Label";
    case tag::Role::Window:
        return "Win";
    case tag::Role::Chart:
        return "Chart";
    }
    return {};
}

/// The longest number that a stock or a population can have. Every 8 is replaced by the font's
/// widest digit.
constexpr std::string_view kNineDigits = "888888888";

float WidthOf(std::string_view text) {
    float width = 0.0f;
    for (const char letter : text)
        width += GLWidget::font.Advance(static_cast<signed char>(letter));
    return width;
}

/// The font's widest digit; 8 if all are equal.
char WidestDigit() {
    char widest = '8';
    for (const char digit : std::string_view("0123456789")) {
        if (GLWidget::font.Advance(digit) > GLWidget::font.Advance(widest))
            widest = digit;
    }
    return widest;
}

/// The widest of the fragments that are possible at a position in a name.
std::string WidestFragment(std::uint32_t mask, bool first) {
    std::string widest;
    for (std::size_t row = 0; row < std::size(kFragments); ++row) {
        if ((mask >> row & 1U) == 0)
            continue;
        const auto count = std::ranges::count(kFragments[row], '|') + 1;
        for (std::uint32_t i = 0; i < static_cast<std::uint32_t>(count); ++i) {
            std::string fragment(NameGenerator::Alternative(kFragments[row], i));
            if (first) {
                fragment[0] =
                    static_cast<char>(std::toupper(static_cast<unsigned char>(fragment[0])));
            }
            if (WidthOf(fragment) > WidthOf(widest))
                widest = fragment;
        }
    }
    return widest;
}

std::string WidestCountryName() {
    std::string name;
    for (const std::uint32_t* mask = NameGenerator::kCountryPattern; *mask != 0; ++mask)
        name += WidestFragment(*mask, name.empty());
    return name;
}

/// The widest story of many editions. Crime is low, so that the stories are the long ones, which
/// name people.
std::string WidestStory() {
    constexpr int kEditions = 500;
    constexpr float kPettyCrime = 0.07f;
    std::srand(1);  // the same names each time
    Country country(start::kName, start::kPeople);
    country.justice.crimeLevel = kPettyCrime;
    Newspaper newspaper(&country);
    std::string widest;
    for (int i = 0; i < kEditions; ++i) {
        newspaper.Print();
        if (WidthOf(newspaper.Stories().front()) > WidthOf(widest))
            widest = newspaper.Stories().front();
    }
    return widest;
}

/// The widest sentence of the chronicle, with its date.
std::string WidestEntry() {
    constexpr double kLarge = 88888.0;
    std::string widest;
    for (std::size_t i = 0; i < Chronicle::kEventCount; ++i) {
        const Chronicle::Entry entry{
            static_cast<Chronicle::Event>(i), Date("1388/12/28"), 0, {kLarge, kLarge}};
        std::string text = entry.date.DayText() + ": ";
        entry.WriteTo(text);
        if (WidthOf(text) > WidthOf(widest))
            widest = text;
    }
    return widest;
}

std::string PopulationText() {
    std::string text = "Population Statistics: \nTotal: ";
    text += kNineDigits;
    for (const tag::ProfessionTags& profession : tag::kProfessionTags)
        text.append("\n").append(profession.plural).append(": ").append(kNineDigits);
    return text.append("\nIdle: ").append(kNineDigits);
}

std::string ContinentText(const std::string& name) {
    std::string text =
        "Continent Information: \n"
        "Buy Cost of Livestock, Grain. Sell Cost of Livestock, Grain.\n";
    for (std::size_t i = 1; i <= start::kNeighbours; ++i) {
        text.append("Country ").append(std::to_string(i)).append(": ").append(name);
        text += " - 1.48888 1.48888 0.888888 0.888888\n";
    }
    return text;
}

constexpr const char* kFigures =
    "The Justice level is 0.888888\nThe Crime level is 8.88888e-05\n\n"
    "The population's morale is 8.88888e-05\nThe population's opinion is 8.88888e-05\n"
    "The military's recruits: 1350\nThe military's average skill: 0.888888\n"
    "The military's weekly cost: 88.8888\nThe military oppressing: 0.888888\n"
    "The military patrolling: 0.888888\n"
    "The famine chance: -8.88888e-05    Famine: 1    Famine Length: 18888888\n"
    "Plague: 1    Plague Length: 8888888\nRevolt: 1    Rebellion: 1";

}  // namespace

bool IsForGame(const Declarations& declarations) {
    std::size_t needed = 0;
    std::size_t found = 0;
    for (const tag::Widget& widget : tag::kWidgets) {
        if (widget.optional)
            continue;
        ++needed;
        if (std::ranges::count(declarations.widgets, widget.tag, &Declared::tag) > 0)
            ++found;
    }
    return 2 * found >= needed;
}

void CheckGameTags(const LayoutSource& layout, Findings& findings) {
    const std::string& path = layout.File().path;
    const std::vector<Declared>& widgets = layout.Declared().widgets;
    std::set<std::string_view> written;
    for (const Statement& statement : layout.File().statements) {
        if (statement.rule != nullptr && statement.rule->creates)
            written.insert(statement.Text("tag"));
    }
    std::vector<std::string> further;  // tags that the game does not know
    for (const Declared& widget : widgets) {
        if (std::ranges::count(tag::kWidgets, widget.tag, &tag::Widget::tag) == 0)
            further.push_back(widget.tag);
    }
    for (const tag::Widget& needed : tag::kWidgets) {
        const std::string tag = Quoted(needed.tag);
        const std::string kind(WordFor(needed.role));
        const auto found = std::ranges::find(widgets, needed.tag, &Declared::tag);
        if (found != widgets.end()) {
            if (found->GetKind().word != kind) {
                findings.Error(path, found->statement->Find("kind")->location,
                               tag + " is a " + std::string(found->GetKind().word)
                                   + ", and the game needs a " + kind);
            }
            continue;
        }
        if (needed.optional || written.contains(needed.tag))
            continue;
        const std::string message = "the game needs a " + kind + " with the tag " + tag;
        const auto similar = Similar(needed.tag, further);
        if (similar) {
            const auto other = std::ranges::find(widgets, *similar, &Declared::tag);
            findings.Error(path, other->Where(), message + "; is " + Quoted(*similar) + " it?");
        } else {
            findings.Error(path, {}, message);
        }
    }
}

bool GameAnswers(const Node& node) {
    return std::ranges::any_of(tag::kWidgets, [&](const tag::Widget& widget) {
        return widget.tag == node.Tag() && widget.role != tag::Role::Label
               && widget.role != tag::Role::Window && widget.role != tag::Role::Picture
               && widget.role != tag::Role::Chart;
    });
}

SampleTexts LongestGameTexts() {
    const std::string number(kNineDigits);
    const std::string name = WidestCountryName();
    std::string partners;
    for (std::size_t i = 0; i < start::kNeighbours; ++i)
        partners += name + "\n";
    SampleTexts texts = {
        {std::string(tag::kPartner), partners},
        {std::string(tag::kNewspaper), std::string(start::kName) + " Newspaper"},
        {std::string(tag::kLivestockRationLabel), "Livestock Ration: 0.200"},
        {std::string(tag::kGrainRationLabel), "Grain Ration: 0.400"},
        {std::string(tag::kStockOrderLabel), "Livestock to Buy/Sell: " + number},
        {std::string(tag::kGrainOrderLabel), "Grain to Buy/Sell: " + number},
        {std::string(tag::kFineOrderLabel), "Fine Goods to Buy: " + number},
        {std::string(tag::kStore), "Livestock: " + number + "\nGrain: " + number},
        {std::string(tag::kPopulation), PopulationText()},
        {std::string(tag::kContinent), ContinentText(name)},
        {std::string(tag::kFunds), "Government funds: -1.88888e+06 doubloons"},
        {std::string(tag::kDate), "The date is 1388/12/28 18:48:48"},
        {std::string(tag::kPaper), "Page 1\n" + WidestStory()},
        {std::string(tag::kFigures), kFigures},
        {std::string(tag::kFrameRate), "FPS: 8888"},
        {std::string(tag::kNews), "ALARM  " + WidestEntry()},
        {std::string(tag::kChronicle), WidestEntry()},
        {std::string(tag::kPaperNews), WidestEntry()},
        {std::string(tag::kLivestockOutlook),
         "Livestock is lost if you press Week: butchers take 188.8%, the limit is 88.8%"},
        {std::string(tag::kGrainOutlook), "Grain lasts less than a week"},
        {std::string(tag::kJusticeLabel), "Justice: 0.88"},
        {std::string(tag::kCrime), "Crime: 0.88"},
        {std::string(tag::kMorale), "Morale: 0.88"},
        {std::string(tag::kTotal), "Total: " + number + ", idle: " + number},
    };
    for (const tag::ProfessionTags& profession : tag::kProfessionTags) {
        texts.emplace_back(profession.label, std::string(profession.plural) + ": 100%");
    }
    const char digit = WidestDigit();
    for (auto& [tag, text] : texts) {
        if (tag != tag::kPaper)
            std::ranges::replace(text, '8', digit);
    }
    return texts;
}

void FillGameTexts() {
    FillTexts(LongestGameTexts());
}

}  // namespace guiview
