// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <set>
#include <string>

#include "tools/guiview/layoutsource.h"

namespace guiview {

/// The files of the themes with which the layout, and in a layout of the game the message box,
/// draws texts.
std::set<std::string> ThemesWithText(const LayoutSource& layout);

/// A theme with another font size and nothing else changed.
/// @param size  the width and the height of a glyph, as it is written in the file
/// @return nothing if the theme has no line for the font size
std::optional<std::string> WithFontSize(const std::string& theme, const std::string& size);

/// Gives all themes with text the same font size. Writes those that change, and prints their names.
/// @param into  the folder to write to: a theme in it comes before the one of the layout's folder
/// @return false, after one line on standard error, if a theme cannot be read or written
bool SetFontSize(const LayoutSource& layout, const std::string& size, const std::string& into);

/// Replaces a file's content at once, or makes the file: a program that reads it meanwhile sees the
/// old or the new content. A link stays a link, and the file keeps its permissions.
/// @return false when it cannot be written; then it is as it was
bool RewriteFile(const std::string& path, const std::string& content);

}  // namespace guiview
