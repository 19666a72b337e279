// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/layoutcheck.h"

#include <optional>
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

/// Where message boxes appear; nothing if an error in their theme leaves that open.
std::optional<Box> MeasureMessageBox(const std::set<const Theme*>& broken) {
    const ErrorStreamCapture silence;
    GLWidget::MessageBox(kRefusal, kOkButton);
    GLWidget* const window = GLWidget::GetByTag("__msgbox");
    GLWidget::widgets.remove(window);
    if (broken.contains(&window->GetTheme()))
        return std::nullopt;
    return BoxOf(window->Getbbox(), Vector(0.0f, 0.0f));
}

/// The checks of the widgets that are built: their places, sizes and contrasts.
void CheckScreen(const LayoutSource& layout, bool forGame, const SampleTexts& texts,
                 const std::set<const Theme*>& broken, Findings& findings) {
    if (forGame)
        FillGameTexts();
    FillTexts(texts);
    const std::optional<Box> messageBox = MeasureMessageBox(broken);
    std::set<std::string> finalTexts;
    for (const auto& [tag, text] : texts)
        finalTexts.insert(tag);
    for (const Declared& widget : layout.Declared().widgets) {
        if (forGame)
            finalTexts.insert(widget.tag);
    }
    const Scene scene(layout.Declared(), std::move(finalTexts), broken);
    const auto answers = [&](const Node& node) { return !forGame || GameAnswers(node); };
    ScreenCheck(scene, layout.File().path, answers, messageBox, findings).Run();
    ContrastCheck contrast(scene, layout.File().path, findings);
    contrast.Run();
    const Theme* const boxTheme = GLWidget::themes["messagebox"];
    if (forGame && !broken.contains(boxTheme)) {
        contrast.CheckOwnFill(*boxTheme, "the message box", layout.Folder() + "messagebox.theme",
                              {});
    }
}

}  // namespace

Checked CheckLayout(const LayoutSource& layout, bool forGame, const SampleTexts& texts) {
    const std::string& path = layout.File().path;
    Findings findings = layout.Found();
    const BuiltLayout built(layout);
    ResourceCheck resources(layout.File(), layout.Declared(), layout.Folder(), findings);
    resources.Run(forGame);
    if (forGame)
        CheckGameTags(layout, findings);
    // Without the font no text has a size.
    if (!resources.HasBrokenConfiguration())
        CheckScreen(layout, forGame, texts, resources.BrokenThemes(), findings);
    findings.Sort(path);
    return {std::move(findings), resources.Files()};
}

}  // namespace guiview
