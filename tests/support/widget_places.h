// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <string>
#include <vector>

/// Where a widget can be hit, in window pixels from the top left, borders included.
struct WidgetPlace {
    int left, top, right, bottom;
};

/// Finds the widgets that can be reached now the way a player finds them: by moving the mouse
/// over an 800 by 600 window and looking which widgets notice. By tag.
std::map<std::string, WidgetPlace> ReachableWidgets();

/// Presses and releases the left mouse button in the middle of a place.
void ClickAt(const WidgetPlace& place);

/// Moves the mouse there.
void MoveToMiddle(const WidgetPlace& place);

/// The buttons with which tab windows show their tabs, by tag.
std::vector<std::string> TabButtons();
