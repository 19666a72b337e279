// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "glwidget/theme.h"

/// Measures a widget's text to whose end characters are added. The width is to the last bit the
/// one that measuring the whole text again would give.
class GrowingText {
public:
    explicit GrowingText(const Theme& theme) : glyphWidth(theme.fontSize.x) {}

    void Append(char character);
    void Clear();
    /// Of the widest line.
    float Width() const { return widest > lastWidth ? widest : lastWidth; }

private:
    float WidthOf(char character) const;
    void EndLine();

    float glyphWidth;
    float widest = 0.0f;     // of the finished lines
    float lastWidth = 0.0f;  // of `line`
    std::string line;        // the unfinished one
    std::string earlier;     // the finished lines, each written over the one before
    bool halfPair = false;   // the last character is a "%" that may be the first of a pair
    bool ended = false;      // by a zero byte, which ends every printf format
};

/// Breaks `text` into lines: whenever the line so far is wider than `width`, the last blank or
/// tab of the output becomes a line break, and measuring starts again after the character that
/// did not fit. Kept: the characters between the break and that one are not counted, and line
/// breaks of the text itself do not start a new measurement. Without a blank the text is not
/// broken.
void WrapWords(const Theme& theme, const std::string& text, float width, std::string& output);
