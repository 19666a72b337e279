// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/world.h"

#include <cmath>
#include <cstdlib>

#include "country/namegenerator.h"
#include "country/random.h"
#include "quarn2/trace.h"

World::World()
    : date(start::kDate),
      player(start::kName, start::kPeople),
      newspaper(&player),
      chronicle(player) {
    TraceFrame frame("World", "World");
    const NameGenerator names(NameGenerator::kCountryPattern);
    for (std::unique_ptr<Country>& country : countries) {
        const std::string name = names.Generate();
        const double roll = RollUnit();
        constexpr float kSpread = start::kMaxNeighbourPeople - start::kMinNeighbourPeople;
        const auto people =
            static_cast<int>(std::lround(roll * kSpread + start::kMinNeighbourPeople));
        country = std::make_unique<Country>(name, people);
    }
    for (const std::size_t seller : start::kSellersOfFineGoods)
        player.tradePartners[countries[seller].get()] = true;

    std::vector<Country*> continent;
    for (const std::unique_ptr<Country>& country : countries)
        continent.push_back(country.get());
    continent.push_back(&player);
    for (Country* country : continent)
        country->continent = continent;
}

void World::Advance(float seconds) {
    TraceFrame frame("Advance", "World");
    const long wholeSeconds = std::lround(seconds);
    chronicle.NoteBefore(player, date);
    player.Process(seconds);
    newspaper.Update(seconds);
    date.Advance(wholeSeconds);
    chronicle.NoteAfter(player, date, wholeSeconds);
    history.Add(player, wholeSeconds);
}

float World::RollClockSeconds() {
    return static_cast<float>(std::rand() % 60 + 300);
}
