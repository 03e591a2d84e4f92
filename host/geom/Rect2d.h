#pragma once

#include "host/core/Vector.h"

#include <algorithm>

/// host/geom: axis-aligned boxes.
namespace geom {

/// A closed rectangle given by its edges: width = right - left, height = bottom - top ("top" is the smaller y).
/// Any four numbers may be stored; a rectangle whose edges are crossed is not valid and holds no point.
struct Rect2d
{
    constexpr Rect2d() = default;
    constexpr Rect2d(double left_, double top_, double right_, double bottom_)
        : left(left_), top(top_), right(right_), bottom(bottom_)
    {}
    constexpr Rect2d(const core::vec2& topLeft_, const core::vec2& bottomRight_)
        : Rect2d(topLeft_.x, topLeft_.y, bottomRight_.x, bottomRight_.y)
    {}

    constexpr bool isValid() const { return right >= left && bottom >= top; }
    /// A single point: both extents are exactly zero.
    constexpr bool isNull() const { return right == left && bottom == top; }
    /// Rectangles that only touch do intersect.
    constexpr bool intersects(const Rect2d& other) const { return intersection(other).isValid(); }
    /// Not valid when the two have no point in common.
    constexpr Rect2d intersection(const Rect2d& other) const
    {
        return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
                std::min(bottom, other.bottom)};
    }

    constexpr core::vec2 center() const { return {(left + right) / 2.0, (top + bottom) / 2.0}; }
    constexpr core::vec2 topLeft() const { return {left, top}; }
    constexpr core::vec2 bottomLeft() const { return {left, bottom}; }
    constexpr core::vec2 topRight() const { return {right, top}; }
    constexpr core::vec2 bottomRight() const { return {right, bottom}; }
    constexpr double width() const { return right - left; }
    constexpr double height() const { return bottom - top; }

    // A corner moves the two edges that meet in it, an extent moves the right or the bottom edge.
    constexpr void setTopLeft(const core::vec2& corner) { left = corner.x, top = corner.y; }
    constexpr void setBottomLeft(const core::vec2& corner) { left = corner.x, bottom = corner.y; }
    constexpr void setTopRight(const core::vec2& corner) { right = corner.x, top = corner.y; }
    constexpr void setBottomRight(const core::vec2& corner) { right = corner.x, bottom = corner.y; }
    constexpr void setWidth(double width) { right = left + width; }
    constexpr void setHeight(double height) { bottom = top + height; }

    /// Exact comparison of the four edges.
    friend constexpr bool operator==(const Rect2d&, const Rect2d&) = default;

    /// Both corners as one line of HTML for the message window.
    std::string toText() const;

    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;
};

} // namespace geom
