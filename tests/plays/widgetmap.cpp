// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// widgetmap FILE, started in the data directory, writes a table of the game's widgets for the
// plays. It has a line for each widget that a player can reach: its tag, its kind, its box in
// pixels of the window (left, top, right, bottom), and the tag of the button that opens its tab, or
// "-" if the widget is in no tab. Tab characters separate the fields.

#include <fstream>
#include <iostream>
#include <map>
#include <string>

#include "app/app.h"
#include "glwidget/glwidget.h"
#include "tests/support/gl_window.h"
#include "tests/support/widget_places.h"

namespace {

constexpr const char* kNoTab = "-";

struct FoundWidget {
    WidgetPlace place;
    std::string tab;  ///< tag of the button that opens its tab
};

using FoundWidgets = std::map<std::string, FoundWidget>;

FoundWidgets FindWidgets() {
    FoundWidgets found;
    const auto addReachable = [&](const std::string& tab) {
        for (const auto& [tag, place] : ReachableWidgets())
            found.try_emplace(tag, FoundWidget{place, tab});
    };
    addReachable(kNoTab);
    for (const std::string& button : TabButtons()) {
        const auto place = found.find(button);
        if (place == found.end())
            continue;
        ClickAt(place->second.place);
        addReachable(button);
    }
    GLWidget::MessageBox("You cannot buy this much from this country.", 1);
    addReachable(kNoTab);
    return found;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "usage: widgetmap FILE\n";
        return 2;
    }
    const GLWindowForTests window;
    const Pointer<App> app(new App);
    GLWidget::StartGUI("my.gui.debug");
    app->CreateWorld();
    app->Update(0);  // writes the texts of the labels, on which their sizes depend

    std::ofstream file(argv[1]);
    for (const auto& [tag, widget] : FindWidgets()) {
        const auto& [left, top, right, bottom] = widget.place;
        file << tag << '\t' << GLWidget::GetByTag(tag)->GetType() << '\t' << left << '\t' << top
             << '\t' << right << '\t' << bottom << '\t' << widget.tab << '\n';
    }
    file.close();
    if (!file) {
        std::cerr << argv[1] << " cannot be written\n";
        return 1;
    }
    return 0;
}
