// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "glwidget/theme.h"

/// Measures a widget's text that grows at its end. The width is the one that measuring the
/// whole text anew would give, to the last bit, without going over it again.
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
    bool halfPair = false;   // the last character is the first "%" of what may become a pair
    bool ended = false;      // by a zero byte, as for everybody who reads formats
};

/// Breaks `text` into lines: whenever the line so far is wider than `width`, the last blank or
/// tab of the output becomes a line break, and measuring starts again behind the character that
/// did not fit. Kept: what stands between the break and that character is not counted, and the
/// text's own breaks do not start a new measure. Without a blank the text stays whole.
void WrapWords(const Theme& theme, const std::string& text, float width, std::string& output);
