// SPDX-FileCopyrightText: 2026 The Merovinska founders
// SPDX-License-Identifier: MIT

#pragma once

#include <initializer_list>
#include <span>

/// A point of a picture in pixels, y upwards.
struct Point {
    float x, y;
};

/// Distances to a shape's edge in pixels, negative inside. The distance to a union of shapes is the
/// smallest of theirs.
namespace shape {

float Disc(Point p, Point centre, float radius);
/// An approximation: exact on the edge, and good for a few pixels around it.
float Ellipse(Point p, Point centre, Point radii);
float RoundedBox(Point p, Point centre, Point halfSides, float cornerRadius);
/// A line with round ends.
float Stroke(Point p, Point from, Point to, float halfWidth);
/// A line through all the points.
float Path(Point p, std::initializer_list<Point> points, float halfWidth);
/// @param corners  clockwise or not; the last is joined to the first
float Polygon(Point p, std::span<const Point> corners);
float Polygon(Point p, std::initializer_list<Point> corners);

/// The share of a pixel that is inside, from the distance of its centre to the edge.
float Coverage(float distance);

}  // namespace shape
