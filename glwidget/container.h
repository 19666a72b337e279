// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <vector>

#include "quarn2/vector.h"

class Button;
class GLWidget;
class Theme;

/// What all widgets that hold others do alike.
namespace container {

/// In the order of every traversal; not owned.
using Children = std::vector<GLWidget*>;

/// Hands a click to every child in order. When a unique child was clicked, the last such one,
/// every other child is told, whatever its sort: containers among them tell theirs, so that a
/// group of options reaches into nested containers.
void Click(const Children& children, bool left, bool middle, bool right);

/// Hands a mouse position, in the children's coordinates, to every child in order.
void MoveMouse(const Children& children, float x, float y);

/// Tells every child that `other` became the active one.
void PassFocussed(const Children& children, GLWidget* other);

/// Whether one of the children has the focus.
bool AnyHasFocus(const Children& children);

/// Draws the children around the model-view origin in two layers, so that what is opened over
/// its neighbours lies on top: depth above -0.5 first, below -0.5 last.
void Render(const Children& children);

/// Fills an outline around the model-view origin, then draws its edges. Blending is on from
/// the edges on: what is filled before anything of the picture blends is opaque.
void DrawPanel(const Theme& theme, float brightness, float width, float height, float cut);

/// The area that a window's children may be dragged in, from the window's box.
Vector ValidArea(const Vector& position, const Vector& size, const Theme& theme);

}  // namespace container

/// Deletes a widget whose owner is another widget and clears the registry entry that still
/// leads to it.
struct UnregisterAndDelete {
    void operator()(GLWidget* widget) const;
};

/// A button that is a part of another widget.
using OwnedButton = std::unique_ptr<Button, UnregisterAndDelete>;
