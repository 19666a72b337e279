#pragma once

#include <cstdint>
#include <string>

#include "glwidget/container.h"
#include "glwidget/glwidget.h"

/// One line showing the chosen text of a list; a click on it, or on the button at its side,
/// opens the list below. The application reads GetCurrentText and polls BeenChanged.
class Combobox : public GLWidget {
public:
    Combobox(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme);
    ~Combobox() override;

    /// Appends an item; the box grows to its text and never shrinks.
    bool AddText(const std::string& newText) override;
    bool MouseClick(bool left, bool middle, bool right) override;
    using GLWidget::MouseMove;
    bool MouseMove(float x, float y) override;
    void Render() override;
    std::string GetType() override { return "Combobox"; }
    void SetFocussed(GLWidget*) override {}

    /// Chooses the item of this index; an index outside the list changes nothing.
    bool SetCurrentText(std::int32_t index);

private:
    std::int32_t ItemCount() const { return static_cast<std::int32_t>(texts.size()); }
    float ListHeight() const;
    bool MouseInBox() const;
    bool MouseInList() const;
    void UseList(bool left);
    void DrawPanel(float width, float height, float cut) const;
    void DrawBox() const;
    void DrawList() const;
    /// Prints an item with its middle at `y`, in the widget's own coordinates.
    void DrawItem(const std::string& item, float y) const;

    bool open = false;
    bool edgeLatch = false;     // the press that toggled the list is not over yet
    std::int32_t hovered = -1;  // row under the mouse while open
    OwnedButton dropButton;
};
