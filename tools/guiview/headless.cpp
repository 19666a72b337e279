// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/headless.h"

#include <fcntl.h>
#include <unistd.h>

#include <iostream>

#include "tools/guiview/sourceline.h"

namespace guiview {

namespace {

constexpr std::int32_t kScreenWidth = 800;
constexpr std::int32_t kScreenHeight = 600;

}  // namespace

ErrorStreamCapture::ErrorStreamCapture() : usual(std::cerr.rdbuf(text.rdbuf())) {}

ErrorStreamCapture::~ErrorStreamCapture() {
    std::cerr.rdbuf(usual);
}

HeadlessToolkit::HeadlessToolkit()
    : usualViewport(GLWidget::readViewport),
      usualFont(GLWidget::loadFont),
      usualImage(Theme::loadImage) {
    Clear();
    GLWidget::readViewport = [](std::int32_t(&viewport)[4]) {
        viewport[0] = viewport[1] = 0;
        viewport[2] = kScreenWidth;
        viewport[3] = kScreenHeight;
    };
    GLWidget::readViewport(GLWidget::viewport);
    GLWidget::loadFont = [](FontRender& font, const std::string& path) {
        return font.Measure(path);
    };
    Theme::loadImage = [](Texture&, const std::string&) { return true; };
}

HeadlessToolkit::~HeadlessToolkit() {
    Clear();
    GLWidget::readViewport = usualViewport;
    GLWidget::loadFont = usualFont;
    Theme::loadImage = usualImage;
}

void HeadlessToolkit::Clear() {
    // Widgets and themes stay with the toolkit, which never frees them.
    GLWidget::tags.clear();
    GLWidget::themes.clear();
    GLWidget::widgets.clear();
    GLWidget::currentTheme = nullptr;
    GLWidget::font = FontRender();
    GLWidget::msgboxResult = 0;
}

FolderVisit::FolderVisit(const std::string& folder)
    : before(open(".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (!folder.empty() && chdir(folder.c_str()) != 0)
        std::cerr << folder << ": cannot be entered\n";
}

FolderVisit::~FolderVisit() {
    if (before < 0)
        return;
    if (fchdir(before) != 0)
        std::cerr << "the folder of the start cannot be entered again\n";
    close(before);
}

std::string FillTexts(const SampleTexts& texts) {
    for (const auto& [tag, text] : texts) {
        GLWidget* const widget = GLWidget::GetByTag(tag, false);
        if (widget == nullptr)
            return tag;
        if (widget->GetType() != "Combobox") {
            widget->SetText(text);
            continue;
        }
        for (const std::string& item : SplitLines(text))
            widget->AddText(item);
    }
    return {};
}

}  // namespace guiview
