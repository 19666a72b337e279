// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// docs/LAYOUT.md and the comments of the widgets say what the tables of the toolkit say.

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "glwidget/kinds.h"
#include "glwidget/layout.h"

namespace {

using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::StartsWith;

using Lines = std::vector<std::string>;

Lines ReadLines(const std::string& path) {
    std::ifstream file(path);
    Lines lines;
    for (std::string line; std::getline(file, line);)
        lines.push_back(line);
    return lines;
}

/// The lines after a heading as far as the next one that begins like `mark`.
Lines Section(const std::string& heading, const std::string& mark) {
    const Lines document = ReadLines("docs/LAYOUT.md");
    const auto begin = std::ranges::find(document, heading);
    if (begin == document.end())
        return {};
    const auto end = std::find_if(begin + 1, document.end(), [&](const std::string& line) {
        return line.starts_with(mark) || line.starts_with("## ");
    });
    return {begin + 1, end};
}

Lines Starting(const Lines& lines, const std::string& start) {
    Lines found;
    std::ranges::copy_if(lines, std::back_inserter(found),
                         [&](const std::string& line) { return line.starts_with(start); });
    return found;
}

std::string Code(const std::string& text) {
    return "`" + text + "`";
}

/// What the field takes, in parentheses.
std::string Takes(const Field& field) {
    switch (field.type) {
    case FieldType::Text:
        return "the rest of the line";
    case FieldType::Name:
    case FieldType::Caption:
        return "one word";
    case FieldType::Number:
    case FieldType::Whole:
        return field.Range().empty() ? "any number" : field.Range();
    case FieldType::Flag:
        return field.Range();
    }
    return {};
}

std::string FieldsCell(const Kind& kind) {
    std::string cell = kind.form.empty() ? "" : Code(std::string(kind.form));
    for (const Field& field : kind.fields) {
        cell +=
            (cell.empty() ? "" : ", ") + Code(std::string(field.name)) + " (" + Takes(field) + ")";
    }
    if (kind.eitherOr)
        cell += "; one of them is 0";
    return cell.empty() ? "none" : cell;
}

std::string ThemeCell(const Kind& kind) {
    std::string cell;
    for (std::size_t i = 0; i < Theme::Lines().size(); ++i) {
        if (kind.draws.Has(static_cast<ThemeLine>(i)))
            cell += (cell.empty() ? "" : ", ") + std::to_string(i + 1);
    }
    return cell;
}

std::string Word(bool fact) {
    return fact ? "yes" : "no";
}

/// The fields of a kind as its section begins: those of its first form, then the other ones.
std::string Usage(std::string_view word) {
    std::string usage;
    for (const Kind* kind : Kinds()) {
        if (kind->word != word)
            continue;
        std::string form(kind->form);
        for (const Field& field : kind->fields)
            form += (form.empty() ? "" : " ") + std::string(field.name);
        usage += (usage.empty() ? "" : ", or ") + (form.empty() ? "no fields" : Code(form));
    }
    return usage;
}

std::set<std::string> Words() {
    std::set<std::string> words;
    for (const Kind* kind : Kinds())
        words.emplace(kind->word);
    return words;
}

TEST(LayoutDocument, TableOfKindsIsThatOfTheToolkit) {
    Lines expected;
    for (const Kind* kind : Kinds()) {
        expected.push_back("| " + Code(std::string(kind->word)) + " | " + FieldsCell(*kind) + " | "
                           + Word(kind->holdsChildren) + " | " + Word(kind->takesClicks) + " | "
                           + ThemeCell(*kind) + " |");
    }
    EXPECT_THAT(Starting(Section("## Kinds of widgets", "### "), "| `"),
                ElementsAreArray(expected));
}

TEST(LayoutDocument, TableOfThemeLinesIsThatOfTheToolkit) {
    Lines expected;
    for (const Theme::Line& line : Theme::Lines()) {
        const Field& field = line.values.field;
        const std::string values = line.values.count > 1
                                       ? std::to_string(line.values.count) + " numbers"
                                   : field.IsNumber()              ? "a number"
                                   : field.type == FieldType::Flag ? "a flag"
                                                                   : "a word";
        expected.push_back("| " + std::to_string(expected.size() + 1) + " | "
                           + std::string(field.name) + " | " + values + " | " + field.Range()
                           + (field.Range().empty() ? "|" : " |"));
    }
    Lines rows;
    for (const std::string& line : Section("## Themes", "### ")) {
        if (line.starts_with("| ") && std::isdigit(static_cast<unsigned char>(line[2])) != 0)
            rows.push_back(line);
    }
    EXPECT_THAT(rows, ElementsAreArray(expected));
}

TEST(LayoutDocument, EveryKindHasASectionThatBeginsWithItsFields) {
    std::set<std::string> described;
    for (const std::string& heading : Starting(Section("## Kinds of widgets", "## "), "### "))
        described.insert(heading.substr(5, heading.size() - 6));
    EXPECT_EQ(described, Words());
    for (const std::string& word : Words()) {
        const Lines section = Section("### " + Code(word), "### ");
        ASSERT_GT(section.size(), 2U) << word;
        EXPECT_EQ(section[1], Usage(word)) << word;
    }
}

TEST(LayoutDocument, EveryStatementHasASectionThatBeginsWithItsFields) {
    const Lines headings = Starting(Section("## Statements", "## "), "### ");
    EXPECT_EQ(headings.size(), Layout::Statements().size());
    for (const Layout::Statement& statement : Layout::Statements()) {
        const std::string word(statement.word);
        EXPECT_THAT(headings, testing::Contains("### " + Code(word)));
        const Lines section = Section("### " + Code(word), "### ");
        ASSERT_GT(section.size(), 2U) << word;
        std::string usage = word;
        for (const Field& field : statement.fields)
            usage += " " + std::string(field.name);
        EXPECT_THAT(section[1], StartsWith(Code(usage)));
    }
}

TEST(LayoutDocument, ContentsNameEveryStatementAndKind) {
    const Lines lines = ReadLines("docs/LAYOUT.md");
    const std::string contents =
        testing::PrintToString(Lines(lines.begin(), std::ranges::find(lines, "## A first layout")));
    for (const std::string& word : Words())
        EXPECT_THAT(contents, HasSubstr("[" + Code(word) + "](#"));
    for (const Layout::Statement& statement : Layout::Statements())
        EXPECT_THAT(contents, HasSubstr("[" + Code(std::string(statement.word)) + "](#"));
}

/// The comment before a class in its header, which bears the class's name in lower case.
std::string ClassComment(const std::string& type) {
    std::string name = type;
    std::ranges::transform(name, name.begin(), [](unsigned char letter) {
        return static_cast<char>(std::tolower(letter));
    });
    const Lines header = ReadLines("glwidget/" + name + ".h");
    const auto end = std::ranges::find_if(
        header, [&](const std::string& line) { return line.starts_with("class " + type + " "); });
    auto begin = end;
    while (begin != header.begin() && (begin - 1)->starts_with("///"))
        --begin;
    std::string comment;
    for (; begin != end; ++begin)
        comment +=
            (comment.empty() ? "" : " ") + begin->substr(std::min<std::size_t>(4, begin->size()));
    return comment;
}

TEST(ClassComments, BeginWithTheWordOfTheLayoutAndItsFields) {
    for (const Kind* kind : Kinds()) {
        const std::string comment = ClassComment(std::string(kind->type));
        std::string usage(kind->word);
        if (!kind->form.empty())
            usage += " " + std::string(kind->form);
        for (const Field& field : kind->fields)
            usage += " " + std::string(field.name);
        if (kind->form.empty()) {
            EXPECT_THAT(comment, StartsWith(Code(usage)));
        } else {
            EXPECT_THAT(comment, HasSubstr("or " + Code(usage)));
        }
    }
}

TEST(ClassComments, NameTheRangesOfTheFields) {
    for (const Kind* kind : Kinds()) {
        const std::string comment = ClassComment(std::string(kind->type));
        for (const Field& field : kind->fields)
            EXPECT_THAT(comment, HasSubstr(kind->eitherOr ? "one of them 0" : field.Range()));
    }
}

}  // namespace
