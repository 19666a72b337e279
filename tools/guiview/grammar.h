// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace guiview {

/// What a field of a layout's statement holds.
enum class FieldType {
    Name,  ///< one word: a tag, a kind, a file
    Number,
    Whole,    ///< a number without a fraction
    Flag,     ///< 0 or 1
    Caption,  ///< one word to show, or "TEX", behind which two numbers follow
    Text      ///< the rest of the line
};

struct FieldRule {
    FieldType type;
    std::string_view name;
};

/// A statement by its word, with the fields that follow it.
struct StatementRule {
    std::string_view word;
    std::span<const FieldRule> fields;
    bool creates = false;  ///< the fields of the widget's kind follow
};

enum class Kind { Win, Frame, TWin, Check, Opt, Combo, Butt, Slide, Text, Label };

/// A kind of widget as a layout names it.
struct KindRule {
    std::string_view word;
    std::span<const FieldRule> fields;
    Kind kind;
    bool container = false;  ///< and attached only when the layout is solidified
    bool clickable = false;
    bool showsText = true;
};

/// Null for a word that the toolkit does not know.
const StatementRule* FindStatement(std::string_view word);
const KindRule* FindKind(std::string_view word);

/// Behind an image button's "TEX".
std::span<const FieldRule> ImageFields();

inline constexpr std::string_view kImageWord = "TEX";
inline constexpr std::string_view kNone = "NULL";
/// Tags that begin with this belong to the widgets that the toolkit makes itself.
inline constexpr std::string_view kToolkitPrefix = "__";

}  // namespace guiview
