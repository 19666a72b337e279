#include "tools/guiview/layoutcheck.h"

#include <algorithm>
#include <sstream>

#include "tools/guiview/contrastcheck.h"
#include "tools/guiview/gamecheck.h"
#include "tools/guiview/resourcecheck.h"
#include "tools/guiview/screencheck.h"

namespace guiview {

namespace {

constexpr int kOkButton = 1;

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.rfind('/') + 1);
}

/// Where a message box opens, in its theme.
Box MeasureMessageBox() {
    const ErrorStreamCapture silence;
    GLWidget::MessageBox(kRefusal, kOkButton);
    GLWidget* const window = GLWidget::GetByTag("__msgbox");
    GLWidget::widgets.remove(window);
    return BoxOf(window->Getbbox(), Vector(0.0f, 0.0f));
}

void FillGameTexts() {
    SampleTexts texts = LongestGameTexts();
    std::erase_if(
        texts, [](const auto& entry) { return GLWidget::GetByTag(entry.first, false) == nullptr; });
    FillTexts(texts);
}

}  // namespace

std::unique_ptr<BuiltLayout> BuiltLayout::Read(const std::string& path) {
    const auto content = ReadTextFile(path);
    if (!content)
        return nullptr;
    return std::unique_ptr<BuiltLayout>(new BuiltLayout(path, *content));
}

BuiltLayout::BuiltLayout(const std::string& path, const std::string& content)
    : folder(FolderOf(path)),
      file(ParseLayout(path, content, findings)),
      declarations(FollowOrder(file, findings)),
      visit(folder) {
    const ErrorStreamCapture silence;
    std::istringstream buildable(declarations.buildable);
    GLWidget::StartGUI(buildable, path);
}

Findings CheckLayout(const BuiltLayout& layout, bool forGame, const SampleTexts& texts) {
    const std::string& path = layout.File().path;
    Findings findings = layout.FromReading();
    ResourceCheck(layout.File(), layout.Declared(), layout.Folder(), findings).Run(forGame);
    if (forGame) {
        CheckGameTags(layout.Declared(), path, findings);
        FillGameTexts();
    }
    FillTexts(texts);
    const Box messageBox = MeasureMessageBox();
    const Scene scene(layout.Declared(), forGame);
    const auto answers = [&](const Node& node) { return !forGame || GameAnswers(node); };
    ScreenCheck(scene, path, answers, messageBox, findings).Run();
    ContrastCheck contrast(scene, path, findings);
    contrast.Run();
    if (forGame)
        contrast.CheckOwnFill(*GLWidget::themes["messagebox"], "the message box",
                              layout.Folder() + "messagebox.theme", {});
    findings.Sort(path);
    return findings;
}

}  // namespace guiview
