// Device contexts, their guards and the owners of GDI objects: what is brought back, and that nothing leaks.
#include "framework/Dc.h"

#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "Repeats.h"
#include "framework/Wnd.h"

namespace {

constexpr COLORREF white = RGB(255, 255, 255);

// A small white drawing surface.
class CSurface : public CMemoryDC {
public:
    CSurface() : CMemoryDC(nullptr), bitmap(::CreateBitmap(width, height, 1, 32, nullptr)) {
        former = ::SelectObject(GetHandle(), bitmap.GetHandle());
        FillSolidRect({0, 0, width, height}, white);
    }
    CSurface(const CSurface&) = delete;
    CSurface& operator=(const CSurface&) = delete;
    ~CSurface() { ::SelectObject(GetHandle(), former); }

    COLORREF Pixel(int x, int y) const { return ::GetPixel(GetHandle(), x, y); }
    std::vector<COLORREF> Pixels() const {
        std::vector<COLORREF> pixels(width * height);
        for (int i = 0; i < width * height; ++i) pixels[static_cast<std::size_t>(i)] = Pixel(i % width, i / width);
        return pixels;
    }

    static constexpr int width = 40, height = 20;

private:
    CBitmap bitmap;
    HGDIOBJ former = nullptr;
};

// More rounds than a process may have GDI handles, so one handle lost in each exhausts them.
TEST(Gdi, NothingLeaksInTwentyThousandPaints) {
    LOGFONTW description{};
    description.lfHeight = 12;
    for (int round = 0; round < Repeats(20'000); ++round) {
        const CClientDC screen(nullptr);
        const CMemoryDC memory(screen.GetHandle());
        CBitmap bitmap(::CreateBitmap(4, 4, 1, 1, nullptr));
        bitmap = CBitmap(::CreateBitmap(8, 8, 1, 1, nullptr));
        const CPen pen(PS_SOLID, 1, RGB(round % 256, 1, 2));
        const CBrush brush(RGB(1, round % 256, 2));
        const CFont font(description);
        const CRgn region(::CreateRectRgn(0, 0, 4, 4));
        for (const HGDIOBJ handle : {HGDIOBJ{screen.GetHandle()}, HGDIOBJ{memory.GetHandle()}, HGDIOBJ{pen.GetHandle()},
                                     HGDIOBJ{bitmap.GetHandle()}, HGDIOBJ{brush.GetHandle()}, HGDIOBJ{font.GetHandle()},
                                     HGDIOBJ{region.GetHandle()}}) {
            ASSERT_NE(handle, nullptr) << round;
        }
        const CSelectObject surface(memory, bitmap.GetHandle());
        const CSavedDC saved(memory);
        const CSelectObject withPen(memory, pen.GetHandle());
        ::SelectObject(memory.GetHandle(), brush.GetHandle()); // brought back by the saved state
        ::SelectObject(memory.GetHandle(), font.GetHandle());
        ::SelectClipRgn(memory.GetHandle(), region.GetHandle());
    }
}

TEST(Gdi, GuardsBringTheStateBack) {
    CSurface surface;
    const HDC dc = surface.GetHandle();
    const CPen pen(PS_SOLID, 1, RGB(255, 0, 0));
    const HGDIOBJ former = ::GetCurrentObject(dc, OBJ_PEN);
    {
        const CSavedDC saved(surface);
        surface.SetTextColor(RGB(2, 2, 2));
        surface.SetBkMode(TRANSPARENT);
        const CSelectObject selected(surface, pen.GetHandle());
        const CSelectObject nothing(surface, nullptr);
        EXPECT_EQ(::GetCurrentObject(dc, OBJ_PEN), pen.GetHandle());
    }
    EXPECT_EQ(::GetCurrentObject(dc, OBJ_PEN), former);
    EXPECT_EQ(::GetTextColor(dc), RGB(0, 0, 0));
    EXPECT_EQ(::GetBkMode(dc), OPAQUE);
}

TEST(Gdi, FramesAndFillingsEndAtTheirEdges) {
    constexpr COLORREF face = RGB(9, 9, 9), light = RGB(200, 0, 0), dark = RGB(0, 0, 200), ground = RGB(7, 7, 7);
    CSurface surface;
    surface.SetBkColor(ground);
    surface.FillSolidRect({2, 2, 9, 8}, face);
    surface.Draw3dRect({2, 2, 9, 8}, light, dark);
    EXPECT_EQ(::GetBkColor(surface.GetHandle()), ground);
    const std::tuple<int, int, COLORREF> cases[] = {
        {2, 2, light}, {7, 2, light}, {2, 6, light}, {8, 2, dark},  {8, 7, dark},  {2, 7, dark}, {3, 3, face},
        {7, 6, face},  {1, 2, white}, {2, 1, white}, {9, 7, white}, {8, 8, white}, {9, 8, white}};
    for (const auto& [x, y, color] : cases) EXPECT_EQ(surface.Pixel(x, y), color) << x << ',' << y;
}

TEST(Gdi, TextIsDrawnAndMeasuredAsUtf8) {
    LOGFONTW description{};
    description.lfHeight = -16;
    description.lfCharSet = GB2312_CHARSET;
    const CFont font(description);
    const auto draw = [&](std::string_view text, bool inRect) {
        CSurface surface;
        const CSelectObject selected(surface, font.GetHandle());
        CRect rect(0, 0, CSurface::width, CSurface::height);
        if (inRect) surface.DrawText(text, rect, DT_SINGLELINE);
        if (!inRect) surface.TextOut(0, 0, text);
        return surface.Pixels();
    };
    for (const bool inRect : {true, false}) {
        // A missing glyph's box, or a question mark, would stand for both.
        const auto picture = draw("中", inRect);
        for (const char* other : {"文", "?", "\xE4\xB8", ""}) EXPECT_NE(draw(other, inRect), picture) << other;
    }
    CSurface surface;
    const CSelectObject selected(surface, font.GetHandle());
    const CSize one = surface.GetTextExtent("中"), two = surface.GetTextExtent("中文");
    EXPECT_EQ(two.cx, 2 * one.cx);
    CRect measured(5, 5, 5, 5);
    EXPECT_EQ(surface.DrawText("中文", measured, DT_CALCRECT | DT_SINGLELINE), one.cy);
    EXPECT_EQ(measured, CRect(5, 5, 5 + two.cx, 5 + one.cy));
}

} // namespace
