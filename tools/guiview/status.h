// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

namespace guiview {

// What the program's exit status says.
inline constexpr int kClean = 0;
inline constexpr int kFindings = 1;
inline constexpr int kUnusable = 2;

}  // namespace guiview
