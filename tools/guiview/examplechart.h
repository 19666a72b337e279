// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

namespace guiview {

/// Gives every chart without data an example, with as many of its four series as there is room for.
void FillEmptyCharts();

}  // namespace guiview
