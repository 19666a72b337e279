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

/// A field of a line and what stands there.
struct FieldWord {
    const Field* field;
    Word word;
    bool valid = true;  ///< it is what the field takes, and in its range
};

/// One line of a layout, taken apart.
struct Statement {
    Word word;                                ///< empty on a blank line
    const Layout::Statement* rule = nullptr;  ///< null for blanks, comments, unknown words
    const Kind* kind = nullptr;               ///< of the widget that it creates
    std::vector<FieldWord> fields;            ///< as many as could be read
    std::size_t end = 0;                      ///< bytes of the line up to what is a comment
    bool wellFormed = false;                  ///< all fields are there and are what they should be
    bool inRange = true;                      ///< and no number is out of its range

    /// Null when the line ended before this field.
    const Word* Find(std::string_view field) const;
    /// The same of a field whose word is not valid.
    const Word* FindValid(std::string_view field) const;
    /// @return the field's text, or nothing when it is missing
    std::string_view Text(std::string_view field) const;
    float Number(std::string_view field) const;
    int Whole(std::string_view field) const;
};

/// A layout as it is written: a statement for each line.
struct LayoutFile {
    std::string path;  ///< as which it is reported
    std::vector<std::string> lines;
    std::vector<Statement> statements;
};

/// Reads every line on its own, unlike the toolkit, which looks for what is missing in the next
/// line: this is how one mistake is one finding.
LayoutFile ParseLayout(const std::string& path, const std::string& content, Findings& findings);

/// The toolkit's readers take no more of a text, and skip no more of a line.
inline constexpr std::size_t kTextLimit = GuiReader::kFieldLimit;
inline constexpr std::size_t kLineLimit = std::size_t{GuiReader::kSkipLimit};

inline constexpr std::string_view kNone = Layout::kNone;

}  // namespace guiview
