// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// A chart with four series: preparing it, which happens once a week, and drawing it and reading it
// under the mouse, which happen in every frame.

#include <GL/gl.h>
#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <iostream>
#include <sstream>
#include <vector>

#include "glwidget/chart.h"
#include "quarn2/trace.h"
#include "tests/support/gl_window.h"

namespace {

constexpr std::array<const char*, Chart::kMaxSeries> kNames{"first", "second", "third", "fourth"};

/// The chart, in a window, with as many weeks as the argument of the benchmark says.
class ShownChart {
public:
    explicit ShownChart(std::int64_t count, bool rough = false) : chart(Made()) {
        const auto size = static_cast<std::size_t>(count);
        weeks.resize(size);
        values.assign(kNames.size(), std::vector<float>(size));
        for (std::size_t week = 0; week < size; ++week) {
            weeks[week] = static_cast<float>(week + 1);
            for (std::size_t index = 0; index < values.size(); ++index) {
                const auto turn = static_cast<float>(week * (index + 1));
                values[index][week] =
                    rough ? std::sin(turn) + static_cast<float>(index) : std::sin(turn / 200.0f);
            }
        }
        for (std::size_t index = 0; index < values.size(); ++index)
            series[index] = {kNames[index], values[index]};
        Prepare();
    }

    void Prepare() { chart.SetData({.weeks = weeks, .series = series}); }
    Chart& Get() { return chart; }

private:
    static Chart& Made() {
        static GLWindowForTests window;
        static Chart& made = []() -> Chart& {
            trace::Start();
            const std::ostringstream quiet;
            std::streambuf* const errors = std::cerr.rdbuf(quiet.rdbuf());
            const bool loaded = GLWidget::font.Init(FONT_FILE);
            Theme* const theme = GLWidget::NewTheme("default");
            theme->fontSize = Vector(0.0495f, 0.0495f);
            auto* const widget = new Chart("chart", nullptr, Vector(-1.6f, -1.2f), theme,
                                           Vector(1.5f, 1.0f), "How many are we?");
            GLWidget::widgets.push_back(widget);
            std::cerr.rdbuf(errors);
            if (!loaded)
                std::cerr << "the font cannot be loaded\n";
            return *widget;
        }();
        return made;
    }

    Chart& chart;
    std::vector<float> weeks;
    std::vector<std::vector<float>> values;
    std::array<Chart::Series, Chart::kMaxSeries> series;
};

void BM_PrepareChart(benchmark::State& state) {
    ShownChart shown(state.range(0));
    for (auto _ : state)
        shown.Prepare();
}
BENCHMARK(BM_PrepareChart)->Arg(52)->Arg(1040)->Arg(10000);

void BM_DrawChart(benchmark::State& state) {
    const ShownChart shown(state.range(0));
    for (auto _ : state) {
        GLWidget::RenderWidgets();
        glFinish();
    }
}
BENCHMARK(BM_DrawChart)->Arg(52)->Arg(1040)->Arg(10000)->Unit(benchmark::kMicrosecond);

/// Every week far from the week before, which is the most expensive line to draw.
void BM_DrawChartOfRoughSeries(benchmark::State& state) {
    const ShownChart shown(state.range(0), true);
    for (auto _ : state) {
        GLWidget::RenderWidgets();
        glFinish();
    }
}
BENCHMARK(BM_DrawChartOfRoughSeries)->Arg(1040)->Arg(10000)->Unit(benchmark::kMicrosecond);

void BM_DrawEmptyChart(benchmark::State& state) {
    ShownChart shown(1);
    shown.Get().SetData({});
    for (auto _ : state) {
        GLWidget::RenderWidgets();
        glFinish();
    }
}
BENCHMARK(BM_DrawEmptyChart)->Unit(benchmark::kMicrosecond);

void BM_MoveMouseOverChart(benchmark::State& state) {
    ShownChart shown(state.range(0));
    const Vector box = shown.Get().PlotBox();
    int step = 0;
    for (auto _ : state) {
        step = (step + 7) % 100;
        shown.Get().MouseMove(box.x + (box.z - box.x) * static_cast<float>(step) / 100.0f,
                              (box.y + box.w) / 2.0f);
    }
}
BENCHMARK(BM_MoveMouseOverChart)->Arg(52)->Arg(1040)->Arg(10000);

}  // namespace

BENCHMARK_MAIN();
