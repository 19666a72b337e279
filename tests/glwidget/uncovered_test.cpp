// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/uncovered.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace {

constexpr int kWidth = 40;
constexpr int kHeight = 30;

/// How many boxes each pixel lies in, row after row.
template <class Boxes>
std::vector<int> Layers(const Boxes& boxes) {
    std::vector<int> layers(kWidth * kHeight);
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            for (const PixelBox& box : boxes) {
                if (box.left <= x && x < box.right && box.bottom <= y && y < box.top)
                    ++layers[static_cast<std::size_t>(y * kWidth + x)];
            }
        }
    }
    return layers;
}

TEST(UncoveredTest, IsTheWholeWindowAtFirst) {
    const Uncovered uncovered(kWidth, kHeight);
    ASSERT_EQ(uncovered.Boxes().size(), 1U);
    EXPECT_EQ(uncovered.Boxes()[0], (PixelBox{0, 0, kWidth, kHeight}));
}

TEST(UncoveredTest, AWindowWithoutPixelsHasNone) {
    EXPECT_TRUE(Uncovered(0, kHeight).Boxes().empty());
    EXPECT_TRUE(Uncovered(kWidth, 0).Boxes().empty());
}

TEST(UncoveredTest, NothingIsLeftBelowABoxAsLargeAsTheWindow) {
    Uncovered uncovered(kWidth, kHeight);
    uncovered.Cover({-1, 0, kWidth, kHeight + 1});
    EXPECT_TRUE(uncovered.Boxes().empty());
}

TEST(UncoveredTest, ABoxInTheMiddleLeavesFourSides) {
    Uncovered uncovered(kWidth, kHeight);
    uncovered.Cover({10, 5, 20, 25});
    EXPECT_EQ(uncovered.Boxes().size(), 4U);
}

TEST(UncoveredTest, BoxesOutsideOrWithoutPixelsCoverNothing) {
    Uncovered uncovered(kWidth, kHeight);
    for (const PixelBox& box : {PixelBox{kWidth, 0, kWidth + 5, 5}, PixelBox{0, -5, 5, 0},
                                PixelBox{10, 10, 10, 20}, PixelBox{20, 20, 10, 25}, PixelBox{}})
        uncovered.Cover(box);
    EXPECT_EQ(uncovered.Boxes().size(), 1U);
}

TEST(UncoveredTest, PixelsAreLeftOnceIfNoBoxCoversThem) {
    std::minstd_rand random(1358);
    const auto below = [&](int end) {
        return static_cast<int>(random() % static_cast<unsigned>(end));
    };
    for (int round = 0; round < 200; ++round) {
        Uncovered uncovered(kWidth, kHeight);
        std::vector<PixelBox> covers;
        for (int i = 0; i < 8; ++i) {
            const int left = below(kWidth) - 4;
            const int bottom = below(kHeight) - 4;
            covers.push_back({left, bottom, left + below(20), bottom + below(20)});
            uncovered.Cover(covers.back());
        }
        const std::vector<int> left = Layers(uncovered.Boxes());
        const std::vector<int> covered = Layers(covers);
        for (std::size_t i = 0; i < left.size(); ++i)
            ASSERT_EQ(left[i], covered[i] == 0 ? 1 : 0) << round << ", pixel " << i;
    }
}

TEST(UncoveredTest, WhatThereIsNoRoomForStaysUncovered) {
    Uncovered uncovered(kWidth, kHeight);
    std::vector<PixelBox> covers;
    for (int y = 1; y < kHeight; y += 2) {
        for (int x = 1; x < kWidth; x += 2) {
            covers.push_back({x, y, x + 1, y + 1});
            uncovered.Cover(covers.back());
        }
    }
    const std::vector<int> left = Layers(uncovered.Boxes());
    const std::vector<int> covered = Layers(covers);
    for (std::size_t i = 0; i < left.size(); ++i) {
        ASSERT_LE(left[i], 1) << i;
        ASSERT_GE(left[i] + covered[i], 1) << i;
    }
}

}  // namespace
