// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// chartposes OUT, started in a data folder, draws charts with unusual series into OUT/charts.png.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <limits>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include "glwidget/chart.h"
#include "tests/support/gl_window.h"
#include "tests/support/png_files.h"

namespace {

constexpr std::uint32_t kWidth = 800;
constexpr std::uint32_t kHeight = 600;
constexpr std::size_t kRowBytes = std::size_t{kWidth} * 4;
/// Milliseconds; longer than any highlight.
constexpr int kSettleMs = 10000;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinite = std::numeric_limits<float>::infinity();
constexpr float kLargest = std::numeric_limits<float>::max();

constexpr char kLayout[] =
    "CONF gui.conf\n"
    "THEM parchment.theme NULL\n"
    "CADD Butt ground NULL -1.7333 -1.3 TEX 3.4667 2.6\n"
    "THEM chart.theme NULL\n"
    "CADD Chart empty    NULL -1.708  0.459 0.8147 0.815 No weeks\n"
    "CADD Chart one      NULL -0.8407 0.459 0.8147 0.815 One week\n"
    "CADD Chart constant NULL  0.026  0.459 0.8147 0.815 Constant\n"
    "CADD Chart negative NULL  0.8927 0.459 0.8147 0.815 Negative\n"
    "CADD Chart infinite NULL -1.708  -0.4075 0.8147 0.815 Infinite\n"
    "CADD Chart gaps     NULL -0.8407 -0.4075 0.8147 0.815 Unknown weeks\n"
    "CADD Chart long     NULL  0.026  -0.4075 0.8147 0.815 10,000 weeks\n"
    "CADD Chart near     NULL  0.8927 -0.4075 0.8147 0.815 Near ends\n"
    "CADD Chart limit    NULL -1.708  -1.274 0.8147 0.815 Up to a limit\n"
    "CADD Chart band     NULL -0.8407 -1.274 0.8147 0.815 Band and shading\n"
    "CADD Chart hovered  NULL  0.026  -1.274 0.8147 0.815 Mouse\n"
    "CADD Chart huge     NULL  0.8927 -1.274 0.8147 0.815 Huge numbers\n";

using Values = std::vector<float>;

/// One value per week, from 0 on.
template <typename Function>
Values Make(std::size_t count, Function function) {
    Values values(count);
    for (std::size_t week = 0; week < count; ++week)
        values[week] = static_cast<float>(function(static_cast<double>(week)));
    return values;
}

Values Weeks(std::size_t count) {
    return Make(count, [](double week) { return week + 1.0; });
}

Chart& Find(const std::string& tag) {
    return dynamic_cast<Chart&>(*GLWidget::GetByTag(tag));
}

void WriteYear(float week, std::span<char> text) {
    std::snprintf(text.data(), text.size(), "%.0f", 1300.0 + std::floor(week / 52.0));
}

void WriteWeek(float week, std::span<char> text) {
    std::snprintf(text.data(), text.size(), "Week %.0f", static_cast<double>(week));
}

void Show(const std::string& tag, const std::vector<Chart::Series>& series, Chart::Data data = {}) {
    const Values weeks = Weeks(series.front().values.size());
    data.weeks = weeks;
    data.series = series;
    Chart& chart = Find(tag);
    chart.SetWeekTexts(WriteWeek, WriteYear);
    chart.SetData(data);
}

void ShowAll() {
    Show("one", {{"corn", Values{70.0f}}, {"oxen", Values{40.0f}}});
    Show("constant", {{"corn", Values(120, 0.5f)}});

    const Values funds = Make(120, [](double week) { return 9000.0 - 150.0 * week; });
    const float zero = 0.0f;
    Show("negative", {{"gold", funds}}, {.mark = {"debt", {&zero, 1}}});

    Values infinite = Make(120, [](double week) { return 10.0 + week / 10.0; });
    std::fill(infinite.begin() + 50, infinite.begin() + 70, kInfinite);
    std::fill(infinite.begin() + 100, infinite.end(), -kInfinite);
    Show("infinite", {{"corn", infinite}});

    Values gaps = Make(60, [](double week) { return std::sin(week / 8.0); });
    std::fill(gaps.begin(), gaps.begin() + 5, kNaN);
    std::fill(gaps.begin() + 30, gaps.begin() + 36, kNaN);
    std::fill(gaps.begin() + 37, gaps.begin() + 41, kNaN);
    gaps.back() = kNaN;
    Show("gaps", {{"corn", gaps}});

    const Values slow =
        Make(10000, [](double week) { return 50.0 + 40.0 * std::sin(week / 900.0); });
    Values fast = Make(10000, [](double week) { return 20.0 + 10.0 * std::sin(week * week); });
    fast[6000] = 110.0f;
    Show("long", {{"corn", slow}, {"oxen", fast}});

    const auto towards = [](double slope) {
        return Make(100, [slope](double week) { return 50.0 + slope * (99.0 - week); });
    };
    const Values near[] = {towards(0.5), towards(0.1), towards(-0.1), towards(-0.5)};
    Show("near", {{"corn", near[0]}, {"oxen", near[1]}, {"gold", near[2]}, {"soap", near[3]}});

    const Values food = Make(120, [](double week) { return 4.0 + week * week / 150.0; });
    const Values least = Make(120, [](double week) { return 6.0 + 2.0 * std::sin(week / 9.0); });
    Show("limit", {{"corn", food}}, {.mark = {"least", least}, .alwaysLow = 0.0f, .limit = 52.0f});

    const Values crime = Make(120, [](double week) { return 0.5 + 0.2 * std::sin(week / 20.0); });
    const Values low = Make(120, [](double week) { return week < 60.0 ? 0.35 : 0.5; });
    const Values high = Make(120, [](double week) { return week < 60.0 ? 0.45 : 0.6; });
    std::vector<std::uint8_t> shaded(120);
    std::fill(shaded.begin() + 20, shaded.begin() + 35, std::uint8_t{1});
    shaded[80] = 1;
    Show("band", {{"crime", crime}},
         {.shaded = shaded, .band = {"calm", low, high}, .alwaysLow = 0.0f, .alwaysHigh = 1.0f});

    Show("hovered", {{"corn", near[0]}, {"oxen", near[3]}});
    Show("huge", {{"gold", Make(100, [](double week) { return (week - 50.0) / 50.0 * kLargest; })},
                  {"corn", Make(100, [](double week) { return week * 1e36; })}});
}

void HoverOver(const Chart& chart) {
    const Vector box = chart.PlotBox();
    const float x = box.x + 0.7f * (box.z - box.x);
    const float y = (box.y + box.w) / 2.0f;
    GLWidget::MouseMoveWidgets({(x / GLWidget::HalfWidth() + 1.0f) * kWidth / 2.0f,
                                (1.0f - y / GLWidget::guiScale) * kHeight / 2.0f});
}

bool Save(const GLWindowForTests& window, const std::string& path) {
    const std::vector<std::uint8_t> rows = window.Pixels();
    Pixels picture{kWidth, kHeight, Bytes(rows.size())};
    for (std::size_t y = 0; y < kHeight; ++y)
        std::copy_n(&rows[(kHeight - 1 - y) * kRowBytes], kRowBytes, &picture.rgba[y * kRowBytes]);
    for (std::size_t alpha = 3; alpha < picture.rgba.size(); alpha += 4)
        picture.rgba[alpha] = 0xFF;
    const Bytes bytes = EncodeWithLibpng(picture);
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    if (file.flush())
        return true;
    std::cerr << "chartposes: " << path << " cannot be written\n";
    return false;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: chartposes OUT\n";
        return 2;
    }
    const GLWindowForTests window;
    std::istringstream layout(kLayout);
    GLWidget::StartGUI(layout, "charts");
    ShowAll();
    HoverOver(Find("hovered"));
    GLWidget::UpdateWidgets(kSettleMs);
    GLWidget::UpdateWidgets(kSettleMs);
    GLWidget::RenderWidgets();
    return Save(window, std::string(argv[1]) + "/charts.png") ? 0 : 1;
}
