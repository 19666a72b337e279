// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tools/guiview/finding.h"
#include "tools/guiview/sourceline.h"

namespace guiview {

// Both report what is missing or malformed in the lines of a file.
/// @param path  the file's name in reports
/// @return the word that names the theme's picture, if there is one
std::optional<Word> CheckThemeFile(const std::string& path, const std::string& content,
                                   Findings& findings);
/// @return the word that names the configuration's font, if there is one
std::optional<Word> CheckConfigurationFile(const std::string& path, const std::string& content,
                                           Findings& findings);

}  // namespace guiview
