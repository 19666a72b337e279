// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/examplechart.h"

#include <gtest/gtest.h>

#include "glwidget/chart.h"
#include "tests/tools/guiview/layout_test.h"

namespace guiview {
namespace {

class ExampleChartTest : public LayoutTest {
protected:
    ExampleChartTest() {
        folder.Write("test.gui",
                     "CONF gui.conf\n"
                     "CADD Chart large NULL -1 -1 1.5 1.5 A\n"
                     "CADD Chart low   NULL -1 0.8 1.5 0.42 B\n");
    }

    static Chart& Find(const char* tag) { return dynamic_cast<Chart&>(*GLWidget::GetByTag(tag)); }

    /// The texts of all series in the middle of a chart, where the mouse is.
    static std::string ReadingInTheMiddle(Chart& chart) {
        const Vector box = chart.PlotBox();
        chart.MouseMove((box.x + box.z) / 2.0f, (box.y + box.w) / 2.0f);
        std::string text;
        for (std::size_t index = 1; index <= Chart::kMaxSeries; ++index)
            text.append(chart.ReadingOf(index)).append(";");
        return text;
    }
};

TEST_F(ExampleChartTest, ChartOfALayoutShowsAsManyLinesAsItHasRoomFor) {
    const auto layout = LayoutSource::Read(Path());
    const BuiltLayout built(*layout);
    EXPECT_EQ(ReadingInTheMiddle(Find("large")), "first 883;second 700;third 600;fourth 554;");
    EXPECT_EQ(ReadingInTheMiddle(Find("low")), "first 883;second 700;;;");
    EXPECT_EQ(Find("low").MissingSize().y, 0.0f);
}

TEST_F(ExampleChartTest, ChartWithDataKeepsThem) {
    const auto layout = LayoutSource::Read(Path());
    const BuiltLayout built(*layout);
    const float week = 1.0f;
    const float value = 77.0f;
    const Chart::Series series{"own", {&value, 1}};
    Find("large").SetData({.weeks = {&week, 1}, .series = {&series, 1}});
    FillEmptyCharts();
    EXPECT_EQ(ReadingInTheMiddle(Find("large")), "own 77;;;;");
}

}  // namespace
}  // namespace guiview
