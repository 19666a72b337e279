// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Makes random names from fragments of letters. A pattern is a list of positions, ended by 0.
/// Each position is a mask; bit i says that a fragment of row i may stand there.
class NameGenerator {
public:
    static constexpr std::uint32_t kCountryPattern[] = {0x4230,   0x80000,   0x2020000,
                                                        0x1C0000, 0x2000008, 0};
    static constexpr std::uint32_t kFirstNamePattern[] = {0x4200, 0x80000, 0x20, 0x80000, 0x20, 0};
    static constexpr std::uint32_t kSecondNamePattern[] = {0x20, 0x80000, 0x20, 0};
    static constexpr std::uint32_t kTownPattern[] = {0x4020,   0x80000, 0x4220, 0x2000000,
                                                     0x180000, 0x10120, 0};

    /// @param pattern  not owned; must live as long as the generator is used
    explicit NameGenerator(const std::uint32_t* pattern);

    /// Rolls once for every row that a position allows, and once more if there are several.
    std::string Generate() const;

    /// Number `index`, from 0, of the alternatives in a text separated by "|"; the last one when
    /// there are fewer.
    static constexpr std::string_view Alternative(std::string_view text, std::uint32_t index) {
        std::size_t begin = 0;
        std::size_t end = text.find('|');
        for (; index > 0 && end != std::string_view::npos; --index) {
            begin = end + 1;
            end = text.find('|', begin);
        }
        return text.substr(begin, end - begin);
    }

private:
    const std::uint32_t* pattern;  // not owned
};
