// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <vector>

/// A real OpenGL window for tests that draw. Opens on construction and aborts the test
/// program with a message if there is no display, so that no drawing test passes without one.
class GLWindowForTests {
public:
    explicit GLWindowForTests(int pixelsWide = 800, int pixelsHigh = 600);
    ~GLWindowForTests();
    GLWindowForTests(const GLWindowForTests&) = delete;
    GLWindowForTests& operator=(const GLWindowForTests&) = delete;

    /// Four bytes per pixel (red, green, blue, alpha), bottom row first, of the back buffer.
    std::vector<std::uint8_t> Pixels() const;

    /// The pixel `x` from the left and `y` from the bottom.
    struct Pixel {
        std::uint8_t red, green, blue, alpha;
    };
    Pixel At(int x, int y) const;

private:
    int width;
    int height;
};
