// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

namespace guiview {

/// A place in a text file. Both count from 1, columns in bytes.
struct Place {
    int line = 1;
    int column = 1;
};

enum class Severity {
    Error,   ///< the toolkit stops, or does something else than what is written
    Warning  ///< the screen is built, but not as anybody wants it
};

/// What is wrong at a place of a file.
struct Finding {
    std::string file;
    Place place;
    Severity severity;
    std::string message;
};

/// Gathers what is wrong with a layout and the files that it names.
class Findings {
public:
    void Error(const std::string& file, Place place, std::string message);
    void Warn(const std::string& file, Place place, std::string message);

    const std::vector<Finding>& List() const { return findings; }
    bool HasErrors() const;

    /// The file `first` before the others, each from top to bottom.
    void Sort(const std::string& first);

    /// As compilers print them, one per line.
    std::string AsText() const;
    /// As one JSON array, for editors.
    std::string AsJson() const;

private:
    std::vector<Finding> findings;
};

}  // namespace guiview
