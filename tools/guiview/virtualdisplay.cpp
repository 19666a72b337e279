// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/virtualdisplay.h"

#include <cstdlib>
#include <iostream>
#include <string>

namespace guiview {

namespace {

constexpr int kPatienceMs = 20000;

}  // namespace

// The server chooses its own number and writes it once it accepts connections.
VirtualDisplay::VirtualDisplay(int width, int height)
    : server({"Xvfb", "-displayfd", "1", "-noreset", "-nolisten", "tcp", "-screen", "0",
              std::to_string(width) + "x" + std::to_string(height) + "x24"},
             true) {}

std::unique_ptr<VirtualDisplay> VirtualDisplay::Start(int width, int height) {
    std::unique_ptr<VirtualDisplay> display(new VirtualDisplay(width, height));
    const auto number = display->server.ReadLine(kPatienceMs);
    if (!number) {
        std::cerr << "guiview: the virtual display does not start: is Xvfb installed?\n";
        return nullptr;
    }
    setenv("DISPLAY", (":" + *number).c_str(), 1);
    setenv("SDL_VIDEODRIVER", "x11", 1);
    setenv("LIBGL_ALWAYS_SOFTWARE", "1", 1);
    unsetenv("WAYLAND_DISPLAY");
    return display;
}

}  // namespace guiview
