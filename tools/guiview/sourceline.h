// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "glwidget/field.h"
#include "tools/guiview/finding.h"

namespace guiview {

/// A word of a line and where it begins.
struct Word {
    std::string text;
    Place place;

    bool operator==(std::string_view other) const { return text == other; }
};

/// Reads a line word by word, as the toolkit separates words, and knows where it is.
class LineReader {
public:
    /// @param text  without its line end; stays alive as long as the reader is used
    LineReader(std::string_view text, int number) : line(text), lineNumber(number) {}

    std::optional<Word> Next();
    /// All that is left without the blanks before it, as the toolkit takes a text.
    Word Rest();
    /// Whether a "//" or nothing at all is left.
    bool OnlyCommentLeft() const;

    /// Bytes read.
    std::size_t Offset() const { return at; }
    /// Behind the last word that was read.
    Place Here() const { return PlaceOf(at); }

private:
    Place PlaceOf(std::size_t offset) const { return {lineNumber, static_cast<int>(offset) + 1}; }

    std::string_view line;
    int lineNumber;
    std::size_t at = 0;
};

/// Whether the line holds nothing for the toolkit: it is empty or begins with "//".
bool IsBlankOrComment(std::string_view line);

/// A number as the toolkit's words hold it, the whole word and nothing else.
std::optional<float> ParseNumber(std::string_view word);
std::optional<int> ParseWhole(std::string_view word);

// What is wrong with a word where the field stands; empty when nothing is.
/// @param name  as which the field is reported
std::string Malformed(const Field& field, const Word& word, const std::string& name);
/// The same of a word that is not malformed.
std::string OutsideRange(const Field& field, const Word& word, const std::string& name);

/// The content of a text file.
/// @return nothing if it cannot be read or is larger than the toolkit allows
std::optional<std::string> ReadTextFile(const std::string& path);

/// The lines without their line ends.
std::vector<std::string> SplitLines(const std::string& content);

}  // namespace guiview
