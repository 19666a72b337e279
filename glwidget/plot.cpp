// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/plot.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "quarn2/trace.h"

namespace {

/// With fewer values than this per column, all of them are drawn.
constexpr std::size_t kValuesPerColumn = 2;
/// Columns to both sides of a value alone.
constexpr float kHalfOfAlone = 1.5f;

struct Place {
    std::size_t index;
    float value;
};

/// The values of one column.
class ColumnValues {
public:
    bool Any() const { return any; }

    void Add(std::size_t index, float value) {
        const Place place{index, value};
        if (!any || value < lowest.value)
            lowest = place;
        if (!any || value > highest.value)
            highest = place;
        any = true;
    }

    void AddTo(const PlotArea& area, float x, Vertices& vertices) const {
        const auto [earlier, later] =
            lowest.index < highest.index ? std::pair(lowest, highest) : std::pair(highest, lowest);
        vertices.Add(x, area.Y(earlier.value));
        if (earlier.index != later.index)
            vertices.Add(x, area.Y(later.value));
    }

private:
    Place lowest{};
    Place highest{};
    bool any = false;
};

/// Adds vertices to the run that is under way.
class LineBuilder {
public:
    LineBuilder(const PlotArea& plot, Vertices& target, std::vector<Vertices::Run>& list)
        : area(plot), vertices(target), runs(list), begin(target.Count()) {}

    void End() {
        const float width = area.ColumnWidth() * kHalfOfAlone;
        Vertices::Run run = vertices.Since(begin);
        if (run.count == 1) {
            const Vector alone = vertices.At(begin);
            // A line has a length to both sides, but none beyond the area.
            vertices.Add(std::max(alone.x - width, area.corner.x), alone.y);
            vertices.Add(std::min(alone.x + width, area.corner.x + area.size.x), alone.y);
            run = vertices.Since(begin);
        }
        if (run.count > 0)
            runs.push_back(run);
        begin = vertices.Count();
    }

    void AddEach(std::span<const float> weeks, std::span<const float> values) {
        for (std::size_t index = 0; index < weeks.size(); ++index) {
            const float value = ValueAt(values, index);
            if (std::isnan(value)) {
                End();
            } else {
                vertices.Add(area.X(weeks[index]), area.Y(value));
            }
        }
        End();
    }

    void AddColumns(std::span<const float> weeks, std::span<const float> values) {
        ColumnValues column;
        int number = area.Column(weeks.front());
        for (std::size_t index = 0; index < weeks.size(); ++index) {
            const int next = area.Column(weeks[index]);
            if (next != number)
                EndColumn(std::exchange(column, {}), number);
            number = next;
            const float value = ValueAt(values, index);
            if (!std::isnan(value))
                column.Add(index, value);
        }
        EndColumn(column, number);
        // The line ends at its last value, where its name begins.
        if (!std::isnan(ValueAt(values, weeks.size() - 1)))
            vertices.Add(area.X(weeks.back()), area.Y(ValueAt(values, weeks.size() - 1)));
        End();
    }

private:
    void EndColumn(const ColumnValues& column, int number) {
        const float x = area.corner.x + (static_cast<float>(number) + 0.5f) * area.ColumnWidth();
        if (column.Any()) {
            column.AddTo(area, x, vertices);
        } else {
            End();
        }
    }

    const PlotArea& area;
    Vertices& vertices;
    std::vector<Vertices::Run>& runs;
    std::int32_t begin;
};

}  // namespace

float PlotArea::X(double week) const {
    const double share = std::clamp((week - firstWeek) / (lastWeek - firstWeek), 0.0, 1.0);
    return corner.x + static_cast<float>(share) * size.x;
}

float PlotArea::Y(double value) const {
    // Halves, because the difference of two values may be infinite.
    const double above = value / 2.0 - lowest / 2.0;
    const double share = std::clamp(above / (highest / 2.0 - lowest / 2.0), 0.0, 1.0);
    return corner.y + static_cast<float>(share) * size.y;
}

int PlotArea::Column(double week) const {
    const double share = (week - firstWeek) / (lastWeek - firstWeek);
    return static_cast<int>(std::clamp(share * columns, 0.0, static_cast<double>(columns - 1)));
}

void Vertices::AddBox(float left, float bottom, float right, float top) {
    Add(left, bottom);
    Add(right, bottom);
    Add(right, top);
    Add(left, top);
}

void AddLine(const PlotArea& area, std::span<const float> weeks, std::span<const float> values,
             Vertices& vertices, std::vector<Vertices::Run>& runs) {
    TraceFrame frame("AddLine", "");
    if (weeks.empty())
        return;
    LineBuilder line(area, vertices, runs);
    if (weeks.size() <= kValuesPerColumn * static_cast<std::size_t>(area.columns)) {
        line.AddEach(weeks, values);
    } else {
        line.AddColumns(weeks, values);
    }
}

void AddBand(const PlotArea& area, std::span<const float> weeks, std::span<const float> low,
             std::span<const float> high, Vertices& vertices) {
    TraceFrame frame("AddBand", "");
    if (low.size() == 1 && high.size() == 1) {
        if (!std::isnan(low.front()) && !std::isnan(high.front())) {
            vertices.AddBox(area.corner.x, area.Y(low.front()), area.corner.x + area.size.x,
                            area.Y(high.front()));
        }
        return;
    }
    const auto known = [&](std::size_t index) {
        return !std::isnan(ValueAt(low, index)) && !std::isnan(ValueAt(high, index));
    };
    const auto add = [&](std::size_t index, bool upwards) {
        const float x = area.X(weeks[index]);
        vertices.Add(x, area.Y(ValueAt(upwards ? low : high, index)));
        vertices.Add(x, area.Y(ValueAt(upwards ? high : low, index)));
    };
    std::size_t before = 0;
    for (std::size_t index = 1; index < weeks.size(); ++index) {
        const bool last = index + 1 == weeks.size();
        if (!last && known(index) && area.Column(weeks[index]) == area.Column(weeks[before]))
            continue;
        if (known(before) && known(index)) {
            add(before, true);
            add(index, false);
        }
        before = index;
    }
}

void AddShading(const PlotArea& area, std::span<const float> weeks,
                std::span<const std::uint8_t> marks, Vertices& vertices) {
    TraceFrame frame("AddShading", "");
    const float least = area.ColumnWidth();
    const float bottom = area.corner.y;
    const float top = area.corner.y + area.size.y;
    const float end = area.corner.x + area.size.x;
    float left = 0.0f;
    float right = -1.0f;  // left of `left`: there is no stretch yet
    const auto finish = [&] {
        if (right >= left)
            vertices.AddBox(left, bottom, right, top);
    };
    for (std::size_t index = 0; index < marks.size(); ++index) {
        if (marks[index] == 0)
            continue;
        const float week = weeks[index];
        const float to = std::max(area.X(week), area.corner.x + least);
        const float from =
            std::min(area.X(index > 0 ? weeks[index - 1] : week - 1.0f), std::min(to, end) - least);
        if (right >= left && from <= right) {
            right = to;
            continue;
        }
        finish();
        left = from;
        right = to;
    }
    finish();
}

void SpreadApart(std::span<float> places, float step, float lowest, float highest) {
    TraceFrame frame("SpreadApart", "");
    if (places.empty())
        return;
    const auto gaps = static_cast<float>(places.size() - 1);
    if (gaps * step > highest - lowest)
        step = std::max(highest - lowest, 0.0f) / std::max(gaps, 1.0f);
    const auto offset = [&](std::size_t index) { return static_cast<float>(index) * step; };
    // Without the steps the places only have to rise. Neighbours that fall get their mean.
    for (std::size_t index = 0; index < places.size(); ++index)
        places[index] -= offset(index);
    for (std::size_t end = 1; end < places.size(); ++end) {
        float sum = places[end];
        std::size_t begin = end;
        while (begin > 0 && places[begin - 1] > sum / static_cast<float>(end - begin + 1))
            sum += places[--begin];
        const float mean = sum / static_cast<float>(end - begin + 1);
        std::fill(places.begin() + static_cast<std::ptrdiff_t>(begin),
                  places.begin() + static_cast<std::ptrdiff_t>(end) + 1, mean);
    }
    for (std::size_t index = 0; index < places.size(); ++index)
        places[index] =
            std::max(std::min(places[index], highest - gaps * step), lowest) + offset(index);
}
