// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "tools/guiview/finding.h"
#include "tools/guiview/layoutsource.h"
#include "tools/guiview/scene.h"

namespace guiview {

/// Whether the layout is one for the game: it has at least half of the tags that the game needs.
bool IsForGame(const Declarations& declarations);

/// Reports the widgets that the game needs and the layout does not have. Widgets whose lines have
/// an error, which has been reported, are not missing.
void CheckGameTags(const LayoutSource& layout, Findings& findings);

/// Whether the game does anything when this widget is pressed.
bool GameAnswers(const Node& node);

/// The longest texts that the game shows, by tag, as measured in the toolkit's font.
SampleTexts LongestGameTexts();

/// Shows these texts in the widgets that exist.
void FillGameTexts();

/// The text of the game's message box.
inline constexpr const char* kRefusal = "You cannot buy this much from this country.";

}  // namespace guiview
