// The images of items: the shared store, companions, and what comes from bitmap and toolbar resources.
#include "menu/OwnerDrawMenu.h"

#include <algorithm>
#include <string>

#include "MenuImageIds.h"
#include "MenuRow.h"
#include "Repeats.h"
#include "menu/MenuToolBar.h"

namespace {

constexpr COLORREF red = RGB(255, 0, 0), green = RGB(0, 0x80, 0), blue = RGB(0, 0, 255);
constexpr COLORREF washedRed = RGB(255, 76, 76), washedBlue = RGB(76, 76, 255);

class MenuImages : public testing::Test {
protected:
    MenuImages() {
        menu.CreatePopupMenu();
        menu.SetMaskColor(RGB(0xC0, 0xC0, 0xC0)); // colour 0 of the test's bitmaps
        system.Use(OtherNt, true);
    }

    static void Modern(bool modern) { CMenuSystem::Use(OtherNt, modern); }

    // The colour in the left half of an image, as it shows on the colour '#'; the right half must be transparent.
    static COLORREF Shown(const CImageList& list, int index) {
        CSurface surface(40, 40, '#');
        list.Draw(surface.GetHandle(), index, 0, 0, ILD_TRANSPARENT);
        EXPECT_EQ(surface.Pixel(list.GetImageSize().cx - 1, 5), ColorOf('#')) << index;
        return surface.Pixel(3, 5);
    }
    static COLORREF Shared(int index) { return Shown(COwnerDrawMenu::sharedImages, index); }
    static COLORREF ShadowTint() { return COwnerDrawMenu::BlendTowardWhite(::GetSysColor(COLOR_3DSHADOW), 0.49); }

    // The ids of the store, whose list must be as long.
    static std::string Store() {
        EXPECT_EQ(static_cast<std::size_t>(COwnerDrawMenu::sharedImages.GetImageCount()),
                  COwnerDrawMenu::sharedImageIds.size());
        std::string ids;
        for (const UINT id : COwnerDrawMenu::sharedImageIds) ids += std::to_string(id) + " ";
        return ids;
    }
    const CMenuItemRecord& Append(UINT id, int iconId) {
        menu.AppendItem(L"", MF_STRING, id, iconId);
        return *menu.itemRecords.back();
    }

    CMenuSystem system;
    COwnerDrawMenu menu;
};

TEST_F(MenuImages, AStoredImageHasCompanionsInTheModernLookOnly) {
    const CImageList images = HalfImages({red, blue});
    EXPECT_EQ(menu.AddSharedImage(images, 1, 7), 0);
    EXPECT_EQ(Store(), "7 7 7 ");
    EXPECT_EQ(Shared(0), blue);
    EXPECT_EQ(Shared(1), washedBlue);
    EXPECT_EQ(Shared(2), ShadowTint());
    Modern(false);
    EXPECT_EQ(menu.AddSharedImage(images, 1, 8), 3);
    Modern(true);
    COwnerDrawMenu::raisedImages = 0;
    EXPECT_EQ(menu.AddSharedImage(images, 1, 9), 4);
    EXPECT_EQ(Store(), "7 7 7 8 9 ");
}

TEST_F(MenuImages, ASecondRegistrationReplaces) {
    const CImageList images = HalfImages({red, blue});
    menu.AddSharedImage(images, 0, 7);
    Modern(false);
    menu.AddSharedImage(images, 0, 8);
    Modern(true);
    menu.AddSharedImage(images, 0, 9);
    ASSERT_EQ(Store(), "7 7 7 8 9 9 9 ");
    EXPECT_EQ(menu.AddSharedImage(images, 1, 7), 0);
    EXPECT_EQ(menu.AddSharedImage(images, 1, 8), 3); // stays without companions
    EXPECT_EQ(Store(), "7 7 7 8 9 9 9 ");
    const COLORREF shown[] = {blue, washedBlue, ShadowTint(), blue, red, washedRed, ShadowTint()};
    for (int i = 0; i < 7; ++i) EXPECT_EQ(Shared(i), shown[i]) << i;
    Modern(false);
    EXPECT_EQ(menu.AddSharedImage(images, 1, 9), 4); // its companions stay as they are
    EXPECT_EQ(Shared(4), blue);
    EXPECT_EQ(Shared(5), washedRed);
}

TEST_F(MenuImages, LookingUpTheStore) {
    COwnerDrawMenu::sharedImageIds = {5, 7, 7, 7, 9, 9};
    const bool sets[] = {false, true, false, false, false, false};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(COwnerDrawMenu::HasRaisedSet(i), sets[i]) << i;
    EXPECT_FALSE(COwnerDrawMenu::HasRaisedSet(-1));
    EXPECT_FALSE(COwnerDrawMenu::HasRaisedSet(2'000'000'000));
    EXPECT_EQ(COwnerDrawMenu::FindSharedImage(9), 4);
    EXPECT_EQ(COwnerDrawMenu::FindSharedImage(1), -1);
}

TEST_F(MenuImages, WhatHasNoImageIsNotStored) {
    const CImageList images = HalfImages({red});
    for (const int index : {-1, 1, 1000}) EXPECT_EQ(menu.AddSharedImage(images, index, 7), -1);
    EXPECT_EQ(menu.AddSharedImage(CImageList(), 0, 7), -1);
    EXPECT_EQ(Store(), "");
    CImageList target;
    EXPECT_FALSE(menu.CopyImageToList(nullptr, 0, target));
    EXPECT_FALSE(menu.CopyImageToList(&images, -1, target));
    EXPECT_TRUE(menu.CopyImageToList(&images, 1, target));
    EXPECT_EQ(target.GetImageCount(), 0);
    for (const CSize size : {CSize(0, 15), CSize(16, 0), CSize(-1, 15)}) {
        menu.SetImageSize(size.cx, size.cy);
        EXPECT_EQ(Append(600, IDB_CHECK_CLEAR).sharedIndex, -1);
    }
}

// The store keeps the size of its first menu; larger and smaller images are fitted in, one entry each.
TEST_F(MenuImages, ImagesOfOtherSizesAreFittedIn) {
    const CImageList images = HalfImages({red});
    menu.AddSharedImage(images, 0, 7);
    for (const int size : {33, 8}) {
        menu.SetImageSize(size, size);
        menu.AddSharedImage(images, 0, static_cast<UINT>(size));
        CImageList copy;
        menu.CopyImageToList(&images, 0, copy);
        EXPECT_EQ(copy.GetImageCount(), 3);
        EXPECT_EQ(copy.GetImageSize(), CSize(16, 15));
    }
    EXPECT_EQ(Store(), "7 7 7 33 33 33 8 8 8 ");
    EXPECT_EQ(COwnerDrawMenu::sharedImages.GetImageSize(), CSize(16, 15));
    EXPECT_EQ(Shared(3), red);
}

TEST_F(MenuImages, OnlyTheFaceColorStaysInCompanions) {
    const COLORREF face = ::GetSysColor(COLOR_3DFACE), close = face ^ 0x010000;
    const CClientDC screen(nullptr);
    const auto changed = [&](void (*change)(CBitmap&)) {
        CBitmap bitmap(::CreateCompatibleBitmap(screen.GetHandle(), 3, 1));
        CMemoryDC dc(screen.GetHandle());
        {
            const CSelectObject selected(dc, bitmap.GetHandle());
            const COLORREF pixels[] = {face, close, red};
            for (int x = 0; x < 3; ++x) ::SetPixel(dc.GetHandle(), x, 0, pixels[x]);
        }
        change(bitmap);
        const CSelectObject selected(dc, bitmap.GetHandle());
        return ReadPixels(dc.GetHandle(), {0, 0, 3, 1});
    };
    using Pixels = std::vector<COLORREF>;
    const COLORREF washedClose = COwnerDrawMenu::BlendTowardWhite(close, 0.3);
    EXPECT_EQ(changed(&COwnerDrawMenu::MakeWashedImage), (Pixels{face, washedClose, washedRed}));
    EXPECT_EQ(changed(&COwnerDrawMenu::MakeShadowImage), (Pixels{face, ShadowTint(), ShadowTint()}));
    system.Use(WindowsXp, true);
    const COLORREF shadow = ::GetSysColor(COLOR_3DSHADOW);
    EXPECT_EQ(changed(&COwnerDrawMenu::MakeShadowImage), (Pixels{face, shadow, shadow}));
}

TEST_F(MenuImages, ABitmapResourceComesWithCompanions) {
    CImageList list;
    list.Create(16, 15, ILC_COLORDDB | ILC_MASK, 1, 1);
    EXPECT_TRUE(menu.AddBitmapToList(list, IDT_COMMANDS));
    const COLORREF shown[] = {red, green, blue, washedRed, ShadowTint()}; // companions of the first image
    ASSERT_EQ(list.GetImageCount(), 5);
    for (int i = 0; i < 5; ++i) EXPECT_EQ(Shown(list, i), shown[i]) << i;
    for (const int missing : {IDB_NONE, 0, 0x10000, -1}) EXPECT_FALSE(menu.AddBitmapToList(list, missing)) << missing;
    EXPECT_EQ(list.GetImageCount(), 5);
    CImageList none;
    EXPECT_FALSE(menu.AddBitmapToList(none, IDT_COMMANDS));
}

TEST_F(MenuImages, SixteenColorsBecomeTheSystems) {
    CImageList list;
    list.Create(16, 16, ILC_COLORDDB | ILC_MASK, 1, 1);
    Modern(false);
    menu.SetMaskColor(RGB(1, 2, 3));
    EXPECT_TRUE(menu.AddBitmapToList(list, IDT_SQUARE));
    CSurface surface(16, 16);
    list.Draw(surface.GetHandle(), 0, 0, 0, ILD_TRANSPARENT);
    // Black, silver, grey, white, and red, which has no meaning.
    const struct {
        int x;
        COLORREF color;
    } cases[] = {{0, ::GetSysColor(COLOR_BTNTEXT)},
                 {2, ::GetSysColor(COLOR_BTNFACE)},
                 {12, ::GetSysColor(COLOR_BTNSHADOW)},
                 {14, ::GetSysColor(COLOR_BTNHIGHLIGHT)},
                 {8, red}};
    for (const auto& [x, color] : cases) EXPECT_EQ(surface.Pixel(x, 3), color) << x;
}

TEST_F(MenuImages, ItemsTakeImagesByCommand) {
    EXPECT_EQ(Append(502, IDT_COMMANDS).sharedIndex, 0); // the second image of the toolbar
    EXPECT_EQ(Append(600, IDB_CHECK_CLEAR).sharedIndex, 3);
    EXPECT_EQ(Append(502, -1).sharedIndex, 0);
    EXPECT_EQ(Append(601, -1).sharedIndex, -1);
    EXPECT_EQ(Append(602, IDB_NONE).sharedIndex, -1);
    EXPECT_EQ(Append(600, IDT_COMMANDS).sharedIndex, 3);  // not on the toolbar: its first image
    EXPECT_EQ(Append(507, IDT_COMMANDS).sharedIndex, -1); // beyond the strip
    EXPECT_EQ(Store(), "502 502 502 600 600 600 ");
    EXPECT_EQ(Shared(0), green);
    EXPECT_EQ(Shared(3), red);
    for (const auto& record : menu.itemRecords) {
        EXPECT_EQ(record->iconId, -1);
        EXPECT_EQ(record->imageIndex, -1);
    }
    EXPECT_TRUE(menu.ModifyItem(static_cast<const wchar_t*>(nullptr), 502, red, blue, -1));
    CSurface surface(16, 15);
    COwnerDrawMenu::sharedImages.Draw(surface.GetHandle(), 0, 0, 0, ILD_TRANSPARENT);
    EXPECT_EQ(surface.Pixel(0, 14), blue);
    EXPECT_EQ(surface.Pixel(1, 1), red);
    EXPECT_EQ(Store(), "502 502 502 600 600 600 ");
}

TEST_F(MenuImages, ToolbarLookUp) {
    const struct {
        UINT command, toolbar;
        bool found;
        int index;
    } cases[] = {{501, IDT_COMMANDS, true, 77},
                 {502, IDT_COMMANDS, true, 1},
                 {503, IDT_COMMANDS, true, 2},
                 {0, IDT_COMMANDS, false, 77},
                 {504, IDT_COMMANDS, false, 77},
                 {501, IDB_NONE, false, 77},
                 {501, IDB_CHECK_CLEAR, false, 77},
                 {501, IDT_FOREIGN_VERSION, false, 77},
                 {501, IDT_WITHOUT_STRIP, false, 77},
                 {503, IDT_COMMANDS | 0x50000, true, 2},
                 {502 | 0x10000, IDT_COMMANDS, false, 77}};
    for (const auto& [command, toolbar, found, wanted] : cases) {
        int index = 77;
        EXPECT_EQ(COwnerDrawMenu::LookUpToolbarImage(command, toolbar, index), found) << command << ' ' << toolbar;
        EXPECT_EQ(index, wanted) << command << ' ' << toolbar;
    }
}

TEST_F(MenuImages, AToolbarGivesItsImagesToTheItems) {
    Append(501, -1);
    Append(503, -1);
    Append(507, -1); // beyond the strip
    COwnerDrawMenu* subMenu = menu.AppendSubMenu(L"More");
    subMenu->AppendItem(L"Green", MF_STRING, 502, -1);
    EXPECT_TRUE(menu.LoadToolbarImages(IDT_COMMANDS));
    EXPECT_EQ(Store(), "501 501 501 502 502 502 503 503 503 ");
    EXPECT_EQ(menu.itemRecords[0]->sharedIndex, 0);
    EXPECT_EQ(subMenu->itemRecords[0]->sharedIndex, 3);
    EXPECT_STREQ(subMenu->itemRecords[0]->GetText(), L"Green");
    EXPECT_EQ(menu.itemRecords[1]->sharedIndex, 6);
    EXPECT_EQ(menu.itemRecords[2]->sharedIndex, -1);
    EXPECT_EQ(Shared(0), red);
    EXPECT_EQ(Shared(3), green);
    EXPECT_EQ(Shared(6), blue);
}

TEST_F(MenuImages, ImageSizesOnlyGrow) {
    const UINT ids[] = {IDT_SQUARE, IDT_SMALL};
    const HMENU plain = ::CreatePopupMenu();
    ::AppendMenuA(plain, MF_STRING, 505, "A command of the toolbar");
    ::AppendMenuA(menu.GetHandle(), MF_POPUP, reinterpret_cast<UINT_PTR>(plain), "Plain");
    EXPECT_TRUE(menu.LoadToolbarImages(IDT_SMALL));
    EXPECT_TRUE(menu.itemRecords.empty()) << "not an item of this class";
    EXPECT_EQ(CSize(menu.imageWidth, menu.imageHeight), CSize(16, 15));
    EXPECT_TRUE(menu.LoadToolbarImageSet(ids, 2));
    EXPECT_EQ(CSize(menu.imageWidth, menu.imageHeight), CSize(16, 16));
    EXPECT_TRUE(menu.LoadToolbarImageSet(nullptr, 0));
    const UINT broken[] = {IDB_NONE, IDT_COMMANDS};
    EXPECT_FALSE(menu.LoadToolbarImageSet(broken, 2));
    for (const UINT id : {IDT_FOREIGN_VERSION, IDT_WITHOUT_STRIP, IDB_CHECK_CLEAR})
        EXPECT_FALSE(menu.LoadToolbarImages(id)) << id;
}

TEST_F(MenuImages, OwnListsFromAToolbar) {
    Append(505, -1);
    menu.AppendSubMenu(L"More")->AppendItem(L"", MF_STRING, 501, -1);
    CMenuToolBar toolbar;
    EXPECT_FALSE(toolbar.LoadToolBar(IDB_NONE));
    ASSERT_TRUE(toolbar.LoadToolBar(IDT_SMALL));
    EXPECT_EQ(CSize(toolbar.imageWidth, toolbar.imageHeight), CSize(12, 12));
    menu.AddToolbarImages(toolbar, IDB_NONE);
    EXPECT_EQ(menu.itemRecords[0]->imageList, nullptr);
    menu.AddToolbarImages(toolbar, IDT_SMALL);
    const COwnerDrawMenu& subMenu = static_cast<COwnerDrawMenu&>(*menu.GetSubMenuAt(1));
    for (const CMenuItemRecord* record : {menu.itemRecords[0].get(), subMenu.itemRecords[0].get()}) {
        ASSERT_NE(record->imageList, nullptr);
        EXPECT_EQ(record->imageList->GetImageCount(), 3);
        EXPECT_TRUE(record->imageIndex == 0 && record->iconId == 0);
    }
    EXPECT_EQ(Store(), "");
}

TEST_F(MenuImages, CheckImagesOfAParentStayTheParents) {
    menu.LoadCheckImages(0, IDB_CHECK_SELECTED);
    menu.LoadCheckImages(IDB_CHECK_CLEAR, -1);
    EXPECT_EQ(menu.checkImages, nullptr);
    EXPECT_EQ(menu.checkClearId, -1);
    menu.LoadCheckImages(IDB_CHECK_CLEAR, IDB_CHECK_SELECTED);
    COwnerDrawMenu* subMenu = menu.AppendSubMenu(L"More");
    EXPECT_EQ(subMenu->checkImages, menu.checkImages);
    subMenu->SetMaskColor(menu.maskColor);
    subMenu->LoadCheckImages(IDB_CHECK_SELECTED, IDB_CHECK_CLEAR);
    EXPECT_FALSE(subMenu->checkImagesShared);
    EXPECT_EQ(Shown(*menu.checkImages, 0), green);
    EXPECT_EQ(Shown(*subMenu->checkImages, 0), blue);
}

TEST_F(MenuImages, Swatches) {
    CSurface expected(16, 15);
    expected.FillSolidRect({0, 0, 16, 15}, ::GetSysColor(COLOR_MENU));
    expected.FillSolidRect({4, 3, 12, 11}, blue);
    expected.FillSolidRect({5, 4, 11, 10}, red);
    const auto paint = [&](CSize size, int hatch) {
        CBitmap bitmap;
        COwnerDrawMenu::MakeSwatch(expected, bitmap, size, {16, 15}, red, blue, hatch);
        const CMemoryDC dc(nullptr);
        const CSelectObject selected(dc, bitmap.GetHandle());
        return ReadPixels(dc.GetHandle(), {0, 0, 16, 15});
    };
    EXPECT_EQ(paint({8, 8}, -1), expected.Pixels());
    EXPECT_EQ(std::ranges::count(paint({16, 15}, -1), red), 14 * 13);
    const auto reds = std::ranges::count(paint({16, 15}, HS_CROSS), red);
    EXPECT_TRUE(reds > 20 && reds < 100) << reds;
}

TEST_F(MenuImages, NoRegistrationLosesAHandle) {
    const CImageList images = HalfImages({red});
    const auto useAll = [&] {
        menu.AddSharedImage(images, 0, 7);
        CImageList list;
        menu.CopyImageToList(&images, 0, list);
        menu.AddBitmapToList(list, IDT_COMMANDS);
        menu.AddBitmapToList(list, IDT_SQUARE);
        menu.LoadCheckImages(IDB_CHECK_CLEAR, IDB_CHECK_SELECTED);
        Append(501, IDT_COMMANDS);
        menu.RemoveItem(0, MF_BYPOSITION);
    };
    useAll();
    const std::size_t before = FreeGdiObjects();
    for (int round = 0; round < Repeats(30); ++round) useAll();
    EXPECT_NEAR(static_cast<double>(FreeGdiObjects()), static_cast<double>(before), 8);
}

} // namespace
