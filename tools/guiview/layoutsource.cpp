// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/layoutsource.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>

#include "glwidget/glwidget.h"
#include "tools/guiview/examplechart.h"
#include "tools/guiview/sourceline.h"

namespace guiview {

ErrorStreamCapture::ErrorStreamCapture() : usual(std::cerr.rdbuf(text.rdbuf())) {}

ErrorStreamCapture::~ErrorStreamCapture() {
    std::cerr.rdbuf(usual);
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

void FillTexts(const SampleTexts& texts) {
    for (const auto& [tag, text] : texts) {
        GLWidget* const widget = GLWidget::GetByTag(tag, false);
        if (widget == nullptr)
            continue;
        const Kind* const kind = KindOfType(widget->GetType());
        if (kind == nullptr || !kind->takesItems) {
            widget->SetText(text);
            continue;
        }
        for (const std::string& item : SplitLines(text))
            widget->AddText(item);
    }
}

std::optional<LayoutSource> LayoutSource::Read(const std::string& path, const SampleTexts& texts) {
    const auto content = ReadTextFile(path);
    if (!content) {
        std::cerr << "guiview: " << path << ": cannot be read\n";
        return std::nullopt;
    }
    LayoutSource layout(path, *content);
    for (const auto& [tag, text] : texts) {
        if (std::ranges::count(layout.declarations.widgets, tag, &guiview::Declared::tag) > 0)
            continue;
        std::cerr << "guiview: --text: no widget has the tag '" << tag << "'\n";
        return std::nullopt;
    }
    return layout;
}

LayoutSource::LayoutSource(const std::string& path, const std::string& content)
    : folder(path.substr(0, path.rfind('/') + 1)),
      file(ParseLayout(path, content, findings)),
      declarations(FollowStatements(file, findings)) {}

void LayoutSource::Build() const {
    const ErrorStreamCapture silence;
    std::istringstream buildable(declarations.buildable);
    GLWidget::StartGUI(buildable, file.path);
    FillEmptyCharts();
}

BuiltLayout::BuiltLayout(const LayoutSource& layout) : visit(layout.Folder()) {
    before.parts = Toolkit::Get().parts;
    std::swap(before, Toolkit::Get());
    Toolkit::Get().ResetWithoutWindow();
    Toolkit::Get().kinds = before.kinds;
    layout.Build();
}

BuiltLayout::~BuiltLayout() {
    Toolkit::Get().Reset();
    std::swap(before, Toolkit::Get());
}

}  // namespace guiview
