// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace guiview {

/// A position in a text file. Both count from 1, columns in bytes.
struct Location {
    int line = 1;
    int column = 1;
};

enum class Severity {
    Error,   ///< the toolkit stops, or understands something else than what is written
    Warning  ///< the screen is built, but does not look or work well
};

/// What is wrong at one position of a file.
struct Finding {
    std::string file;
    Location location;
    Severity severity;
    std::string message;
};

/// A list of what is wrong with a layout and the files that it names.
class Findings {
public:
    void Error(const std::string& file, Location location, std::string message);
    void Warn(const std::string& file, Location location, std::string message);

    const std::vector<Finding>& List() const { return findings; }
    bool HasErrors() const;

    /// Sorts the findings: errors before warnings, those in the file `first` before those in
    /// others, and by line.
    void Sort(const std::string& first);

    /// One per line: file, line, column, severity and message, as compilers print them.
    std::string AsText() const;
    /// As one JSON array, for editors.
    std::string AsJson() const;

private:
    std::vector<Finding> findings;
};

/// The text in quotation marks, as messages show tags and words.
std::string Quoted(std::string_view text);

}  // namespace guiview
