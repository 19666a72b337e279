// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

class Country;

/// Prints one story per game day about a country's crime.
class Newspaper {
public:
    /// @param country  the one to report on; not owned
    explicit Newspaper(const Country* country);

    /// Prints at most one edition, however many days have passed.
    void Update(float seconds);

    /// Replaces the story by a new one. The crime level decides which.
    void Print();

    /// The day's story, or nothing before the first edition.
    const std::vector<std::string>& Stories() const { return stories; }

private:
    const Country* country;  // not owned
    std::vector<std::string> stories;
    float sinceEdition = 180000.0f;  // more than a day, so that the first update prints
};
