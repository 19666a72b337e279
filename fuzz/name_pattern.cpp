// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <cstring>
#include <string_view>
#include <vector>

#include "country/namegenerator.h"
#include "fuzz/target.h"

// The bytes are used as the masks of a pattern, and again as a text of alternatives.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<std::uint32_t> pattern(size / sizeof(std::uint32_t));
    if (!pattern.empty())
        std::memcpy(pattern.data(), data, pattern.size() * sizeof(std::uint32_t));
    pattern.push_back(0);
    const std::string name = NameGenerator(pattern.data()).Generate();
    Require(name.size() <= pattern.size() * 4);  // no fragment is longer

    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (std::uint32_t index : {0U, 1U, 7U, 0xFFFF'FFFFU}) {
        const std::string_view alternative = NameGenerator::Alternative(text, index);
        Require(alternative.find('|') == std::string_view::npos);
        Require(alternative.size() <= text.size());
    }
    return 0;
}
