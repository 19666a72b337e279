// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tools/guiview/finding.h"
#include "tools/guiview/grammar.h"
#include "tools/guiview/sourceline.h"

namespace guiview {

struct Field {
    const FieldRule* rule;
    Word word;
};

/// One line of a layout, taken apart.
struct Statement {
    Word word;                            ///< empty on a blank line
    const StatementRule* rule = nullptr;  ///< null for blank and comment lines, unknown words
    const KindRule* kind = nullptr;       ///< of the widget that it creates
    std::vector<Field> fields;            ///< as many as could be read
    std::size_t end = 0;                  ///< bytes of the line up to what is a comment
    bool wellFormed = false;              ///< all fields are there and hold what they should

    /// Null when the line ended before this field.
    const Word* Find(std::string_view field) const;
    /// @return the field's text, or nothing when it is missing
    std::string_view Text(std::string_view field) const;
    float Number(std::string_view field) const;
    int Whole(std::string_view field) const;
    bool IsImageButton() const;
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
inline constexpr std::size_t kTextLimit = 511;
inline constexpr std::size_t kLineLimit = 10000;

}  // namespace guiview
