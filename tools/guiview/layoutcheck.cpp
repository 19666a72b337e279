// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/layoutcheck.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <utility>

#include "tools/guiview/contrastcheck.h"
#include "tools/guiview/gamecheck.h"
#include "tools/guiview/resourcecheck.h"
#include "tools/guiview/screencheck.h"

namespace guiview {

namespace {

constexpr int kOkButton = 1;

/// Where a message box opens, in its theme.
Box MeasureMessageBox() {
    const ErrorStreamCapture silence;
    GLWidget::MessageBox(kRefusal, kOkButton);
    GLWidget* const window = GLWidget::GetByTag("__msgbox");
    GLWidget::widgets.remove(window);
    return BoxOf(window->Getbbox(), Vector(0.0f, 0.0f));
}

}  // namespace

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

std::optional<LayoutSource> LayoutSource::Read(const std::string& path) {
    const auto content = ReadTextFile(path);
    if (!content)
        return std::nullopt;
    return LayoutSource(path, *content);
}

LayoutSource::LayoutSource(const std::string& path, const std::string& content)
    : folder(FolderOf(path)),
      file(ParseLayout(path, content, findings)),
      declarations(FollowOrder(file, findings)) {}

void LayoutSource::Build() const {
    const ErrorStreamCapture silence;
    std::istringstream buildable(declarations.buildable);
    GLWidget::StartGUI(buildable, file.path);
}

Findings CheckLayout(const LayoutSource& layout, bool forGame, const SampleTexts& texts) {
    const std::string& path = layout.File().path;
    Findings findings = layout.Found();
    const BuiltLayout built(layout);
    ResourceCheck(layout.File(), layout.Declared(), layout.Folder(), findings).Run(forGame);
    if (forGame) {
        CheckGameTags(layout.Declared(), path, findings);
        FillGameTexts();
    }
    FillTexts(texts);
    const Box messageBox = MeasureMessageBox();
    std::set<std::string> settled;
    for (const auto& [tag, text] : texts)
        settled.insert(tag);
    for (const Declared& widget : layout.Declared().widgets) {
        if (forGame)
            settled.insert(widget.tag);
    }
    const Scene scene(layout.Declared(), std::move(settled));
    const auto answers = [&](const Node& node) { return !forGame || GameAnswers(node); };
    ScreenCheck(scene, path, answers, messageBox, findings).Run();
    ContrastCheck contrast(scene, path, findings);
    contrast.Run();
    if (forGame) {
        contrast.CheckOwnFill(*GLWidget::themes["messagebox"], "the message box",
                              layout.Folder() + "messagebox.theme", {});
    }
    findings.Sort(path);
    return findings;
}

}  // namespace guiview
