// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/wordwrap.h"

#include <algorithm>

#include "glwidget/toolkit.h"
#include "quarn2/trace.h"

float GrowingText::WidthOf(char character) const {
    return Toolkit::Get().font.Advance(static_cast<signed char>(character)) * glyphWidth;
}

void GrowingText::Append(char character) {
    ended = ended || character == '\0';
    if (ended)
        return;
    const bool completesPair = halfPair && character == '%';
    halfPair = character == '%' && !completesPair;
    if (completesPair)
        return;
    if (character == '\n') {
        EndLine();
        return;
    }
    line += character;
    lastWidth += WidthOf(character);
}

void GrowingText::EndLine() {
    // The font measures a finished line together with what an earlier, longer line has left in
    // its buffer after the end of this one.
    earlier.resize(std::max(earlier.size(), line.size()));
    std::copy(line.begin(), line.end(), earlier.begin());
    float width = 0.0f;
    for (const char character : earlier)
        width += WidthOf(character);
    widest = std::max(widest, width);
    line.clear();
    lastWidth = 0.0f;
}

void GrowingText::Clear() {
    widest = 0.0f;
    lastWidth = 0.0f;
    line.clear();
    earlier.clear();
    halfPair = false;
    ended = false;
}

void WrapWords(const Theme& theme, const std::string& text, float width, std::string& output) {
    TraceFrame frame("WrapWords", "");
    GrowingText line(theme);
    output.clear();
    for (const char character : text) {
        line.Append(character);
        if (line.Width() > width) {
            const std::size_t blank = output.find_last_of(" \t");
            if (blank != std::string::npos) {
                output[blank] = '\n';
                line.Clear();
            }
        }
        output += character;
    }
}
