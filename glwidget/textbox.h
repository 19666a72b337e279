// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "glwidget/glwidget.h"

/// `Text columns rows`, each 1 to 1000: a text entry field of a fixed number of columns and rows.
/// Focus means being edited: a click gives it, and only another unique widget of the same container
/// takes it away.
class Textbox : public GLWidget {
public:
    /// Columns or rows outside the limits become the nearest limit, with one line on standard
    /// error.
    /// @param columns  width, in letters "w"
    /// @param rows     lines that the user can make
    Textbox(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
            std::int32_t columns, std::int32_t rows);

    bool MouseClick(bool left, bool middle, bool right) override;
    bool TextKeyPress(const KeyFlags& keys) override;
    using GLWidget::MouseMove;
    bool MouseMove(float x, float y) override;
    void Render() override;
    void AddAppearance(Fingerprint& print) override;
    bool Unique() override { return true; }
    std::string GetType() override { return "Textbox"; }
    void SetFocussed(GLWidget* other) override;

    static constexpr std::int32_t kMaxColumns = 1000;
    static constexpr std::int32_t kMaxRows = 1000;

private:
    void PutCaret(std::size_t place);
    void MoveUp();
    void MoveDown();
    void BreakLine();
    void Type(const KeyFlags& keys);

    /// The part of the caret's line that is left of the caret.
    std::string_view LineBeforeCaret() const;
    std::int32_t LineCount() const;
    /// The index in a line whose distance from the line's start is nearest to `width`.
    std::size_t NearestPlace(std::string_view line, float width) const;
    float LineWidth(std::string_view line) const;

    void DrawBox() const;
    void DrawContent() const;
    void DrawCaret(float x, float baseline) const;

    std::string before;  // left of the caret
    std::string after;   // right of the caret
    std::int32_t rows;
};
