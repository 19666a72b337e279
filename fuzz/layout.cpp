// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <sstream>

#include "fuzz/toolkit.h"

// Builds the layout, then does what frames do: moves the mouse over every part of the screen,
// clicks, presses a key, updates.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const FuzzedToolkit toolkit;
    std::istringstream file(std::string(data, data + size));
    try {
        Require(GLWidget::StartGUI(file, "layout"));
        for (int step = 0; step <= 8; ++step) {
            const auto place = static_cast<float>(step);
            Require(GLWidget::MouseMoveWidgets(Vector(place * 100, place * 75)));
        }
        Require(GLWidget::MouseClickWidgets(true, false, false));
        KeyFlags keys{};
        keys['a'] = true;
        Require(GLWidget::TextKeyPressWidgets(keys));
        Require(GLWidget::MouseClickWidgets(false, false, false));
        Require(GLWidget::UpdateWidgets(16));
    } catch (const AssertionFailure&) {
    }
    return 0;
}
