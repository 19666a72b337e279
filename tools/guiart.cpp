// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Draws every picture that the game's screen shows.

#include <CLI/CLI.hpp>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>

#include "tools/guiart/gallery.h"
#include "tools/guisheet.h"
#include "tools/tgawriter.h"

namespace {

constexpr int kUsage = 2;

void PrintRectangles() {
    for (const SheetPicture& picture : kSheetPictures) {
        const Vector rectangle = picture.Rectangle();
        std::cout << rectangle.x << ' ' << rectangle.y << ' ' << rectangle.z << ' ' << rectangle.w
                  << " // " << picture.name << '\n';
    }
}

int DrawInto(const std::string& folder, const std::string& only) {
    bool drawn = false;
    for (const GalleryPicture& picture : Gallery()) {
        if (!only.empty() && only != picture.file)
            continue;
        drawn = true;
        if (!WriteTGA(picture.draw(), folder + "/" + picture.file))
            return EXIT_FAILURE;
    }
    if (drawn)
        return EXIT_SUCCESS;
    std::cerr << "guiart: there is no picture " << only << '\n';
    return kUsage;
}

int ParseAndRun(int argc, char** argv) {
    CLI::App arguments{"Draws the pictures of the game's screen."};
    std::string folder;
    std::string only;
    bool rectangles = false;
    arguments.add_option("FOLDER", folder, "where to write the TGA files, such as data");
    arguments.add_option("--only", only, "write this one, such as gui.tga");
    arguments.add_flag("--rectangles", rectangles,
                       "print the texture rectangles of gui.tga, as the toolkit configuration "
                       "gives them");
    CLI11_PARSE(arguments, argc, argv);
    if (folder.empty() && !rectangles) {
        std::cerr << "guiart: nothing to do: give a FOLDER or --rectangles\n";
        return kUsage;
    }
    if (rectangles)
        PrintRectangles();
    return folder.empty() ? EXIT_SUCCESS : DrawInto(folder, only);
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
