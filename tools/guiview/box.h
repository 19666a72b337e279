// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>

#include "quarn2/vector.h"

namespace guiview {

/// A rectangle of the screen in GUI units.
struct Box {
    float left = 0.0f;
    float bottom = 0.0f;
    float right = 0.0f;
    float top = 0.0f;

    float Width() const { return right - left; }
    float Height() const { return top - bottom; }
    Box Grown(float margin) const {
        return {left - margin, bottom - margin, right + margin, top + margin};
    }
};

inline Box BoxOf(const Vector& corners, const Vector& origin) {
    return {corners.x + origin.x, corners.y + origin.y, corners.z + origin.x, corners.w + origin.y};
}

/// The common part of both; its width or height is 0 or less if there is none.
inline Box Common(const Box& a, const Box& b) {
    return {std::max(a.left, b.left), std::max(a.bottom, b.bottom), std::min(a.right, b.right),
            std::min(a.top, b.top)};
}

/// GUI units per pixel on the game's screen: it is 600 pixels and 2.6 units high.
inline constexpr float kPixel = 2.6f / 600.0f;
/// Less than half a pixel cannot be seen.
inline constexpr float kTolerance = kPixel / 2.0f;

inline bool Meet(const Box& a, const Box& b) {
    const Box common = Common(a, b);
    return common.Width() > kTolerance && common.Height() > kTolerance;
}

inline bool Encloses(const Box& outer, const Box& inner) {
    const Box room = outer.Grown(kTolerance);
    return room.left <= inner.left && room.bottom <= inner.bottom && room.right >= inner.right
           && room.top >= inner.top;
}

}  // namespace guiview
