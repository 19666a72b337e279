// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "tools/guiview/finding.h"
#include "tools/guiview/layoutsource.h"
#include "tools/guiview/scene.h"

namespace guiview {

/// Reports what the game needs and the layout lacks.
void CheckGameTags(const Declarations& declarations, const std::string& path, Findings& findings);

/// Whether the game does anything when this widget is pressed.
bool GameAnswers(const Node& node);

/// The longest texts that the game puts on the screen, by tag. Measures with the toolkit's font.
SampleTexts LongestGameTexts();

/// Fills those in whose widgets there are.
void FillGameTexts();

/// The game's own message.
inline constexpr const char* kRefusal = "You cannot buy this much from this country.";

}  // namespace guiview
