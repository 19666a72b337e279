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
    {.word = "Win", .fields = kWindow, .kind = Kind::Win, .container = true},
    {.word = "Frame", .fields = kFrame, .kind = Kind::Frame, .container = true, .showsText = false},
    {.word = "TWin", .fields = {}, .kind = Kind::TWin, .container = true, .showsText = false},
    {.word = "Check", .fields = kTextFields, .kind = Kind::Check, .clickable = true},
    {.word = "Opt", .fields = kTextFields, .kind = Kind::Opt, .clickable = true},
    {.word = "Combo", .fields = {}, .kind = Kind::Combo, .clickable = true},
    {.word = "Butt", .fields = kCaption, .kind = Kind::Butt, .clickable = true},
    {.word = "Slide", .fields = kSize, .kind = Kind::Slide, .clickable = true, .showsText = false},
    {.word = "Text", .fields = kGrid, .kind = Kind::Text, .clickable = true},
    {.word = "Label", .fields = kTextFields, .kind = Kind::Label},
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
