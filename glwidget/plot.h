// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "quarn2/vector.h"

/// Values of a chart, one for all weeks or one per week.
inline float ValueAt(std::span<const float> values, std::size_t week) {
    return values.size() == 1 ? values.front() : values[week];
}

/// The area of a chart's lines: where weeks and values are in it.
struct PlotArea {
    static constexpr int kMaxColumns = 4096;

    Vector corner;  ///< lower left
    Vector size;
    int columns = 1;  ///< each a pixel wide; 1 to kMaxColumns
    double firstWeek = 0.0;
    double lastWeek = 1.0;
    double lowest = 0.0;   ///< value at the lower edge
    double highest = 1.0;  ///< value at the upper edge

    float X(double week) const;
    /// Values beyond the edges are at the edge. NaN has no place.
    float Y(double value) const;
    /// 0 to columns - 1.
    int Column(double week) const;
    float ColumnWidth() const { return size.x / static_cast<float>(columns); }
};

/// Corners of lines or quads, as x and y of one after the other, in the form in which OpenGL takes
/// them.
class Vertices {
public:
    /// Vertices that belong together: those of one line, or of some quads.
    struct Run {
        std::int32_t first = 0;
        std::int32_t count = 0;
    };

    void Clear() { coordinates.clear(); }
    void Add(float x, float y) {
        coordinates.push_back(x);
        coordinates.push_back(y);
    }
    void AddBox(float left, float bottom, float right, float top);
    std::int32_t Count() const { return static_cast<std::int32_t>(coordinates.size() / 2); }
    /// Those that were added after a moment when Count was `first`.
    Run Since(std::int32_t first) const { return {first, Count() - first}; }
    const float* Data() const { return coordinates.data(); }
    Vector At(std::int32_t index) const {
        const auto place = static_cast<std::size_t>(index) * 2;
        return {coordinates[place], coordinates[place + 1]};
    }

private:
    std::vector<float> coordinates;
};

/// Adds the line of a series. NaN begins another run, and a value alone becomes a short line. If
/// there are many more values than columns, each column has at most two vertices: the lowest and
/// the highest of its values.
void AddLine(const PlotArea& area, std::span<const float> weeks, std::span<const float> values,
             Vertices& vertices, std::vector<Vertices::Run>& runs);

/// Adds the quads between two series, none where one of them is NaN.
void AddBand(const PlotArea& area, std::span<const float> weeks, std::span<const float> low,
             std::span<const float> high, Vertices& vertices);

/// Adds a quad for every stretch of weeks that are marked.
void AddShading(const PlotArea& area, std::span<const float> weeks,
                std::span<const std::uint8_t> marks, Vertices& vertices);

/// Moves rising places as little as possible until they are `step` apart and between `lowest` and
/// `highest`. If there is no room for that, they are evenly apart.
void SpreadApart(std::span<float> places, float step, float lowest, float highest);
