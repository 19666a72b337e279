// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/theme.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <sstream>

#include "glwidget/reader.h"
#include "glwidget/toolkit.h"
#include "quarn2/trace.h"

namespace {

constexpr const char* kNoTexture = "NULL";

using enum FieldType;

// What each line controls in drawing, the widgets say. The ranges are those of values that make
// sense, for the checks of a theme; the toolkit takes every number. Letters below the least font
// size, 12 pixels, cannot be read. The greatest lengths reveal pixels where units are meant.
constexpr Theme::Line kLines[] = {
    {{{Number, "text colour", 0.0f, 1.0f}, 3}, &Theme::textColour},
    {{{Number, "line colour", 0.0f, 1.0f}, 3}, &Theme::lineColour},
    {{{Number, "fill colour", 0.0f, 1.0f}, 3}, &Theme::fillColour},
    {{{Number, "fourth colour"}, 3}, &Theme::fourthColour},
    {{{Number, "opacity", 0.0f, 1.0f}, 1}, &Theme::opacity},
    {{{Number, "sixth value"}, 1}, &Theme::sixthValue},
    {{{Number, "line width", Field::kAboveZero, 20.0f}, 1}, &Theme::lineWidth},
    {{{Number, "border", 0.0f, 0.3f}, 1}, &Theme::border},
    {{{Number, "corner", 0.0f, 1.0f}, 1}, &Theme::corner},
    {{{Number, "tenth value"}, 1}, &Theme::tenthValue},
    {{{Number, "font size", 0.04f, 0.4f}, 2}, &Theme::fontSize},
    {{{Number, "dim and bright", 0.0f, 2.0f}, 2}, &Theme::dim, &Theme::bright},
    {{{Number, "press offset", -0.5f, 0.5f}, 3}, &Theme::pressOffset},
    {{{Number, "box size", Field::kAboveZero, 0.5f}, 1}, &Theme::boxSize},
    {{{Name, "picture"}, 1}, &Theme::textureName},
    {{{Flag, "fade"}, 1}, &Theme::fade},
};
static_assert(std::size(kLines) == static_cast<std::size_t>(ThemeLine::Fade) + 1);

/// Reads one line into its members and reports what they then hold.
class LineReader {
public:
    LineReader(GuiReader& source, const Theme::Line& theLine, Theme& target)
        : reader(source), line(theLine), theme(target) {}

    void operator()(Vector Theme::*member) {
        Vector& value = theme.*member;
        reader.Read(value.x);
        reader.Read(value.y);
        if (line.values.count > 2)
            reader.Read(value.z);
        std::cerr << value << '\n';
    }
    void operator()(float Theme::*member) {
        reader.Read(theme.*member);
        if (line.second != nullptr)
            reader.Read(theme.*line.second);
        std::cerr << theme.*member;
        if (line.second != nullptr)
            std::cerr << ' ' << theme.*line.second;
        std::cerr << '\n';
    }
    void operator()(bool Theme::*member) {
        reader.Read(theme.*member);
        std::cerr << theme.*member << '\n';
    }
    void operator()(std::string Theme::*member) {
        std::string& value = theme.*member;
        if (reader.Word(value))
            value.resize(std::min(value.size(), GuiReader::kFieldLimit));
        std::cerr << value << '\n';
    }

private:
    GuiReader& reader;
    const Theme::Line& line;
    Theme& theme;
};

void ReportStart(const std::string& path) {
    std::cerr << "reading theme " << path << '\n';
}

}  // namespace

void Theme::Read(Theme& theme, const std::string& path) {
    TraceFrame frame("Read", "Theme");
    ReportStart(path);
    std::istringstream file = OpenGuiFile(path);
    theme.ReadLines(file, path);
}

void Theme::Read(Theme& theme, std::istream& file, const std::string& path) {
    TraceFrame frame("Read", "Theme");
    ReportStart(path);
    theme.ReadLines(file, path);
}

void Theme::ReadLines(std::istream& file, const std::string& path) {
    GuiReader reader(file);
    for (const Line& line : kLines) {
        reader.SkipComments();
        std::visit(LineReader(reader, line, *this), line.member);
        reader.EndLine();
    }
    if (textureName != kNoTexture) {
        std::cerr << "loading " << textureName << '\n';
        LoadImage();
    }
    std::cerr << "read theme " << path << '\n';
}

std::span<const Theme::Line> Theme::Lines() {
    return kLines;
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
