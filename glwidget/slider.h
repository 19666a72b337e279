// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "glwidget/glwidget.h"

/// `Slide width height`, one of them 0 and the other above 0: a knob on a straight track. The value
/// is `level`, a fraction of the track, 0.5 at first; dragging keeps it strictly between 0 and 1.
/// The application polls it.
class Slider : public GLWidget {
public:
    /// @param position  start of the track; the widget's own position is half a knob below it
    /// @param extent  the track: (length, 0) is horizontal, (0, length) vertical. With both
    ///     set it is horizontal.
    Slider(const std::string& name, GLWidget* parent, const Vector& position, Theme* theme,
           const Vector& extent);

    bool MouseClick(bool left, bool middle, bool right) override;
    using GLWidget::MouseMove;
    bool MouseMove(float x, float y) override;
    void Render() override;
    void AddAppearance(Fingerprint& print) override;
    std::string GetType() override { return "Slider"; }
    /// Half a knob to either side of the track and a whole one beyond its far end.
    Vector Getbbox() override;
    void SetFocussed(GLWidget*) override {}
    /// Over GrabBox.
    bool Within() override;

    // Boxes in the parent's coordinates, as Getbbox gives them; each is another one.
    /// Where the mouse can take hold of the slider: its position and size and half a knob around
    /// them.
    Vector GrabBox() const;
    /// All that the slider ever draws: the track, and the knob at both of its ends.
    Vector DrawnBox() const;

private:
    bool IsVertical() const { return extent.x == 0.0f; }
    /// The track's line from its start (x, y) to its end (z, w).
    Vector Track() const;
    /// Where the picture of the knob begins at a level: the lower left corner of the knob, but on
    /// a vertical track, where the picture is turned to the left, the lower right one.
    Vector KnobCorner(float atLevel) const;
    Vector KnobBox(float atLevel) const;
    float LevelAfterMove() const;
    void DrawTrack() const;
    void DrawKnob() const;

    static constexpr Vector kNowhere{-5.0f, -5.0f};
    Vector previous = kNowhere;  // mouse at the last move
    Vector extent;
};
