// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <set>
#include <string>

#include "tools/guiview/finding.h"
#include "tools/guiview/layoutsource.h"

namespace guiview {

/// The result of a check.
struct Checked {
    Findings findings;
    /// The files that decide how the layout looks, whether they exist or not: the layout, themes,
    /// configurations, pictures and fonts.
    std::set<std::string> files;
};

/// Builds a layout and makes all checks of it and its files.
/// @param forGame  also checks what the game needs, with the longest texts that it can show
/// @param texts    to show instead of the layout's and the game's
Checked CheckLayout(const LayoutSource& layout, bool forGame, const SampleTexts& texts);

}  // namespace guiview
