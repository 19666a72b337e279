// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <iosfwd>

struct Toolkit;

/// Fills `toolkit` from a configuration file: font, sheet rectangles, fade rate and scale. A
/// value that is missing or malformed stays as it was.
void ReadConfiguration(std::istream& file, Toolkit& toolkit);
