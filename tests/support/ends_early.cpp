// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// A suite that ends with status 0 before its last test.

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

TEST(EndsEarly, ProcessThatATestExpectsToEndIsNotReported) {
    EXPECT_EXIT(std::exit(0), testing::ExitedWithCode(0), "");
}

TEST(EndsEarly, FreshProcessThatATestExpectsToEndIsNotReported) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(std::exit(0), testing::ExitedWithCode(0), "");
}

TEST(EndsEarly, TestThatEndsTheProcess) {
    std::exit(0);
}

TEST(EndsEarly, TestThatNeverRuns) {}

}  // namespace
