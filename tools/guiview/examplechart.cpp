// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/examplechart.h"

#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "glwidget/chart.h"

namespace guiview {

namespace {

constexpr std::size_t kWeeks = 104;
constexpr std::array<const char*, Chart::kMaxSeries> kNames{"first", "second", "third", "fourth"};

/// Two years of four series that cross each other, and what else a chart can show.
struct Example {
    std::vector<float> weeks;
    std::array<std::vector<float>, Chart::kMaxSeries> values;
    std::vector<std::uint8_t> shaded;

    Example() : weeks(kWeeks), shaded(kWeeks) {
        for (std::vector<float>& series : values)
            series.resize(kWeeks);
        for (std::size_t week = 0; week < kWeeks; ++week) {
            const double turn = static_cast<double>(week) / kWeeks * 2.0 * std::numbers::pi;
            weeks[week] = static_cast<float>(week + 1);
            values[0][week] = static_cast<float>(std::round(600.0 + 90.0 * turn));
            values[1][week] = static_cast<float>(std::round(700.0 + 250.0 * std::sin(turn)));
            values[2][week] = static_cast<float>(std::round(450.0 + 150.0 * std::cos(2.0 * turn)));
            values[3][week] = static_cast<float>(std::round(900.0 - 110.0 * turn));
            shaded[week] = week >= 40 && week < 50;
        }
    }

    void ShowIn(Chart& chart) const {
        for (std::size_t count = Chart::kMaxSeries; count > 0; --count) {
            std::vector<Chart::Series> series;
            for (std::size_t index = 0; index < count; ++index)
                series.push_back({kNames[index], values[index]});
            static constexpr float kMark = 400.0f;
            static constexpr float kLow = 700.0f;
            static constexpr float kHigh = 800.0f;
            const bool all = count == Chart::kMaxSeries;
            chart.SetData({.weeks = weeks,
                           .series = series,
                           .shaded = shaded,
                           .mark = {all ? "a limit" : "", {&kMark, 1}},
                           .band = {all ? "a range" : "", {&kLow, 1}, {&kHigh, 1}}});
            const Vector missing = chart.MissingSize();
            if (missing.x <= 0.0f && missing.y <= 0.0f)
                return;
        }
    }
};

}  // namespace

void FillEmptyCharts() {
    const Example example;
    for (GLWidget* widget : Toolkit::Get().living) {
        auto* const chart = dynamic_cast<Chart*>(widget);
        if (chart != nullptr && !chart->HasData())
            example.ShowIn(*chart);
    }
}

}  // namespace guiview
