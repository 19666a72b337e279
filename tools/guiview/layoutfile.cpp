// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/layoutfile.h"

#include <algorithm>

namespace guiview {

namespace {

constexpr unsigned kFirstWithoutGlyph = 128;

/// Takes one line apart and reports what is wrong with it.
class StatementParser {
public:
    StatementParser(const LayoutFile& file, std::size_t index, Findings& list)
        : path(file.path),
          line(file.lines[index]),
          reader(line, static_cast<int>(index) + 1),
          findings(list) {}

    Statement Parse() {
        ReadStatement();
        CheckLength();
        return std::move(statement);
    }

private:
    void ReadStatement() {
        const std::optional<Word> word = reader.Next();
        if (!word)
            return;
        statement.word = *word;
        statement.end = reader.Offset();
        if (word->text.starts_with(Layout::kComment))
            return;
        statement.rule = Layout::FindStatement(word->text);
        if (statement.rule == nullptr) {
            findings.Error(path, word->location, "unknown statement " + Quoted(word->text));
            return;
        }
        if (word->text == "CHLD")
            findings.Warn(path, word->location, "CHLD does nothing");
        statement.wellFormed = true;
        ReadFields(statement.rule->fields);
        if (statement.rule->creates)
            ReadKind();
    }

    /// The toolkit skips only so many bytes of a line, and reads the rest as another statement.
    void CheckLength() {
        const std::size_t taken = std::min(statement.end, textEnd);
        if (line.size() <= taken + kLineLimit)
            return;
        Location beyond = reader.Here();
        beyond.column = static_cast<int>(taken + kLineLimit) + 1;
        findings.Error(
            path, beyond,
            "this is more than 10000 bytes after the statement and is read as another one");
    }

    void ReadKind() {
        const Word* const kind = statement.Find("kind");
        if (kind == nullptr)
            return;
        statement.kind = FindKind(kind->text);
        if (statement.kind == nullptr) {
            findings.Error(path, kind->location, "unknown kind " + Quoted(kind->text));
            statement.wellFormed = false;
            return;
        }
        if (missing)
            return;
        ReadFields(statement.kind->fields);
        if (statement.wellFormed && statement.inRange && statement.kind->eitherOr)
            CheckEitherOr();
    }

    void CheckEitherOr() {
        const std::string first(statement.kind->fields[0].name);
        const std::string second(statement.kind->fields[1].name);
        if ((statement.Number(first) != 0.0f) == (statement.Number(second) != 0.0f)) {
            OutOfRange(statement.Find(first)->location,
                       "a " + std::string(statement.kind->word) + " needs a " + first
                           + " above 0 and a " + second + " of 0, or the reverse");
        }
    }

    void ReadFields(std::span<const Field> fields) {
        for (const Field& field : fields) {
            if (missing)
                return;
            ReadField(field);
        }
    }

    void ReadField(const Field& field) {
        if (field.type == FieldType::Text) {
            ReadText(field);
            return;
        }
        const std::optional<Word> word = reader.Next();
        if (!word) {
            Fail(reader.Here(), "missing " + std::string(field.name));
            missing = true;
            return;
        }
        statement.end = reader.Offset();
        const std::string name(field.name);
        const std::string malformed = Malformed(field, *word, name);
        const std::string outside = malformed.empty() ? OutsideRange(field, *word, name) : "";
        statement.fields.push_back({&field, *word, malformed.empty() && outside.empty()});
        if (!malformed.empty())
            Fail(word->location, malformed);
        if (!outside.empty())
            OutOfRange(word->location, outside);
        if (field.type == FieldType::Caption)
            FinishCaption(field, *word);
    }

    /// A caption that chooses another form of the kind is followed by that form's fields.
    void FinishCaption(const Field& field, const Word& word) {
        if (const Kind* const form = FindKind(statement.kind->word, word.text)) {
            statement.kind = form;
            ReadFields(form->fields);
            return;
        }
        CheckBytes(word);
        if (reader.OnlyCommentLeft())
            return;
        const std::optional<Word> surplus = reader.Next();
        findings.Warn(path, surplus->location,
                      "a " + std::string(statement.kind->word) + "'s " + std::string(field.name)
                          + " is one word: " + Quoted(surplus->text) + " is not shown");
    }

    void ReadText(const Field& field) {
        const Word text = reader.Rest();
        statement.fields.push_back({&field, text});
        statement.end = reader.Offset();
        if (text.text.size() > kTextLimit) {
            textEnd = static_cast<std::size_t>(text.location.column) - 1 + kTextLimit;
            Location cut = text.location;
            cut.column += static_cast<int>(kTextLimit);
            findings.Error(path, cut,
                           "the " + std::string(field.name) + " has "
                               + std::to_string(text.text.size())
                               + " characters; only the first 511 are shown");
        }
        CheckBytes(text);
    }

    void CheckBytes(const Word& text) {
        const auto hasNoGlyph = [](char byte) {
            return byte == '\0' || static_cast<unsigned char>(byte) >= kFirstWithoutGlyph;
        };
        const auto at = std::ranges::find_if(text.text, hasNoGlyph);
        if (at == text.text.end())
            return;
        Location location = text.location;
        location.column += static_cast<int>(at - text.text.begin());
        findings.Error(path, location,
                       "byte " + std::to_string(static_cast<unsigned char>(*at))
                           + " has no glyph: only the codes 1 to 127 can be shown");
    }

    void OutOfRange(Location location, std::string message) {
        findings.Error(path, location, std::move(message));
        statement.inRange = false;
    }

    void Fail(Location location, std::string message) {
        findings.Error(path, location, std::move(message));
        statement.wellFormed = false;
    }

    const std::string& path;
    const std::string& line;
    LineReader reader;
    Findings& findings;
    Statement statement;
    std::size_t textEnd = std::string::npos;  // where the toolkit cuts a text
    bool missing = false;                     // the line ended before its fields did
};

}  // namespace

const Word* Statement::Find(std::string_view field) const {
    const auto found =
        std::ranges::find(fields, field, [](const FieldWord& each) { return each.field->name; });
    return found == fields.end() ? nullptr : &found->word;
}

const Word* Statement::FindValid(std::string_view field) const {
    const auto found = std::ranges::find_if(
        fields, [&](const FieldWord& each) { return each.valid && each.field->name == field; });
    return found == fields.end() ? nullptr : &found->word;
}

std::string_view Statement::Text(std::string_view field) const {
    const Word* const found = Find(field);
    return found == nullptr ? std::string_view() : std::string_view(found->text);
}

float Statement::Number(std::string_view field) const {
    return ParseNumber(Text(field)).value_or(0.0f);
}

int Statement::Whole(std::string_view field) const {
    return ParseWhole(Text(field)).value_or(0);
}

LayoutFile ParseLayout(const std::string& path, const std::string& content, Findings& findings) {
    LayoutFile file{path, SplitLines(content), {}};
    for (std::size_t i = 0; i < file.lines.size(); ++i)
        file.statements.push_back(StatementParser(file, i, findings).Parse());
    return file;
}

}  // namespace guiview
