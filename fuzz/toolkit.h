// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

#include "fuzz/target.h"
#include "glwidget/glwidget.h"
#include "tests/support/font_access.h"
#include "tests/support/temporary_folder.h"

/// The toolkit without a window, in an empty folder: it measures texts with glyphs of one width
/// and counts every font and picture as loaded.
class FuzzedToolkit {
public:
    FuzzedToolkit() {
        [[maybe_unused]] static const bool inEmptyFolder = [] {
            const TemporaryFolder folder;
            std::filesystem::current_path(folder.Path(""));
            return true;  // removed, the folder stays the working directory and stays empty
        }();
        Toolkit& toolkit = Toolkit::Get();
        toolkit.ResetWithoutWindow();
        toolkit.loadFont = [](FontRender& font, const std::string&) {
            FontAccess::SetAdvances(font, 1.0f);
            return true;
        };
        FontAccess::SetAdvances(toolkit.font, 1.0f);
    }
    ~FuzzedToolkit() { Toolkit::Get().Reset(); }
    FuzzedToolkit(const FuzzedToolkit&) = delete;
    FuzzedToolkit& operator=(const FuzzedToolkit&) = delete;

private:
    const QuietErrors quiet;
};
