// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/theme.h"

#include <algorithm>
#include <fstream>
#include <iostream>

#include "glwidget/reader.h"
#include "glwidget/toolkit.h"
#include "quarn2/trace.h"

namespace {

constexpr const char* kNoTexture = "NULL";

/// Reads the lines of a theme file. Each operation reads one group of values and writes the
/// values that the theme then has on standard error.
class ThemeReader {
public:
    explicit ThemeReader(std::istream& file) : reader(file) {}

    void Three(Vector& value) {
        reader.SkipComments();
        reader.ReadThree(value);
        Report(value);
    }
    void Pair(float& first, float& second) {
        reader.SkipComments();
        reader.Read(first);
        reader.Read(second);
        std::cerr << first << ' ';
        Report(second);
    }
    void Two(Vector& value) {
        reader.SkipComments();
        reader.Read(value.x);
        reader.Read(value.y);
        Report(value);
    }
    template <typename T>
    void Value(T& value) {
        reader.SkipComments();
        reader.Read(value);
        Report(value);
    }
    void FileName(std::string& value) {
        reader.SkipComments();
        if (reader.Word(value))
            value.resize(std::min(value.size(), GuiReader::kFieldLimit));
        Report(value);
    }

private:
    template <typename T>
    void Report(const T& value) {
        std::cerr << value << '\n';
        reader.EndLine();
    }

    GuiReader reader;
};

}  // namespace

void Theme::Read(Theme& theme, const std::string& path) {
    std::ifstream file(path);
    Read(theme, file, path);
}

void Theme::Read(Theme& theme, std::istream& file, const std::string& path) {
    TraceFrame frame("Read", "Theme");
    std::cerr << "reading theme " << path << '\n';
    ThemeReader line(file);
    line.Three(theme.textColour);
    line.Three(theme.lineColour);
    line.Three(theme.fillColour);
    line.Three(theme.fourthColour);
    line.Value(theme.opacity);
    line.Value(theme.sixthValue);
    line.Value(theme.lineWidth);
    line.Value(theme.border);
    line.Value(theme.corner);
    line.Value(theme.tenthValue);
    line.Two(theme.fontSize);
    line.Pair(theme.dim, theme.bright);
    line.Three(theme.pressOffset);
    line.Value(theme.boxSize);
    line.FileName(theme.textureName);
    line.Value(theme.fade);
    if (theme.textureName != kNoTexture) {
        std::cerr << "loading " << theme.textureName << '\n';
        theme.LoadImage();
    }
    std::cerr << "read theme " << path << '\n';
}

void Theme::BuiltIn(Theme& theme) {
    TraceFrame frame("BuiltIn", "Theme");
    theme = Theme();
    theme.LoadImage();
}

void Theme::LoadImage() {
    // A picture that cannot be loaded has been reported; the theme then has none.
    static_cast<void>(Toolkit::Get().loadImage(image, textureName));
}
