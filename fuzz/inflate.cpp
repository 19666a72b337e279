// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/inflate.h"

#include <algorithm>
#include <memory>

#include "fuzz/target.h"
#include "tests/support/deflate_streams.h"

// If zlib accepts a raw stream, Inflate gives the same bytes, unless a repeat of code lengths
// crosses the two sets. If not, Inflate still ends and stays within its buffers.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kCapacity = std::size_t{1} << 17;
    const QuietErrors quiet;
    const auto length = static_cast<std::uint32_t>(size);
    const ZlibResult expected = InflateWithZlib({data, size}, kCapacity);
    // The buffer fits exactly the expected bytes, so that one byte more is found.
    const std::size_t capacity = expected.complete ? expected.output.size() : size * 3;
    const auto output = std::make_unique<std::uint8_t[]>(capacity);
    std::uint32_t count = 0;
    const int result =
        Inflate(output.get(), static_cast<std::uint32_t>(capacity), &count, data, length);
    Require(result == 0 || result == 1);
    Require(count <= capacity);
    if (expected.complete && !RepeatsCrossTheSets({data, size})) {
        Require(result == 0);
        Require(std::equal(expected.output.begin(), expected.output.end(), output.get(),
                           output.get() + count));
    }
    std::uint32_t counted = 0;
    const int countResult = Inflate(nullptr, &counted, data, length);
    Require(countResult == 0 || countResult == 1);
    return 0;
}
