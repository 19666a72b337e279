// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "app/lines.h"

#include <algorithm>
#include <cmath>

#include "glwidget/drawing.h"
#include "glwidget/label.h"
#include "glwidget/wordwrap.h"
#include "quarn2/font.h"
#include "quarn2/trace.h"

float lines::StepOf(const Label& label) {
    return label.GetTheme().fontSize.y * FontRender::kLineStep;
}

std::size_t lines::RoomOf(Label& label) {
    const Vector box = label.Getbbox();
    return static_cast<std::size_t>(std::lround((box.w - box.y) / StepOf(label)));
}

std::size_t lines::CountOf(const std::string& text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) + 1;
}

void lines::Break(std::string& text, Label& label, float part) {
    TraceFrame frame("Break", "lines");
    const Vector box = label.Getbbox();
    const float width = part * (box.z - box.x);
    std::size_t lineBegin = 0;
    std::size_t lastBlank = std::string::npos;
    for (std::size_t i = 0; i <= text.size(); ++i) {
        if (i < text.size() && text[i] != ' ')
            continue;
        const std::string line = text.substr(lineBegin, i - lineBegin);
        if (MeasureText(label.GetTheme(), line) > width && lastBlank != std::string::npos) {
            text[lastBlank] = '\n';
            lineBegin = lastBlank + 1;
        }
        lastBlank = i;
    }
}

bool lines::IsShownAsItIs(const std::string& text, Label& label) {
    TraceFrame frame("IsShownAsItIs", "lines");
    const Vector box = label.Getbbox();
    std::string wrapped;
    WrapWords(label.GetTheme(), text, box.z - box.x, wrapped);
    return wrapped == text;
}

void lines::BreakToFit(std::string& text, Label& label) {
    TraceFrame frame("BreakToFit", "lines");
    const std::string given = text;
    for (const float part : kParts) {
        text = given;
        Break(text, label, part);
        if (IsShownAsItIs(text, label))
            break;
    }
}

void lines::FillUp(std::string& text, std::size_t count) {
    const std::size_t used = CountOf(text);
    if (used < count)
        text.append(count - used, '\n');
}
