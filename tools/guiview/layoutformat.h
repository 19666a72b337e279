// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "tools/guiview/finding.h"

namespace guiview {

/// The layout with its columns aligned. Blank lines separate paragraphs, which have columns of
/// their own. Only blanks between fields change; comments, texts, and lines with errors are kept.
std::string FormatLayout(const std::string& content);

/// Reports every line that FormatLayout would change.
Findings CheckFormat(const std::string& path, const std::string& content);

}  // namespace guiview
