// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiview/headless.h"

#include <fcntl.h>
#include <unistd.h>

#include <iostream>

#include "tools/guiview/sourceline.h"

namespace guiview {

ErrorStreamCapture::ErrorStreamCapture() : usual(std::cerr.rdbuf(text.rdbuf())) {}

ErrorStreamCapture::~ErrorStreamCapture() {
    std::cerr.rdbuf(usual);
}

HeadlessToolkit::HeadlessToolkit() {
    Toolkit::Get().ResetWithoutWindow();
}

HeadlessToolkit::~HeadlessToolkit() {
    Toolkit::Get().Reset();
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
