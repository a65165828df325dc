// A drawing surface over one rectangle of another context, so that what is drawn there in several steps reaches the
// screen in one copy, at the end of the scope.
#pragma once

#include "framework/Dc.h"

class CMenuMemDC : public CDC {
public:
    // Drawing goes on in the coordinates of `covered`, which outlives this object. Colours, modes and font are those of
    // a new context. On a printer, or where no surface can be had, drawing goes to the target itself.
    [[nodiscard]] CMenuMemDC(const CDC& covered, const CRect& rect);
    CMenuMemDC(const CMenuMemDC&) = delete;
    CMenuMemDC& operator=(const CMenuMemDC&) = delete;
    ~CMenuMemDC();

private:
    CBitmap bitmap;
    HGDIOBJ previousBitmap = nullptr;
    const CDC& target;
    CRect bounds;
    CMemoryContext surface; // empty where drawing goes to the target
};
