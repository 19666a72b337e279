// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>

/// A copy of what was drawn into the viewport, which can be drawn again pixel for pixel. Needs the
/// same OpenGL context from first to last. Neither operation changes state or matrices. Deletes
/// nothing.
class KeptPicture {
public:
    /// Copies the viewport's pixels. A texture for them is made the first time and when the
    /// viewport has become larger than it.
    /// @return false if OpenGL cannot keep them: there is no such large or exact texture
    [[nodiscard]] bool Keep();

    /// Draws what Keep has copied over the whole viewport.
    /// @return false, without drawing, if nothing is kept or the viewport is another one
    [[nodiscard]] bool Draw() const;

private:
    /// x, y, width and height in pixels.
    using Viewport = std::array<std::int32_t, 4>;

    static Viewport CurrentViewport();
    bool MakeTexture(std::int32_t width, std::int32_t height);

    std::uint32_t texture = 0;
    std::int32_t textureWidth = 0;  // powers of two
    std::int32_t textureHeight = 0;
    bool refused = false;  // no texture can be made
    Viewport kept{};       // all 0 if there is no picture
};
