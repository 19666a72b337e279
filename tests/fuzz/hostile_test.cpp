// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Runs one fuzz target with the files of its corpus and with damaged copies of them. The target
// checks what must be true for every input.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "fuzz/target.h"
#include "tests/fuzz/hostile_files.h"
#include "tests/support/temporary_folder.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

struct Seed {
    std::string path;
    Bytes bytes;
};

/// The corpus of the target and the files of the game that it reads.
std::vector<Seed> Seeds() {
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(kHostileFiles.corpus))
        paths.push_back(entry.path().string());
    std::istringstream own(kHostileFiles.own);
    for (std::string path; std::getline(own, path, ',');)
        paths.push_back(path);
    std::vector<Seed> seeds;
    seeds.reserve(paths.size());
    for (const std::string& path : paths)
        seeds.push_back({path, FileBytes(path)});
    std::sort(seeds.begin(), seeds.end(),
              [](const Seed& a, const Seed& b) { return a.path < b.path; });
    return seeds;
}

/// @param bytes  their capacity is their size, so that the sanitizers notice a read past the end
void Feed(const Bytes& bytes) {
    EXPECT_EQ(bytes.capacity(), bytes.size());
    EXPECT_EQ(LLVMFuzzerTestOneInput(bytes.data(), bytes.size()), 0);
}

// The time grows with the square of the size, so the bytes of a larger seed get one of the
// replacements each, in turn.
constexpr std::size_t kLargeSeed = 8192;

TEST(Hostile, EmptyInputDoesNoHarm) {
    Feed({});
}

TEST(Hostile, EachSeedDoesNoHarm) {
    const std::vector<Seed> seeds = Seeds();
    EXPECT_FALSE(seeds.empty());
    for (const Seed& seed : seeds) {
        SCOPED_TRACE(seed.path);
        EXPECT_FALSE(seed.bytes.empty());
        Feed(Bytes(seed.bytes));
    }
}

constexpr std::size_t kParts = 4;

/// One of the parts of a test that takes long. CTest runs several parts at the same time.
class HostilePart : public testing::TestWithParam<std::size_t> {
protected:
    static bool Has(std::size_t position) { return position % kParts == GetParam(); }
};

TEST_P(HostilePart, EachSeedCutAtEveryLengthDoesNoHarm) {
    for (const Seed& seed : Seeds()) {
        SCOPED_TRACE(seed.path);
        for (std::size_t length = 0; length < seed.bytes.size(); ++length)
            if (Has(length))
                Feed(Bytes(seed.bytes.data(), seed.bytes.data() + length));
    }
}

TEST_P(HostilePart, EachSeedWithEveryByteReplacedDoesNoHarm) {
    for (const Seed& seed : Seeds()) {
        SCOPED_TRACE(seed.path);
        Bytes changed = seed.bytes;
        for (std::size_t position = 0; position < changed.size(); ++position) {
            if (!Has(position))
                continue;
            const std::uint8_t byte = changed[position];
            const std::array<int, 3> replacements{0x00, 0xFF, ~byte};
            for (std::size_t index = 0; index < replacements.size(); ++index) {
                if (changed.size() > kLargeSeed && index != position % replacements.size())
                    continue;
                changed[position] = static_cast<std::uint8_t>(replacements[index]);
                Feed(changed);
            }
            changed[position] = byte;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Parts, HostilePart, testing::Range(std::size_t{0}, kParts));

}  // namespace
