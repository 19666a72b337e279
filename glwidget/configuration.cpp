// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <fstream>
#include <iostream>

#include "glwidget/glwidget.h"
#include "glwidget/reader.h"
#include "quarn2/trace.h"

bool GLWidget::Init(const std::string& path) {
    std::ifstream file(path);
    return Init(file);
}

bool GLWidget::Init(std::istream& file) {
    TraceFrame frame("Init", "GLWidget");
    GuiReader reader(file);
    std::string word;

    reader.SkipComments();
    static_cast<void>(reader.Word(word));
    reader.EndLine();
    std::cerr << "Loading " << word << '\n';
    // A font that cannot be loaded was reported; the texts are then not to be seen.
    static_cast<void>(loadFont(font, word));
    ++fontLoads;
    std::cerr << "Loaded.\n";

    // One word is read for nothing.
    reader.SkipComments();
    static_cast<void>(reader.Word(word));
    reader.EndLine();

    for (Vector* rectangle :
         {&optionRect, &optionMarkRect, &checkRect, &checkMarkRect, &sliderRect}) {
        reader.SkipComments();
        reader.ReadFour(*rectangle);
        reader.EndLine();
    }
    reader.SkipComments();
    reader.Read(fadeRate);
    guiScale = 1.3f;
    return true;
}
