// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/label.h"

#include <algorithm>
#include <iostream>

#include "glwidget/drawing.h"
#include "glwidget/wordwrap.h"
#include "quarn2/strings.h"
#include "quarn2/trace.h"

Label::Label(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
             const std::string& text)
    : GLWidget(name, parent, position, theme) {
    TraceFrame frame("Label", "Label");
    this->text = text;
    const Vector& glyph = GetTheme().fontSize;
    const std::uint32_t lines = substr_count(text, "\n") + 1;
    size = Vector(MeasureText(GetTheme(), text) + glyph.x,
                  static_cast<float>(lines) * glyph.y * FontRender::kLineStep);
    std::cerr << "label - " << lines << " - " << size.y << '\n' << text << '\n';
}

void Label::SetText(std::string_view newText) {
    TraceFrame frame("SetText", "Label");
    if (givenKnown && newText == given)
        return;
    given = newText;
    givenKnown = true;
    if (given.find("%%") == std::string::npos) {
        text = given;
    } else {
        text = str_replace("%%", "%", given);
    }
    wrappedKnown = false;
}

const std::string& Label::Wrapped() {
    TraceFrame frame("Wrapped", "Label");
    const Measure latest{size.x, theme->fontSize.x, fontLoads};
    if (wrappedKnown && measure == latest)
        return wrapped;
    WrapWords(*theme, text, size.x, wrapped);
    breaks = static_cast<std::uint32_t>(std::count(wrapped.begin(), wrapped.end(), '\n'));
    measure = latest;
    wrappedKnown = true;
    return wrapped;
}

void Label::AddAppearance(Fingerprint& print) {
    AddBase(print);
    print.Add(text);
}

void Label::Render() {
    TraceFrame frame("Render", "Label");
    Assert("glwidget/label", 24, "rendering", rendering);
    const MatrixScope matrix;
    EnableBlending();
    DisableDepthTest();
    SetTexturing(false);
    const std::string& lines = Wrapped();
    SetColour(theme->textColour);
    Translate(position.x + theme->fontSize.x / 2.0f,
              position.y + static_cast<float>(breaks) * theme->fontSize.y * FontRender::kLineStep
                  + theme->fontSize.y / 4.0f);
    PrintText(*theme, lines);
}
