// What menus draw, compared as a whole: rows in both looks, images from every source, and the skin menu.
#include <algorithm>

#include <gtest/gtest.h>

#include "MenuTestIds.h"
#include "menu/MenuColors.h"
#include "menu/MenuFont.h"
#include "menu/MenuLayout.h"
#include "menu/MenuToolBar.h"
#include "menu/OwnerDrawMenu.h"
#include "menu/SkinMenu.h"
#include "support/Handles.h"

namespace {

constexpr COLORREF red = RGB(255, 0, 0), green = RGB(0, 0x80, 0), blue = RGB(0, 0, 255), nothing = RGB(255, 0, 255);
constexpr int rowX = 7, rowY = 5; // of a row on its surface

// A drawing surface of 24-bit or 32-bit pixels.
class CSurface : public CMemoryDC {
public:
    CSurface(int width, int height, WORD depth = 32) : CMemoryDC(nullptr), size(width, height) {
        const BITMAPINFO format{{sizeof format.bmiHeader, width, -height, 1, depth, BI_RGB, 0, 0, 0, 0, 0}, {}};
        bitmap.Attach(::CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &bits, nullptr, 0));
        former = ::SelectObject(GetHandle(), bitmap.GetHandle());
        FillSolidRect({0, 0, width, height}, nothing);
    }
    ~CSurface() { Take(); }

    // The bitmap, no longer selected.
    const CBitmap& Take() {
        ::SelectObject(GetHandle(), former);
        return bitmap;
    }
    COLORREF Pixel(int x, int y) const { return ::GetPixel(GetHandle(), x, y); }
    // The first place where the other one, of 32 bits too, is different; empty for none.
    std::string Differs(const CSurface& other) const {
        ::GdiFlush();
        const auto *mine = static_cast<const COLORREF*>(bits), *its = static_cast<const COLORREF*>(other.bits);
        int i = 0, end = size.cx * size.cy;
        while (i < end && ((mine[i] ^ its[i]) & 0xFFFFFF) == 0) ++i;
        return i == end ? "" : std::to_string(i % size.cx) + ", " + std::to_string(i / size.cx);
    }

private:
    CSize size;
    CBitmap bitmap;
    HGDIOBJ former;
    void* bits = nullptr;
};

// Kinds of rows: t with a text and a shortcut, l line, i image with companions or I without, s of the shared store,
// m missing, k check images, d a dot for the mark.
constexpr std::string_view rows[] = {"t", "", "l", "i", "is", "I", "Is", "im", "k", "d"};

class MenuDrawing : public testing::Test {
protected:
    MenuDrawing() { Restart(OtherNt, true); }
    ~MenuDrawing() override { Restart(system, false); }

    static void Use(std::int32_t version, bool modern, bool raised = true, bool usual = true) {
        COwnerDrawMenu::windowsVersion = version;
        COwnerDrawMenu::lookOnThemedXp = modern == Themed();
        COwnerDrawMenu::lookOnOtherSystems = modern != Themed();
        COwnerDrawMenu::raisedImages = raised;
        COwnerDrawMenu::selectDisabledModern = !usual;
        COwnerDrawMenu::selectDisabledClassic = usual;
    }
    void Restart(std::int32_t version, bool modern) {
        Use(version, modern);
        COwnerDrawMenu::sharedImages.DeleteImageList();
        COwnerDrawMenu::sharedImageIds.clear();
        menu.DestroyMenu();
        menu.CreatePopupMenu();
        menu.checkClearId = menu.checkSelectedId = -1;
        menu.SetMaskColor(RGB(0xC0, 0xC0, 0xC0)); // colour 0 of the test's bitmaps
    }
    static bool Themed() { return COwnerDrawMenu::windowsVersion == WindowsXp; }
    static COLORREF Sys(int index) { return ::GetSysColor(index); }
    static COLORREF Tint(COLORREF color, double factor) { return COwnerDrawMenu::BlendTowardWhite(color, factor); }
    static COLORREF Shadow() { return Themed() ? Sys(COLOR_3DSHADOW) : Tint(Sys(COLOR_3DSHADOW), 0.49); }
    static void Text(CDC& dc, const std::wstring& text, CRect place, COLORREF color, UINT align = DT_LEFT) {
        dc.SetTextColor(color);
        dc.DrawText(std::wstring_view(text), place, DT_SINGLELINE | DT_VCENTER | align);
    }
    // The left half of an image; the right half is transparent.
    static void Half(CDC& dc, int x, int y, COLORREF color) { dc.FillSolidRect({x, y, x + 8, y + 15}, color); }
    static CImageList Images(std::initializer_list<COLORREF> colors, WORD bits = 32) {
        CImageList list;
        list.Create(16, 15, COwnerDrawMenu::imageListFlags, 1, 1);
        for (const COLORREF color : colors) {
            CSurface image(16, 15, bits);
            Half(image, 0, 0, color);
            list.AddMasked(image.Take().GetHandle(), nothing);
        }
        return list;
    }
    DRAWITEMSTRUCT ItemOf(const CMenuItemRecord& record, UINT state, const CSurface& on) const {
        const auto owner = reinterpret_cast<HWND>(menu.GetHandle());
        const RECT place{rowX, rowY, rowX + 200, rowY + 24};
        return {ODT_MENU, 0, 0, ODA_DRAWENTIRE, state, owner, on.GetHandle(), place, record.GetItemData()};
    }
    const CMenuItemRecord& AppendRow(std::string_view kind, WORD bits) {
        const auto has = [kind](char letter) { return kind.find(letter) != std::string_view::npos; };
        Use(COwnerDrawMenu::windowsVersion, has('i'));
        const CImageList images = Images({red}, bits);
        const CImageList* const given = has('i') || has('I') ? &images : nullptr;
        const wchar_t* const text = has('t') || has('l') ? L"&Open\tnot shown\tCtrl+O" : has('d') ? nullptr : L"";
        menu.AppendItem(L"Another of the id", MF_STRING, 400, -1);
        if (has('s')) menu.InsertItem(-1, text, MF_BYPOSITION, 400, given, 0);
        if (!has('s')) menu.AppendItem(text, MF_STRING, has('l') ? 0 : 400, given, 0);
        CMenuItemRecord& record = *menu.itemRecords.back();
        if (has('m')) record.imageList = std::make_unique<CImageList>();
        if (has('k')) menu.LoadCheckImages(IDB_CHECK_CLEAR, IDB_CHECK_SELECTED);
        if (has('d')) ::SetMenuItemBitmaps(menu.GetHandle(), 1, MF_BYPOSITION, nullptr, mark.Take().GetHandle());
        return record;
    }

    // The row at 0, 0 by the plain rules of the looks.
    void Compose(CDC& dc, std::string_view kind, bool modern, bool selected, bool grayed, bool checked) const {
        const auto has = [kind](char letter) { return kind.find(letter) != std::string_view::npos; };
        const bool raised = modern && COwnerDrawMenu::raisedImages != 0, companions = raised && has('i');
        const bool framed = COwnerDrawMenu::windowsVersion != OtherNt, pictured = has('i') || has('I');
        const bool checkImage = has('k') && checked;
        const COLORREF light = Sys(COLOR_3DHIGHLIGHT), shadow = Sys(COLOR_3DSHADOW), highlight = Sys(COLOR_HIGHLIGHT);
        const COLORREF face = Sys(COLOR_3DFACE), ground = Themed() ? face : modern ? Tint(face, 0.25) : Sys(COLOR_MENU);
        const COLORREF bar = !modern ? ground : Tint(highlight, Themed() ? 0.7 : 0.85);
        const COLORREF checkBox = modern ? Tint(highlight, 0.85) : Tint(ground, 0.6);
        const int column = !modern ? 0 : raised ? 23 : 20, x = !modern ? 2 : raised ? 4 : 2, y = modern ? 5 : 4;
        const CRect box = modern ? CRect(1, 1, column - 1, 23) : CRect(0, 2, 20, 21), inner(1, 3, 19, 20);
        const CRect tick = modern ? CRect(x, 4, x + 16, 20) : CRect(1, 4, 17, 19);
        const auto image = [&](int shift, COLORREF color) {
            if (!has('m')) Half(dc, x + shift, y + shift, color);
        };
        const auto frame = [&](COLORREF topLeft, COLORREF bottomRight) { dc.Draw3dRect(box, topLeft, bottomRight); };
        selected = selected && !has('l');
        if (modern) {
            dc.FillSolidRect({0, 0, 200, 24}, selected ? bar : Sys(COLOR_WINDOW));
            if (!selected) dc.FillSolidRect({0, 0, column, 24}, ground);
        } else if (!selected) {
            dc.FillSolidRect({0, 0, 200, 24}, ground);
        } else {
            dc.FillSolidRect({pictured || checked ? 21 : 0, 0, 200, 24}, highlight);
        }
        CRect line(modern ? 2 * column - 16 : 0, 12, 200, 24);
        if (has('l')) ::DrawEdge(dc.GetHandle(), &line, EDGE_ETCHED, BF_TOP);
        if (has('l')) return;
        if (checkImage || pictured) {
            if (!modern) dc.Draw3dRect(inner, ground, ground);
            const COLORREF fill = checkImage ? ground : selected ? bar : checked ? checkBox : ground;
            if (!grayed || checkImage) dc.FillSolidRect(modern ? box : inner, fill);
            if (!modern && (checkImage || grayed || !(selected || checked))) frame(ground, ground);
        }
        if (checkImage) {
            image(0, selected ? blue : green);
        } else if (pictured && grayed) {
            Emboss(dc, x, y, modern && selected ? bar : ground, has('m'));
        } else if (pictured) {
            if (modern && checked) frame(highlight, highlight);
            if (!modern && framed && (selected || checked)) frame(checked ? shadow : light, checked ? light : shadow);
            if (companions && selected && !checked) image(1, Shadow());
            const bool raises = companions && selected;
            image(modern && (checked || raises) ? -1 : 0, companions && !raises && !checked ? Tint(red, 0.3) : red);
        } else if (checked) {
            dc.FillSolidRect(tick, selected && !modern ? ground : checkBox);
            if (modern || framed) dc.Draw3dRect(tick, modern ? highlight : shadow, modern ? highlight : light);
            Mark(dc, has('d'), tick.left + (modern || has('d') ? 5 : 4), 8);
        }
        if (modern && selected) dc.Draw3dRect({0, 0, 200, 24}, highlight, highlight);
        if (!has('t')) return;
        const COLORREF gray = Sys(COLOR_GRAYTEXT), pale = modern && !Themed() && !selected ? Tint(gray, 0.4) : gray;
        const COLORREF plain = Sys(!modern && selected ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT);
        const CFont font(MenuFontDescription());
        const bool buffered = modern && grayed && COwnerDrawMenu::selectDisabledModern == 0;
        const CSelectObject used(dc, buffered ? font.GetHandle() : nullptr);
        const auto text = [&](int shift, COLORREF color) {
            const CRect place(shift + (modern ? column + 8 : 25), shift - 1, shift + 184, shift + 23);
            Text(dc, L"&Open", place, color);
            Text(dc, L"Ctrl+O", place, color, DT_RIGHT);
        };
        if (!modern && grayed && !selected) text(1, light); // engraved
        text(0, !grayed ? plain : !modern && selected ? ground : pale);
    }
    void Emboss(CDC& dc, int x, int y, COLORREF back, bool missing) const {
        const bool masked = !menu.GetEmbossViaDib();
        if (masked) dc.FillSolidRect({x + 1, y + 1, x + 17, y + 16}, back);
        if (!missing) Half(dc, x + 1, y + 1, Sys(COLOR_3DHIGHLIGHT));
        if (masked) dc.FillSolidRect({x, y, x + 16, y + 15}, back);
        if (masked && !missing) dc.FillSolidRect({x + 1, y + 1, x + 9, y + 15}, Sys(COLOR_3DHIGHLIGHT));
        if (!missing) Half(dc, x, y, Sys(COLOR_3DSHADOW));
    }
    static void Mark(CDC& dc, bool dot, int x, int y) {
        const CPen pen(PS_SOLID, 0, Sys(COLOR_MENUTEXT));
        const CBrush brush(Sys(COLOR_MENUTEXT));
        const CSelectObject penSelected(dc, pen.GetHandle()), brushSelected(dc, brush.GetHandle());
        if (dot) ::Ellipse(dc.GetHandle(), x, y, x + 6, y + 6);
        for (const int top : {2, 3, 4, 3, 2, 1, 0}) {
            if (!dot) ::PatBlt(dc.GetHandle(), x++, y + top, 1, 3, PATCOPY);
        }
    }

    const std::int32_t system = COwnerDrawMenu::windowsVersion;
    CSurface mark{16, 15};
    COwnerDrawMenu menu;
};

TEST_F(MenuDrawing, EveryRowInEveryStateFollowsTheRulesOfItsLook) {
    const CMenuItemRecord* record = nullptr;
    for (int all = 0; all < 3 * 10 * 32; ++all) {
        constexpr WindowsVersion versions[] = {WindowsXp, Windows2000, OtherNt};
        const auto bit = [all](int number) { return (all >> number & 1) != 0; };
        const WindowsVersion version = versions[all / 320];
        const std::string_view kind = rows[all / 32 % 10];
        const bool selected = bit(0), grayed = bit(1), checked = bit(2), modern = bit(3);
        const bool usual = (all / 32 + version) % 2 == 0; // else with what nobody sets
        if (all % 32 == 0) Restart(version, false);
        if (all % 32 == 0) record = &AppendRow(kind, usual ? 32 : 24);
        Use(version, modern, bit(4), usual);
        menu.SetEmbossViaDib(!usual);
        CSurface shown(214, 32), wanted(214, 32);
        const UINT state = (selected ? ODS_SELECTED : 0U) | (grayed ? ODS_GRAYED : 0U) | (checked ? ODS_CHECKED : 0U);
        DRAWITEMSTRUCT item = ItemOf(*record, state, shown);
        menu.DrawItem(item);
        const bool shows = selected && (!grayed || usual != modern);
        ::SetViewportOrgEx(wanted.GetHandle(), rowX, rowY, nullptr);
        wanted.SetBkMode(TRANSPARENT);
        Compose(wanted, kind, modern, shows, grayed, checked);
        ::SetViewportOrgEx(wanted.GetHandle(), 0, 0, nullptr);
        EXPECT_EQ(shown.Differs(wanted), "") << "row " << kind << ", system " << version << ", " << all % 32;
        EXPECT_EQ(item.itemState, shows ? state : state & ~UINT{ODS_SELECTED});
        const CFont font(MenuFontDescription());
        const CSelectObject used(wanted, version != OtherNt ? font.GetHandle() : nullptr);
        const std::wstring_view text(record->GetText() != nullptr ? record->GetText() : L"");
        const int bar = ::GetSystemMetrics(SM_CYMENU), width = static_cast<int>(wanted.GetTextExtent(text).cx);
        const MenuSize size = kind == "l" ? MeasuredSeparator({16, 15}, modern && bit(4), bar)
                                          : MeasuredItem(width, {16, 15}, modern, bit(4), bar);
        MEASUREITEMSTRUCT measured{ODT_MENU, 0, 0, 0, 0, record->GetItemData()};
        menu.MeasureItem(measured);
        EXPECT_EQ(CSize(measured.itemWidth, measured.itemHeight), CSize(size.width, size.height)) << all;
    }
}

TEST_F(MenuDrawing, HostileStructuresAndItemsOfOthersAreLeftAlone) {
    std::wstring text(0x10000, L'W');
    text[0x8000] = L'\t';
    menu.AppendItem(text.c_str(), MF_STRING, 400, -1);
    CSurface shown(214, 32), other(214, 32), untouched(214, 32);
    for (UINT state = 0; state < 16; ++state) {
        Use(OtherNt, state >= 8);
        DRAWITEMSTRUCT whole = ItemOf(*menu.itemRecords[0], state, shown), nowhere = whole, flat = whole;
        nowhere.hDC = nullptr;
        flat.hDC = other.GetHandle();
        flat.rcItem = {rowX, rowY, rowX, rowY};
        for (DRAWITEMSTRUCT* each : {&whole, &nowhere, &flat}) menu.DrawItem(*each);
        shown.FillSolidRect(whole.rcItem, nothing);
        MEASUREITEMSTRUCT measured{ODT_MENU, 0, 0, 5, 5, 0};
        for (const ULONG_PTR data : {ULONG_PTR{0}, ULONG_PTR{1}, ~ULONG_PTR{0}, CMenuItemRecord().GetItemData()}) {
            whole.itemData = measured.itemData = data;
            menu.DrawItem(whole);
            menu.MeasureItem(measured);
        }
        EXPECT_TRUE(measured.itemWidth == 5 && measured.itemHeight == 5);
        EXPECT_EQ(shown.Differs(untouched), "") << "a foreign item, or text outside of its row";
    }
}

class MenuImages : public MenuDrawing {
protected:
    // The left half of each image as a letter, a capital for its washed-out companion, `s` for the shadow; the right
    // half must be transparent. In the store with the command before it.
    static std::string Shown(const CImageList& list, const std::vector<UINT>& ids = {}) {
        std::string letters;
        for (int i = 0; i < list.GetImageCount(); ++i) {
            CSurface surface(40, 40);
            list.Draw(surface.GetHandle(), i, 0, 0, ILD_TRANSPARENT);
            const COLORREF colors[] = {red, green, blue, Tint(red, 0.3), Tint(green, 0.3), Tint(blue, 0.3), Shadow()};
            const auto found = std::ranges::find(colors, surface.Pixel(3, 5)) - std::begin(colors);
            if (!ids.empty()) letters += ' ' + std::to_string(ids.at(i));
            letters += surface.Pixel(list.GetImageSize().cx - 1, 5) == nothing ? "rgbRGBs?"[found] : '!';
        }
        return letters;
    }
    static std::string Store() { return Shown(COwnerDrawMenu::sharedImages, COwnerDrawMenu::sharedImageIds); }
};

TEST_F(MenuImages, FromBitmapsAndToolbars) {
    COwnerDrawMenu* sub = menu.AppendSubMenu(L"More");
    sub->AppendItem(L"Blue", MF_STRING, 503, -1);
    const CMenuItemRecord& record = *sub->itemRecords[0];
    constexpr UINT ids[] = {502, 600, 502, 601, 602, 600, 507};
    constexpr int resources[] = {IDT_COMMANDS, IDB_CHECK_CLEAR, -1, -1, ID_NONE, IDT_COMMANDS, IDT_COMMANDS};
    constexpr int taken[] = {0, 3, 0, -1, -1, 3, -1};
    for (int i = 0; i < 7; ++i) {
        menu.AppendItem(L"", MF_STRING, ids[i], resources[i]);
        EXPECT_EQ(menu.itemRecords.back()->sharedIndex, taken[i]) << i;
    }
    EXPECT_EQ(Store(), " 502g 502G 502s 600r 600R 600s");
    EXPECT_TRUE(menu.LoadToolbarImages(IDT_COMMANDS));
    EXPECT_EQ(Store(), " 502g 502G 502s 600r 600R 600s 503b 503B 503s");
    CImageList list;
    EXPECT_FALSE(menu.AddBitmapToList(list, IDT_COMMANDS));
    list.Create(16, 15, COwnerDrawMenu::imageListFlags, 1, 1);
    for (const int missing : {ID_NONE, 0, 0x10000, -1}) EXPECT_FALSE(menu.AddBitmapToList(list, missing)) << missing;
    EXPECT_TRUE(menu.AddBitmapToList(list, IDT_COMMANDS));
    EXPECT_EQ(Shown(list), "rgbRs") << "companions of the first";
    EXPECT_TRUE(menu.ModifyItemByText(L"Green", L"Blue", IDB_CHECK_CLEAR));
    EXPECT_EQ(Shown(*record.imageList), "gGs");
    EXPECT_TRUE(menu.ModifyItemByText(L"Blue", L"Green", ID_NONE));
    EXPECT_TRUE(record.imageList == nullptr && record.iconId == -1);
    CMenuToolBar toolbar;
    for (const UINT id : {ID_NONE, IDT_FOREIGN_VERSION, IDT_WITHOUT_STRIP, IDB_CHECK_CLEAR})
        EXPECT_FALSE(menu.LoadToolbarImages(id) || toolbar.LoadToolBar(id)) << id;
    ASSERT_TRUE(toolbar.LoadToolBar(IDT_COMMANDS));
    menu.AddToolbarImages(toolbar, IDT_COMMANDS);
    EXPECT_EQ(Shown(*record.imageList), "bBs");
    const UINT sizes[] = {IDT_SMALL, IDT_SQUARE}, broken[] = {ID_NONE, IDT_COMMANDS};
    EXPECT_TRUE(menu.LoadToolbarImages(IDT_SMALL) && CSize(menu.imageWidth, menu.imageHeight) == CSize(16, 15));
    EXPECT_TRUE(menu.LoadToolbarImageSet(sizes, 2) && CSize(menu.imageWidth, menu.imageHeight) == CSize(16, 16));
    EXPECT_FALSE(menu.LoadToolbarImageSet(broken, 2));
    menu.LoadCheckImages(0, IDB_CHECK_SELECTED);
    menu.LoadCheckImages(IDB_CHECK_CLEAR, 0);
    EXPECT_EQ(menu.checkClearId, -1);
    menu.LoadCheckImages(IDB_CHECK_CLEAR, IDB_CHECK_SELECTED);
    COwnerDrawMenu* sharing = menu.AppendSubMenu(L"More");
    EXPECT_TRUE(sharing->checkImages == menu.checkImages && sharing->checkSelectedId == IDB_CHECK_SELECTED);
    sharing->LoadCheckImages(IDB_CHECK_SELECTED, IDB_CHECK_CLEAR);
    EXPECT_NE(sharing->checkImages, menu.checkImages) << "a parent's stay the parent's";
    menu.LoadCheckImages(IDB_CHECK_CLEAR, ID_NONE);
    EXPECT_TRUE(menu.checkImages == nullptr && menu.checkSelectedId == ID_NONE);
}

TEST_F(MenuImages, NeitherPaintingNorAddingLosesAnObject) {
    CSurface shown(214, 32);
    ExpectNoGdiObjectLost(20, [&] {
        for (int all = 0; all < 32; ++all) {
            const CMenuItemRecord& record = AppendRow(all % 4 == 0   ? "t"
                                                      : all % 4 == 1 ? "i"
                                                      : all % 4 == 2 ? "k"
                                                                     : "d",
                                                      32);
            DRAWITEMSTRUCT item = ItemOf(record, all / 4 % 2 != 0 ? ODS_GRAYED : ODS_CHECKED, shown);
            menu.ModifyItemByText(L"Another of the id", L"", IDT_SQUARE);
            Use(OtherNt, all / 8 % 2 != 0);
            menu.SetEmbossViaDib(all / 16 != 0);
            menu.DrawItem(item);
            while (menu.RemoveItem(0, MF_BYPOSITION)) {
            }
        }
    });
}

TEST_F(MenuDrawing, TheSkinMenuDrawsInItsOwnColors) {
    CSkinMenu skin;
    COLORREF* const colors[] = {&skin.backColor, &skin.selectColor, &skin.stripeColor, &skin.frameColor,
                                &skin.selectTextColor};
    for (COLORREF i = 0; i < 5; ++i) *colors[i] = 0x102030 * i + 0x0F00F0;
    for (int all = 0; all < 24; ++all) {
        const bool selected = (all & 1) != 0, checked = (all & 2) != 0, bar = selected && all < 16;
        const UINT action = 1 << all / 8, state = (selected ? ODS_SELECTED : 0U) | (checked ? ODS_CHECKED : 0U);
        const std::string text = (all & 4) != 0 ? "Menu" : "";
        const auto data = text.empty() ? 0 : reinterpret_cast<ULONG_PTR>(text.c_str());
        CSurface shown(100, 36), wanted(100, 36);
        const RECT row{2, 3, 92, 31};
        DRAWITEMSTRUCT item{ODT_MENU, 0, 0, action, state, nullptr, shown.GetHandle(), row, data};
        MEASUREITEMSTRUCT measured{ODT_MENU, 0, 0, 0, 0, data};
        skin.DrawItem(item);
        skin.MeasureItem(measured);
        const auto framed = [&](const CRect& rect, COLORREF fill) {
            wanted.FillSolidRect(rect, fill);
            wanted.Draw3dRect(rect, skin.frameColor, skin.frameColor);
        };
        wanted.SetBkMode(TRANSPARENT);
        wanted.FillSolidRect(row, skin.backColor);
        wanted.FillSolidRect({2, 3, 30, 31}, skin.stripeColor);
        if (bar) framed({3, 4, 91, 30}, skin.selectColor);
        const COLORREF tint = MixedColor(skin.selectColor, skin.backColor, 140);
        if (checked) framed({5, 6, 27, 28}, selected ? CSkinMenu::BlendColors(skin.selectColor, tint, 140) : tint);
        if (checked) Text(wanted, L"\u221A", {6, 7, 26, 27}, 0, DT_CENTER);
        Text(wanted, ToWide(text), bar ? CRect(31, 5, 90, 29) : CRect(31, 3, 92, 31),
             selected ? skin.selectTextColor : 0);
        EXPECT_EQ(shown.Differs(wanted), "") << all;
        const LONG width = CClientDC(nullptr).GetTextExtent(std::string_view(text)).cx;
        EXPECT_EQ(CSize(measured.itemWidth, measured.itemHeight), CSize(width + 28, 28));
    }
}

} // namespace
