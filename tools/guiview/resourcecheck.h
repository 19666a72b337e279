// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <set>
#include <string>

#include "glwidget/theme.h"
#include "tools/guiview/declarations.h"
#include "tools/guiview/finding.h"
#include "tools/guiview/valuefile.h"

namespace guiview {

/// Reports which of the files that a layout names are missing, unreadable or malformed: themes,
/// configurations, pictures and fonts. Looks for them in the current folder, as the toolkit does.
class ResourceCheck {
public:
    /// @param reportFolder  comes before the names of the files in reports, with its "/"; may be
    ///     empty
    ResourceCheck(const LayoutFile& layoutFile, const Declarations& declarations,
                  std::string reportFolder, Findings& list)
        : layout(layoutFile),
          declared(declarations),
          folder(std::move(reportFolder)),
          findings(list),
          files{layoutFile.path, folder + "default.theme", folder + "messagebox.theme"} {}

    /// @param withMessageBox  also checks the theme that the toolkit reads for a message box
    void Run(bool withMessageBox);

    /// The files that decide how the layout looks, whether they exist or not.
    const std::set<std::string>& Files() const { return files; }

    /// The themes of the toolkit whose files have an error or cannot be read. The sizes and colours
    /// that follow from them are not those that the layout means.
    std::set<const Theme*> BrokenThemes() const;
    bool HasBrokenConfiguration() const { return configurationBroken; }

private:
    /// Whether a file is looked at for the first time.
    bool IsNew(const std::string& name);
    void CheckDefaultTheme();
    /// Checks the theme of the buttons that a widget of this kind makes for itself, if it makes
    /// any.
    void CheckButtonTheme(const Kind& kind, Location where);
    void CheckSeriesThemes(const Kind& kind);
    /// @param what  the theme's name in the report that its file cannot be read
    void CheckTheme(const std::string& name, Location where, const std::string& what);
    void CheckTheme(const std::string& name, const std::string& content);
    void CheckConfiguration(const Word& name);
    void ReadConfiguration(const Word& name);
    void CheckPicture(const std::string& picture, const std::string& file, Location where);

    const LayoutFile& layout;
    const Declarations& declared;
    std::string folder;
    Findings& findings;
    std::set<std::string> known;  // themes and configurations that were looked at
    std::set<std::string> brokenThemes;
    bool configurationBroken = false;
    std::set<std::string> files;
};

}  // namespace guiview
