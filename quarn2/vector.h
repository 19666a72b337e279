// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <iosfwd>

/// Four floats: a position or size (x, y), a colour (red, green, blue, alpha) or a box
/// (left, bottom, right, top). w takes no part in arithmetic, so the sum of two colours keeps
/// the left one's alpha.
class Vector {
public:
    constexpr Vector() = default;
    constexpr Vector(float newX, float newY, float newZ = 0.0f, float newW = 1.0f)
        : x(newX), y(newY), z(newZ), w(newW) {}

    /// Copies all four components and returns a copy of the result.
    Vector Assign(float newX, float newY, float newZ, float newW);

    /// Add or subtract x, y and z; w is that of the left operand.
    Vector operator+(const Vector& v) const;
    Vector operator-(const Vector& v) const;
    Vector operator+=(const Vector& v);

    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
    float w = 1.0f;
};

/// Writes "(x, y, z, w)" with the stream's own number format.
std::ostream& operator<<(std::ostream& stream, const Vector& v);
