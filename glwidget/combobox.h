// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "glwidget/container.h"
#include "glwidget/glwidget.h"

/// `Combo`, without fields: one line showing the chosen text of a list; a click on it, or on the
/// button at its side, opens the list below. The application reads GetCurrentText and polls
/// BeenChanged.
class Combobox : public GLWidget {
public:
    Combobox(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme);
    ~Combobox() override;

    /// Appends an item; the box grows to its text and never shrinks.
    bool AddText(std::string_view newText) override;
    bool MouseClick(bool left, bool middle, bool right) override;
    using GLWidget::MouseMove;
    bool MouseMove(float x, float y) override;
    void Render() override;
    void AddAppearance(Fingerprint& print) override;
    std::string GetType() override { return "Combobox"; }
    void SetFocussed(GLWidget*) override {}

    /// Chooses the item of this index; an index outside the list changes nothing.
    bool SetCurrentText(std::int32_t index);

    /// Of the button at the side: its name, and its file.
    static constexpr const char* kButtonTheme = "combo_button.theme";

protected:
    void Forget(const Gone& gone) override;

private:
    std::int32_t ItemCount() const { return static_cast<std::int32_t>(texts.size()); }
    float ListHeight() const;
    bool MouseInBox() const;
    bool MouseInList() const;
    void UseList(bool left);
    void DrawBox() const;
    void DrawButton() const;
    void DrawArrow() const;
    void DrawList() const;
    /// Draws the panel of the closed box or of the open list.
    /// @param bottom  its lower edge, measured from the lower edge of the closed box
    void DrawPanel(float bottom, float height) const;
    void DrawMark() const;
    float ItemLeft() const;
    /// Prints an item with its middle `y` above the box's lower edge.
    void DrawItem(const std::string& item, float y) const;

    /// All zero without a button.
    Vector ButtonBox() const;

    bool open = false;
    bool edgeLatch = false;          // the press that opened or closed the list goes on
    std::int32_t hovered = -1;       // row under the mouse while open
    OwnedButton dropButton;          // null once an application has destroyed it
    std::size_t measured = 0;        // texts for which the box has room
    std::uint32_t measuredWith = 0;  // the font, as `fontLoads` counts it
};
