#pragma once

#include "host/core/Vector.h"

#include <algorithm>

namespace geom {

/// A closed box given by its faces: width = right - left (x), height = bottom - top (y), depth = back - front (z).
/// Any six numbers may be stored; a box whose faces are crossed is not valid and holds no point.
struct Rect3d
{
    constexpr Rect3d() = default;
    constexpr Rect3d(double left_, double top_, double front_, double right_, double bottom_, double back_)
        : left(left_), top(top_), front(front_), right(right_), bottom(bottom_), back(back_)
    {}
    constexpr Rect3d(const core::vec3& topLeftFront_, const core::vec3& bottomRightBack_)
        : Rect3d(topLeftFront_.x, topLeftFront_.y, topLeftFront_.z, bottomRightBack_.x, bottomRightBack_.y,
                 bottomRightBack_.z)
    {}

    constexpr bool isValid() const { return right >= left && bottom >= top && back >= front; }
    /// A single point: all extents are exactly zero.
    constexpr bool isNull() const { return right == left && bottom == top && back == front; }
    /// Boxes that only touch do intersect.
    constexpr bool intersects(const Rect3d& other) const { return intersection(other).isValid(); }
    /// Not valid when the two have no point in common.
    constexpr Rect3d intersection(const Rect3d& other) const
    {
        return {std::max(left, other.left),   std::max(top, other.top),       std::max(front, other.front),
                std::min(right, other.right), std::min(bottom, other.bottom), std::min(back, other.back)};
    }

    constexpr core::vec3 center() const { return {(left + right) / 2.0, (top + bottom) / 2.0, (front + back) / 2.0}; }
    constexpr core::vec3 topLeftFront() const { return {left, top, front}; }
    constexpr core::vec3 bottomRightBack() const { return {right, bottom, back}; }
    constexpr double width() const { return right - left; }
    constexpr double height() const { return bottom - top; }
    constexpr double depth() const { return back - front; }

    // An extent moves the right, the bottom or the back face.
    constexpr void setWidth(double width) { right = left + width; }
    constexpr void setHeight(double height) { bottom = top + height; }
    constexpr void setDepth(double depth) { back = front + depth; }

    /// Exact comparison of the six faces.
    friend constexpr bool operator==(const Rect3d&, const Rect3d&) = default;

    /// Both corners as one line of HTML for the message window.
    std::string toText() const;

    double left = 0.0;
    double top = 0.0;
    double front = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    double back = 0.0;
};

} // namespace geom
