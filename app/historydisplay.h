// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <vector>

class Chart;
class History;

/// Shows the country's history in four charts. The layout need not have any of them. They change
/// when a week has been added to the history.
class HistoryDisplay {
public:
    void Show(const History& history);

private:
    void ShowPeople(Chart& chart, const History& history);
    void ShowFood(Chart& chart, const History& history);
    void ShowTreasury(Chart& chart, const History& history);
    void ShowLaw(Chart& chart, const History& history);

    std::int64_t weeksSeen = -1;
    std::vector<float> calmLow;
    std::vector<float> calmHigh;
};
