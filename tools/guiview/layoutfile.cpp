// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/layoutfile.h"

#include <algorithm>
#include <optional>

#include "tools/guiview/suggestion.h"

namespace guiview {

namespace {

constexpr unsigned kFirstWithoutGlyph = 128;

std::vector<std::string> StatementWords() {
    std::vector<std::string> words;
    for (const Layout::Statement& statement : Layout::Statements())
        words.emplace_back(statement.word);
    return words;
}

/// The word of the kind that a misspelt one means. It may also be similar to the name of the class.
std::optional<std::string> SimilarKind(const std::string& word) {
    std::vector<std::string> names;
    for (const Kind* kind : Kinds())
        names.emplace_back(kind->word);
    if (auto similar = Similar(word, names))
        return similar;
    std::vector<std::string> types;
    for (const Kind* kind : Kinds())
        types.emplace_back(kind->type);
    const auto type = Similar(word, types);
    return type ? std::optional(std::string(KindOfType(*type)->word)) : std::nullopt;
}

/// Takes one line apart and reports what is wrong with it.
class StatementParser {
public:
    StatementParser(const LayoutFile& layoutFile, std::size_t lineIndex, Findings& list)
        : file(layoutFile),
          index(lineIndex),
          path(file.path),
          line(file.lines[index]),
          reader(line, static_cast<int>(index) + 1),
          findings(list) {}

    Statement Parse() {
        ReadStatement();
        CheckLength();
        return std::move(statement);
    }

private:
    /// Goes on where another parser is, and reports to another list.
    StatementParser(const StatementParser& other, Findings& list)
        : file(other.file),
          index(other.index),
          path(other.path),
          line(other.line),
          reader(other.reader),
          findings(list),
          statement(other.statement),
          textEnd(other.textEnd),
          missing(other.missing) {}

    void ReadStatement() {
        if (!ReadWord())
            return;
        const Word& word = statement.word;
        if (word.text.starts_with(Layout::kComment))
            return;
        if (const Layout::Statement* const rule = Layout::FindStatement(word.text)) {
            if (word == "CHLD")
                findings.Warn(path, word.location, "CHLD does nothing");
            ReadAs(*rule);
        } else {
            ReadUnknownStatement();
        }
    }

    bool ReadWord() {
        const std::optional<Word> word = reader.Next();
        if (!word)
            return false;
        statement.word = *word;
        statement.end = reader.Offset();
        return true;
    }

    void ReadAs(const Layout::Statement& rule) {
        statement.rule = &rule;
        statement.wellFormed = true;
        ReadFields(rule.fields);
        if (rule.creates)
            ReadKind();
    }

    void ReadUnknownStatement() {
        const Word word = statement.word;
        const std::vector<std::string> similar = MostSimilar(word.text, StatementWords());
        std::optional<std::string> meant;
        if (!similar.empty())
            meant = similar.front();
        for (const std::string& candidate : similar) {
            if (auto corrected = WithoutMistakesAs(*Layout::FindStatement(candidate))) {
                meant = candidate;
                statement = std::move(*corrected);
                statement.corrections.push_back({word.location, word.text.size(), candidate});
                break;
            }
        }
        findings.Error(path, word.location,
                       "unknown statement " + Quoted(word.text) + DidYouMean(meant));
    }

    /// The line as this statement, if it has no mistake as such.
    std::optional<Statement> WithoutMistakesAs(const Layout::Statement& rule) const {
        Findings found;
        StatementParser trial(file, index, found);
        if (!trial.ReadWord())
            return std::nullopt;
        trial.ReadAs(rule);
        if (!found.List().empty())
            return std::nullopt;
        return std::move(trial.statement);
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
            ReadUnknownKind(*kind);
        } else if (!missing) {
            ReadKindFields();
        }
    }

    void ReadKindFields() {
        ReadFields(statement.kind->fields);
        if (statement.wellFormed && statement.inRange && statement.kind->eitherOr)
            CheckEitherOr();
    }

    void ReadUnknownKind(const Word& kind) {
        const Word word = kind;
        const std::optional<std::string> meant = SimilarKind(word.text);
        findings.Error(path, word.location,
                       "unknown kind " + Quoted(word.text) + DidYouMean(meant));
        if (!meant || missing) {
            statement.wellFormed = false;
            return;
        }
        Findings found;
        StatementParser trial(*this, found);
        trial.statement.kind = FindKind(*meant);
        trial.ReadKindFields();
        if (!found.List().empty()) {
            statement.wellFormed = false;
            return;
        }
        statement = std::move(trial.statement);
        statement.corrections.push_back({word.location, word.text.size(), *meant});
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
        if (IsNumberInPlaceOfATag(field, *word)) {
            Fail(word->location, "missing tag or parent before " + Quoted(word->text));
            missing = true;
            return;
        }
        if (field.name == "tab" && FindKind(word->text) != nullptr) {
            Fail(word->location, "missing tab before " + Quoted(word->text));
            missing = true;
            return;
        }
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

    /// Whether the x of a widget is where its parent should be, so that the y is where the x should
    /// be, and no number follows.
    bool IsNumberInPlaceOfATag(const Field& field, const Word& word) const {
        if (field.name != "parent" || !ParseNumber(word.text))
            return false;
        LineReader ahead = reader;
        const std::optional<Word> x = ahead.Next();
        const std::optional<Word> y = ahead.Next();
        return x && ParseNumber(x->text) && (!y || !ParseNumber(y->text));
    }

    /// A caption that chooses another form of the kind is followed by that form's fields.
    void FinishCaption(const Field& field, const Word& word) {
        if (const Kind* const form = FindKind(statement.kind->word, word.text)) {
            statement.kind = form;
            ReadFields(form->fields);
            return;
        }
        CheckBytes(word);
        if (reader.OnlyCommentLeft() || !statement.wellFormed)
            return;
        std::vector<std::string> forms;
        for (const Kind* kind : Kinds()) {
            if (kind->word == statement.kind->word && !kind->form.empty())
                forms.emplace_back(kind->form);
        }
        if (const auto meant = Similar(word.text, forms)) {
            Fail(word.location, "unknown form " + Quoted(word.text) + DidYouMean(meant));
            return;
        }
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
        // Numbers in pixels, for example, are one mistake.
        if (statement.inRange)
            findings.Error(path, location, std::move(message));
        statement.inRange = false;
    }

    void Fail(Location location, std::string message) {
        findings.Error(path, location, std::move(message));
        statement.wellFormed = false;
    }

    const LayoutFile& file;
    std::size_t index;
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
