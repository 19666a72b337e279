// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

// Replaying random draws: seed, repeat the draws that a rule makes, compare.

/// The draws of a seed, made one by one.
class Replay {
public:
    explicit Replay(unsigned seed) { std::srand(seed); }
    int Raw() { return std::rand(); }
    double Unit() { return Raw() / 2147483648.0; }
    float Step() { return static_cast<float>(Raw() % 4) / 1000.0f + 0.001f; }
};

/// Expects `action` to call rand() `count` times, whatever it does with the results.
template <typename Action>
void ExpectDraws(int count, Action action) {
    constexpr unsigned kSeed = 1358;
    std::srand(kSeed);
    action();
    const int next = std::rand();
    std::srand(kSeed);
    for (int i = 0; i < count; ++i)
        std::rand();
    EXPECT_EQ(next, std::rand()) << "not " << count << " draws";
}

/// The first seed whose draws satisfy `wanted(replay)`.
template <typename Predicate>
unsigned SeedWhere(Predicate wanted) {
    constexpr unsigned kMostSeeds = 100000;
    for (unsigned seed = 1; seed < kMostSeeds; ++seed) {
        Replay replay(seed);
        if (wanted(replay))
            return seed;
    }
    ADD_FAILURE() << "no seed has such draws";
    return 0;
}
