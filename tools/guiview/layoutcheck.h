// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <set>
#include <string>

#include "tools/guiview/finding.h"
#include "tools/guiview/layoutsource.h"

namespace guiview {

/// What a check comes to.
struct Checked {
    Findings findings;
    /// The files that decide how the layout looks, whether they exist or not: the layout, themes,
    /// configurations, pictures and fonts.
    std::set<std::string> files;
};

/// Looks for everything that is wrong with a layout and its files. Builds it.
/// @param forGame  also what the game needs of it, shown with the longest texts that it can show
/// @param texts    to show instead of the layout's own, after the game's
Checked CheckLayout(const LayoutSource& layout, bool forGame, const SampleTexts& texts);

}  // namespace guiview
