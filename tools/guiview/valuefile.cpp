// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/valuefile.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

#include "glwidget/theme.h"

namespace guiview {

namespace {

using enum FieldType;

constexpr int kRectangle = 4;

constexpr ValueLine kConfiguration[] = {
    {{FieldType::Name, "font"}, 1},
    {{FieldType::Name, "unused word"}, 1},
    {{Number, "option ring", 0.0f, 1.0f}, kRectangle},
    {{Number, "option dot", 0.0f, 1.0f}, kRectangle},
    {{Number, "tick box", 0.0f, 1.0f}, kRectangle},
    {{Number, "tick", 0.0f, 1.0f}, kRectangle},
    {{Number, "slider knob", 0.0f, 1.0f}, kRectangle},
    {{Number, "fade rate", Field::kAboveZero, 1.0f}, 1},
};
static_assert(std::size(kConfiguration) == 8);

using Expected = std::span<const ValueLine>;

std::string NameOf(const ValueLine& values) {
    return "the " + std::string(values.field.name);
}

/// Reads the values of one line until one of them is wrong.
class LineCheck {
public:
    LineCheck(const ValueLine& expected, LineReader line, const std::string& file, Findings& list)
        : values(expected), reader(line), path(file), findings(list), name(NameOf(expected)) {}

    /// @return the first value, if there is one and it is not wrong
    std::optional<Word> Run() {
        std::vector<Word> words;
        while (static_cast<int>(words.size()) < values.count) {
            if (reader.OnlyCommentLeft()) {
                findings.Error(path, reader.Here(),
                               name + " takes " + std::to_string(values.count) + " numbers, not "
                                   + std::to_string(words.size()));
                break;
            }
            const Word word = *reader.Next();
            if (IsWrong(word))
                break;
            words.push_back(word);
        }
        if (values.count == kRectangle && words.size() == kRectangle)
            CheckRectangle(words);
        return words.empty() ? std::nullopt : std::optional(words.front());
    }

private:
    bool IsWrong(const Word& word) {
        std::string wrong = Malformed(values.field, word, name);
        if (wrong.empty())
            wrong = OutsideRange(values.field, word, name);
        if (wrong.empty())
            return false;
        findings.Error(path, word.location, wrong);
        return true;
    }

    void CheckRectangle(const std::vector<Word>& edges) {
        CheckEdges(edges[0], edges[2], "left", "right");
        CheckEdges(edges[1], edges[3], "lower", "upper");
    }

    void CheckEdges(const Word& low, const Word& high, const char* lowName, const char* highName) {
        if (*ParseNumber(low.text) < *ParseNumber(high.text))
            return;
        findings.Error(path, low.location,
                       std::string("the ") + lowName + " edge of " + name + ", " + low.text
                           + ", must be less than the " + highName + " one, " + high.text);
    }

    const ValueLine& values;
    LineReader reader;
    const std::string& path;
    Findings& findings;
    std::string name;
};

/// The lines of a file that have values.
class FileCheck {
public:
    FileCheck(const std::string& file, const std::string& content, Expected lines, Findings& list)
        : path(file), text(SplitLines(content)), expected(lines), findings(list) {
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (!IsBlankOrComment(text[i]))
                given.push_back(i);
        }
    }

    /// @return for each line its first value, or nothing if there is none or it is wrong
    std::vector<std::optional<Word>> Run() {
        std::vector<std::optional<Word>> words(expected.size());
        if (ReportMissingLine() || ReportSurplusLine())
            return words;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            if (i == given.size()) {
                const int last = std::max(static_cast<int>(text.size()), 1);
                findings.Error(path, {last, 1},
                               "the file ends before its " + std::string(expected[i].field.name));
                break;
            }
            words[i] = LineCheck(expected[i], ReaderOf(i), path, findings).Run();
        }
        return words;
    }

private:
    LineReader ReaderOf(std::size_t line) const {
        return {text[given[line]], static_cast<int>(given[line]) + 1};
    }
    Location PlaceOf(std::size_t line) const { return {static_cast<int>(given[line]) + 1, 1}; }

    /// Whether a line can be the expected one. A number is no name, and no further number follows.
    bool Fits(std::size_t line, const ValueLine& values) const {
        Findings found;
        LineCheck(values, ReaderOf(line), path, found).Run();
        if (!found.List().empty())
            return false;
        int numbers = 0;
        LineReader reader = ReaderOf(line);
        for (auto word = reader.Next(); word && ParseNumber(word->text); word = reader.Next())
            ++numbers;
        return numbers == (values.field.type == FieldType::Name ? 0 : values.count);
    }

    /// Whether all lines fit if the file lacks one of those that are expected.
    bool FitsWithout(std::size_t missing) const {
        for (std::size_t i = 0; i < given.size(); ++i) {
            if (!Fits(i, expected[i < missing ? i : i + 1]))
                return false;
        }
        return true;
    }

    /// Whether all lines that are expected are there if one of the file's is left out.
    bool FitsAfterRemoving(std::size_t surplus) const {
        for (std::size_t i = 0; i < expected.size(); ++i) {
            if (!Fits(i < surplus ? i : i + 1, expected[i]))
                return false;
        }
        return true;
    }

    bool ReportMissingLine() {
        if (given.size() + 1 != expected.size())
            return false;
        std::vector<std::size_t> missing;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            if (FitsWithout(i))
                missing.push_back(i);
        }
        if (missing.empty())
            return false;
        std::string names;
        for (const std::size_t each : missing) {
            if (!names.empty())
                names += each == missing.back() ? " or " : ", ";
            names += NameOf(expected[each]);
        }
        const std::size_t first = std::min(missing.front(), given.size() - 1);
        findings.Error(path, PlaceOf(first), names + " is missing: " + LineCount());
        return true;
    }

    bool ReportSurplusLine() {
        if (given.size() != expected.size() + 1 || FitsAfterRemoving(expected.size()))
            return false;
        for (std::size_t i = expected.size(); i > 0; --i) {
            if (!FitsAfterRemoving(i - 1))
                continue;
            findings.Error(path, PlaceOf(i - 1), "one line too many: " + LineCount());
            return true;
        }
        return false;
    }

    std::string LineCount() const {
        return "the file has " + std::to_string(given.size()) + " lines of values, not "
               + std::to_string(expected.size());
    }

    const std::string& path;
    std::vector<std::string> text;
    Expected expected;
    Findings& findings;
    std::vector<std::size_t> given;  // the lines of the text that have values
};

}  // namespace

std::span<const ValueLine> ConfigurationLines() {
    return kConfiguration;
}

std::optional<Word> CheckThemeFile(const std::string& path, const std::string& content,
                                   Findings& findings) {
    std::vector<ValueLine> lines;
    for (const Theme::Line& line : Theme::Lines())
        lines.push_back(line.values);
    return FileCheck(path, content, lines, findings)
        .Run()[static_cast<std::size_t>(ThemeLine::Picture)];
}

std::optional<Word> CheckConfigurationFile(const std::string& path, const std::string& content,
                                           Findings& findings) {
    return FileCheck(path, content, kConfiguration, findings).Run().front();
}

}  // namespace guiview
