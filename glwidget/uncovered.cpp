// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "glwidget/uncovered.h"

#include <algorithm>

Uncovered::Uncovered(int width, int height) {
    if (width > 0 && height > 0)
        boxes[count++] = {0, 0, width, height};
}

void Uncovered::Cover(const PixelBox& box) {
    constexpr std::size_t kSides = 4;
    for (std::size_t i = count; i-- > 0;) {
        const PixelBox old = boxes[i];
        const PixelBox common{std::max(old.left, box.left), std::max(old.bottom, box.bottom),
                              std::min(old.right, box.right), std::min(old.top, box.top)};
        if (common.left >= common.right || common.bottom >= common.top)
            continue;
        if (count - 1 + kSides > boxes.size())
            return;
        boxes[i] = boxes[--count];
        const PixelBox sides[kSides] = {{old.left, common.top, old.right, old.top},
                                        {old.left, old.bottom, old.right, common.bottom},
                                        {old.left, common.bottom, common.left, common.top},
                                        {common.right, common.bottom, old.right, common.top}};
        for (const PixelBox& side : sides) {
            if (side.left < side.right && side.bottom < side.top)
                boxes[count++] = side;
        }
    }
}
