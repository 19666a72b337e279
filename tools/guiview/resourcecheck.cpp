// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/resourcecheck.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <vector>

#include "glwidget/glwidget.h"
#include "quarn2/font.h"
#include "quarn2/texturedata.h"
#include "tools/guiview/layoutsource.h"
#include "tools/guiview/suggestion.h"

namespace guiview {

namespace {

constexpr const char* kDefaultTheme = "default";
constexpr const char* kDefaultThemeFile = "default.theme";
constexpr const char* kThemeEnding = ".theme";

/// The message of a loader that failed, as part of a sentence.
std::string Reason(const ErrorStreamCapture& said) {
    std::string reason = said.Text();
    while (!reason.empty() && reason.back() == '\n')
        reason.pop_back();
    std::ranges::replace(reason, '\n', ' ');
    return reason.empty() ? reason : ": " + reason;
}

/// The file beside a missing one that a misspelt name probably means. It has the same ending, or
/// that of a theme which the name lacks.
std::optional<std::string> SimilarFile(const std::string& name, const std::string& missingEnding) {
    namespace fs = std::filesystem;
    const fs::path wanted(name);
    const std::string ending = wanted.has_extension() ? wanted.extension().string() : missingEnding;
    std::vector<std::string> stems;
    std::error_code error;
    const fs::path parent = wanted.parent_path();
    for (fs::directory_iterator each(parent.empty() ? fs::path(".") : parent, error), end;
         !error && each != end; each.increment(error)) {
        if (each->path().extension() == ending)
            stems.push_back(each->path().stem().string());
    }
    std::ranges::sort(stems);
    const std::optional<std::string> similar = Similar(wanted.stem().string(), stems);
    return similar ? std::optional((parent / (*similar + ending)).string()) : std::nullopt;
}

/// The same for a file that cannot be loaded; nothing if it exists.
std::optional<std::string> SimilarMissing(const std::string& name) {
    std::error_code error;
    return std::filesystem::exists(name, error) ? std::nullopt : SimilarFile(name, "");
}

}  // namespace

std::set<const Theme*> ResourceCheck::BrokenThemes() const {
    std::set<const Theme*> broken;
    for (const auto& [name, theme] : GLWidget::themes) {
        // The toolkit knows some themes by the names of their files without the ending.
        if (brokenThemes.contains(name) || brokenThemes.contains(name + kThemeEnding))
            broken.insert(theme);
    }
    return broken;
}

void ResourceCheck::Run(bool withMessageBox) {
    CheckDefaultTheme();
    for (const Statement& statement : layout.statements) {
        if (statement.rule == nullptr)
            continue;
        if (statement.rule->word == "CONF") {
            if (const Word* const name = statement.Find("file"))
                CheckConfiguration(*name);
        } else if (statement.rule->word == "THEM") {
            const Word* const name = statement.Find("theme");
            if (name != nullptr && *name != kDefaultTheme)
                CheckTheme(name->text, name->location, "the theme");
        } else if (statement.rule->word == "NTAB") {
            // A window makes the button of a tab together with the tab.
            for (const Kind* kind : Kinds()) {
                if (kind->hasTabs)
                    CheckButtonTheme(*kind, statement.word.location);
            }
        } else if (statement.kind != nullptr && !statement.kind->hasTabs) {
            CheckButtonTheme(*statement.kind, statement.Find("kind")->location);
            CheckSeriesThemes(*statement.kind);
        }
    }
    if (withMessageBox)
        CheckTheme("messagebox.theme", {}, "the message box's theme");
}

bool ResourceCheck::IsNew(const std::string& name) {
    files.insert(folder + name);
    return known.insert(name).second;
}

void ResourceCheck::CheckDefaultTheme() {
    if (const auto content = ReadTextFile(kDefaultThemeFile)) {
        CheckTheme(kDefaultThemeFile, *content);
        return;
    }
    // The built-in theme is used, whose picture may be missing if no widget draws it.
    const auto draws = [](const Declared& widget) {
        return widget.GetKind().draws.Has(ThemeLine::Picture);
    };
    if (std::ranges::any_of(declared.widgets, draws))
        CheckPicture(Theme().textureName, layout.path, {});
}

void ResourceCheck::CheckButtonTheme(const Kind& kind, Location where) {
    if (kind.buttonTheme != nullptr)
        CheckTheme(kind.buttonTheme, where, std::string(kind.buttonThemeOwner) + " theme");
}

void ResourceCheck::CheckSeriesThemes(const Kind& kind) {
    for (const char* const name : kind.seriesThemes) {
        if (!IsNew(name))
            continue;
        // Without the file, colours of the toolkit are used.
        if (const auto content = ReadTextFile(name))
            CheckTheme(name, *content);
    }
}

void ResourceCheck::CheckTheme(const std::string& name, Location where, const std::string& what) {
    if (!IsNew(name))
        return;
    if (const auto content = ReadTextFile(name)) {
        CheckTheme(name, *content);
    } else {
        findings.Error(
            layout.path, where,
            what + " '" + name + "' cannot be read" + DidYouMean(SimilarFile(name, kThemeEnding)));
        brokenThemes.insert(name);
    }
}

void ResourceCheck::CheckTheme(const std::string& name, const std::string& content) {
    known.insert(name);
    const std::string path = folder + name;
    const std::size_t before = findings.List().size();
    const std::optional<Word> picture = CheckThemeFile(path, content, findings);
    if (picture && *picture != kNone)
        CheckPicture(picture->text, path, picture->location);
    if (findings.List().size() > before)
        brokenThemes.insert(name);
}

void ResourceCheck::CheckConfiguration(const Word& name) {
    if (!IsNew(name.text))
        return;
    const std::size_t before = findings.List().size();
    ReadConfiguration(name);
    configurationBroken = configurationBroken || findings.List().size() > before;
}

void ResourceCheck::ReadConfiguration(const Word& name) {
    const auto content = ReadTextFile(name.text);
    if (!content) {
        findings.Error(layout.path, name.location,
                       "the configuration '" + name.text + "' cannot be read"
                           + DidYouMean(SimilarFile(name.text, ".conf")));
        return;
    }
    const std::string path = folder + name.text;
    const std::optional<Word> font = CheckConfigurationFile(path, *content, findings);
    if (!font)
        return;
    files.insert(folder + font->text);
    const ErrorStreamCapture said;
    FontRender measure;
    if (!measure.Measure(font->text)) {
        findings.Error(path, font->location,
                       "the font '" + font->text + "' cannot be loaded" + Reason(said)
                           + DidYouMean(SimilarMissing(font->text)));
    }
}

void ResourceCheck::CheckPicture(const std::string& picture, const std::string& file,
                                 Location where) {
    files.insert(folder + picture);
    const ErrorStreamCapture said;
    TextureData data;
    if (!data.Load(picture)) {
        findings.Error(file, where,
                       "the picture '" + picture + "' cannot be loaded" + Reason(said)
                           + DidYouMean(SimilarMissing(picture)));
    }
}

}  // namespace guiview
