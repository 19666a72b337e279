// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "fuzz/target.h"
#include "glwidget/glwidget.h"
#include "tests/support/font_access.h"
#include "tests/support/widget_access.h"

/// A toolkit without a window, in an empty folder: it measures texts with glyphs of one width
/// and takes every font and picture for loaded. Emptied with the object.
class Toolkit {
public:
    Toolkit() {
        [[maybe_unused]] static const bool inEmptyFolder = [] {
            const std::string folder = std::filesystem::temp_directory_path() / "fuzz_XXXXXX";
            std::string name = folder;
            Require(mkdtemp(name.data()) != nullptr);
            std::filesystem::current_path(name);
            Require(rmdir(name.c_str()) == 0);  // it stays the working directory, for ever empty
            return true;
        }();
        GLWidget::readViewport = [](std::int32_t(&viewport)[4]) {
            viewport[2] = 800;
            viewport[3] = 600;
        };
        GLWidget::loadFont = [](FontRender& font, const std::string&) {
            FontAccess::SetAdvances(font, 1.0f);
            return true;
        };
        Theme::loadImage = [](Texture&, const std::string&) { return true; };
        FontAccess::SetAdvances(GLWidget::font, 1.0f);
        GLWidget::fadeRate = 0.005f;
        GLWidget::guiScale = 1.3f;
    }
    ~Toolkit() { WidgetAccess::DeleteAll(); }
    Toolkit(const Toolkit&) = delete;
    Toolkit& operator=(const Toolkit&) = delete;

private:
    const QuietErrors quiet;
};
