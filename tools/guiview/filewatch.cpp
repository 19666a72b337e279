// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/filewatch.h"

#include <system_error>

#include "tools/guiview/valuefile.h"

namespace guiview {

namespace {

namespace fs = std::filesystem;

/// The word of a theme's or configuration's line that names another file; empty when there is
/// none.
std::string NamedIn(const std::string& path, std::span<const ValueRule> rules,
                    std::string_view line) {
    const auto content = ReadTextFile(path);
    if (!content)
        return {};
    Findings ignored;
    const ValueFile file(path, *content, rules, ignored);
    const Word* const word = file.Find(line);
    return word == nullptr || *word == kNone ? std::string() : word->text;
}

}  // namespace

std::vector<std::string> FilesOf(const std::string& layout) {
    const std::string folder = FolderOf(layout);
    std::vector<std::string> files{layout};
    const auto add = [&](const std::string& name, std::span<const ValueRule> rules,
                         std::string_view line) {
        files.push_back(folder + name);
        const std::string named = NamedIn(folder + name, rules, line);
        if (!named.empty())
            files.push_back(folder + named);
    };
    for (const char* theme :
         {"default.theme", "messagebox.theme", "tabwin_button.theme", "combo_button.theme"})
        add(theme, ThemeRules(), kPictureLine);
    Findings ignored;
    const LayoutFile file =
        ParseLayout(layout, ReadTextFile(layout).value_or(std::string()), ignored);
    for (const Statement& statement : file.statements) {
        if (const Word* const theme = statement.Find("theme")) {
            add(theme->text, ThemeRules(), kPictureLine);
        } else if (const Word* const configuration = statement.Find("file")) {
            add(configuration->text, ConfigurationRules(), kFontLine);
        }
    }
    return files;
}

FileWatch::FileWatch(const std::string& layoutPath)
    : layout(layoutPath), files(FilesOf(layout)), known(Look(files)), last(known) {}

bool FileWatch::Changed() {
    Stamps now = Look(files);
    if (now == known)
        return false;
    const bool quiet = now == last;
    last = std::move(now);
    if (!quiet)
        return false;
    files = FilesOf(layout);
    known = Look(files);
    last = known;
    return true;
}

auto FileWatch::Look(const std::vector<std::string>& files) -> Stamps {
    Stamps stamps;
    for (const std::string& file : files) {
        std::error_code error;
        const auto written = fs::last_write_time(file, error);
        const auto size = error ? std::uintmax_t{0} : fs::file_size(file, error);
        if (!error)
            stamps.emplace(file, Stamp{written, size});
    }
    return stamps;
}

}  // namespace guiview
