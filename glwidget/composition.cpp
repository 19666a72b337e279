// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

// The base widget shows message boxes, builds layouts and is deleted with the toolkit. All three
// need widgets that are derived from it, so it calls them through Toolkit::parts. This source
// knows both sides; nothing includes it and nothing refers to it.

#include "glwidget/glwidget.h"
#include "glwidget/layout.h"
#include "glwidget/messagebox.h"
#include "glwidget/toolkit.h"

namespace {

[[maybe_unused]] const bool kComposed = [] {
    Toolkit::Get().parts = {ShowMessageBox, CompleteMessageBox, Layout::Start, GLWidget::DeleteAll};
    return true;
}();

}  // namespace
