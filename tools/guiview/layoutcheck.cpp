// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/layoutcheck.h"

#include <utility>

#include "glwidget/glwidget.h"
#include "tools/guiview/contrastcheck.h"
#include "tools/guiview/gamecheck.h"
#include "tools/guiview/resourcecheck.h"
#include "tools/guiview/scene.h"
#include "tools/guiview/screencheck.h"

namespace guiview {

namespace {

constexpr int kOkButton = 1;

/// Where message boxes appear.
Box MeasureMessageBox() {
    const ErrorStreamCapture silence;
    GLWidget::MessageBox(kRefusal, kOkButton);
    GLWidget* const window = GLWidget::GetByTag("__msgbox");
    GLWidget::widgets.remove(window);
    return BoxOf(window->Getbbox(), Vector(0.0f, 0.0f));
}

}  // namespace

Checked CheckLayout(const LayoutSource& layout, bool forGame, const SampleTexts& texts) {
    const std::string& path = layout.File().path;
    Findings findings = layout.Found();
    const BuiltLayout built(layout);
    ResourceCheck resources(layout.File(), layout.Declared(), layout.Folder(), findings);
    resources.Run(forGame);
    if (forGame) {
        CheckGameTags(layout.Declared(), path, findings);
        FillGameTexts();
    }
    FillTexts(texts);
    const Box messageBox = MeasureMessageBox();
    std::set<std::string> finalTexts;
    for (const auto& [tag, text] : texts)
        finalTexts.insert(tag);
    for (const Declared& widget : layout.Declared().widgets) {
        if (forGame)
            finalTexts.insert(widget.tag);
    }
    const Scene scene(layout.Declared(), std::move(finalTexts));
    const auto answers = [&](const Node& node) { return !forGame || GameAnswers(node); };
    ScreenCheck(scene, path, answers, messageBox, findings).Run();
    ContrastCheck contrast(scene, path, findings);
    contrast.Run();
    if (forGame) {
        contrast.CheckOwnFill(*GLWidget::themes["messagebox"], "the message box",
                              layout.Folder() + "messagebox.theme", {});
    }
    findings.Sort(path);
    return {std::move(findings), resources.Files()};
}

}  // namespace guiview
