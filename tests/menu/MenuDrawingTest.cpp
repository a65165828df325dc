// What menus draw: rows in both looks and those of the skin menu, as approved; images from every source.
#include <algorithm>

#include <gtest/gtest.h>

#include "menu/MenuFont.h"
#include "menu/MenuLayout.h"
#include "menu/MenuToolBar.h"
#include "menu/OwnerDrawMenu.h"
#include "menu/SkinMenu.h"
#include "MenuTestIds.h"
#include "pictures/ColorMath.h"
#include "support/Handles.h"
#include "support/Look.h"

namespace {

constexpr COLORREF red = RGB(255, 0, 0), green = RGB(0, 0x80, 0), blue = RGB(0, 0, 255), nothing = RGB(255, 0, 255);

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
    static CImageList Images(std::initializer_list<COLORREF> colors, WORD bits = 32) {
        CImageList list;
        list.Create(16, 15, COwnerDrawMenu::imageListFlags, 1, 1);
        for (const COLORREF color : colors) {
            CSurface image(16, 15, '.', bits);
            image.FillSolidRect({0, 0, 8, 15}, color); // the right half is transparent
            list.AddMasked(image.Take().GetHandle(), nothing);
        }
        return list;
    }
    DRAWITEMSTRUCT ItemOf(const CMenuItemRecord& record, UINT state, const CSurface& on, int x = 7, int y = 5) const {
        const auto owner = reinterpret_cast<HWND>(menu.GetHandle());
        const RECT place{x, y, x + 200, y + 24};
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

    const std::int32_t system = COwnerDrawMenu::windowsVersion;
    CSurface mark{16, 15, '.'};
    COwnerDrawMenu menu;
};

// A cell of the sheet for each.
TEST_F(MenuDrawing, EveryRowInEveryState) {
    constexpr int columns = 12, width = 206, height = 27;
    CSurface sheet(columns * width, 80 * height, '.');
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
        const UINT state = (selected ? ODS_SELECTED : 0U) | (grayed ? ODS_GRAYED : 0U) | (checked ? ODS_CHECKED : 0U);
        DRAWITEMSTRUCT item = ItemOf(*record, state, sheet, all % columns * width + 3, all / columns * height + 1);
        menu.DrawItem(item);
        EXPECT_EQ(item.itemState, selected && (!grayed || usual != modern) ? state : state & ~UINT{ODS_SELECTED});
        const CFont font(MenuFontDescription());
        const CSelectObject used(sheet, version != OtherNt ? font.GetHandle() : nullptr);
        const std::wstring_view text(record->GetText() != nullptr ? record->GetText() : L"");
        const int bar = ::GetSystemMetrics(SM_CYMENU), extent = static_cast<int>(sheet.GetTextExtent(text).cx);
        const CSize size = kind == "l" ? MeasuredSeparator({16, 15}, modern && bit(4), bar)
                                       : MeasuredItem(extent, {16, 15}, modern, bit(4), bar);
        MEASUREITEMSTRUCT measured{ODT_MENU, 0, 0, 0, 0, record->GetItemData()};
        menu.MeasureItem(measured);
        EXPECT_EQ(CSize(measured.itemWidth, measured.itemHeight), size) << all;
    }
    ExpectApproved("sheet-menu-rows", {columns * width, sheet.Pixels()}, ApprovedLook("sheet-menu-rows"));
}

TEST_F(MenuDrawing, HostileStructuresAndItemsOfOthersAreLeftAlone) {
    std::wstring text(0x10000, L'W');
    text[0x8000] = L'\t';
    menu.AppendItem(text.c_str(), MF_STRING, 400, -1);
    CSurface shown(214, 32, '.'), other(214, 32, '.'), untouched(214, 32, '.');
    for (UINT state = 0; state < 16; ++state) {
        Use(OtherNt, state >= 8);
        DRAWITEMSTRUCT whole = ItemOf(*menu.itemRecords[0], state, shown), nowhere = whole, flat = whole;
        nowhere.hDC = nullptr;
        flat.hDC = other.GetHandle();
        flat.rcItem = {7, 5, 7, 5};
        for (DRAWITEMSTRUCT* each : {&whole, &nowhere, &flat}) menu.DrawItem(*each);
        shown.FillSolidRect(whole.rcItem, nothing);
        MEASUREITEMSTRUCT measured{ODT_MENU, 0, 0, 5, 5, 0};
        for (const ULONG_PTR data : {ULONG_PTR{0}, ULONG_PTR{1}, ~ULONG_PTR{0}, CMenuItemRecord().GetItemData()}) {
            whole.itemData = measured.itemData = data;
            menu.DrawItem(whole);
            menu.MeasureItem(measured);
        }
        EXPECT_TRUE(measured.itemWidth == 5 && measured.itemHeight == 5);
        EXPECT_EQ(shown.Pixels(), untouched.Pixels()) << "a foreign item, or text outside of its row";
    }
}

class MenuImages : public MenuDrawing {
protected:
    // The left half of each image as a letter, a capital for its washed-out companion, `s` for the shadow; the right
    // half must be transparent. In the store with the command before it.
    static std::string Shown(const CImageList& list, const std::vector<UINT>& ids = {}) {
        std::string letters;
        for (int i = 0; i < list.GetImageCount(); ++i) {
            CSurface surface(40, 40, '.');
            list.Draw(surface.GetHandle(), i, 0, 0, ILD_TRANSPARENT);
            const COLORREF colors[] = {red, green, blue, Tint(red, 0.3), Tint(green, 0.3), Tint(blue, 0.3), Shadow()};
            const auto pixels = surface.Pixels();
            const auto found = std::ranges::find(colors, pixels[5 * 40 + 3]) - std::begin(colors);
            if (!ids.empty()) letters += ' ' + std::to_string(ids.at(i));
            letters += pixels[static_cast<std::size_t>(5 * 40 + list.GetImageSize().cx - 1)] == nothing
                           ? "rgbRGBs?"[found]
                           : '!';
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
    EXPECT_TRUE(menu.ModifyItemByText(L"Green", L"Blue", IDT_COMMANDS));
    EXPECT_EQ(Shown(*record.imageList), "rRs") << "the first of a strip";
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
    CSurface shown(214, 32, '.');
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
    CSurface sheet(8 * 96, 3 * 34, '.');
    for (int all = 0; all < 24; ++all) {
        const UINT state = ((all & 1) != 0 ? ODS_SELECTED : 0U) | ((all & 2) != 0 ? ODS_CHECKED : 0U);
        const std::string text = (all & 4) != 0 ? "Menu" : "";
        const auto data = text.empty() ? 0 : reinterpret_cast<ULONG_PTR>(text.c_str());
        const RECT row{all % 8 * 96 + 2, all / 8 * 34 + 3, all % 8 * 96 + 92, all / 8 * 34 + 31};
        DRAWITEMSTRUCT item{ODT_MENU, 0, 0, 1U << all / 8, state, nullptr, sheet.GetHandle(), row, data};
        MEASUREITEMSTRUCT measured{ODT_MENU, 0, 0, 0, 0, data};
        skin.DrawItem(item);
        skin.MeasureItem(measured);
        const LONG width = CClientDC(nullptr).GetTextExtent(std::string_view(text)).cx;
        EXPECT_EQ(CSize(measured.itemWidth, measured.itemHeight), CSize(width + 28, 28));
    }
    ExpectApproved("sheet-skin-menu", {8 * 96, sheet.Pixels()}, ApprovedLook("sheet-skin-menu"));
}

} // namespace
