// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "glwidget/kinds.h"
#include "glwidget/layout.h"
#include "tools/guiview/finding.h"
#include "tools/guiview/sourceline.h"

namespace guiview {

/// A field of a line and its word.
struct FieldWord {
    const Field* field;
    Word word;
    bool valid = true;  ///< the word is of the field's type and in its range
};

/// A misspelt word of a line, and what it probably means.
struct Correction {
    Location location;
    std::size_t length = 0;  ///< of the misspelt word
    std::string word;
};

/// One line of a layout, taken apart. A misspelt word has been reported; the line is then read as
/// if the word were right, so that the mistake has no consequences in other lines.
struct Statement {
    Word word;                                ///< empty on a blank line
    const Layout::Statement* rule = nullptr;  ///< null for a blank line, comment or unknown word
    const Kind* kind = nullptr;               ///< of the widget that it creates
    std::vector<FieldWord> fields;            ///< those that the line has
    std::size_t end = 0;                      ///< where the line's comment begins, in bytes
    bool wellFormed = false;                  ///< no field is missing or of another type
    bool inRange = true;                      ///< no number is out of its range
    std::vector<Correction> corrections;

    /// Null when the line ended before this field.
    const Word* Find(std::string_view field) const;
    /// Null also when the word is not valid.
    const Word* FindValid(std::string_view field) const;
    /// @return the field's text, or nothing when it is missing
    std::string_view Text(std::string_view field) const;
    float Number(std::string_view field) const;
    int Whole(std::string_view field) const;
};

/// A layout as it is written: one statement per line.
struct LayoutFile {
    std::string path;  ///< the name in reports
    std::vector<std::string> lines;
    std::vector<Statement> statements;
};

/// Reads each line for itself, so that one mistake is one finding. The toolkit would look for
/// missing fields in the next line.
LayoutFile ParseLayout(const std::string& path, const std::string& content, Findings& findings);

// The toolkit reads at most so many bytes of a text, and skips at most so many of a line.
inline constexpr std::size_t kTextLimit = GuiReader::kFieldLimit;
inline constexpr std::size_t kLineLimit = std::size_t{GuiReader::kSkipLimit};

inline constexpr std::string_view kNone = Layout::kNone;

}  // namespace guiview
