// Shows a layout as the game would draw it, and checks and formats it.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "tools/guiview/exitguard.h"
#include "tools/guiview/layoutcheck.h"
#include "tools/guiview/layoutformat.h"
#include "tools/guiview/rewrite.h"
#include "tools/guiview/status.h"

namespace {

using namespace guiview;

struct Options {
    std::string layout;
    bool tree = false;
    bool check = false;
    bool game = false;
    bool json = false;
    bool format = false;
    std::vector<std::string> texts;
};

void Declare(CLI::App& app, Options& options) {
    app.add_option("LAYOUT", options.layout, "The layout file")->required();
    auto* const tree =
        app.add_flag("--tree", options.tree, "Print tag, kind, parent and box of every widget");
    auto* const check = app.add_flag("--check", options.check,
                                     "Print what is wrong with the layout and its files; with "
                                     "--format, the lines that it would change");
    auto* const format = app.add_flag("--format", options.format,
                                      "Align the columns of the layout and change nothing else");
    app.add_flag("--game", options.game,
                 "Check for the game: its tags, and its longest texts in their widgets")
        ->needs(check);
    app.add_flag("--json", options.json, "Print what is wrong as JSON")->needs(check);
    app.add_option("--text", options.texts,
                   "TAG=TEXT: a text to show in a widget; \\n begins a line, and in a Combo an "
                   "item")
        ->type_name("TAG=TEXT")
        ->allow_extra_args(false);
    tree->excludes(check, format);
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

/// Fills in the texts, of which each must have its widget.
bool Fill(const SampleTexts& texts) {
    const std::string unknown = FillTexts(texts);
    if (!unknown.empty())
        Fail("--text: no widget has the tag '" + unknown + "'");
    return unknown.empty();
}

int Check(const Options& options, const SampleTexts& texts) {
    const auto layout = BuiltLayout::Read(options.layout);
    if (layout == nullptr)
        return FailToRead(options);
    return Print(CheckLayout(*layout, options.game, texts), options.json);
}

int PrintTree(const Options& options, const SampleTexts& texts) {
    const auto layout = BuiltLayout::Read(options.layout);
    if (layout == nullptr)
        return FailToRead(options);
    if (!Fill(texts))
        return kUnusable;
    std::cerr << layout->FromReading().AsText();
    std::cout << DescribeTree(Scene(layout->Declared())) << std::flush;
    if (!std::cout)
        return Fail("the tree cannot be written");
    return layout->FromReading().HasErrors() ? kFindings : kClean;
}

int Run(const Options& options) {
    SampleTexts texts;
    if (!ReadTexts(options, texts))
        return Fail("--text takes TAG=TEXT");
    if (options.format)
        return Format(options);
    if (options.check)
        return Check(options, texts);
    return PrintTree(options, texts);
}

}  // namespace

int main(int argc, char** argv) {
    CLI::App app("Shows a layout as the game would draw it, and checks and formats it.");
    Options options;
    Declare(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return app.exit(error);  // help was asked for
        std::string message = error.what();
        std::ranges::replace(message, '\n', ' ');
        return Fail(message);
    }
    const ExitGuard guard;
    return Run(options);
}
