// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// Shows a layout as the game would draw it, and checks and formats it.

#include <SDL.h>
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "quarn2/glrender.h"
#include "quarn2/kernel.h"
#include "quarn2/memory.h"
#include "quarn2/sdlinput.h"
#include "tools/commandline.h"
#include "tools/guiview/exitguard.h"
#include "tools/guiview/layoutcheck.h"
#include "tools/guiview/layoutformat.h"
#include "tools/guiview/liveview.h"
#include "tools/guiview/pictureshot.h"
#include "tools/guiview/rewrite.h"
#include "tools/guiview/status.h"

namespace {

using namespace guiview;

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
};

void Declare(CLI::App& app, Options& options) {
    app.add_option("LAYOUT", options.layout, "The layout file")->required();
    auto* const picture = app.add_option("--png", options.picture,
                                         "Write a picture of the layout and show no window");
    auto* const tree =
        app.add_flag("--tree", options.tree, "Print tag, kind, parent and box of every widget");
    auto* const check = app.add_flag("--check", options.check,
                                     "Print what is wrong with the layout and its files; with "
                                     "--format, the lines that it would change");
    auto* const format = app.add_flag("--format", options.format,
                                      "Align the columns of the layout and change nothing else");
    picture->type_name("FILE")->excludes(tree, check, format);
    tree->excludes(check, format);
    app.add_flag("--json", options.json, "Print what is wrong as JSON")->needs(check);
    app.add_flag("--game", options.game,
                 "Show the longest texts of the game; with --check, look also for what the game "
                 "needs");
    app.add_option("--text", options.texts,
                   "A text to show in a widget; \\n begins a line, and in a Combo an item")
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
    app.add_flag("--crop", options.crop, "Leave out what is empty around the widgets")
        ->needs(picture);
}

int Fail(const std::string& message) {
    std::cerr << "guiview: " << message << '\n';
    return kUnusable;
}

int FailToRead(const Options& options) {
    return Fail(options.layout + ": cannot be read");
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
        return Fail("what was found cannot be written");
    return findings.List().empty() ? kClean : kFindings;
}

int Format(const Options& options) {
    const auto content = ReadTextFile(options.layout);
    if (!content)
        return FailToRead(options);
    if (options.check)
        return Print(CheckFormat(options.layout, *content), options.json);
    const std::string formatted = FormatLayout(*content);
    if (formatted != *content && !RewriteFile(options.layout, formatted))
        return Fail(options.layout + ": cannot be written");
    return kClean;
}

/// Whether all those have a widget for whom there is a text; says which has not.
bool KnowsTags(const LayoutSource& layout, const SampleTexts& texts) {
    for (const auto& [tag, text] : texts) {
        if (std::ranges::find(layout.Declared().widgets, tag, &Declared::tag)
            != layout.Declared().widgets.end())
            continue;
        Fail("--text: no widget has the tag '" + tag + "'");
        return false;
    }
    return true;
}

int Check(const Options& options, const LayoutSource& layout, const SampleTexts& texts) {
    return Print(CheckLayout(layout, options.game, texts), options.json);
}

/// Prints the errors among what was found. @return whether there are any
bool ReportErrors(const Findings& findings) {
    Findings errors;
    for (const Finding& finding : findings.List()) {
        if (finding.severity == Severity::Error)
            errors.Error(finding.file, finding.place, finding.message);
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
    if (ReportErrors(CheckLayout(layout, false, texts)))
        return kFindings;
    const Pose pose{std::move(texts), options.game, options.clicked, options.hovered,
                    options.pressed};
    return guiview::TakePicture(layout, pose, options.crop, options.picture) ? kClean : kUnusable;
}

/// @return whether there is a status; none asks for a new start
std::optional<int> ShowLive(const Options& options, SampleTexts texts) {
    if (std::getenv("DISPLAY") == nullptr && std::getenv("WAYLAND_DISPLAY") == nullptr)
        return Fail("there is no display: --png, --tree and --check need none");
    const Pointer<Kernel> kernel = new Kernel;
    new SDLInput(kernel, false);
    new GLRender(kernel);
    const Pointer<LiveView> view =
        new LiveView(kernel, {options.layout, std::move(texts), options.game});
    kernel->MainLoop();
    SDL_Quit();
    if (view->StartAnew())
        return std::nullopt;
    return view->Opened() ? kClean : kUnusable;
}

int Show(const Options& options, const SampleTexts& texts, char** arguments) {
    if (const auto status = ShowLive(options, texts))
        return *status;
    // The toolkit keeps what it was given for as long as a process lives.
    execv("/proc/self/exe", arguments);
    return Fail("cannot start anew");
}

int Run(const Options& options, char** arguments) {
    SampleTexts texts;
    if (!ReadTexts(options, texts))
        return Fail("--text takes TAG=TEXT");
    if (options.format)
        return Format(options);
    const auto layout = LayoutSource::Read(options.layout);
    if (!layout)
        return FailToRead(options);
    if (!KnowsTags(*layout, texts))
        return kUnusable;
    if (options.check)
        return Check(options, *layout, texts);
    if (options.tree)
        return PrintTree(*layout, texts);
    if (!options.picture.empty())
        return TakePicture(options, *layout, texts);
    return Show(options, texts, arguments);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        CLI::App app("Shows a layout as the game would draw it, and checks and formats it.");
        Options options;
        Declare(app, options);
        if (const auto status = ParseCommandLine(app, "guiview", kUnusable, argc, argv))
            return *status;
        const ExitGuard guard;
        return Run(options, argv);
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}
