// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "tools/guiview/finding.h"

namespace guiview {

/// The layout with its columns aligned, paragraph by paragraph: lines between blank ones. Only
/// blanks between fields change; comments, texts, and lines that are not well formed stay as
/// they are.
std::string FormatLayout(const std::string& content);

/// Reports every line that FormatLayout would change.
Findings CheckFormat(const std::string& path, const std::string& content);

}  // namespace guiview
