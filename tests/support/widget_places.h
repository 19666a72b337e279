// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <string>
#include <vector>

/// Where a click hits a widget, in window pixels from the top left, borders included.
struct WidgetPlace {
    int left, top, right, bottom;
};

/// Finds the widgets that a player can reach now: moves the mouse over an 800 by 600 window and
/// looks which widgets get the focus. By tag.
std::map<std::string, WidgetPlace> ReachableWidgets();

/// Presses and releases the left mouse button in the middle of a place.
void ClickAt(const WidgetPlace& place);

/// Moves the mouse into the middle of a place.
void MoveToMiddle(const WidgetPlace& place);

/// The tags of all buttons that open a tab.
std::vector<std::string> TabButtons();
