// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/fontsize.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>
#include <vector>

#include "glwidget/theme.h"
#include "tools/guiview/gamecheck.h"
#include "tools/guiview/sourceline.h"

namespace guiview {

namespace {

namespace fs = std::filesystem;

constexpr const char* kDefaultTheme = "default";
constexpr const char* kDefaultThemeFile = "default.theme";

bool Fail(const std::string& what) {
    std::cerr << "guiview: " << what << '\n';
    return false;
}

/// Replaces the first two words of a line. If there is room, what follows stays in its column.
std::string WithTwoNumbers(const std::string& line, const std::string& number) {
    LineReader reader(line, 1);
    const auto first = reader.Next();
    const auto second = reader.Next();
    if (!first || !second || !ParseNumber(first->text) || !ParseNumber(second->text))
        return {};
    const auto begin = static_cast<std::size_t>(first->location.column) - 1;
    const std::string before = line.substr(begin, reader.Offset() - begin);
    std::string numbers = number;
    numbers.append(" ").append(number);
    std::string rest = line.substr(reader.Offset());
    const std::size_t blanks = std::min(rest.find_first_not_of(' '), rest.size());
    if (blanks > 0 && blanks < rest.size()) {
        const std::size_t column = before.size() + blanks;
        rest = rest.substr(blanks);
        numbers.resize(std::max(column, numbers.size() + 1), ' ');
    }
    return line.substr(0, begin) + numbers + rest;
}

}  // namespace

std::set<std::string> ThemesWithText(const LayoutSource& layout) {
    std::set<std::string> themes;
    std::string current = kDefaultThemeFile;
    for (const Statement& statement : layout.File().statements) {
        if (statement.rule == nullptr)
            continue;
        if (statement.rule->word == "THEM") {
            current = statement.Text("theme");
            if (current == kDefaultTheme)
                current = kDefaultThemeFile;
        }
        if (statement.kind == nullptr)
            continue;
        if (statement.kind->draws.Has(ThemeLine::FontSize))
            themes.insert(current);
        if (statement.kind->buttonTheme != nullptr)
            themes.insert(statement.kind->buttonTheme);
    }
    if (IsForGame(layout.Declared()))
        themes.insert("messagebox.theme");
    return themes;
}

std::optional<std::string> WithFontSize(const std::string& theme, const std::string& size) {
    std::vector<std::string> lines = SplitLines(theme);
    auto values = static_cast<int>(ThemeLine::FontSize);
    for (std::string& line : lines) {
        if (IsBlankOrComment(line) || values-- > 0)
            continue;
        line = WithTwoNumbers(line, size);
        if (line.empty())
            return std::nullopt;
        std::string changed;
        for (const std::string& each : lines)
            changed += each + '\n';
        if (!theme.ends_with('\n'))
            changed.pop_back();
        return changed;
    }
    return std::nullopt;
}

bool SetFontSize(const LayoutSource& layout, const std::string& size, const std::string& into) {
    const std::string folder = into.empty() || into.ends_with('/') ? into : into + '/';
    for (const std::string& theme : ThemesWithText(layout)) {
        const std::string target = (into.empty() ? layout.Folder() : folder) + theme;
        auto content = ReadTextFile(target);
        if (!content)
            content = ReadTextFile(layout.Folder() + theme);
        if (!content)
            return Fail(layout.Folder() + theme + ": cannot be read");
        const auto changed = WithFontSize(*content, size);
        if (!changed)
            return Fail(layout.Folder() + theme + ": has no line for the font size");
        if (*changed == *content)
            continue;
        if (!RewriteFile(target, *changed))
            return Fail(target + ": cannot be written");
        std::cout << target << '\n';
    }
    return true;
}

bool RewriteFile(const std::string& path, const std::string& content) {
    std::error_code error;
    const bool exists = fs::exists(path, error);
    const fs::path target = exists ? fs::canonical(path, error) : fs::path(path);
    if (error)
        return false;
    fs::path draft = target;
    draft += ".guiview";
    std::ofstream file(draft, std::ios::binary | std::ios::trunc);
    file << content;
    file.close();
    if (file && exists)
        fs::permissions(draft, fs::status(target).permissions(), error);
    if (file && !error)
        fs::rename(draft, target, error);
    if (file && !error)
        return true;
    fs::remove(draft, error);
    return false;
}

}  // namespace guiview
