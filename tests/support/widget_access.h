// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include "glwidget/glwidget.h"

/// Empties the toolkit, which by itself keeps what it made until the process ends.
class WidgetAccess {
public:
    static void DeleteAll() {
        GLWidget::tags.clear();
        GLWidget::widgets.clear();
        while (!GLWidget::living.empty())
            delete GLWidget::living.front();
        GLWidget::themes.clear();
        GLWidget::ownedThemes.clear();
        GLWidget::currentTheme = nullptr;
        GLWidget::msgboxResult = 0;
        GLWidget::rendering = false;
    }
};
