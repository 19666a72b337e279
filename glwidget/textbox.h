#pragma once

#include <cstdint>
#include <string>

#include "glwidget/glwidget.h"

/// A text entry field of a fixed number of columns and rows. Focus means being edited: a click
/// gives it, and only another unique widget of the same container takes it away.
class Textbox : public GLWidget {
public:
    /// @param columns  width, in letters "w"
    /// @param rows  lines that the user can make
    Textbox(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
            std::int32_t columns, std::int32_t rows);

    bool MouseClick(bool left, bool middle, bool right) override;
    bool TextKeyPress(const KeyFlags& keys) override;
    using GLWidget::MouseMove;
    bool MouseMove(float x, float y) override;
    void Render() override;
    bool Unique() override { return true; }
    std::string GetType() override { return "Textbox"; }
    void SetFocussed(GLWidget* other) override;

    /// Columns and rows that a box may have; more, or less than none, is one line on standard
    /// error and the nearest allowed number.
    static constexpr std::int32_t kMostColumns = 1024;
    static constexpr std::int32_t kMostRows = 1024;

private:
    std::string before;  // left of the caret
    std::string after;   // right of the caret
    std::int32_t rows;
};
