// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "app/historydisplay.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <span>
#include <string_view>

#include "app/tags.h"
#include "country/date.h"
#include "country/history.h"
#include "country/justice.h"
#include "country/start.h"
#include "glwidget/chart.h"
#include "quarn2/trace.h"

namespace {

using Figure = History::Figure;

constexpr int kDaysPerWeek = 7;
/// The axis of the food ends at so many weeks, so that a large store does not flatten the time
/// before it.
constexpr float kFoodLimitWeeks = 52.0f;
constexpr float kZero = 0.0f;

/// The date at the end of the week. Weeks are counted from the beginning of the reign.
Date DateOf(float week) {
    static const Date begin(start::kDate);
    Date date = begin;
    date.AdvanceDays(std::lround(week) * kDaysPerWeek);
    return date;
}

void WriteDay(float week, std::span<char> text) {
    std::snprintf(text.data(), text.size(), "%s", DateOf(week).DayText().c_str());
}

void WriteYear(float week, std::span<char> text) {
    std::snprintf(text.data(), text.size(), "%d", DateOf(week).year);
}

Chart* ChartOf(std::string_view tag) {
    return dynamic_cast<Chart*>(GLWidget::GetByTag(tag, false));
}

}  // namespace

void HistoryDisplay::Show(const History& history) {
    TraceFrame frame("Show", "HistoryDisplay");
    if (history.WeeksPassed() == weeksSeen)
        return;
    weeksSeen = history.WeeksPassed();
    const auto show = [&](std::string_view tag,
                          void (HistoryDisplay::*fill)(Chart&, const History&)) {
        Chart* const chart = ChartOf(tag);
        if (chart == nullptr)
            return;
        chart->SetWeekTexts(WriteDay, WriteYear);
        (this->*fill)(*chart, history);
    };
    show(tag::kPeopleChart, &HistoryDisplay::ShowPeople);
    show(tag::kFoodChart, &HistoryDisplay::ShowFood);
    show(tag::kTreasuryChart, &HistoryDisplay::ShowTreasury);
    show(tag::kLawChart, &HistoryDisplay::ShowLaw);
}

void HistoryDisplay::ShowPeople(Chart& chart, const History& history) {
    const std::array<Chart::Series, 2> series{
        {{"People", history.Of(Figure::Population)}, {"Idle", history.Of(Figure::Idle)}}};
    chart.SetData(
        {.weeks = history.Weeks(), .series = series, .shaded = history.Marks(), .alwaysLow = 0.0f});
}

void HistoryDisplay::ShowFood(Chart& chart, const History& history) {
    const std::array<Chart::Series, 2> series{{{"Grain", history.Of(Figure::GrainWeeks)},
                                               {"Livestock", history.Of(Figure::LivestockWeeks)}}};
    chart.SetData({.weeks = history.Weeks(),
                   .series = series,
                   .shaded = history.Marks(),
                   .mark = {"Herd lost", history.Of(Figure::LivestockLimit)},
                   .alwaysLow = 0.0f,
                   .limit = kFoodLimitWeeks});
}

void HistoryDisplay::ShowTreasury(Chart& chart, const History& history) {
    const std::array<Chart::Series, 1> series{{{"Doubloons", history.Of(Figure::Funds)}}};
    chart.SetData({.weeks = history.Weeks(),
                   .series = series,
                   .shaded = history.Marks(),
                   .mark = {"Debt", std::span(&kZero, 1)}});
}

void HistoryDisplay::ShowLaw(Chart& chart, const History& history) {
    calmLow.clear();
    calmHigh.clear();
    for (const float justice : history.Of(Figure::Justice)) {
        calmLow.push_back(justice - Justice::kCalmGap);
        calmHigh.push_back(justice + Justice::kCalmGap);
    }
    const std::array<Chart::Series, 3> series{{{"Morale", history.Of(Figure::Morale)},
                                               {"Crime", history.Of(Figure::Crime)},
                                               {"Justice", history.Of(Figure::Justice)}}};
    chart.SetData({.weeks = history.Weeks(),
                   .series = series,
                   .shaded = history.Marks(),
                   .band = {"Calm", calmLow, calmHigh},
                   .alwaysLow = 0.0f,
                   .alwaysHigh = 1.0f});
}
