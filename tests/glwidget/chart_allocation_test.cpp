// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <span>
#include <vector>

#include "glwidget/chart.h"
#include "tests/glwidget/drawn_widget_test.h"
#include "tests/support/allocations.h"

namespace {

class ChartAllocationTest : public DrawnWidgetTest {
protected:
    static constexpr std::size_t kWeeks = 1040;

    ChartAllocationTest() : weeks(kWeeks), values(kWeeks), shaded(kWeeks) {
        LoadFont();
        for (std::size_t week = 0; week < kWeeks; ++week) {
            weeks[week] = static_cast<float>(week + 1);
            values[week] = 1e5f * std::sin(static_cast<float>(week) / 50.0f);
            shaded[week] = week % 100 < 20;
        }
        GLWidget::widgets = {&chart};
        chart.SetWeekTexts(WriteWeek, WriteWeek);
        SetData();
    }

    static void WriteWeek(float week, std::span<char> text) {
        std::snprintf(text.data(), text.size(), "The week of this number: %.0f",
                      static_cast<double>(week));
    }

    void SetData() {
        const float mark = 0.0f;
        chart.SetData({.weeks = weeks,
                       .series = series,
                       .shaded = shaded,
                       .mark = {"the middle of all values", {&mark, 1}}});
    }

    /// Moves the mouse over all weeks and draws the chart each time.
    void Sweep() {
        const Vector box = chart.PlotBox();
        constexpr int kSteps = 40;
        for (int step = -1; step <= kSteps + 1; ++step) {
            const float share = static_cast<float>(step) / kSteps;
            chart.MouseMove(box.x + share * (box.z - box.x), (box.y + box.w) / 2.0f);
            chart.Update(16);
            GLWidget::RenderWidgets();
        }
        glFinish();
    }

    std::vector<float> weeks;
    std::vector<float> values;
    std::vector<std::uint8_t> shaded;
    Chart::Series series[2] = {{"a series with a long name", values},
                               {"another series with a long name", values}};
    Chart chart{
        "chart", nullptr, Vector(-1.5f, -1.0f), theme, Vector(2.5f, 1.5f), "100% of what there is"};
};

TEST_F(ChartAllocationTest, DrawingAndReadingAllocateNothing) {
    Sweep();
    const std::size_t before = AllocationCount();
    ASSERT_GT(before, 0U);
    Sweep();
    EXPECT_EQ(AllocationCount(), before);
}

}  // namespace
