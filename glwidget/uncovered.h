// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <span>

/// Whole pixels of the window, from the lower left; `right` and `top` are the first beyond it.
struct PixelBox {
    int left, bottom, right, top;

    bool operator==(const PixelBox&) const = default;
};

/// What can still be seen of the window after boxes cover parts of it. It allocates nothing.
class Uncovered {
public:
    Uncovered(int width, int height);

    /// A box that would leave more boxes than there is room for covers only a part of itself, or
    /// nothing: what can be seen is never left out.
    void Cover(const PixelBox& box);

    /// Boxes without common pixels.
    std::span<const PixelBox> Boxes() const { return {boxes.data(), count}; }

private:
    static constexpr std::size_t kMaxBoxes = 64;

    std::array<PixelBox, kMaxBoxes> boxes;
    std::size_t count = 0;
};
