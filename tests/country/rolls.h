// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

// Helpers for rules that roll: seed, repeat the rule's rolls in the test, compare.

/// The rolls of a seed, one after the other.
class Replay {
public:
    explicit Replay(unsigned seed) { std::srand(seed); }
    int Raw() { return std::rand(); }
    double Unit() { return Raw() / 2147483648.0; }
    float Step() { return static_cast<float>(Raw() % 4) / 1000.0f + 0.001f; }
};

/// Expects that `action` calls rand() exactly `count` times.
template <typename Action>
void ExpectRolls(int count, Action action) {
    constexpr unsigned kSeed = 1358;
    std::srand(kSeed);
    action();
    const int next = std::rand();
    std::srand(kSeed);
    for (int i = 0; i < count; ++i)
        std::rand();
    EXPECT_EQ(next, std::rand()) << "not " << count << " rolls";
}

/// The first seed whose rolls satisfy `wanted(replay)`.
template <typename Predicate>
unsigned SeedWhere(Predicate wanted) {
    constexpr unsigned kMaxSeeds = 100000;
    for (unsigned seed = 1; seed < kMaxSeeds; ++seed) {
        Replay replay(seed);
        if (wanted(replay))
            return seed;
    }
    ADD_FAILURE() << "no seed has such rolls";
    return 0;
}
