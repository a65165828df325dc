// Points, sizes and rectangles: the Win32 structures with constructors and the few operations that drawing code asks
// for. Members are assigned where analysis loses track of a base's braces.
#pragma once

#include <windows.h>

struct CPoint : POINT {
    CPoint() : POINT{0, 0} {}
    CPoint(LONG left, LONG top) : POINT() {
        x = left;
        y = top;
    }
    CPoint(const POINT& point) : POINT(point) {} // NOLINT(google-explicit-constructor): a POINT is a point

    bool operator==(const CPoint& other) const { return x == other.x && y == other.y; }
};

struct CSize : SIZE {
    CSize() : SIZE{0, 0} {}
    CSize(LONG width, LONG height) : SIZE() {
        cx = width;
        cy = height;
    }

    bool operator==(const CSize& other) const { return cx == other.cx && cy == other.cy; }
};

// Right and bottom edges lie outside, as everywhere in Win32.
struct CRect : RECT {
    CRect() : RECT{0, 0, 0, 0} {}
    CRect(LONG leftEdge, LONG topEdge, LONG rightEdge, LONG bottomEdge)
        : RECT{leftEdge, topEdge, rightEdge, bottomEdge} {}
    CRect(const RECT& rect) : RECT(rect) {} // NOLINT(google-explicit-constructor): a RECT is a rectangle

    LONG Width() const { return right - left; }
    LONG Height() const { return bottom - top; }
    CSize Size() const { return {Width(), Height()}; }
    CPoint TopLeft() const { return {left, top}; }
    bool Contains(CPoint point) const { return ::PtInRect(this, point) != FALSE; }
    void Offset(LONG dx, LONG dy) { ::OffsetRect(this, dx, dy); }
    void Inflate(LONG dx, LONG dy) { ::InflateRect(this, dx, dy); }

    bool operator==(const CRect& other) const { return ::EqualRect(this, &other) != FALSE; }
};
