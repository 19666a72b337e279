// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/chart.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "tests/glwidget/drawn_widget_test.h"
#include "tests/glwidget/opened.h"
#include "tests/glwidget/widget_test.h"
#include "tests/support/temporary_folder.h"

namespace {

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinite = std::numeric_limits<float>::infinity();

const Vector kCorner(0.3f, -0.2f);
const Vector kSize(1.3f, 0.9f);

using Values = std::vector<float>;

/// Weeks 1 to `count`.
Values Weeks(std::size_t count) {
    Values weeks(count);
    for (std::size_t week = 0; week < count; ++week)
        weeks[week] = static_cast<float>(week + 1);
    return weeks;
}

/// The middle of the area in which a sample is, in the coordinates of the mouse.
Vector PlaceOf(const Chart& chart, float share) {
    const Vector box = chart.PlotBox();
    return {box.x + share * (box.z - box.x), (box.y + box.w) / 2.0f};
}

void Show(Chart& chart, const Values& weeks, const Values& values) {
    const Chart::Series series{"corn", values};
    chart.SetData({.weeks = weeks, .series = {&series, 1}});
}

class ChartTest : public WidgetTest {
protected:
    ChartTest() {
        FontAccess::SetAdvances(GLWidget::font, 0.5f);
        chart.emplace("chart", nullptr, kCorner, theme, kSize, "How much corn?");
    }
    void HoverAt(float share) {
        chart->MouseMove(PlaceOf(*chart, share).x, PlaceOf(*chart, share).y);
    }

    std::optional<Opened<Chart>> chart;
};

using ChartDeathTest = ChartTest;

TEST_F(ChartTest, HasItsSizeAndCaption) {
    EXPECT_EQ(chart->GetType(), "Chart");
    EXPECT_EQ(chart->GetText(), "How much corn?");
    const Vector box = chart->Getbbox();
    EXPECT_FLOAT_EQ(box.x, 0.3f);
    EXPECT_FLOAT_EQ(box.y, -0.2f);
    EXPECT_FLOAT_EQ(box.z, 1.6f);
    EXPECT_FLOAT_EQ(box.w, 0.7f);
    EXPECT_FALSE(chart->HasData());
}

TEST_F(ChartTest, LinesAreInsideOfTheChart) {
    const auto expectInside = [this] {
        const Vector plot = chart->PlotBox();
        const Vector box = chart->Getbbox();
        EXPECT_GT(plot.x, box.x);
        EXPECT_GT(plot.y, box.y);
        EXPECT_LT(plot.z, box.z);
        EXPECT_LT(plot.w, box.w);
        EXPECT_GT(plot.z, plot.x);
        EXPECT_GT(plot.w, plot.y);
    };
    expectInside();
    Show(*chart, Weeks(3), {1.0f, 2.0f, 1e6f});
    expectInside();
}

TEST_F(ChartTest, MouseReadsTheNearestWeek) {
    Show(*chart, {1.0f, 2.0f, 6.0f, 11.0f}, {100.0f, 200.0f, 1234.0f, 50.0f});
    HoverAt(0.04f);
    EXPECT_EQ(chart->Hovered(), 0);
    HoverAt(0.06f);
    EXPECT_EQ(chart->Hovered(), 1);
    EXPECT_EQ(chart->ReadingOf(0), "Week 2");
    EXPECT_EQ(chart->ReadingOf(1), "corn 200");
    HoverAt(0.74f);
    EXPECT_EQ(chart->ReadingOf(0), "Week 6");
    EXPECT_EQ(chart->ReadingOf(1), "corn 1,234");
    HoverAt(1.0f);
    EXPECT_EQ(chart->ReadingOf(0), "Week 11");
}

TEST_F(ChartTest, MouseOutsideOfTheLinesReadsNothing) {
    Show(*chart, Weeks(3), {1.0f, 2.0f, 3.0f});
    const Vector plot = chart->PlotBox();
    const Vector middle = PlaceOf(*chart, 0.5f);
    const float step = 0.001f;
    for (const Vector& place : {Vector(plot.x - step, middle.y), Vector(plot.z + step, middle.y),
                                Vector(middle.x, plot.y - step), Vector(middle.x, plot.w + step)}) {
        HoverAt(0.5f);
        EXPECT_EQ(chart->Hovered(), 1);
        chart->MouseMove(place.x, place.y);
        EXPECT_EQ(chart->Hovered(), -1);
        EXPECT_EQ(chart->ReadingOf(0), "");
        EXPECT_EQ(chart->ReadingOf(1), "");
    }
}

TEST_F(ChartTest, MouseReadsNothingWithoutData) {
    HoverAt(0.5f);
    EXPECT_EQ(chart->Hovered(), -1);
    chart->SetData({});
    HoverAt(0.5f);
    EXPECT_EQ(chart->Hovered(), -1);
}

TEST_F(ChartTest, SingleWeekIsReadAnywhere) {
    Show(*chart, {7.0f}, {5.0f});
    HoverAt(0.0f);
    EXPECT_EQ(chart->ReadingOf(0), "Week 7");
    HoverAt(1.0f);
    EXPECT_EQ(chart->ReadingOf(1), "corn 5");
}

TEST_F(ChartTest, NewDataChangeTheReadingBelowTheMouse) {
    Show(*chart, Weeks(3), {1.0f, 2.0f, 3.0f});
    HoverAt(1.0f);
    EXPECT_EQ(chart->ReadingOf(1), "corn 3");
    Show(*chart, Weeks(4), {1.0f, 2.0f, 3.0f, 8.0f});
    EXPECT_EQ(chart->ReadingOf(0), "Week 4");
    EXPECT_EQ(chart->ReadingOf(1), "corn 8");
    chart->SetData({});
    EXPECT_EQ(chart->Hovered(), -1);
}

TEST_F(ChartTest, DataAreCopied) {
    Values weeks = Weeks(2);
    Values values{3.0f, 4.0f};
    Show(*chart, weeks, values);
    weeks.assign(2, 0.0f);
    values.assign(2, 0.0f);
    HoverAt(1.0f);
    EXPECT_EQ(chart->ReadingOf(0), "Week 2");
    EXPECT_EQ(chart->ReadingOf(1), "corn 4");
}

TEST_F(ChartTest, ProgramWritesTheWeeks) {
    chart->SetWeekTexts(
        [](float week, std::span<char> text) {
            std::snprintf(text.data(), text.size(), "day %.0f", static_cast<double>(week) * 7.0);
        },
        [](float, std::span<char> text) { std::snprintf(text.data(), text.size(), "1300"); });
    Show(*chart, Weeks(3), {1.0f, 2.0f, 3.0f});
    HoverAt(1.0f);
    EXPECT_EQ(chart->ReadingOf(0), "day 21");
}

TEST_F(ChartTest, LongTextOfAWeekInTheMiddleHasRoom) {
    const auto placeWith = [this](const char* middle) {
        const auto write = [middle](float week, std::span<char> text) {
            std::snprintf(text.data(), text.size(), "%s", week == Weeks(3)[1] ? middle : "1");
        };
        chart->SetWeekTexts(write, write);
        Show(*chart, Weeks(3), {1.0f, 2.0f, 3.0f});
        return chart->ReadingPlace(0).x;
    };
    const float shortText = placeWith("1");
    EXPECT_LT(placeWith("1388"), shortText);
}

TEST_F(ChartTest, WeekTextWithoutAnEndIsCut) {
    const auto endless = [](float, std::span<char> text) { std::ranges::fill(text, 'x'); };
    chart->SetWeekTexts(endless, endless);
    Show(*chart, Weeks(2), {1.0f, 2.0f});
    HoverAt(1.0f);
    EXPECT_EQ(chart->ReadingOf(0), std::string(63, 'x'));
}

TEST_F(ChartTest, DecimalsAreThoseThatTheLargestValueNeeds) {
    const auto readingWith = [this](float value, float other) {
        Show(*chart, Weeks(2), {other, value});
        HoverAt(1.0f);
        return std::string(chart->ReadingOf(1));
    };
    EXPECT_EQ(readingWith(0.5f, 0.25f), "corn 0.50");
    EXPECT_EQ(readingWith(0.5f, 12.5f), "corn 0.5");
    EXPECT_EQ(readingWith(0.75f, 120.5f), "corn 1");
    EXPECT_EQ(readingWith(3.0f, 4.0f), "corn 3");
}

TEST_F(ChartTest, ValueThatIsNoFiniteNumberIsReadAsAWord) {
    Show(*chart, Weeks(3), {kInfinite, kNaN, 2.0f});
    HoverAt(0.0f);
    EXPECT_EQ(chart->ReadingOf(1), "corn infinite");
    HoverAt(0.5f);
    EXPECT_EQ(chart->ReadingOf(1), "corn unknown");
}

TEST_F(ChartTest, UpToFourSeriesAreRead) {
    const Values weeks = Weeks(2);
    const Values values[] = {{1.0f, 2.0f}, {3.0f, 4.0f}, {5.0f, 6.0f}, {7.0f, 8.0f}};
    const Chart::Series series[] = {
        {"a", values[0]}, {"b", values[1]}, {"c", values[2]}, {"d", values[3]}};
    chart->SetData({.weeks = weeks, .series = series});
    HoverAt(1.0f);
    EXPECT_EQ(chart->ReadingOf(1), "a 2");
    EXPECT_EQ(chart->ReadingOf(4), "d 8");
    chart->SetData({.weeks = weeks, .series = std::span(series).first(2)});
    EXPECT_EQ(chart->ReadingOf(2), "b 4");
    EXPECT_EQ(chart->ReadingOf(3), "");
}

TEST_F(ChartTest, SmallChartMissesRoomForItsTexts) {
    Chart small("small", nullptr, kCorner, theme, Vector(0.3f, 0.9f), "");
    Chart low("low", nullptr, kCorner, theme, Vector(1.3f, 0.2f), "");
    for (Chart* each : {static_cast<Chart*>(&*chart), &small, &low})
        Show(*each, Weeks(2), {1000.0f, 2000.0f});
    EXPECT_EQ(chart->MissingSize().x, 0.0f);
    EXPECT_EQ(chart->MissingSize().y, 0.0f);
    EXPECT_GT(small.MissingSize().x, 0.0f);
    EXPECT_EQ(small.MissingSize().y, 0.0f);
    EXPECT_EQ(low.MissingSize().x, 0.0f);
    EXPECT_GT(low.MissingSize().y, 0.0f);
}

TEST_F(ChartTest, ReadingHasRoomForUnknownAndInfiniteValues) {
    Chart narrow("narrow", nullptr, kCorner, theme, Vector(0.5f, 0.9f), "");
    const auto missingWith = [&](float value) {
        const Values weeks = Weeks(3);
        const Values values{1.0f, value, 2.0f};
        const std::vector<Chart::Series> series(Chart::kMaxSeries, Chart::Series{"", values});
        narrow.SetData({.weeks = weeks, .series = series});
        return narrow.MissingSize().x;
    };
    EXPECT_EQ(missingWith(3.0f), 0.0f);
    EXPECT_GT(missingWith(kNaN), 0.0f);
    EXPECT_GT(missingWith(kInfinite), 0.0f);
}

TEST_F(ChartTest, SizeWithoutAreaIsHarmless) {
    for (const Vector& size : {Vector(0.0f, 0.0f), Vector(1e-30f, 1e-30f), Vector(1e30f, 1e30f),
                               Vector(kInfinite, kInfinite), Vector(kNaN, kNaN)}) {
        Chart odd("odd", nullptr, kCorner, theme, size, "A caption");
        Show(odd, Weeks(3), {1.0f, 2.0f, 3.0f});
        odd.MouseMove(0.3f, -0.2f);
        odd.Update(16);
        EXPECT_TRUE(odd.HasData());
    }
}

TEST_F(ChartTest, NewFontMovesTheLinesWithTheNextUpdate) {
    Show(*chart, Weeks(2), {1000.0f, 2000.0f});
    const Vector before = chart->PlotBox();
    FontAccess::SetAdvances(GLWidget::font, 1.0f);
    ++GLWidget::fontLoads;
    chart->Update(16);
    EXPECT_GT(chart->PlotBox().x, before.x);
    EXPECT_LT(chart->PlotBox().z, before.z);
}

TEST_F(ChartTest, ClicksAreNotTaken) {
    Show(*chart, Weeks(2), {1.0f, 2.0f});
    HoverAt(0.5f);
    EXPECT_FALSE(chart->MouseClick(true, false, false));
    EXPECT_FALSE(chart->BeenClicked());
    EXPECT_FALSE(chart->Clicked());
}

TEST_F(ChartTest, SeriesThemeComesFromItsFile) {
    GLWidget::themes.clear();
    theme = GLWidget::NewTheme("default");
    const WorkingFolder folder;
    folder.Write("series2.theme", "0.1 0.2 0.3\n0.4 0.5 0.6\n");
    testing::internal::CaptureStderr();
    const Chart read("read", nullptr, kCorner, theme, kSize, "");
    testing::internal::GetCapturedStderr();
    EXPECT_FLOAT_EQ(read.SeriesTheme(1).textColour.y, 0.2f);
    EXPECT_FLOAT_EQ(read.SeriesTheme(1).lineColour.z, 0.6f);
}

TEST_F(ChartTest, SeriesWithoutAThemeFileDifferInColour) {
    for (std::size_t index = 0; index < Chart::kMaxSeries; ++index) {
        const Vector& colour = chart->SeriesTheme(index).lineColour;
        for (std::size_t other = 0; other < index; ++other)
            EXPECT_NE(colour.y, chart->SeriesTheme(other).lineColour.y);
    }
}

TEST_F(ChartDeathTest, SeriesOfAnotherLengthThanTheWeeksFailsAnAssertion) {
    EXPECT_EXIT(Show(*chart, Weeks(3), {1.0f, 2.0f}), testing::ExitedWithCode(0),
                "Assert failed on glwidget/chart");
}

TEST_F(ChartDeathTest, WeeksThatDoNotRiseFailAnAssertion) {
    EXPECT_EXIT(Show(*chart, {1.0f, 1.0f}, {1.0f, 2.0f}), testing::ExitedWithCode(0),
                "Assert failed on glwidget/chart");
}

TEST_F(ChartDeathTest, FifthSeriesFailsAnAssertion) {
    const std::vector<Chart::Series> series(5);
    EXPECT_EXIT(chart->SetData({.series = series}), testing::ExitedWithCode(0),
                "Assert failed on glwidget/chart");
}

TEST_F(ChartDeathTest, RenderingOutsideRenderWidgetsFailsTheAssertion) {
    EXPECT_EXIT(chart->Render(), testing::ExitedWithCode(0), "Assert failed on glwidget/chart");
}

class DrawnChartTest : public DrawnWidgetTest {
protected:
    // On a blue chart with red outlines and white texts
    static constexpr Colour kGround{0, 0, 153};
    static constexpr Colour kOutline{255, 0, 0};
    static constexpr Colour kFirst{0, 255, 0};
    static constexpr Colour kSecond{255, 255, 0};

    DrawnChartTest() {
        LoadFont();
        chart.emplace("chart", nullptr, kCorner, theme, kSize, "");
        Paint(0, Vector(0.0f, 1.0f, 0.0f));
        Paint(1, Vector(1.0f, 1.0f, 0.0f));
    }

    static void Paint(std::size_t series, const Vector& colour) {
        Theme& look =
            *GLWidget::themes.find(std::string_view(Chart::kSeriesThemes[series]))->second;
        look.textColour = look.lineColour = colour;
    }

    /// The pixels of a colour in the area of the lines.
    int CountInPlot(const Colour& colour) const {
        const Vector plot = chart->PlotBox();
        return Count(colour, plot.x, plot.y, plot.z, plot.w);
    }
    /// The same in the area of the names at the ends of the lines.
    int CountInNames(const Colour& colour, float bottom, float top) const {
        const float unit = theme->fontSize.y;
        return Count(colour, chart->PlotBox().z + 1.2f * unit, bottom, kCorner.x + kSize.x, top);
    }

    std::optional<Opened<Chart>> chart;
};

TEST_F(DrawnChartTest, ChartWithoutWeeksSaysSo) {
    const auto textInTheMiddle = [this] {
        const Vector plot = chart->PlotBox();
        const float middle = (plot.x + plot.z) / 2.0f;
        const float height = (plot.y + plot.w) / 2.0f;
        return CountText(middle - 0.1f, height - 0.05f, middle, height + 0.05f);
    };
    Draw(*chart);
    EXPECT_GT(textInTheMiddle(), 50);
    Show(*chart, Weeks(5), {0.0f, 0.0f, 0.0f, 0.0f, 9.0f});
    Draw(*chart);
    EXPECT_EQ(textInTheMiddle(), 0);
}

TEST_F(DrawnChartTest, LineGoesFromTheFirstWeekToTheLast) {
    Show(*chart, Weeks(3), {0.0f, 10.0f, 0.0f});
    Draw(*chart);
    const Vector plot = chart->PlotBox();
    const float dot = 0.01f;
    const float middle = (plot.x + plot.z) / 2.0f;
    EXPECT_GT(Count(kFirst, plot.x, plot.y - dot, plot.x + 2 * dot, plot.y + 4 * dot), 0);
    EXPECT_GT(Count(kFirst, middle - dot, plot.w - 2 * dot, middle + dot, plot.w + dot), 0);
    EXPECT_GT(Count(kFirst, plot.z - 2 * dot, plot.y - dot, plot.z, plot.y + 4 * dot), 0);
    EXPECT_EQ(Count(kFirst, plot.x, plot.w - 4 * dot, plot.x + 10 * dot, plot.w), 0);
}

TEST_F(DrawnChartTest, ConstantSeriesIsInTheMiddle) {
    Show(*chart, Weeks(3), {0.5f, 0.5f, 0.5f});
    Draw(*chart);
    const Vector plot = chart->PlotBox();
    const float middle = (plot.y + plot.w) / 2.0f;
    EXPECT_GT(Count(kFirst, plot.x, middle - 0.01f, plot.z, middle + 0.01f), 100);
    EXPECT_EQ(CountInPlot(kFirst), Count(kFirst, plot.x, middle - 0.01f, plot.z, middle + 0.01f));
}

TEST_F(DrawnChartTest, SingleWeekIsADotAtTheRightEdge) {
    Show(*chart, {9.0f}, {5.0f});
    Draw(*chart);
    const Vector plot = chart->PlotBox();
    EXPECT_GT(CountInPlot(kFirst), 2);
    EXPECT_EQ(CountInPlot(kFirst), Count(kFirst, plot.z - 0.02f, plot.y, plot.z, plot.w));
}

TEST_F(DrawnChartTest, UnknownWeeksAreAGap) {
    Show(*chart, Weeks(5), {1.0f, 1.0f, kNaN, 1.0f, 1.0f});
    Draw(*chart);
    const Vector plot = chart->PlotBox();
    const float width = plot.z - plot.x;
    const auto drawn = [&](float from, float to) {
        return Count(kFirst, plot.x + from * width, plot.y, plot.x + to * width, plot.w);
    };
    EXPECT_GT(drawn(0.05f, 0.2f), 0);
    EXPECT_EQ(drawn(0.3f, 0.7f), 0);
    EXPECT_GT(drawn(0.8f, 0.95f), 0);
}

TEST_F(DrawnChartTest, InfiniteValueIsAtTheUpperEdgeAndAboveAllOthers) {
    Show(*chart, Weeks(4), {1.0f, 2.0f, kInfinite, kInfinite});
    Draw(*chart);
    const Vector plot = chart->PlotBox();
    const float middle = (plot.x + plot.z) / 2.0f;
    EXPECT_GT(Count(kFirst, plot.z - 0.2f, plot.w - 0.01f, plot.z, plot.w + 0.01f), 10);
    EXPECT_EQ(Count(kFirst, plot.x, plot.w - 0.02f, middle - 0.2f, plot.w), 0);
}

TEST_F(DrawnChartTest, ValueAboveTheLimitIsAtTheUpperEdge) {
    const Values weeks = Weeks(3);
    const Values values{10.0f, 500.0f, 500.0f};
    const Chart::Series series{"corn", values};
    chart->SetData({.weeks = weeks, .series = {&series, 1}, .alwaysLow = 0.0f, .limit = 20.0f});
    Draw(*chart);
    const Vector plot = chart->PlotBox();
    EXPECT_GT(Count(kFirst, plot.z - 0.2f, plot.w - 0.01f, plot.z, plot.w + 0.01f), 10);
    // 10 of 0 to 20 is in the middle.
    const float middle = (plot.y + plot.w) / 2.0f;
    EXPECT_GT(Count(kFirst, plot.x, middle - 0.01f, plot.x + 0.02f, middle + 0.03f), 0);
}

TEST_F(DrawnChartTest, SeriesDifferInPattern) {
    std::vector<int> drawn;
    for (std::size_t series = 0; series < Chart::kMaxSeries; ++series) {
        const Values weeks = Weeks(2);
        const Values gone{kNaN, kNaN};
        const Values constant{1.0f, 1.0f};
        std::vector<Chart::Series> all(series, Chart::Series{"", gone});
        all.push_back({"", constant});
        Paint(series, Vector(0.0f, 1.0f, 0.0f));
        chart->SetData({.weeks = weeks, .series = all});
        Draw(*chart);
        drawn.push_back(CountInPlot(kFirst));
    }
    for (std::size_t series = 0; series < drawn.size(); ++series) {
        EXPECT_GT(drawn[series], 100);
        for (std::size_t other = 0; other < series; ++other)
            EXPECT_GT(std::abs(drawn[series] - drawn[other]), 20) << series << ' ' << other;
    }
}

TEST_F(DrawnChartTest, NamesOfLinesThatEndTogetherAreOneAboveTheOther) {
    const Values weeks = Weeks(2);
    const Values values{1.0f, 2.0f};
    const Chart::Series series[] = {{"HHH", values}, {"MMM", values}};
    theme->fontSize = Vector(0.1f, 0.1f);  // so large that letters have pixels of their full colour
    chart->SetData({.weeks = weeks, .series = series});
    Draw(*chart);
    const float bottom = kCorner.y;
    const float top = kCorner.y + kSize.y;
    ASSERT_GT(CountInNames(kFirst, bottom, top), 10);
    ASSERT_GT(CountInNames(kSecond, bottom, top), 10);
    float lowestOfFirst = top;
    float highestOfSecond = bottom;
    const float pixel = 2.6f / 600.0f;
    for (float y = bottom; y < top; y += pixel) {
        if (CountInNames(kFirst, y, y) > 0)
            lowestOfFirst = std::min(lowestOfFirst, y);
        if (CountInNames(kSecond, y, y) > 0)
            highestOfSecond = std::max(highestOfSecond, y);
    }
    EXPECT_GT(lowestOfFirst, highestOfSecond);
}

TEST_F(DrawnChartTest, FirstSeriesIsOnTop) {
    const Values weeks = Weeks(2);
    const Values values{1.0f, 1.0f};
    const Chart::Series series[] = {{"", values}, {"", values}};
    chart->SetData({.weeks = weeks, .series = series});
    Draw(*chart);
    EXPECT_GT(CountInPlot(kFirst), 100);
    EXPECT_EQ(CountInPlot(kSecond), 0);
}

TEST_F(DrawnChartTest, MarkedWeeksAreShaded) {
    const Values weeks = Weeks(5);
    const Values values(5, 1.0f);
    const std::uint8_t shaded[] = {0, 0, 1, 0, 0};
    const Chart::Series series{"", values};
    chart->SetData({.weeks = weeks, .series = {&series, 1}, .shaded = shaded});
    Draw(*chart);
    const Vector plot = chart->PlotBox();
    const float high = plot.w - 0.1f;
    const float week = (plot.z - plot.x) / 4.0f;
    EXPECT_EQ(At(plot.x + 0.5f * week, high), kGround);
    EXPECT_GT(At(plot.x + 1.5f * week, high).red, 30);
    EXPECT_EQ(At(plot.x + 2.5f * week, high), kGround);
}

TEST_F(DrawnChartTest, MarkAndBandAreAtTheirValues) {
    const Values weeks = Weeks(2);
    const Values values{0.0f, 10.0f};
    const float mark = 7.5f;
    const float low = 2.0f;
    const float high = 4.0f;
    const Chart::Series series{"", values};
    chart->SetData({.weeks = weeks,
                    .series = {&series, 1},
                    .mark = {"", {&mark, 1}},
                    .band = {"", {&low, 1}, {&high, 1}}});
    Draw(*chart);
    const Vector plot = chart->PlotBox();
    const float left = plot.x + 0.05f;
    const auto y = [&](float value) { return plot.y + value / 10.0f * (plot.w - plot.y); };
    EXPECT_GT(Count(kOutline, left, y(7.4f), plot.z, y(7.6f)), 100);
    EXPECT_EQ(Count(kOutline, left, y(6.0f), plot.z, y(7.0f)), 0);
    EXPECT_EQ(At(left + 0.8f, y(1.5f)), kGround);
    EXPECT_GT(At(left + 0.8f, y(3.0f)).red, 15);
    EXPECT_EQ(At(left + 0.8f, y(4.5f)), kGround);
}

TEST_F(DrawnChartTest, MouseShowsALineAtItsWeek) {
    Show(*chart, Weeks(5), {1.0f, 1.0f, 1.0f, 1.0f, 1.0f});
    const Vector place = PlaceOf(*chart, 0.26f);
    chart->MouseMove(place.x, place.y);
    Draw(*chart);
    const Vector plot = chart->PlotBox();
    const float x = plot.x + 0.25f * (plot.z - plot.x);
    EXPECT_GT(Count({255, 255, 255}, x - 0.005f, plot.y, x + 0.005f, plot.w), 50);
}

TEST_F(DrawnChartTest, DrawingLeavesTheStateOfOpenGLAsItWas) {
    Show(*chart, Weeks(5), {1.0f, 3.0f, 2.0f, 1.0f, 1.0f});
    Draw(*chart);
    EXPECT_EQ(ModelView(), kIdentity);
    EXPECT_EQ(glIsEnabled(GL_LINE_STIPPLE), GL_FALSE);
    EXPECT_EQ(glIsEnabled(GL_VERTEX_ARRAY), GL_FALSE);
}

}  // namespace
