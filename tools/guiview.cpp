// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Shows a layout as the game would draw it, and checks and formats it.

#include <SDL.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "quarn2/glrender.h"
#include "quarn2/kernel.h"
#include "quarn2/memory.h"
#include "quarn2/sdlinput.h"
#include "tools/commandline.h"
#include "tools/guiview/fontsize.h"
#include "tools/guiview/gamecheck.h"
#include "tools/guiview/layoutcheck.h"
#include "tools/guiview/layoutformat.h"
#include "tools/guiview/liveview.h"
#include "tools/guiview/pictureshot.h"
#include "tools/guiview/scene.h"

namespace {

using namespace guiview;

// The exit status.
constexpr int kClean = 0;
constexpr int kFindings = 1;
constexpr int kUnusable = 2;

struct Options {
    std::string layout;
    std::string picture;
    bool crop = false;
    std::vector<std::string> clicked;
    std::string hovered;
    std::string pressed;
    bool tree = false;
    bool check = false;
    bool game = false;
    bool json = false;
    bool format = false;
    std::vector<std::string> texts;
    std::string fontSize;
    std::string into;
};

void Declare(CLI::App& app, Options& options) {
    app.add_option("LAYOUT", options.layout, "The layout file")->required();
    auto* const picture = app.add_option("--png", options.picture,
                                         "Write a picture of the layout and show no window");
    auto* const tree =
        app.add_flag("--tree", options.tree, "Print tag, kind, parent and box of every widget");
    auto* const check = app.add_flag("--check", options.check,
                                     "Print what is wrong with the layout and its files; with "
                                     "--format, print the lines that are not aligned");
    auto* const format = app.add_flag("--format", options.format,
                                      "Align the columns of the layout and change nothing else");
    auto* const fontSize =
        app.add_option("--font-size", options.fontSize,
                       "Give all themes with which the layout draws texts this font size, and "
                       "print the names of those that change");
    picture->type_name("FILE")->excludes(tree, check, format, fontSize);
    tree->excludes(check, format, fontSize);
    fontSize->type_name("SIZE")->excludes(check, format);
    app.add_option(
           "--into", options.into,
           "Write the themes into this folder and not into that of the layout; a theme that "
           "it already has is changed there")
        ->type_name("FOLDER")
        ->needs(fontSize);
    app.add_flag("--json", options.json, "Print what is wrong as JSON")->needs(check);
    app.add_flag("--game", options.game,
                 "Take the layout for one of the game even if it has less than half of the game's "
                 "tags: show the longest texts of the game, and check what the game needs");
    app.add_option("--text", options.texts,
                   "A text to show in a widget; \\n begins a new line, or in a Combo a new item")
        ->type_name("TAG=TEXT")
        ->allow_extra_args(false);
    app.add_option("--click", options.clicked, "Click on this widget before the picture is taken")
        ->type_name("TAG")
        ->allow_extra_args(false)
        ->needs(picture);
    app.add_option("--hover", options.hovered, "Hold the mouse over this widget")
        ->type_name("TAG")
        ->needs(picture);
    app.add_option("--press", options.pressed, "Hold the left button down over this widget")
        ->type_name("TAG")
        ->needs(picture);
    app.add_flag("--crop", options.crop, "Cut off the empty part around the widgets")
        ->needs(picture);
}

int Fail(const std::string& message) {
    std::cerr << "guiview: " << message << '\n';
    return kUnusable;
}

/// Takes TAG=TEXT apart, with a layout's way to write line ends.
bool ReadTexts(const Options& options, SampleTexts& texts) {
    for (const std::string& given : options.texts) {
        const std::size_t equals = given.find('=');
        if (equals == 0 || equals == std::string::npos)
            return false;
        std::string text = given.substr(equals + 1);
        for (std::size_t at = 0; (at = text.find("\\n", at)) != std::string::npos; ++at)
            text.replace(at, 2, "\n");
        texts.emplace_back(given.substr(0, equals), std::move(text));
    }
    return true;
}

int Print(const Findings& findings, bool json) {
    std::cout << (json ? findings.AsJson() : findings.AsText()) << std::flush;
    if (!std::cout)
        return Fail("the findings cannot be written");
    return findings.List().empty() ? kClean : kFindings;
}

int Format(const Options& options) {
    const auto content = ReadTextFile(options.layout);
    if (!content)
        return Fail(options.layout + ": cannot be read");
    if (options.check)
        return Print(CheckFormat(options.layout, *content), options.json);
    const std::string formatted = FormatLayout(*content);
    if (formatted != *content && !RewriteFile(options.layout, formatted))
        return Fail(options.layout + ": cannot be written");
    return kClean;
}

int Check(const Options& options, const LayoutSource& layout, const SampleTexts& texts) {
    const bool isForGame = options.game || IsForGame(layout.Declared());
    return Print(CheckLayout(layout, isForGame, texts).findings, options.json);
}

/// Prints the errors among what was found. @return whether there are any
bool ReportErrors(const Findings& findings) {
    Findings errors;
    for (const Finding& finding : findings.List()) {
        if (finding.severity == Severity::Error)
            errors.Error(finding.file, finding.location, finding.message);
    }
    std::cerr << errors.AsText();
    return errors.HasErrors();
}

int PrintTree(const LayoutSource& layout, const SampleTexts& texts) {
    const BuiltLayout built(layout);
    FillTexts(texts);
    std::cout << DescribeTree(Scene(layout.Declared())) << std::flush;
    if (!std::cout)
        return Fail("the tree cannot be written");
    return ReportErrors(layout.Found()) ? kFindings : kClean;
}

int TakePicture(const Options& options, const LayoutSource& layout, SampleTexts texts) {
    if (ReportErrors(CheckLayout(layout, false, texts).findings))
        return kFindings;
    const Pose pose{std::move(texts), options.game || IsForGame(layout.Declared()), options.clicked,
                    options.hovered, options.pressed};
    return guiview::TakePicture(layout, pose, options.crop, options.picture) ? kClean : kUnusable;
}

int ChangeFontSize(const Options& options, const LayoutSource& layout) {
    const Field& field = Theme::Lines()[static_cast<std::size_t>(ThemeLine::FontSize)].values.field;
    const std::optional<float> size = ParseNumber(options.fontSize);
    if (!size || !field.Allows(*size))
        return Fail("--font-size takes a number: " + field.Range());
    if (!SetFontSize(layout, options.fontSize, options.into))
        return kUnusable;
    std::cout << std::flush;
    return std::cout ? kClean : Fail("the names cannot be written");
}

int Show(const Options& options, SampleTexts texts) {
    if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr)
        return Fail("there is no display: --png, --tree and --check need none");
    const Pointer<Kernel> kernel = new Kernel;
    new SDLInput(kernel, false);
    new GLRender(kernel);
    const Pointer<LiveView> view =
        new LiveView(kernel, {options.layout, std::move(texts), options.game});
    kernel->MainLoop();
    SDL_Quit();
    return view->Opened() ? kClean : kUnusable;
}

int Run(const Options& options) {
    SampleTexts texts;
    if (!ReadTexts(options, texts))
        return Fail("--text takes TAG=TEXT");
    if (options.format)
        return Format(options);
    const auto layout = LayoutSource::Read(options.layout, texts);
    if (!layout)
        return kUnusable;
    if (!options.fontSize.empty())
        return ChangeFontSize(options, *layout);
    if (options.check)
        return Check(options, *layout, texts);
    if (options.tree)
        return PrintTree(*layout, texts);
    if (!options.picture.empty())
        return TakePicture(options, *layout, texts);
    return Show(options, texts);
}

/// A failed assertion of the system ends the process with status 0, which would mean that the
/// layout is clean.
bool finished = false;
void EndUnusable() {
    if (!finished)
        std::_Exit(kUnusable);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        CLI::App app("Shows a layout as the game would draw it, and checks and formats it.");
        Options options;
        Declare(app, options);
        if (const auto status = ParseCommandLine(app, "guiview", kUnusable, argc, argv))
            return *status;
        std::atexit(EndUnusable);
        const int status = Run(options);
        finished = true;
        return status;
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}
