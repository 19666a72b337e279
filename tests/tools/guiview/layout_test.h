// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <string>

#include "glwidget/chart.h"
#include "tests/support/temporary_folder.h"
#include "tools/guiview/layoutcheck.h"

namespace guiview {

/// Checks small layouts in a folder with the files that they need: a configuration with the game's
/// font, a default theme without a picture, black
/// on grey, and black lines for charts.
class LayoutTest : public testing::Test {
protected:
    static constexpr const char* kFirstLines = "CONF gui.conf\n";

    LayoutTest() {
        folder.Write("font.ttf", FileBytes("data/font.ttf"));
        folder.Write("gui.conf",
                     "font.ttf\nnothing\n0 0 0.25 0.25\n0.25 0 0.5 0.25\n0.5 0 0.75 0.25\n"
                     "0.75 0 1 0.25\n0 0.25 0.25 0.5\n0.005\n");
        folder.Write("default.theme", Theme("0 0 0", "0.8 0.8 0.8"));
        for (const char* name : {"combo_button.theme", "tabwin_button.theme", "messagebox.theme"})
            folder.Write(name, Theme("0 0 0", "0.8 0.8 0.8"));
        for (const char* name : Chart::kSeriesThemes)
            folder.Write(name, "0 0 0 text\n0 0 0 line\n" + AfterColours(Theme("0 0 0", "1 1 1")));
    }

    /// A theme from its third line on.
    static std::string AfterColours(const std::string& theme) {
        return theme.substr(theme.find('\n', theme.find('\n') + 1) + 1);
    }

    /// A theme file with glyphs of 0.05, tick boxes of 0.1 and no picture.
    static std::string Theme(const std::string& text, const std::string& fill,
                             const std::string& picture = "NULL") {
        return text + " text\n0.3 0.3 0.3 line\n" + fill
               + " fill\n0 0 0 fourth\n1 opacity\n0 sixth\n1 line width\n0.01 border\n0 corner\n"
                 "0 tenth\n0.05 0.05 font size\n0.9 1 dim and bright\n0 0 0 press offset\n"
                 "0.1 box size\n"
               + picture + "\n1 fade\n";
    }

    std::string Path() const { return folder.Path("test.gui"); }

    Findings Check(const std::string& layout, bool forGame = false,
                   const SampleTexts& texts = {}) const {
        folder.Write("test.gui", layout);
        return CheckLayout(*LayoutSource::Read(Path()), forGame, texts).findings;
    }

    /// What is printed, without the folder in the paths.
    std::string Found(const std::string& layout, bool forGame = false,
                      const SampleTexts& texts = {}) const {
        return Shortened(Check(layout, forGame, texts).AsText());
    }

    /// What is printed about a layout that begins with the lines that load the configuration.
    std::string FoundWithFont(const std::string& layout) const {
        return Found(kFirstLines + layout);
    }

    std::string Shortened(std::string text) const {
        const std::string before = folder.Path("");
        for (std::size_t at = 0; (at = text.find(before, at)) != std::string::npos;)
            text.erase(at, before.size());
        return text;
    }

    TemporaryFolder folder;
};

}  // namespace guiview
