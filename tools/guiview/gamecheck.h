// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "tools/guiview/finding.h"
#include "tools/guiview/layoutsource.h"
#include "tools/guiview/scene.h"

namespace guiview {

/// Reports the widgets that the game needs and the layout does not have.
void CheckGameTags(const Declarations& declarations, const std::string& path, Findings& findings);

/// Whether the game does anything when this widget is pressed.
bool GameAnswers(const Node& node);

/// The longest texts that the game shows, by tag, as measured in the toolkit's font.
SampleTexts LongestGameTexts();

/// Shows these texts in the widgets that exist.
void FillGameTexts();

/// The text of the game's message box.
inline constexpr const char* kRefusal = "You cannot buy this much from this country.";

}  // namespace guiview
