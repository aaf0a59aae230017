#pragma once

#include <algorithm>
#include <cstdint>

struct PegPoint {
    std::int16_t x = 0;
    std::int16_t y = 0;

    friend constexpr bool operator==(const PegPoint&, const PegPoint&) = default;
};

/// A rectangle on the screen; both edges belong to it, so that 0 to 319 is 320 pixels wide.
struct PegRect {
    std::int16_t left = 0;
    std::int16_t top = 0;
    std::int16_t right = 0;
    std::int16_t bottom = 0;

    constexpr int Width() const { return right - left + 1; }
    constexpr int Height() const { return bottom - top + 1; }
    constexpr bool IsEmpty() const { return left > right || top > bottom; }

    constexpr bool Contains(PegPoint point) const {
        return left <= point.x && point.x <= right && top <= point.y && point.y <= bottom;
    }
    constexpr bool Contains(const PegRect& other) const {
        return left <= other.left && other.right <= right && top <= other.top && other.bottom <= bottom;
    }
    constexpr bool Overlaps(const PegRect& other) const {
        return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
    }

    constexpr void IntersectWith(const PegRect& other) {
        left = std::max(left, other.left);
        top = std::max(top, other.top);
        right = std::min(right, other.right);
        bottom = std::min(bottom, other.bottom);
    }
    constexpr void UniteWith(const PegRect& other) {
        left = std::min(left, other.left);
        top = std::min(top, other.top);
        right = std::max(right, other.right);
        bottom = std::max(bottom, other.bottom);
    }
    constexpr void Shift(int dx, int dy) {
        left = static_cast<std::int16_t>(left + dx);
        top = static_cast<std::int16_t>(top + dy);
        right = static_cast<std::int16_t>(right + dx);
        bottom = static_cast<std::int16_t>(bottom + dy);
    }
    constexpr void MoveTo(int x, int y) { Shift(x - left, y - top); }

    friend constexpr bool operator==(const PegRect&, const PegRect&) = default;
};

/// A rectangle from whole numbers, cut to the 16 bits of a coordinate.
constexpr PegRect RectOf(int left, int top, int right, int bottom) {
    return {static_cast<std::int16_t>(left), static_cast<std::int16_t>(top), static_cast<std::int16_t>(right),
            static_cast<std::int16_t>(bottom)};
}

constexpr PegPoint PointOf(int x, int y) { return {static_cast<std::int16_t>(x), static_cast<std::int16_t>(y)}; }

constexpr PegRect Intersection(PegRect a, const PegRect& b) {
    a.IntersectWith(b);
    return a;
}

/// The rectangle without `inset` pixels on each side.
constexpr PegRect Inset(const PegRect& rect, int inset) {
    return RectOf(rect.left + inset, rect.top + inset, rect.right - inset, rect.bottom - inset);
}
