// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/valuefile.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <vector>

#include "glwidget/theme.h"

namespace guiview {

namespace {

using enum FieldType;

constexpr ValueLine kConfiguration[] = {
    {{FieldType::Name, "font"}, 1}, {{FieldType::Name, "unused word"}, 1},
    {{Number, "option ring"}, 4},   {{Number, "option dot"}, 4},
    {{Number, "tick box"}, 4},      {{Number, "tick"}, 4},
    {{Number, "slider knob"}, 4},   {{Number, "fade rate"}, 1},
};
static_assert(std::size(kConfiguration) == 8);

/// Reads a line's values until one of them is wrong, which is reported.
/// @return the first value, if there is one and it is not wrong
std::optional<Word> CheckLine(const ValueLine& values, LineReader reader, const std::string& path,
                              Findings& findings) {
    const std::string name = "the " + std::string(values.field.name);
    std::optional<Word> first;
    for (int i = 0; i < values.count; ++i) {
        const std::optional<Word> word = reader.Next();
        if (!word) {
            findings.Error(path, reader.Here(),
                           name + " takes " + std::to_string(values.count) + " numbers, not "
                               + std::to_string(i));
            break;
        }
        const std::string malformed = Malformed(values.field, *word, name);
        if (!malformed.empty()) {
            findings.Error(path, word->location, malformed);
            break;
        }
        if (!first)
            first = word;
    }
    return first;
}

/// @return for each line its first value, or nothing if there is none or it is wrong
std::vector<std::optional<Word>> CheckLines(const std::string& path, const std::string& content,
                                            std::span<const ValueLine> expected,
                                            Findings& findings) {
    std::vector<std::optional<Word>> words;
    const std::vector<std::string> lines = SplitLines(content);
    std::size_t next = 0;
    for (const ValueLine& values : expected) {
        while (next < lines.size() && IsBlankOrComment(lines[next]))
            ++next;
        if (next == lines.size()) {
            const int last = std::max(static_cast<int>(lines.size()), 1);
            findings.Error(path, {last, 1},
                           "the file ends before its " + std::string(values.field.name));
            break;
        }
        const LineReader reader(lines[next], static_cast<int>(next) + 1);
        words.push_back(CheckLine(values, reader, path, findings));
        ++next;
    }
    words.resize(expected.size());
    return words;
}

}  // namespace

std::optional<Word> CheckThemeFile(const std::string& path, const std::string& content,
                                   Findings& findings) {
    std::vector<ValueLine> lines;
    for (const Theme::Line& line : Theme::Lines())
        lines.push_back(line.values);
    return CheckLines(path, content, lines, findings)[static_cast<int>(ThemeLine::Picture)];
}

std::optional<Word> CheckConfigurationFile(const std::string& path, const std::string& content,
                                           Findings& findings) {
    return CheckLines(path, content, kConfiguration, findings).front();
}

}  // namespace guiview
