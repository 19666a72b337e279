// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#include "tools/guiart/shapes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace shape {

namespace {

float Length(Point p) {
    return std::sqrt(p.x * p.x + p.y * p.y);
}

float Dot(Point a, Point b) {
    return a.x * b.x + a.y * b.y;
}

Point Minus(Point a, Point b) {
    return {a.x - b.x, a.y - b.y};
}

float ToSegment(Point p, Point from, Point to) {
    const Point along = Minus(to, from);
    const Point offset = Minus(p, from);
    const float position = std::clamp(Dot(offset, along) / Dot(along, along), 0.0f, 1.0f);
    return Length({offset.x - position * along.x, offset.y - position * along.y});
}

}  // namespace

float Disc(Point p, Point centre, float radius) {
    return Length(Minus(p, centre)) - radius;
}

float Ellipse(Point p, Point centre, Point radii) {
    const Point scaled{(p.x - centre.x) / radii.x, (p.y - centre.y) / radii.y};
    return (Length(scaled) - 1.0f) * std::min(radii.x, radii.y);
}

float RoundedBox(Point p, Point centre, Point halfSides, float cornerRadius) {
    const Point beyond{std::fabs(p.x - centre.x) - (halfSides.x - cornerRadius),
                       std::fabs(p.y - centre.y) - (halfSides.y - cornerRadius)};
    const Point outside{std::max(beyond.x, 0.0f), std::max(beyond.y, 0.0f)};
    return Length(outside) + std::min(std::max(beyond.x, beyond.y), 0.0f) - cornerRadius;
}

float Stroke(Point p, Point from, Point to, float halfWidth) {
    return ToSegment(p, from, to) - halfWidth;
}

float Path(Point p, std::initializer_list<Point> points, float halfWidth) {
    float nearest = std::numeric_limits<float>::max();
    for (const Point* point = points.begin(); point + 1 < points.end(); ++point)
        nearest = std::min(nearest, ToSegment(p, point[0], point[1]));
    return nearest - halfWidth;
}

float Polygon(Point p, std::span<const Point> corners) {
    float nearest = std::numeric_limits<float>::max();
    bool inside = false;
    Point from = corners.back();
    for (const Point& to : corners) {
        nearest = std::min(nearest, ToSegment(p, from, to));
        const bool crosses = (from.y > p.y) != (to.y > p.y);
        if (crosses && p.x < (to.x - from.x) * (p.y - from.y) / (to.y - from.y) + from.x)
            inside = !inside;
        from = to;
    }
    return inside ? -nearest : nearest;
}

float Polygon(Point p, std::initializer_list<Point> corners) {
    return Polygon(p, std::span(corners.begin(), corners.size()));
}

float Coverage(float distance) {
    return std::clamp(0.5f - distance, 0.0f, 1.0f);
}

}  // namespace shape
