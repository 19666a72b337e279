// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/configuration.h"

#include <iostream>
#include <string>

#include "glwidget/reader.h"
#include "glwidget/toolkit.h"

void ReadConfiguration(std::istream& file, Toolkit& toolkit) {
    GuiReader reader(file);
    std::string word;

    reader.SkipComments();
    static_cast<void>(reader.Word(word));
    reader.EndLine();
    std::cerr << "Loading " << word << '\n';
    // A font that cannot be loaded has been reported; the texts are then invisible.
    static_cast<void>(toolkit.loadFont(toolkit.font, word));
    ++toolkit.fontLoads;
    std::cerr << "Loaded.\n";

    // kept: the format has a word that nothing uses
    reader.SkipComments();
    static_cast<void>(reader.Word(word));
    reader.EndLine();

    for (Vector* rectangle : {&toolkit.optionRect, &toolkit.optionMarkRect, &toolkit.checkRect,
                              &toolkit.checkMarkRect, &toolkit.sliderRect}) {
        reader.SkipComments();
        reader.ReadFour(*rectangle);
        reader.EndLine();
    }
    reader.SkipComments();
    reader.Read(toolkit.fadeRate);
    toolkit.guiScale = Toolkit::kGuiScale;
}
