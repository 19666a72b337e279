// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/valuefile.h"

#include <algorithm>
#include <iterator>

namespace guiview {

namespace {

using enum FieldType;

constexpr ValueRule kTheme[] = {
    {"text colour", Number, 3},  {"line colour", Number, 3},
    {"fill colour", Number, 3},  {"fourth colour", Number, 3},
    {"opacity", Number, 1},      {"sixth value", Number, 1},
    {"line width", Number, 1},   {"border", Number, 1},
    {"corner", Number, 1},       {"tenth value", Number, 1},
    {"font size", Number, 2},    {"dim and bright", Number, 2},
    {"press offset", Number, 3}, {"box size", Number, 1},
    {kPictureLine, Name, 1},     {"fade", Flag, 1},
};
static_assert(std::size(kTheme) == 16);

constexpr ValueRule kConfiguration[] = {
    {kFontLine, Name, 1},       {"unused word", Name, 1}, {"option ring", Number, 4},
    {"option dot", Number, 4},  {"tick box", Number, 4},  {"tick", Number, 4},
    {"slider knob", Number, 4}, {"fade rate", Number, 1},
};
static_assert(std::size(kConfiguration) == 8);

}  // namespace

std::span<const ValueRule> ThemeRules() {
    return kTheme;
}

std::span<const ValueRule> ConfigurationRules() {
    return kConfiguration;
}

ValueFile::ValueFile(const std::string& path, const std::string& content,
                     std::span<const ValueRule> rules, Findings& findings)
    : file(path), list(findings) {
    const std::vector<std::string> lines = SplitLines(content);
    std::size_t next = 0;
    for (const ValueRule& rule : rules) {
        while (next < lines.size() && IsBlankOrComment(lines[next]))
            ++next;
        if (next == lines.size()) {
            const int last = std::max(static_cast<int>(lines.size()), 1);
            list.Error(file, {last, 1}, "the file ends before its " + std::string(rule.name));
            return;
        }
        ReadLine(rule, lines[next], static_cast<int>(next) + 1);
        ++next;
    }
}

void ValueFile::ReadLine(const ValueRule& rule, std::string_view line, int number) {
    LineReader reader(line, number);
    for (int i = 0; i < rule.count; ++i) {
        const std::optional<Word> word = reader.Next();
        if (!word) {
            list.Error(file, reader.Here(),
                       "the " + std::string(rule.name) + " takes " + std::to_string(rule.count)
                           + " numbers, not " + std::to_string(i));
            return;
        }
        if (!CheckWord(rule, *word))
            return;
        if (i == 0)
            first.emplace_back(rule.name, *word);
    }
}

bool ValueFile::CheckWord(const ValueRule& rule, const Word& word) {
    const bool fits = (rule.type == Number && ParseNumber(word.text))
                      || (rule.type == Flag && (word == "0" || word == "1")) || rule.type == Name;
    if (!fits) {
        list.Error(file, word.place,
                   "'" + word.text + "' is " + (rule.type == Flag ? "neither 0 nor 1" : "no number")
                       + " for the " + std::string(rule.name));
    }
    return fits;
}

const Word* ValueFile::Find(std::string_view name) const {
    const auto found =
        std::ranges::find(first, name, [](const auto& entry) { return entry.first; });
    return found == first.end() ? nullptr : &found->second;
}

}  // namespace guiview
