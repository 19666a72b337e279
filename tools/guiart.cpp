// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Draws the sheet of small pictures that the widgets use.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include "tools/guisheet.h"
#include "tools/tgawriter.h"

namespace {

void PrintRectangles() {
    for (const SheetPicture& picture : kSheetPictures) {
        const Vector rectangle = picture.Rectangle();
        std::cout << rectangle.x << ' ' << rectangle.y << ' ' << rectangle.z << ' ' << rectangle.w
                  << " // " << picture.name << '\n';
    }
}

int ParseAndRun(int argc, char** argv) {
    CLI::App arguments{"Draws the sheet of small pictures that the widgets use."};
    std::string path;
    bool rectangles = false;
    arguments.add_option("FILE", path, "the TGA file to write, such as data/gui.tga");
    arguments.add_flag("--rectangles", rectangles,
                       "print the pictures' texture rectangles, as the toolkit configuration "
                       "gives them");
    CLI11_PARSE(arguments, argc, argv);
    if (path.empty() && !rectangles) {
        std::cerr << "guiart: nothing to do: give a FILE or --rectangles\n";
        return 2;
    }
    if (rectangles)
        PrintRectangles();
    if (!path.empty() && !WriteTGA(DrawGuiSheet(), path))
        return EXIT_FAILURE;
    return EXIT_SUCCESS;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return ParseAndRun(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "guiart: %s\n", error.what());
        return EXIT_FAILURE;
    }
}
