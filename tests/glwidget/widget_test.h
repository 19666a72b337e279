// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <string>

#include "glwidget/glwidget.h"
#include "tests/support/font_access.h"

/// An empty toolkit without a window: an 800 by 600 viewport, a "default" theme and a font
/// whose glyphs all advance by 1.
class WidgetTest : public testing::Test {
protected:
    WidgetTest() {
        Toolkit::Get().Reset();
        Toolkit::Get().readViewport = Toolkit::ReadViewportWithoutWindow;
        FontAccess::SetAdvances(GLWidget::font, 1.0f);
        theme = GLWidget::NewTheme("default");
    }
    ~WidgetTest() override { Toolkit::Get().Reset(); }

    Theme* theme;
};

/// The simplest widget; a test can use its fields.
class PlainWidget : public GLWidget {
public:
    using GLWidget::active;
    using GLWidget::age;
    using GLWidget::buttons;
    using GLWidget::changed;
    using GLWidget::children;
    using GLWidget::clicked;
    using GLWidget::current;
    using GLWidget::depth;
    using GLWidget::dragging;
    using GLWidget::flash;
    using GLWidget::focus;
    using GLWidget::GLWidget;
    using GLWidget::highlight;
    using GLWidget::level;
    using GLWidget::mouse;
    using GLWidget::parent;
    using GLWidget::position;
    using GLWidget::size;
    using GLWidget::text;
    using GLWidget::texts;
    using GLWidget::theme;

    bool MouseClick(bool, bool, bool) override {
        ++clicks;
        return true;
    }
    void Render() override { ++renders; }
    void SetFocussed(GLWidget* other) override { told.push_back(other); }
    bool Unique() override { return unique; }

    bool unique = false;
    int clicks = 0;
    int renders = 0;
    std::vector<GLWidget*> told;  ///< arguments of SetFocussed
};
