// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <set>
#include <string>

#include "tools/guiview/finding.h"
#include "tools/guiview/layoutorder.h"
#include "tools/guiview/valuefile.h"

namespace guiview {

/// Reports what is missing, unreadable or malformed of the files that a layout names: themes,
/// configurations, pictures and fonts. Looks for them in the current folder, as the toolkit does.
class ResourceCheck {
public:
    /// @param reportFolder  put before the names of the files, with its "/"; may be empty
    ResourceCheck(const LayoutFile& layoutFile, const Declarations& declarations,
                  std::string reportFolder, Findings& list)
        : layout(layoutFile),
          declared(declarations),
          folder(std::move(reportFolder)),
          findings(list),
          files{layoutFile.path, folder + "default.theme", folder + "messagebox.theme"} {}

    /// @param withMessageBox  its theme, which the toolkit reads when the program shows one, is
    ///     looked at too
    void Run(bool withMessageBox);

    /// The files that decide how the layout looks, whether they exist or not.
    const std::set<std::string>& Files() const { return files; }

private:
    /// Whether a file is looked at for the first time.
    bool IsNew(const std::string& name);
    void CheckDefaultTheme();
    /// The theme of the buttons that a widget of this kind makes for itself, if it makes any.
    void CheckButtonTheme(const Kind& kind, Place where);
    /// @param needs  what is said when the file cannot be read, before its name
    void CheckTheme(const std::string& name, Place where, const std::string& needs);
    void CheckTheme(const std::string& name, const std::string& content);
    void CheckConfiguration(const Word& name);
    void CheckPicture(const std::string& picture, const std::string& file, Place where);

    const LayoutFile& layout;
    const Declarations& declared;
    std::string folder;
    Findings& findings;
    std::set<std::string> known;  // themes and configurations that were looked at
    std::set<std::string> files;
};

}  // namespace guiview
