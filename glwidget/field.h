// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <limits>
#include <string>
#include <string_view>

/// What a field of a line holds: of a layout's statement, of a kind of widget, of a theme.
enum class FieldType {
    Name,     ///< one word: a tag, a kind, a file
    Caption,  ///< one word that is shown
    Text,     ///< the rest of the line, which is shown
    Number,
    Whole,  ///< a number without a fraction
    Flag    ///< 0 or 1
};

/// A field of a line, with the range of its numbers.
struct Field {
    static constexpr float kUnlimited = std::numeric_limits<float>::infinity();
    /// As `lowest`: every number above 0 is allowed, 0 is not.
    static constexpr float kAboveZero = std::numeric_limits<float>::denorm_min();

    FieldType type;
    std::string_view name;
    float lowest = -kUnlimited;
    float highest = kUnlimited;

    bool IsNumber() const { return type == FieldType::Number || type == FieldType::Whole; }
    bool Allows(float number) const { return number >= lowest && number <= highest; }
    /// In words: "1 to 1000", "0 or more", "above 0", "0 or 1" for a flag; empty for a word, a
    /// text, and a number without limits.
    std::string Range() const;
};

/// A line of a theme or of the configuration: so many values of one sort.
struct ValueLine {
    Field field;
    int count;
};
