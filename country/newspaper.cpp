// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/newspaper.h"

#include <iterator>

#include "country/country.h"
#include "country/date.h"
#include "country/namegenerator.h"
#include "country/rates.h"
#include "quarn2/strings.h"
#include "quarn2/trace.h"

namespace {

constexpr const char* kJaywalking =
    "Yesterday at ++TIME++, ++NAME1++ was seen walking across a street right in front of a cart, "
    "without even looking both ways! Truly this is a scandalous state of affairs - why would "
    "anyone commit such a shocking offence?\n"
    "More information will be presented as the situation unfolds.";

constexpr const char* kCake =
    "Yesterday at ++TIME++, ++NAME1++ (32) was baking a cake. It was a good cake. It was a "
    "chocolate cake. In many ways, and with the benefit of hindsight, one could have forseen the "
    "tragedy which occured. The chocolate was a siren call which one ++NAME2++ (16) could not "
    "resist. He stole that cake right out from under ++NAME1++'s nose\n"
    "The thief was caught and arrested by dutiful policemen shortly after, but his actions have "
    "left a dark mark on the once fair town of ++TOWN++.";

struct Story {
    double below;  ///< the story is for crime levels below this one
    const char* text;
    bool filledIn;  ///< random names are made for it
};

// The first row that fits is used. The crime level is a float, and so are the bounds, except 0.35
// and 0.85, which are doubles: 0.35f is a little less than 0.35, so it still gives "Assault".
constexpr Story kStories[] = {
    {0.05f, kJaywalking, true},
    {0.1f, kCake, true},
    {0.15f, "Illegal Gambling is rampant!", true},  // kept: names are made, but not used
    {0.2f, "Mugging", false},
    {0.25f, "Burglary", false},
    {0.3f, "Tresspassing", false},
    {0.35, "Assault", false},
    {0.4f, "Blackmail", false},
    {0.45f, "Fraud", false},
    {0.5f, "Vandalism", false},
    {0.55f, "Assault", false},  // kept: it is in the table twice
    {0.6f, "Smuggling", false},
    {0.65f, "Forgery", false},
    {0.7f, "Arson", false},
    {0.75f, "Rape", false},
    {0.8f, "Treason", false},
    {0.85, "Kidnapping", false},
    {0.9f, "Murder", false},
    {0.95f, "Looting", false},
};
static_assert(std::size(kStories) == 19);

constexpr Story kHighestCrime{2.0, "Crime syndicates", false};

const Story& Choose(float crimeLevel) {
    for (const Story& story : kStories) {
        if (crimeLevel < story.below)
            return story;
    }
    return kHighestCrime;
}

std::string FillIn(std::string text) {
    TraceFrame frame("FillIn", "Newspaper");
    const Date date("random");
    const NameGenerator firstNames(NameGenerator::kFirstNamePattern);
    const NameGenerator secondNames(NameGenerator::kSecondNamePattern);
    const NameGenerator towns(NameGenerator::kTownPattern);
    text = str_replace("++TOWN++", towns.Generate(), text);
    text = str_replace("++NAME2++", secondNames.Generate(), text);
    text = str_replace("++NAME1++", firstNames.Generate(), text);
    return str_replace("++TIME++", date.TimeText(), text);
}

}  // namespace

Newspaper::Newspaper(const Country* reported) : country(reported) {
    TraceFrame frame("Newspaper", "Newspaper");
    Assert("newspaper", __LINE__, "c != 0", country != nullptr);
}

void Newspaper::Update(float seconds) {
    TraceFrame frame("Update", "Newspaper");
    sinceEdition += seconds;
    if (sinceEdition > kSecondsPerDay) {
        Print();
        sinceEdition = 0.0f;  // kept: the seconds above a day are lost
    }
}

void Newspaper::Print() {
    TraceFrame frame("Print", "Newspaper");
    const Story& story = Choose(country->justice.crimeLevel);
    stories.clear();
    stories.emplace_back(story.filledIn ? FillIn(story.text) : story.text);
}
