// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/countrysim/columns.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr Column kTickColumns[] = {
    {"tick", "", "number of the step, from 1"},
    {"elapsed", "seconds", "time since the start; a week has 604800",
     [](const Country& country) { return double{country.elapsed}; }},
    {"population", "people", "all people",
     [](const Country& country) { return double{country.population}; }},
    {"funds", "doubloons", "the treasury; below 0 it is a debt",
     [](const Country& country) { return double{country.funds}; }},
    {"livestock", "heads", "the herd",
     [](const Country& country) { return double{country.livestock.amount}; }},
    {"grain", "units", "the granary",
     [](const Country& country) { return double{country.grain.amount}; }},
    {"livestock_production", "heads per second", "what all butchers produce",
     [](const Country& country) { return double{country.livestock.production}; }},
    {"grain_production", "units per second", "what all farmers produce",
     [](const Country& country) { return double{country.grain.production}; }},
    {"morale", "", "0 to 1, or a little less or more; the people rebel below 0.1",
     [](const Country& country) { return double{country.morale}; }},
    {"opinion", "", "0 to 1, or a little less or more; it has no effect",
     [](const Country& country) { return double{country.opinion}; }},
    {"crime", "", "level from 0 to 1",
     [](const Country& country) { return double{country.justice.crimeLevel}; }},
    {"justice", "", "level from 0 to 1, that of its slider",
     [](const Country& country) { return double{country.justice.justiceLevel}; }},
    {"famineChance", "", "chance of a famine in a week; 1 or more is certain, 0 or less is none",
     [](const Country& country) { return double{country.famineChance}; }},
    {"famineTime", "seconds", "what is left of a famine; without one 0 or less",
     [](const Country& country) { return double{country.famineTime}; }},
    {"plagueTime", "seconds", "what is left of a plague; without one 0 or less",
     [](const Country& country) { return double{country.plagueTime}; }},
    {"rebellion", "", "1 if the people rebel, otherwise 0",
     [](const Country& country) { return country.rebellion ? 1.0 : 0.0; }},
};

constexpr Column kSummaryColumns[] = {
    {"seed", "", "seed of the campaign"},
    {"weeks", "weeks", "whole weeks at whose end there were people; the campaign ends with them"},
    {"famine", "week", "week of the first famine, from 1; empty if there was none"},
    {"plague", "week", "week of the first plague, from 1; empty if there was none"},
    {"rebellion", "week", "week in which the rebellion began, from 1; empty if there was none"},
    {"livestock_lowest", "heads", "smallest herd at the end of a step"},
    {"livestock_last", "heads", "herd at the end"},
    {"grain_lowest", "units", "least grain at the end of a step"},
    {"grain_last", "units", "grain at the end"},
    {"people_lowest", "people", "fewest people at the end of a step"},
    {"people_last", "people", "people at the end"},
    {"funds_lowest", "doubloons", "least money at the end of a step"},
    {"funds_last", "doubloons", "money at the end"},
    {"morale_lowest", "", "lowest morale at the end of a step"},
    {"morale_last", "", "morale at the end"},
    {"crime_lowest", "", "lowest level of crime at the end of a step"},
    {"crime_last", "", "level of crime at the end"},
};

}  // namespace

std::span<const Column> TickColumns() {
    return kTickColumns;
}

std::span<const Column> SummaryColumns() {
    return kSummaryColumns;
}

std::string DescribeColumns(std::span<const Column> columns) {
    std::size_t widest = 0;
    for (const Column& column : columns)
        widest = std::max(widest, std::strlen(column.name));
    std::string text;
    for (const Column& column : columns) {
        std::string name = column.name;
        name.resize(widest, ' ');
        text.append("  ").append(name).append("  ").append(column.meaning);
        if (*column.unit != '\0')
            text.append(" [").append(column.unit).append("]");
        text += '\n';
    }
    return text;
}
