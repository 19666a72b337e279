// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/sourceline.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

#include "glwidget/reader.h"
#include "quarn2/readfile.h"

namespace guiview {

namespace {

constexpr std::string_view kWhite = " \t\r\v\f";
/// What separates a text from the field before it. The toolkit keeps the other white space.
constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kComment = "//";

std::size_t SkipAny(std::string_view line, std::size_t from, std::string_view which) {
    return std::min(line.find_first_not_of(which, from), line.size());
}

/// Without a "+", which the toolkit reads before a number and from_chars does not.
std::string_view Unsigned(std::string_view word) {
    const bool plus = word.size() > 1 && word[0] == '+' && word[1] != '-';
    return plus ? word.substr(1) : word;
}

}  // namespace

std::optional<Word> LineReader::Next() {
    const std::size_t begin = SkipAny(line, at, kWhite);
    if (begin == line.size())
        return std::nullopt;
    at = std::min(line.find_first_of(kWhite, begin), line.size());
    return Word{std::string(line.substr(begin, at - begin)), LocationOf(begin)};
}

Word LineReader::Rest() {
    std::size_t begin = SkipAny(line, at, kBlanks);
    if (begin == line.size() && line.ends_with('\r'))
        --begin;  // part of the line end, after an empty text
    std::string_view rest = line.substr(begin);
    if (!rest.empty() && rest.back() == '\r')
        rest.remove_suffix(1);
    at = begin + rest.size();
    return {std::string(rest), LocationOf(begin)};
}

bool LineReader::OnlyCommentLeft() const {
    const std::size_t begin = SkipAny(line, at, kWhite);
    return begin == line.size() || line.substr(begin).starts_with(kComment);
}

bool IsBlankOrComment(std::string_view line) {
    return LineReader(line, 1).OnlyCommentLeft();
}

std::optional<float> ParseNumber(std::string_view word) {
    word = Unsigned(word);
    float number = 0.0f;
    const char* const last = word.data() + word.size();
    const auto [end, error] = std::from_chars(word.data(), last, number);
    if (error != std::errc() || end != last || !std::isfinite(number))
        return std::nullopt;
    return number;
}

std::optional<int> ParseWhole(std::string_view word) {
    word = Unsigned(word);
    int number = 0;
    const char* const last = word.data() + word.size();
    const auto [end, error] = std::from_chars(word.data(), last, number);
    if (error != std::errc() || end != last)
        return std::nullopt;
    return number;
}

std::string Malformed(const Field& field, const Word& word, const std::string& name) {
    const std::string is = "'" + word.text + "' is ";
    switch (field.type) {
    case FieldType::Number:
        return ParseNumber(word.text) ? "" : is + "not a number for " + name;
    case FieldType::Whole:
        return ParseWhole(word.text) ? "" : is + "not a whole number for " + name;
    case FieldType::Flag:
        return word == "0" || word == "1" ? "" : is + "neither 0 nor 1 for " + name;
    case FieldType::Name:
    case FieldType::Caption:
    case FieldType::Text:
        break;
    }
    return {};
}

std::string OutsideRange(const Field& field, const Word& word, const std::string& name) {
    if (!field.IsNumber() || field.Allows(*ParseNumber(word.text)))
        return {};
    return "'" + word.text + "' is out of range for " + name + ": " + field.Range();
}

std::optional<std::string> ReadTextFile(const std::string& path) {
    std::string content;
    if (ReadWholeFile(path, GuiReader::kMaxFileBytes, content) != FileProblem::None)
        return std::nullopt;
    return content;
}

std::vector<std::string> SplitLines(const std::string& content) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    while (begin < content.size()) {
        const std::size_t end = std::min(content.find('\n', begin), content.size());
        lines.push_back(content.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

}  // namespace guiview
