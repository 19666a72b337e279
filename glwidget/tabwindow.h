// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "glwidget/container.h"
#include "glwidget/glwindow.h"

/// `TWin`, without fields: a window whose content is switched by a row of buttons. While it is
/// built all tabs' widgets are its children; from Solidify on only the shown tab's are.
class TabWindow : public GLWindow {
public:
    TabWindow(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme);
    ~TabWindow() override;

    /// Renames a tab; an unknown index does nothing.
    void SetTabText(int index, std::string_view newText) override;
    bool MouseClick(bool left, bool middle, bool right) override;
    using GLWidget::MouseMove;
    bool MouseMove(float x, float y) override;
    bool Update(int milliseconds) override;
    void Render() override;
    void AddAppearance(Fingerprint& print) override;
    /// Moves the row of buttons too.
    Vector operator+=(const Vector& offset) override;
    std::string GetType() override { return "TabWindow"; }
    /// Shows the first tab and lays the row of buttons along the top.
    bool Solidify() override;
    /// Makes tab `index` an empty one of this title and makes all buttons again. An index that no
    /// tab can have is one line on standard error.
    bool AddTab(int index, std::string_view title) override;
    /// Puts a widget on tab `index`, which need not have been added. An index that no tab can
    /// have is one line on standard error, and the widget is not added.
    bool AddToTab(int index, GLWidget* widget) override;

    /// How many tabs a window may have.
    static constexpr int kMaxTabs = 64;

    /// Of the row of buttons: its name, and its file.
    static constexpr const char* kButtonTheme = "tabwin_button.theme";

    /// A tab and what it shows.
    struct Tab {
        std::string name;
        std::vector<GLWidget*> widgets;  // not owned
        OwnedButton button;              // null if only AddToTab has made the tab
    };
    const std::vector<Tab>& GetTabs() const { return tabs; }

    bool Holds(const GLWidget* widget) const override;

protected:
    void Forget(const Gone& gone) override;

private:
    /// Extends the list up to the index. @return whether a tab may have that index
    bool EnsureTab(int index);
    void RebuildButtons();
    /// Calls `handle` with every button. Meanwhile tabs may be added.
    template <typename Handle>
    void ForEachButton(Handle handle) const {
        for (std::size_t i = 0; i < tabs.size(); ++i) {
            if (tabs[i].button)
                handle(*tabs[i].button);
        }
    }
    /// Widens the window to its row of buttons.
    void FitButtons();
    /// Makes the shown tab's button look as if the mouse were over it, in every frame, whether it
    /// is drawn or not, so that a press finds the same focus.
    void FocusShownTab();
    void DrawButtons();

    std::vector<Tab> tabs;
    std::uint32_t shownTab = 0;
};
