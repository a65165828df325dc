// One row of an owner-drawn menu on a surface in memory, beside a second surface on which a test draws what it expects.
#pragma once

#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

#include "Pictures.h" // of the skin's tests: CSurface, ColorOf
#include "framework/Dc.h"
#include "menu/MenuFont.h"
#include "menu/OwnerDrawMenu.h"

// Brings the class-wide state of the menus back at its end, and starts with an empty store of images.
class CMenuSystem {
public:
    CMenuSystem() { Forget(); }
    CMenuSystem(const CMenuSystem&) = delete;
    CMenuSystem& operator=(const CMenuSystem&) = delete;
    ~CMenuSystem() {
        COwnerDrawMenu::windowsVersion = version;
        COwnerDrawMenu::lookOnThemedXp = themedLook;
        COwnerDrawMenu::lookOnOtherSystems = otherLook;
        COwnerDrawMenu::raisedImages = 1;
        COwnerDrawMenu::selectDisabledClassic = 1;
        Forget();
    }

    static void Use(WindowsVersion system, bool modern) {
        COwnerDrawMenu::windowsVersion = system;
        COwnerDrawMenu::lookOnThemedXp = COwnerDrawMenu::lookOnOtherSystems = modern ? 1 : 0;
    }
    static void Forget() {
        COwnerDrawMenu::sharedImages.DeleteImageList();
        COwnerDrawMenu::sharedImageIds.clear();
    }

private:
    std::int32_t version = COwnerDrawMenu::windowsVersion;
    std::int32_t themedLook = COwnerDrawMenu::lookOnThemedXp;
    std::int32_t otherLook = COwnerDrawMenu::lookOnOtherSystems;
};

// A list of images of 16 by 15, the left half of each in its colour, the right half transparent.
inline CImageList HalfImages(std::initializer_list<COLORREF> imageColors) {
    CImageList list;
    list.Create(16, 15, ILC_COLORDDB | ILC_MASK, 1, 1);
    for (const COLORREF color : imageColors) {
        const CClientDC screen(nullptr);
        const CBitmap bitmap(::CreateCompatibleBitmap(screen.GetHandle(), 16, 15));
        {
            CMemoryDC dc(screen.GetHandle());
            const CSelectObject selected(dc, bitmap.GetHandle());
            dc.FillSolidRect({0, 0, 16, 15}, ColorOf('.'));
            dc.FillSolidRect({0, 0, 8, 15}, color);
        }
        list.AddMasked(bitmap.GetHandle(), ColorOf('.'));
    }
    return list;
}

class MenuRow : public testing::Test {
protected:
    static constexpr int width = 214;
    static constexpr int height = 32;
    static constexpr char ground = '#';
    static constexpr COLORREF dark = RGB(100, 20, 30); // of images

    MenuRow() { menu.CreatePopupMenu(); }

    // Paints the item's row of 200 by 24, and compares the whole surface with what `draw` puts on another one. There,
    // the row begins at 0, 0.
    template <class Draw>
    void ExpectRow(CMenuItemRecord& record, UINT state, Draw draw) {
        SCOPED_TRACE("state " + std::to_string(state) + ", system " + std::to_string(COwnerDrawMenu::windowsVersion));
        Paint(surface, record, state);
        CSurface expected(width, height, ground);
        ::SetViewportOrgEx(expected.GetHandle(), 7, 5, nullptr);
        expected.SetBkMode(TRANSPARENT);
        draw(expected);
        ::SetViewportOrgEx(expected.GetHandle(), 0, 0, nullptr);
        const auto shown = surface.Pixels();
        const auto wanted = expected.Pixels();
        for (std::size_t i = 0; i < wanted.size(); ++i) {
            ASSERT_EQ(shown[i], wanted[i])
                << "at " << static_cast<int>(i) % width - 7 << ", " << static_cast<int>(i) / width - 5;
        }
    }
    void Paint(CSurface& on, CMenuItemRecord& record, UINT state) {
        on.FillSolidRect({0, 0, width, height}, ColorOf(ground));
        DRAWITEMSTRUCT item = ItemOf(record, state, on.GetHandle());
        menu.DrawItem(item);
        stateAfter = item.itemState;
    }
    DRAWITEMSTRUCT ItemOf(const CMenuItemRecord& record, UINT state, HDC dc) const {
        DRAWITEMSTRUCT item{};
        item.CtlType = ODT_MENU;
        item.itemID = static_cast<UINT>(record.id);
        item.itemAction = ODA_DRAWENTIRE;
        item.itemState = state;
        item.hwndItem = reinterpret_cast<HWND>(menu.GetHandle());
        item.hDC = dc;
        item.rcItem = {7, 5, 207, 29};
        item.itemData = record.GetItemData();
        return item;
    }
    CMenuItemRecord& Append(const wchar_t* text, UINT_PTR id = 400) {
        menu.AppendItem(text, MF_STRING, id, -1);
        return *menu.itemRecords.back();
    }
    CMenuItemRecord& AppendWithList(const CImageList& images) {
        menu.AppendItem(L"", MF_STRING, 401, &images, 0);
        return *menu.itemRecords.back();
    }

    static COLORREF Sys(int index) { return ::GetSysColor(index); }
    static COLORREF Tint(int index, double factor) { return COwnerDrawMenu::BlendTowardWhite(Sys(index), factor); }
    static void Frame(const CDC& dc, const CRect& rect, COLORREF color) {
        const CBrush brush(color);
        ::FrameRect(dc.GetHandle(), &rect, brush.GetHandle());
    }
    static void Text(CDC& dc, const wchar_t* text, CRect rect, COLORREF color, UINT align = DT_LEFT) {
        dc.SetTextColor(color);
        dc.DrawText(std::wstring_view(text), rect, DT_SINGLELINE | DT_VCENTER | align);
    }
    static void Tick(CDC& dc, int left, int top) {
        const Art tick{"......#", ".....##", "#...###", "##.###.", "#####..", ".###...", "..#...."};
        for (int y = 0; y < 7; ++y) {
            for (int x = 0; x < 7; ++x) {
                if (tick[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] == '#')
                    dc.FillSolidRect({left + x, top + y, left + x + 1, top + y + 1}, Sys(COLOR_MENUTEXT));
            }
        }
    }
    // The left half of an image.
    static void Half(CDC& dc, int left, int top, COLORREF color) {
        dc.FillSolidRect({left, top, left + 8, top + 15}, color);
    }

    // A disabled image by the usual route.
    static void Embossed(CDC& dc, int x, int y, COLORREF back) {
        dc.FillSolidRect({x + 1, y + 1, x + 17, y + 16}, back);
        Half(dc, x + 1, y + 1, Sys(COLOR_3DHIGHLIGHT));
        dc.FillSolidRect({x, y, x + 16, y + 15}, back);
        dc.FillSolidRect({x + 1, y + 1, x + 9, y + 15}, Sys(COLOR_3DHIGHLIGHT));
        Half(dc, x, y, Sys(COLOR_3DSHADOW));
    }

    CMenuSystem system;
    COwnerDrawMenu menu;
    CSurface surface{width, height, ground};
    UINT stateAfter = 0;
};
