// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "glwidget/glwidget.h"

/// A knob on a straight track. The value is `level`, a fraction of the track, 0.5 at first;
/// dragging keeps it strictly between 0 and 1. The application polls it.
class Slider : public GLWidget {
public:
    /// @param position  start of the track; a knob's half below it lies the widget's corner
    /// @param extent  the track: (length, 0) is horizontal, (0, length) vertical. With both
    ///     set it is horizontal.
    Slider(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
           const Vector& extent);

    bool MouseClick(bool left, bool middle, bool right) override;
    using GLWidget::MouseMove;
    bool MouseMove(float x, float y) override;
    void Render() override;
    std::string GetType() override { return "Slider"; }
    /// Half a knob to either side of the track and a whole one beyond its far end.
    Vector Getbbox() override;
    void SetFocussed(GLWidget*) override {}
    /// Over the widget's box grown by half a knob on every side.
    bool Within() override;

private:
    bool IsVertical() const { return extent.x == 0.0f; }
    float LevelAfterMove() const;
    void DrawTrack() const;
    void DrawKnob() const;

    static constexpr Vector kNowhere{-5.0f, -5.0f};
    Vector previous = kNowhere;  // mouse at the last move
    Vector extent;
};
