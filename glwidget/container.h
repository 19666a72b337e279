// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <vector>

#include "quarn2/vector.h"

class Button;
class Fingerprint;
class GLWidget;
class Theme;

/// What all widgets that hold others have in common.
namespace container {

/// In the order in which they get events; not owned.
using Children = std::vector<GLWidget*>;

/// Hands a click to every child in order. If unique children were clicked, all other children are
/// told of the last of them, unique or not: containers among them tell their children, so that a
/// group of options includes those in nested containers.
void Click(const Children& children, bool left, bool middle, bool right);

/// Hands a mouse position, in the children's coordinates, to every child in order.
void MoveMouse(const Children& children, float x, float y);

/// Tells every child that `other` became the active one.
void PassFocussed(const Children& children, GLWidget* other);

/// Whether one of the children has the focus.
bool AnyHasFocus(const Children& children);

/// Draws the children around the model-view origin in two layers: depth above -0.5 first, then
/// depth below -0.5, so that an open list covers its neighbours.
void Render(const Children& children);

/// Adds what Render would draw.
void AddAppearance(const Children& children, Fingerprint& print);

/// Fills an outline around the model-view origin, then draws its edges. Blending is switched on
/// between the two: the first panel of a picture is filled opaque. With an opacity of 0 nothing
/// else is drawn.
void DrawPanel(const Theme& theme, float brightness, float width, float height, float cut);

/// The area in which a window's children may be dragged.
Vector ValidArea(const Vector& position, const Vector& size, const Theme& theme);

}  // namespace container

/// Deletes a widget that another widget owns, and clears its tag.
struct UnregisterAndDelete {
    void operator()(GLWidget* widget) const;
};

/// A button that is a part of another widget.
using OwnedButton = std::unique_ptr<Button, UnregisterAndDelete>;
