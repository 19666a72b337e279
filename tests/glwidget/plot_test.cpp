// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/plot.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::FloatEq;
using testing::FloatNear;
using testing::Pointwise;

constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinite = std::numeric_limits<float>::infinity();

/// 0.8 by 0.4 at (0.3, -0.2), 80 columns; weeks 1 to 5, values -10 to 10.
PlotArea Area() {
    return {.corner = Vector(0.3f, -0.2f),
            .size = Vector(0.8f, 0.4f),
            .columns = 80,
            .firstWeek = 1.0,
            .lastWeek = 5.0,
            .lowest = -10.0,
            .highest = 10.0};
}

std::vector<float> Coordinates(const Vertices& vertices, Vertices::Run run) {
    const float* const first = vertices.Data() + static_cast<std::ptrdiff_t>(run.first) * 2;
    return {first, first + static_cast<std::ptrdiff_t>(run.count) * 2};
}

std::vector<float> Coordinates(const Vertices& vertices) {
    return Coordinates(vertices, {0, vertices.Count()});
}

auto Are(const std::vector<float>& values) {
    return Pointwise(FloatNear(1e-5f), values);
}

TEST(PlotArea, WeeksGoFromTheLeftEdgeToTheRightOne) {
    EXPECT_FLOAT_EQ(Area().X(1.0), 0.3f);
    EXPECT_FLOAT_EQ(Area().X(2.0), 0.5f);
    EXPECT_FLOAT_EQ(Area().X(5.0), 1.1f);
    EXPECT_FLOAT_EQ(Area().X(9.0), 1.1f);
    EXPECT_FLOAT_EQ(Area().X(-9.0), 0.3f);
}

TEST(PlotArea, ValuesGoFromTheLowerEdgeToTheUpperOne) {
    EXPECT_FLOAT_EQ(Area().Y(-10.0), -0.2f);
    EXPECT_FLOAT_EQ(Area().Y(5.0), 0.1f);
    EXPECT_FLOAT_EQ(Area().Y(10.0), 0.2f);
}

TEST(PlotArea, ValueBeyondAnEdgeIsAtTheEdge) {
    EXPECT_FLOAT_EQ(Area().Y(11.0), 0.2f);
    EXPECT_FLOAT_EQ(Area().Y(-1e30), -0.2f);
    EXPECT_FLOAT_EQ(Area().Y(kInfinite), 0.2f);
    EXPECT_FLOAT_EQ(Area().Y(-kInfinite), -0.2f);
}

TEST(PlotArea, LargestNumbersHaveAPlace) {
    PlotArea area = Area();
    area.lowest = -std::numeric_limits<double>::max();
    area.highest = std::numeric_limits<double>::max();
    EXPECT_NEAR(area.Y(0.0), 0.0f, 1e-6f);
    EXPECT_FLOAT_EQ(area.Y(area.highest), 0.2f);
}

TEST(PlotArea, ColumnsAreThoseOfThePixels) {
    EXPECT_EQ(Area().Column(1.0), 0);
    EXPECT_EQ(Area().Column(2.0), 20);
    EXPECT_EQ(Area().Column(5.0), 79);
}

TEST(AddLine, FewValuesAreAllVertices) {
    Vertices vertices;
    std::vector<Vertices::Run> runs;
    AddLine(Area(), std::vector{1.0f, 2.0f, 5.0f}, std::vector{0.0f, 5.0f, -10.0f}, vertices, runs);
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_THAT(Coordinates(vertices, runs[0]), Are({0.3f, 0.0f, 0.5f, 0.1f, 1.1f, -0.2f}));
}

TEST(AddLine, UnknownValueIsAGap) {
    Vertices vertices;
    std::vector<Vertices::Run> runs;
    AddLine(Area(), std::vector{1.0f, 2.0f, 3.0f, 4.0f, 5.0f},
            std::vector{0.0f, 0.0f, kNaN, 5.0f, 5.0f}, vertices, runs);
    ASSERT_EQ(runs.size(), 2U);
    EXPECT_THAT(Coordinates(vertices, runs[0]), Are({0.3f, 0.0f, 0.5f, 0.0f}));
    EXPECT_THAT(Coordinates(vertices, runs[1]), Are({0.9f, 0.1f, 1.1f, 0.1f}));
}

TEST(AddLine, ValueAloneIsAShortLine) {
    Vertices vertices;
    std::vector<Vertices::Run> runs;
    AddLine(Area(), std::vector{1.0f, 2.0f, 3.0f}, std::vector{kNaN, 5.0f, kNaN}, vertices, runs);
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_THAT(Coordinates(vertices, runs[0]), Are({0.5f, 0.1f, 0.485f, 0.1f, 0.515f, 0.1f}));
}

TEST(AddLine, SeriesOfUnknownValuesHasNoLine) {
    Vertices vertices;
    std::vector<Vertices::Run> runs;
    AddLine(Area(), std::vector{1.0f, 2.0f}, std::vector{kNaN, kNaN}, vertices, runs);
    EXPECT_TRUE(runs.empty());
    EXPECT_EQ(vertices.Count(), 0);
    AddLine(Area(), {}, {}, vertices, runs);
    EXPECT_TRUE(runs.empty());
}

/// Ten thousand weeks in the area.
class ManyWeeks : public testing::Test {
protected:
    static constexpr std::size_t kCount = 10000;

    ManyWeeks() : area(Area()), weeks(kCount), values(kCount, 0.0f) {
        for (std::size_t week = 0; week < kCount; ++week)
            weeks[week] = static_cast<float>(week + 1);
        area.lastWeek = kCount;
    }
    void Add() { AddLine(area, weeks, values, vertices, runs); }

    PlotArea area;
    std::vector<float> weeks;
    std::vector<float> values;
    Vertices vertices;
    std::vector<Vertices::Run> runs;
};

TEST_F(ManyWeeks, EachColumnHasAtMostTwoVertices) {
    for (std::size_t week = 0; week < kCount; ++week)
        values[week] = static_cast<float>(week * 7919 % 21) - 10.0f;
    Add();
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_LE(vertices.Count(), 2 * area.columns + 1);
    EXPECT_GE(vertices.Count(), area.columns);
}

TEST_F(ManyWeeks, ExtremeOfASingleWeekIsKept) {
    values[4321] = 10.0f;
    values[8765] = -10.0f;
    Add();
    const std::vector<float> all = Coordinates(vertices);
    std::vector<float> heights;
    for (std::size_t i = 1; i < all.size(); i += 2)
        heights.push_back(all[i]);
    EXPECT_EQ(std::ranges::count(heights, area.Y(10.0)), 1);
    EXPECT_EQ(std::ranges::count(heights, area.Y(-10.0)), 1);
}

TEST_F(ManyWeeks, LineGoesFromLeftToRight) {
    for (std::size_t week = 0; week < kCount; ++week)
        values[week] = static_cast<float>(week * 7919 % 21) - 10.0f;
    Add();
    const std::vector<float> all = Coordinates(vertices);
    for (std::size_t i = 2; i < all.size(); i += 2)
        EXPECT_GE(all[i], all[i - 2]);
    EXPECT_NEAR(all.front(), 0.3f, 0.01f);
    EXPECT_NEAR(all[all.size() - 2], 1.1f, 0.01f);
}

TEST_F(ManyWeeks, VerticesOfAColumnAreInTheOrderOfTheirWeeks) {
    values[3] = 5.0f;   // first the higher one,
    values[7] = -5.0f;  // then the lower one
    values[200] = -5.0f;
    values[210] = 5.0f;
    Add();
    std::vector<float> all = Coordinates(vertices);
    all.resize(8);
    EXPECT_THAT(all, Are({0.305f, 0.1f, 0.305f, -0.1f, 0.315f, -0.1f, 0.315f, 0.1f}));
}

TEST_F(ManyWeeks, LineEndsAtTheLastValue) {
    values[9000] = 10.0f;
    values.back() = 5.0f;
    Add();
    const std::vector<float> all = Coordinates(vertices);
    EXPECT_FLOAT_EQ(all[all.size() - 2], area.X(kCount));
    EXPECT_FLOAT_EQ(all.back(), area.Y(5.0));
}

TEST_F(ManyWeeks, ColumnsWithoutAKnownValueAreAGap) {
    std::fill(values.begin() + 2000, values.begin() + 3000, kNaN);
    Add();
    EXPECT_EQ(runs.size(), 2U);
}

TEST_F(ManyWeeks, UnknownWeeksBetweenKnownOnesAreNoGap) {
    for (std::size_t week = 0; week < kCount; week += 2)
        values[week] = kNaN;
    Add();
    EXPECT_EQ(runs.size(), 1U);
}

TEST(AddBand, ConstantBandIsOneQuadOverAllWeeks) {
    Vertices vertices;
    AddBand(Area(), std::vector{1.0f, 2.0f}, std::vector{-10.0f}, std::vector{5.0f}, vertices);
    EXPECT_THAT(Coordinates(vertices), Are({0.3f, -0.2f, 1.1f, -0.2f, 1.1f, 0.1f, 0.3f, 0.1f}));
}

TEST(AddBand, MovingBandIsAQuadFromWeekToWeek) {
    Vertices vertices;
    AddBand(Area(), std::vector{1.0f, 2.0f, 5.0f}, std::vector{-10.0f, 0.0f, 0.0f},
            std::vector{0.0f, 5.0f, 10.0f}, vertices);
    EXPECT_THAT(Coordinates(vertices), Are({0.3f, -0.2f, 0.3f, 0.0f, 0.5f, 0.1f, 0.5f, 0.0f,  //
                                            0.5f, 0.0f, 0.5f, 0.1f, 1.1f, 0.2f, 1.1f, 0.0f}));
}

TEST(AddBand, UnknownWeekIsAGap) {
    Vertices vertices;
    AddBand(Area(), std::vector{1.0f, 2.0f, 3.0f, 4.0f, 5.0f},
            std::vector{0.0f, 0.0f, kNaN, 0.0f, 0.0f}, std::vector{5.0f, 5.0f, 5.0f, 5.0f, 5.0f},
            vertices);
    EXPECT_EQ(vertices.Count(), 2 * 4);
    Vertices none;
    AddBand(Area(), std::vector{1.0f, 2.0f}, std::vector{kNaN}, std::vector{5.0f}, none);
    EXPECT_EQ(none.Count(), 0);
}

TEST(AddShading, MarkedWeekIsShadedFromTheWeekBefore) {
    Vertices vertices;
    AddShading(Area(), std::vector{1.0f, 2.0f, 4.0f, 5.0f}, std::vector<std::uint8_t>{0, 0, 2, 0},
               vertices);
    EXPECT_THAT(Coordinates(vertices), Are({0.5f, -0.2f, 0.9f, -0.2f, 0.9f, 0.2f, 0.5f, 0.2f}));
}

TEST(AddShading, NeighbouringMarkedWeeksAreOneQuad) {
    Vertices vertices;
    AddShading(Area(), std::vector{1.0f, 2.0f, 3.0f, 4.0f, 5.0f},
               std::vector<std::uint8_t>{0, 1, 4, 0, 1}, vertices);
    ASSERT_EQ(vertices.Count(), 2 * 4);
    EXPECT_THAT(Coordinates(vertices, {0, 4}),
                Are({0.3f, -0.2f, 0.7f, -0.2f, 0.7f, 0.2f, 0.3f, 0.2f}));
    EXPECT_THAT(Coordinates(vertices, {4, 4}),
                Are({0.9f, -0.2f, 1.1f, -0.2f, 1.1f, 0.2f, 0.9f, 0.2f}));
}

TEST(AddShading, MarkedFirstWeekIsAColumnWide) {
    Vertices vertices;
    AddShading(Area(), std::vector{1.0f, 5.0f}, std::vector<std::uint8_t>{1, 0}, vertices);
    EXPECT_THAT(Coordinates(vertices), Are({0.3f, -0.2f, 0.31f, -0.2f, 0.31f, 0.2f, 0.3f, 0.2f}));
}

std::vector<float> Spread(std::vector<float> places, float step, float lowest = 0.0f,
                          float highest = 10.0f) {
    SpreadApart(places, step, lowest, highest);
    return places;
}

TEST(SpreadApart, PlacesThatAreFarApartStay) {
    EXPECT_THAT(Spread({1.0f, 3.0f, 7.0f}, 2.0f), Are({1.0f, 3.0f, 7.0f}));
    EXPECT_THAT(Spread({}, 2.0f), ElementsAre());
    EXPECT_THAT(Spread({4.0f}, 2.0f), ElementsAre(FloatEq(4.0f)));
}

TEST(SpreadApart, PlacesThatAreTooNearMoveByTheSameLength) {
    EXPECT_THAT(Spread({5.0f, 5.0f}, 2.0f), Are({4.0f, 6.0f}));
    EXPECT_THAT(Spread({5.0f, 5.0f, 5.0f}, 2.0f), Are({3.0f, 5.0f, 7.0f}));
    EXPECT_THAT(Spread({1.0f, 5.0f, 6.0f, 9.0f}, 2.0f), Are({1.0f, 4.5f, 6.5f, 9.0f}));
}

TEST(SpreadApart, PlaceThatWasMovedMovesItsNeighbours) {
    EXPECT_THAT(Spread({4.0f, 5.5f, 5.5f}, 2.0f), Are({3.0f, 5.0f, 7.0f}));
}

TEST(SpreadApart, PlacesStayBetweenTheLimits) {
    EXPECT_THAT(Spread({0.0f, 0.5f}, 2.0f), Are({0.0f, 2.0f}));
    EXPECT_THAT(Spread({9.0f, 10.0f, 10.0f}, 2.0f), Are({6.0f, 8.0f, 10.0f}));
    EXPECT_THAT(Spread({-5.0f, 15.0f}, 2.0f), Are({0.0f, 10.0f}));
}

TEST(SpreadApart, WithoutRoomThePlacesAreEvenlyApart) {
    EXPECT_THAT(Spread({1.0f, 1.0f, 1.0f}, 20.0f), Are({0.0f, 5.0f, 10.0f}));
    EXPECT_THAT(Spread({1.0f, 1.0f}, 2.0f, 5.0f, 3.0f), Are({5.0f, 5.0f}));
}

}  // namespace
