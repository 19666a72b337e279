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
    Location location;

    bool operator==(std::string_view other) const { return text == other; }
};

/// Reads a line word by word, as the toolkit separates words, and knows where it is.
class LineReader {
public:
    /// @param text  without its line end; must live as long as the reader
    LineReader(std::string_view text, int number) : line(text), lineNumber(number) {}

    std::optional<Word> Next();
    /// The rest of the line without the blanks before it, as the toolkit reads a text.
    Word Rest();
    /// Whether only a comment or nothing is left.
    bool OnlyCommentLeft() const;

    /// Bytes read.
    std::size_t Offset() const { return at; }
    /// After the last word that was read.
    Location Here() const { return LocationOf(at); }

private:
    Location LocationOf(std::size_t offset) const {
        return {lineNumber, static_cast<int>(offset) + 1};
    }

    std::string_view line;
    int lineNumber;
    std::size_t at = 0;
};

/// Whether the line holds nothing for the toolkit: it is empty or begins with "//".
bool IsBlankOrComment(std::string_view line);

// The word as the toolkit reads it, if the whole word is a number.
std::optional<float> ParseNumber(std::string_view word);
std::optional<int> ParseWhole(std::string_view word);

/// What is wrong with a word as the value of a field; empty if nothing is.
/// @param name  the field's name in the report
std::string Malformed(const Field& field, const Word& word, const std::string& name);
/// @param word  one that is not malformed
std::string OutsideRange(const Field& field, const Word& word, const std::string& name);

/// The content of a text file.
/// @return nothing if it cannot be read or is larger than the toolkit allows
std::optional<std::string> ReadTextFile(const std::string& path);

/// The lines without their line ends.
std::vector<std::string> SplitLines(const std::string& content);

}  // namespace guiview
