// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/layoutfile.h"

#include <algorithm>

#include "glwidget/reader.h"

namespace guiview {

static_assert(kTextLimit == GuiReader::kFieldLimit);
static_assert(kLineLimit == static_cast<std::size_t>(GuiReader::kSkipLimit));

namespace {

constexpr unsigned kFirstWithoutGlyph = 128;

std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}

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
        if (word->text.starts_with("//"))
            return;
        statement.rule = FindStatement(word->text);
        if (statement.rule == nullptr) {
            findings.Error(path, word->place, "unknown statement " + Quoted(word->text));
            return;
        }
        if (word->text == "CHLD")
            findings.Warn(path, word->place, "CHLD makes nothing");
        statement.wellFormed = true;
        ReadFields(statement.rule->fields);
        if (statement.rule->creates)
            ReadKind();
    }

    /// The toolkit takes the rest of a line for another statement when it is too long to skip.
    void CheckLength() {
        const std::size_t taken = std::min(statement.end, textEnd);
        if (line.size() <= taken + kLineLimit)
            return;
        Place beyond = reader.Here();
        beyond.column = static_cast<int>(taken + kLineLimit) + 1;
        findings.Error(path, beyond,
                       "what lies 10000 bytes behind a statement is read as another one");
    }

    void ReadKind() {
        const Word* const kind = statement.Find("kind");
        if (kind == nullptr)
            return;
        statement.kind = FindKind(kind->text);
        if (statement.kind == nullptr) {
            findings.Error(path, kind->place, "unknown kind " + Quoted(kind->text));
            statement.wellFormed = false;
            return;
        }
        if (missing)
            return;
        ReadFields(statement.kind->fields);
        if (statement.kind->kind == Kind::Butt)
            FinishButton();
    }

    void FinishButton() {
        if (statement.IsImageButton()) {
            ReadFields(ImageFields());
            return;
        }
        if (missing || reader.OnlyCommentLeft())
            return;
        const std::optional<Word> surplus = reader.Next();
        findings.Warn(path, surplus->place,
                      "a Butt's caption is one word: " + Quoted(surplus->text) + " is not shown");
    }

    void ReadFields(std::span<const FieldRule> rules) {
        for (const FieldRule& rule : rules) {
            if (missing)
                return;
            ReadField(rule);
        }
    }

    void ReadField(const FieldRule& rule) {
        if (rule.type == FieldType::Text) {
            ReadText(rule);
            return;
        }
        const std::optional<Word> word = reader.Next();
        if (!word) {
            Fail(reader.Here(), "missing " + std::string(rule.name));
            missing = true;
            return;
        }
        statement.fields.push_back({&rule, *word});
        statement.end = reader.Offset();
        CheckWord(rule, *word);
    }

    void CheckWord(const FieldRule& rule, const Word& word) {
        const std::string is = Quoted(word.text) + " is ";
        const std::string name(rule.name);
        switch (rule.type) {
        case FieldType::Number:
            if (!ParseNumber(word.text))
                Fail(word.place, is + "no number for " + name);
            break;
        case FieldType::Whole:
            if (!ParseWhole(word.text))
                Fail(word.place, is + "no whole number for " + name);
            break;
        case FieldType::Flag:
            if (word.text != "0" && word.text != "1")
                Fail(word.place, is + "neither 0 nor 1 for " + name);
            break;
        case FieldType::Caption:
            CheckBytes(word);
            break;
        case FieldType::Name:
        case FieldType::Text:
            break;
        }
    }

    void ReadText(const FieldRule& rule) {
        const Word text = reader.Rest();
        statement.fields.push_back({&rule, text});
        statement.end = reader.Offset();
        if (text.text.size() > kTextLimit) {
            textEnd = static_cast<std::size_t>(text.place.column) - 1 + kTextLimit;
            Place cut = text.place;
            cut.column += static_cast<int>(kTextLimit);
            findings.Error(path, cut,
                           "the " + std::string(rule.name) + " has "
                               + std::to_string(text.text.size())
                               + " characters; what follows the first 511 is not shown");
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
        Place place = text.place;
        place.column += static_cast<int>(at - text.text.begin());
        findings.Error(path, place,
                       "byte " + std::to_string(static_cast<unsigned char>(*at))
                           + " has no glyph: only the codes 1 to 127 can be shown");
    }

    void Fail(Place place, std::string message) {
        findings.Error(path, place, std::move(message));
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
        std::ranges::find(fields, field, [](const Field& each) { return each.rule->name; });
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

bool Statement::IsImageButton() const {
    return kind != nullptr && kind->kind == Kind::Butt && Text("caption") == kImageWord;
}

LayoutFile ParseLayout(const std::string& path, const std::string& content, Findings& findings) {
    LayoutFile file{path, SplitLines(content), {}};
    for (std::size_t i = 0; i < file.lines.size(); ++i)
        file.statements.push_back(StatementParser(file, i, findings).Parse());
    return file;
}

}  // namespace guiview
