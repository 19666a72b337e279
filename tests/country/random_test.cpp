// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/random.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "tests/country/draws.h"

namespace {

TEST(RandomTest, UnitDrawIsOneRandScaledAsADouble) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        std::srand(seed);
        const int raw = std::rand();
        std::srand(seed);
        const double draw = UnitDraw();
        EXPECT_EQ(draw, raw / 2147483648.0);
        EXPECT_GE(draw, 0.0);
        EXPECT_LT(draw, 1.0);
    }
    ExpectDraws(1, [] { UnitDraw(); });
}

TEST(RandomTest, SmallStepIsOneToFourThousandthsFromOneDraw) {
    std::set<float> steps;
    std::srand(1);
    for (int i = 0; i < 1000; ++i)
        steps.insert(SmallStep());
    ASSERT_EQ(steps.size(), 4U);
    float expected = 0.001f;
    for (const float step : steps) {
        EXPECT_FLOAT_EQ(step, expected);
        expected += 0.001f;
    }
    ExpectDraws(1, [] { SmallStep(); });
}

}  // namespace
