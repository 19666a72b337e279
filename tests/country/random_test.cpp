// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "country/random.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "tests/country/rolls.h"

namespace {

TEST(RandomTest, UnitRollIsOneRandScaledToLessThanOne) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        std::srand(seed);
        const int raw = std::rand();
        std::srand(seed);
        const double roll = RollUnit();
        EXPECT_EQ(roll, raw / 2147483648.0);
        EXPECT_GE(roll, 0.0);
        EXPECT_LT(roll, 1.0);
    }
    ExpectRolls(1, [] { RollUnit(); });
}

TEST(RandomTest, SmallStepIsOneToFourThousandthsFromOneRoll) {
    std::set<float> steps;
    std::srand(1);
    for (int i = 0; i < 1000; ++i)
        steps.insert(RollSmallStep());
    ASSERT_EQ(steps.size(), 4U);
    float expected = 0.001f;
    for (const float step : steps) {
        EXPECT_FLOAT_EQ(step, expected);
        expected += 0.001f;
    }
    ExpectRolls(1, [] { RollSmallStep(); });
}

}  // namespace
