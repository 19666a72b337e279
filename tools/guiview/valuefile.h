// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "tools/guiview/finding.h"
#include "tools/guiview/sourceline.h"

namespace guiview {

/// The lines of a configuration. Those of four numbers are rectangles: left, lower, right and upper
/// edge.
std::span<const ValueLine> ConfigurationLines();

// Both report what is missing, malformed or out of range in the lines of a file. A line that is
// missing, or one too many, is one finding, although no line after it is what it should be.
/// @param path  the file's name in reports
/// @return the word that names the theme's picture, if there is one
std::optional<Word> CheckThemeFile(const std::string& path, const std::string& content,
                                   Findings& findings);
/// @return the word that names the configuration's font, if there is one
std::optional<Word> CheckConfigurationFile(const std::string& path, const std::string& content,
                                           Findings& findings);

}  // namespace guiview
