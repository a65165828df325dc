// Points, sizes and rectangles: the platform's structures with constructors and the few operations that drawing and
// layout ask for. Where there is no such platform, plain structures of the same form stand in for them. Members are
// assigned where analysis loses track of a base's braces.
#pragma once

#ifdef _WIN32
#include <windows.h>
#else
#include <cstdint>

using LONG = std::int32_t;
struct POINT {
    LONG x, y;
};
struct SIZE {
    LONG cx, cy;
};
struct RECT {
    LONG left, top, right, bottom;
};
#endif

struct CPoint : POINT {
    constexpr CPoint() : POINT{0, 0} {}
    constexpr CPoint(LONG left, LONG top) : POINT() {
        x = left;
        y = top;
    }
    constexpr CPoint(const POINT& point) : POINT(point) {} // NOLINT(google-explicit-constructor): a POINT is a point

    bool operator==(const CPoint& other) const { return x == other.x && y == other.y; }
};

struct CSize : SIZE {
    constexpr CSize() : SIZE{0, 0} {}
    constexpr CSize(LONG width, LONG height) : SIZE() {
        cx = width;
        cy = height;
    }

    bool operator==(const CSize& other) const { return cx == other.cx && cy == other.cy; }
};

// Right and bottom edges lie outside, as everywhere in Win32.
struct CRect : RECT {
    constexpr CRect() : RECT{0, 0, 0, 0} {}
    constexpr CRect(LONG leftEdge, LONG topEdge, LONG rightEdge, LONG bottomEdge)
        : RECT{leftEdge, topEdge, rightEdge, bottomEdge} {}
    constexpr CRect(const RECT& rect) : RECT(rect) {} // NOLINT(google-explicit-constructor): a RECT is a rectangle

    // By its left and top edges and its extent.
    static constexpr CRect Sized(LONG left, LONG top, LONG width, LONG height) {
        return {left, top, left + width, top + height};
    }

    constexpr int Width() const { return right - left; }
    constexpr int Height() const { return bottom - top; }
    CPoint TopLeft() const { return {left, top}; }
    // Without an area, or turned inside out.
    bool IsEmpty() const { return Width() <= 0 || Height() <= 0; }
    bool Contains(CPoint point) const {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    CRect Moved(LONG dx, LONG dy) const { return {left + dx, top + dy, right + dx, bottom + dy}; }
    CRect Inflated(LONG dx, LONG dy) const { return {left - dx, top - dy, right + dx, bottom + dy}; }
    void Offset(LONG dx, LONG dy) { *this = Moved(dx, dy); }
    void Inflate(LONG dx, LONG dy) { *this = Inflated(dx, dy); }

    // All edges alike, be the rectangles empty or not.
    bool operator==(const CRect& other) const {
        return left == other.left && top == other.top && right == other.right && bottom == other.bottom;
    }
};
