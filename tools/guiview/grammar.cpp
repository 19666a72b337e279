// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/grammar.h"

#include <algorithm>
#include <array>

namespace guiview {

namespace {

using enum FieldType;

constexpr FieldRule kFile[] = {{Name, "file"}};
constexpr FieldRule kTheme[] = {{Name, "theme"}, {Name, kNone}};
constexpr FieldRule kCreate[] = {
    {Name, "kind"}, {Name, "tag"}, {Name, "parent"}, {Number, "x"}, {Number, "y"}};
constexpr FieldRule kCreateOnTab[] = {{Whole, "tab"},   {Name, "kind"}, {Name, "tag"},
                                      {Name, "parent"}, {Number, "x"},  {Number, "y"}};
constexpr FieldRule kTab[] = {{Name, "tag"}, {Whole, "tab"}, {Text, "title"}};
constexpr FieldRule kItem[] = {{Name, "tag"}, {Text, "text"}};
constexpr FieldRule kTag[] = {{Name, "tag"}};

constexpr StatementRule kStatements[] = {
    {"CONF", kFile, false},       {"THEM", kTheme, false}, {"CADD", kCreate, true},
    {"TADD", kCreateOnTab, true}, {"NTAB", kTab, false},   {"TEXT", kItem, false},
    {"SOLID", {}, false},         {"CENTRE", kTag, false}, {"CENTREX", kTag, false},
    {"CENTREY", kTag, false},     {"CHLD", {}, false},
};

constexpr FieldRule kWindow[] = {{Flag, "movable"}, {Text, "title"}};
constexpr FieldRule kFrame[] = {{Flag, "border"}};
constexpr FieldRule kTextFields[] = {{Text, "text"}};
constexpr FieldRule kCaption[] = {{Caption, "caption"}};
constexpr FieldRule kGrid[] = {{Whole, "columns"}, {Whole, "rows"}};
constexpr FieldRule kSize[] = {{Number, "width"}, {Number, "height"}};

constexpr KindRule kKinds[] = {
    {.kind = Kind::Win, .word = "Win", .fields = kWindow, .container = true},
    {.kind = Kind::Frame, .word = "Frame", .fields = kFrame, .container = true, .showsText = false},
    {.kind = Kind::TWin, .word = "TWin", .fields = {}, .container = true, .showsText = false},
    {.kind = Kind::Check, .word = "Check", .fields = kTextFields, .clickable = true},
    {.kind = Kind::Opt, .word = "Opt", .fields = kTextFields, .clickable = true},
    {.kind = Kind::Combo, .word = "Combo", .fields = {}, .clickable = true},
    {.kind = Kind::Butt, .word = "Butt", .fields = kCaption, .clickable = true},
    {.kind = Kind::Slide, .word = "Slide", .fields = kSize, .clickable = true, .showsText = false},
    {.kind = Kind::Text, .word = "Text", .fields = kGrid, .clickable = true},
    {.kind = Kind::Label, .word = "Label", .fields = kTextFields},
};

template <typename Rules>
auto Find(const Rules& rules, std::string_view word) -> decltype(std::begin(rules)) {
    const auto* const rule =
        std::ranges::find(rules, word, [](const auto& row) { return row.word; });
    return rule == std::end(rules) ? nullptr : rule;
}

}  // namespace

const StatementRule* FindStatement(std::string_view word) {
    return Find(kStatements, word);
}

const KindRule* FindKind(std::string_view word) {
    return Find(kKinds, word);
}

std::span<const FieldRule> ImageFields() {
    return kSize;
}

}  // namespace guiview
