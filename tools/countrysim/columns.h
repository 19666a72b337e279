// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <string>

#include "country/country.h"

/// A column of the output: what it is called, its unit, and what it says.
struct Column {
    const char* name;
    const char* unit;  ///< empty if it has none
    const char* meaning;
    /// The figure; null for what is not a figure of the country.
    double (*figure)(const Country&) = nullptr;
};

/// A row per tick: the number of the tick, then figures of the country after it.
std::span<const Column> TickColumns();
/// A row per campaign.
std::span<const Column> SummaryColumns();

/// For people: one line per column, with name, meaning and, in brackets, unit.
std::string DescribeColumns(std::span<const Column> columns);
