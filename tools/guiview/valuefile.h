// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tools/guiview/finding.h"
#include "tools/guiview/grammar.h"
#include "tools/guiview/sourceline.h"

namespace guiview {

/// A line of a theme or of the configuration: so many fields of one type.
struct ValueRule {
    std::string_view name;
    FieldType type;
    int count;
};

/// The lines of a theme file and of the toolkit configuration, in order.
std::span<const ValueRule> ThemeRules();
std::span<const ValueRule> ConfigurationRules();

/// The rules' words as a file gives them. What is missing is left empty.
class ValueFile {
public:
    /// Reports what is missing or malformed.
    /// @param path  as which the file is reported
    ValueFile(const std::string& path, const std::string& content, std::span<const ValueRule> rules,
              Findings& findings);

    /// The first word of the line of that name; null when there is none.
    const Word* Find(std::string_view name) const;

private:
    void ReadLine(const ValueRule& rule, std::string_view line, int number);
    bool CheckWord(const ValueRule& rule, const Word& word);

    std::string file;
    Findings& list;
    std::vector<std::pair<std::string_view, Word>> first;
};

inline constexpr std::string_view kPictureLine = "picture";
inline constexpr std::string_view kFontLine = "font";

}  // namespace guiview
