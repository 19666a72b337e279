// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/layoutformat.h"

#include <algorithm>
#include <map>
#include <span>
#include <string_view>
#include <vector>

#include "tools/guiview/layoutfile.h"

namespace guiview {

namespace {

/// In characters: names of files may contain UTF-8.
std::size_t WidthOf(std::string_view text) {
    constexpr unsigned kContinuation = 0x80;
    constexpr unsigned kLeadingBits = 0xC0;
    return static_cast<std::size_t>(std::ranges::count_if(text, [](char byte) {
        return (static_cast<unsigned char>(byte) & kLeadingBits) != kContinuation;
    }));
}

/// The width of a column: before the decimal point of its numbers, and from there on.
struct Column {
    std::size_t before = 0;
    std::size_t after = 0;
};

/// A field in its column.
struct Cell {
    std::string before;
    std::string after;
    bool number = false;

    explicit Cell(const FieldWord& field)
        : before(field.word.text), number(field.field->IsNumber()) {
        if (!number)
            return;
        const std::size_t point = std::min(before.find_first_of(".eE"), before.size());
        after = before.substr(point);
        before.resize(point);
    }
    explicit Cell(std::string word) : before(std::move(word)) {}
};

/// A statement: fields in columns, fields without columns, and the comment.
struct Row {
    std::size_t line;
    std::vector<Cell> cells;
    std::string loose;
    std::string_view skipped;
};

/// How many fields have columns. Texts, and fields that only some kinds have, do not.
std::size_t ColumnCount(const Statement& statement) {
    const std::size_t fields = statement.rule->fields.size();
    const bool endsInText = fields > 0 && statement.rule->fields.back().type == FieldType::Text;
    return endsInText ? fields - 1 : fields;
}

Row TakeApart(const Statement& statement, std::string_view line, std::size_t number) {
    const auto begin = static_cast<std::size_t>(statement.word.location.column) - 1;
    Row row{number,
            {Cell(std::string(line.substr(0, begin)) + statement.word.text)},
            {},
            line.substr(statement.end)};
    const std::size_t columns = ColumnCount(statement);
    std::size_t done = 0;
    for (const FieldWord& field : statement.fields) {
        if (done == 0 && field.field->name == "tab") {
            // The tab of a TADD is part of the first column, so that the rest is aligned with CADD.
            row.cells.back().before += " " + field.word.text;
        } else if (done < columns) {
            row.cells.emplace_back(field);
        } else if (!field.word.text.empty()) {
            row.loose += " " + field.word.text;
        }
        ++done;
    }
    return row;
}

/// Equal for all statements that are aligned with each other.
std::string_view GroupOf(const Statement& statement) {
    return statement.rule->creates ? std::string_view("CADD") : statement.rule->word;
}

class ParagraphFormatter {
public:
    void Add(const Statement& statement, std::string_view line, std::size_t number) {
        groups[GroupOf(statement)].push_back(TakeApart(statement, line, number));
    }

    void Write(std::span<std::string> lines) {
        for (const auto& [word, rows] : groups) {
            const std::vector<Column> columns = Measure(rows);
            for (const Row& row : rows)
                lines[row.line] = Join(row, columns);
        }
        groups.clear();
    }

private:
    static std::vector<Column> Measure(const std::vector<Row>& rows) {
        std::vector<Column> columns;
        for (const Row& row : rows) {
            columns.resize(std::max(columns.size(), row.cells.size()));
            for (std::size_t i = 0; i < row.cells.size(); ++i) {
                columns[i].before = std::max(columns[i].before, WidthOf(row.cells[i].before));
                columns[i].after = std::max(columns[i].after, WidthOf(row.cells[i].after));
            }
        }
        return columns;
    }

    static std::string Join(const Row& row, const std::vector<Column>& columns) {
        std::string line;
        std::string padding;
        for (std::size_t i = 0; i < row.cells.size(); ++i) {
            const Cell& cell = row.cells[i];
            line += padding;
            const std::string blanks(columns[i].before - WidthOf(cell.before), ' ');
            if (cell.number) {
                line += blanks + cell.before + cell.after;
            } else {
                line += cell.before;
            }
            padding = cell.number ? "" : blanks;
            padding += std::string(columns[i].after - WidthOf(cell.after), ' ') + " ";
        }
        if (!row.loose.empty())
            line += padding.substr(1) + row.loose;  // begins with a blank
        return line.append(row.skipped);
    }

    std::map<std::string_view, std::vector<Row>> groups;
};

}  // namespace

std::string FormatLayout(const std::string& content) {
    Findings ignored;
    const LayoutFile file = ParseLayout({}, content, ignored);
    std::vector<std::string> lines = file.lines;
    ParagraphFormatter paragraph;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const Statement& statement = file.statements[i];
        if (statement.word.text.empty())
            paragraph.Write(lines);
        if (statement.wellFormed && lines[i].size() < kLineLimit)
            paragraph.Add(statement, file.lines[i], i);
    }
    paragraph.Write(lines);

    std::string formatted;
    for (const std::string& line : lines)
        formatted += line + '\n';
    if (!content.ends_with('\n') && !formatted.empty())
        formatted.pop_back();
    return formatted;
}

Findings CheckFormat(const std::string& path, const std::string& content) {
    const std::vector<std::string> before = SplitLines(content);
    const std::vector<std::string> after = SplitLines(FormatLayout(content));
    Findings findings;
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i] != after[i]) {
            findings.Warn(path, {static_cast<int>(i) + 1, 1},
                          "the columns are not aligned: guiview --format aligns them");
        }
    }
    return findings;
}

}  // namespace guiview
