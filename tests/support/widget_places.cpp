// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tests/support/widget_places.h"

#include <algorithm>

#include "glwidget/glwidget.h"

namespace {

constexpr int kWidth = 800;
constexpr int kHeight = 600;
constexpr int kStep = 2;  // pixels; every widget is thicker

void MoveTo(int x, int y) {
    GLWidget::MouseMoveWidgets(Vector(static_cast<float>(x), static_cast<float>(y)));
}

}  // namespace

std::map<std::string, WidgetPlace> ReachableWidgets() {
    std::map<std::string, WidgetPlace> places;
    for (int y = 0; y < kHeight; y += kStep) {
        for (int x = 0; x < kWidth; x += kStep) {
            MoveTo(x, y);
            for (const auto& [tag, widget] : GLWidget::tags) {
                if (widget == nullptr || !widget->HasFocus())
                    continue;
                WidgetPlace& place = places.try_emplace(tag, WidgetPlace{x, y, x, y}).first->second;
                place.left = std::min(place.left, x);
                place.right = std::max(place.right, x);
                place.bottom = y;
            }
        }
    }
    return places;
}

void MoveToMiddle(const WidgetPlace& place) {
    MoveTo((place.left + place.right) / 2, (place.top + place.bottom) / 2);
}

void ClickAt(const WidgetPlace& place) {
    MoveToMiddle(place);
    GLWidget::MouseClickWidgets(true, false, false);
    GLWidget::MouseClickWidgets(false, false, false);
}

std::vector<std::string> TabButtons() {
    std::vector<std::string> buttons;
    for (const auto& [windowTag, window] : GLWidget::tags)
        if (window != nullptr && window->GetType() == "TabWindow")
            for (const auto& [tag, widget] : GLWidget::tags)
                if (widget != nullptr && tag.starts_with("__" + windowTag + "tab"))
                    buttons.push_back(tag);
    return buttons;
}
