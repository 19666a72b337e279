// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "quarn2/vector.h"

#include <ostream>

#include "quarn2/trace.h"

Vector Vector::Assign(float newX, float newY, float newZ, float newW) {
    TraceFrame frame("Vector", "Vector");
    x = newX;
    y = newY;
    z = newZ;
    w = newW;
    return *this;
}

Vector Vector::operator+(const Vector& v) const {
    TraceFrame frame("operator+", "Vector");
    return {x + v.x, y + v.y, z + v.z, w};
}

Vector Vector::operator-(const Vector& v) const {
    TraceFrame frame("operator-", "Vector");
    return {x - v.x, y - v.y, z - v.z, w};
}

Vector Vector::operator+=(const Vector& v) {
    TraceFrame frame("operator+=", "Vector");
    *this = *this + v;
    return *this;
}

std::ostream& operator<<(std::ostream& stream, const Vector& v) {
    TraceFrame frame("operator<<", "Vector");
    return stream << '(' << v.x << ", " << v.y << ", " << v.z << ", " << v.w << ')';
}
