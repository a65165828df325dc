// Both looks of the rows, pixel by pixel; what the platform is told of their size; and input that nobody should send.
#include "menu/OwnerDrawMenu.h"

#include "MenuImageIds.h"
#include "MenuRow.h"
#include "Repeats.h"

namespace {

// Every mixture of ODS_SELECTED (1), ODS_GRAYED (2) and ODS_CHECKED (8).
constexpr UINT everyState[] = {0, 1, 2, 3, 8, 9, 10, 11};

class ModernRow : public MenuRow, public testing::WithParamInterface<WindowsVersion> {
protected:
    ModernRow() { system.Use(GetParam(), true); }

    bool Themed() const { return GetParam() == WindowsXp; }
    COLORREF Stripe() const { return Themed() ? Sys(COLOR_3DFACE) : Tint(COLOR_3DFACE, 0.25); }
    COLORREF Selection() const { return Tint(COLOR_HIGHLIGHT, Themed() ? 0.7 : 0.85); }
    static COLORREF CheckBox() { return Tint(COLOR_HIGHLIGHT, 0.85); }

    void Bar(CDC& dc, bool selected) const {
        dc.FillSolidRect({0, 0, 200, 24}, selected ? Selection() : Sys(COLOR_WINDOW));
        if (selected) {
            Frame(dc, {0, 0, 200, 24}, Sys(COLOR_HIGHLIGHT));
        } else {
            dc.FillSolidRect({0, 0, 23, 24}, Stripe());
        }
    }
    void CheckedBox(CDC& dc, const CRect& box) const {
        dc.FillSolidRect(box, CheckBox());
        Frame(dc, box, Sys(COLOR_HIGHLIGHT));
    }
    COLORREF GrayText() const { return Themed() ? Sys(COLOR_GRAYTEXT) : Tint(COLOR_GRAYTEXT, 0.4); }

    // The image of a row by its state, with or without companions.
    void Image(CDC& dc, UINT state, bool raised) const {
        const COLORREF shadow = Themed() ? Sys(COLOR_3DSHADOW) : Tint(COLOR_3DSHADOW, 0.49);
        const bool checked = (state & ODS_CHECKED) != 0;
        const CRect box(1, 1, 22, 23);
        if ((state & ODS_GRAYED) != 0) {
            Embossed(dc, 4, 5, Stripe());
        } else if ((state & ODS_SELECTED) != 0) {
            dc.FillSolidRect(box, Selection());
            if (checked) Frame(dc, box, Sys(COLOR_HIGHLIGHT));
            if (raised && !checked) Half(dc, 5, 6, shadow);
            Half(dc, raised || checked ? 3 : 4, raised || checked ? 4 : 5, dark);
        } else if (checked) {
            CheckedBox(dc, box);
            Half(dc, 3, 4, dark);
        } else {
            Half(dc, 4, 5, raised ? COwnerDrawMenu::BlendTowardWhite(dark, 0.3) : dark);
        }
    }
};

INSTANTIATE_TEST_SUITE_P(Systems, ModernRow, testing::Values(WindowsXp, OtherNt),
                         [](const auto& made) { return made.param == WindowsXp ? "ThemedXp" : "Newer"; });

TEST_P(ModernRow, TextAndTick) {
    CMenuItemRecord& item = Append(L"&Open");
    for (const UINT state : everyState) {
        const bool grayed = (state & ODS_GRAYED) != 0;
        ExpectRow(item, state, [&](CDC& dc) {
            Bar(dc, (state & ODS_SELECTED) != 0 && !grayed);
            if ((state & ODS_CHECKED) != 0) {
                CheckedBox(dc, {4, 4, 20, 20});
                Tick(dc, 9, 8);
            }
            const CFont font(MenuFontDescription());
            const CSelectObject selected(dc, grayed ? font.GetHandle() : nullptr);
            Text(dc, L"&Open", {31, -1, 200, 23}, grayed ? GrayText() : Sys(COLOR_MENUTEXT));
        });
        EXPECT_EQ(stateAfter, grayed ? state & ~UINT{ODS_SELECTED} : state);
    }
}

TEST_P(ModernRow, SeparatorsEmptyCaptionsAndTabs) {
    menu.AppendItem(L"not shown", MF_SEPARATOR, 0, -1);
    for (const UINT state : {UINT{0}, UINT{ODS_SELECTED}, UINT{ODS_GRAYED}}) {
        ExpectRow(*menu.itemRecords.back(), state, [&](CDC& dc) {
            Bar(dc, false);
            CRect line(30, 12, 200, 24);
            ::DrawEdge(dc.GetHandle(), &line, EDGE_ETCHED, BF_TOP);
        });
    }
    ExpectRow(Append(L""), 0, [&](CDC& dc) { Bar(dc, false); });
    ExpectRow(Append(nullptr), ODS_SELECTED, [&](CDC& dc) { Bar(dc, true); });
    ExpectRow(Append(L"中文\tnot shown\tCtrl+O"), 0, [&](CDC& dc) {
        Bar(dc, false);
        Text(dc, L"中文", {31, -1, 184, 23}, Sys(COLOR_MENUTEXT));
        Text(dc, L"Ctrl+O", {31, -1, 184, 23}, Sys(COLOR_MENUTEXT), DT_RIGHT);
    });
}

TEST_P(ModernRow, ImagesOfTheItemAndOfTheStore) {
    const CImageList images = HalfImages({dark});
    CMenuItemRecord& raised = AppendWithList(images);
    ASSERT_EQ(raised.imageList->GetImageCount(), 3);
    CMenuItemRecord& shared = Append(L"", 402);
    shared.sharedIndex = menu.AddSharedImage(images, 0, 402);
    system.Use(GetParam(), false);
    CMenuItemRecord& plain = AppendWithList(images);
    CMenuItemRecord& sharedPlain = Append(L"", 403);
    sharedPlain.sharedIndex = menu.AddSharedImage(images, 0, 403);
    system.Use(GetParam(), true);
    for (const UINT state : everyState) {
        for (CMenuItemRecord* item : {&raised, &shared, &plain, &sharedPlain}) {
            ExpectRow(*item, state, [&](CDC& dc) {
                Bar(dc, (state & ODS_SELECTED) != 0 && (state & ODS_GRAYED) == 0);
                Image(dc, state, item == &raised || item == &shared);
            });
        }
    }
}

TEST_P(ModernRow, AnImageThatIsMissingLeavesItsBoxEmpty) {
    const CImageList images = HalfImages({dark});
    CMenuItemRecord& item = AppendWithList(images);
    for (const bool withList : {true, false}) {
        item.imageList.reset();
        if (withList) item.imageList = std::make_unique<CImageList>();
        ExpectRow(item, 0, [&](CDC& dc) { Bar(dc, false); });
        ExpectRow(item, ODS_CHECKED, [&](CDC& dc) {
            Bar(dc, false);
            CheckedBox(dc, {1, 1, 22, 23});
        });
        ExpectRow(item, ODS_GRAYED, [&](CDC& dc) { Bar(dc, false); });
    }
}

TEST_P(ModernRow, CheckImages) {
    CMenuItemRecord& item = Append(L"");
    menu.SetMaskColor(RGB(0xC0, 0xC0, 0xC0));
    menu.LoadCheckImages(IDB_CHECK_CLEAR, IDB_CHECK_SELECTED);
    ASSERT_NE(menu.checkImages, nullptr);
    EXPECT_EQ(menu.checkImages->GetImageCount(), 2) << "no companions among them";
    const COLORREF green = RGB(0, 0x80, 0), blue = RGB(0, 0, 0xFF); // such a list has the 16 standard colours
    ExpectRow(item, 0, [&](CDC& dc) { Bar(dc, false); });
    for (const bool selected : {false, true}) {
        ExpectRow(item, selected ? ODS_CHECKED | ODS_SELECTED : ODS_CHECKED, [&](CDC& dc) {
            Bar(dc, selected);
            dc.FillSolidRect({1, 1, 22, 23}, Stripe());
            Half(dc, 4, 5, selected ? blue : green);
        });
    }
    menu.LoadCheckImages(IDB_CHECK_CLEAR, IDB_NONE);
    EXPECT_EQ(menu.checkImages, nullptr);
    EXPECT_EQ(menu.checkSelectedId, IDB_NONE);
    ExpectRow(item, ODS_CHECKED, [&](CDC& dc) {
        Bar(dc, false);
        CheckedBox(dc, {1, 1, 22, 23});
    });
}

TEST_P(ModernRow, DisabledImageByTheSecondRoute) {
    const CImageList images = HalfImages({dark});
    menu.SetEmbossViaDib(true);
    ExpectRow(AppendWithList(images), ODS_GRAYED, [&](CDC& dc) {
        Bar(dc, false);
        Half(dc, 5, 6, Sys(COLOR_3DHIGHLIGHT));
        Half(dc, 4, 5, Sys(COLOR_3DSHADOW));
    });
}

TEST_P(ModernRow, AMarkBitmapMakesADot) {
    Append(L"Another of the id, without one");
    CMenuItemRecord& item = Append(L"");
    const CImageList images = HalfImages({dark});
    CBitmap mark;
    menu.ImageToBitmap(surface, images, 0, mark);
    ::SetMenuItemBitmaps(menu.GetHandle(), 1, MF_BYPOSITION, nullptr, mark.GetHandle());
    ExpectRow(item, ODS_CHECKED, [&](CDC& dc) {
        Bar(dc, false);
        CheckedBox(dc, {4, 4, 20, 20});
        const CBrush brush(Sys(COLOR_MENUTEXT));
        const CPen pen(PS_SOLID, 0, Sys(COLOR_MENUTEXT));
        const CSelectObject brushSelected(dc, brush.GetHandle());
        const CSelectObject penSelected(dc, pen.GetHandle());
        ::Ellipse(dc.GetHandle(), 9, 8, 15, 14);
    });
}

class ClassicRow : public MenuRow, public testing::WithParamInterface<WindowsVersion> {
protected:
    ClassicRow() { system.Use(GetParam(), false); }

    bool Framed() const { return GetParam() != OtherNt; }
    COLORREF Back() const { return Sys(GetParam() == WindowsXp ? COLOR_3DFACE : COLOR_MENU); }
    COLORREF CheckBox() const { return COwnerDrawMenu::BlendTowardWhite(Back(), 0.6); }

    // `marked`: with an image or a mark, which the bar leaves out.
    void Bar(CDC& dc, bool selected, bool marked) const {
        if (selected) {
            dc.FillSolidRect({marked ? 21 : 0, 0, 200, 24}, Sys(COLOR_HIGHLIGHT));
        } else {
            dc.FillSolidRect({0, 0, 200, 24}, Back());
        }
    }
    void Edge(CDC& dc, const CRect& rect, bool sunken) const {
        if (Framed())
            dc.Draw3dRect(rect, Sys(sunken ? COLOR_3DSHADOW : COLOR_3DHIGHLIGHT),
                          Sys(sunken ? COLOR_3DHIGHLIGHT : COLOR_3DSHADOW));
    }
};

INSTANTIATE_TEST_SUITE_P(Systems, ClassicRow, testing::Values(WindowsXp, Windows2000, OtherNt),
                         [](const auto& made) { return "System" + std::to_string(made.param); });

TEST_P(ClassicRow, TextAndTick) {
    CMenuItemRecord& item = Append(L"&Open\tCtrl+O");
    const auto text = [](CDC& dc, CRect place, COLORREF color) {
        place.right -= 16;
        Text(dc, L"&Open", place, color);
        Text(dc, L"Ctrl+O", place, color, DT_RIGHT);
    };
    for (const UINT state : everyState) {
        const bool selected = (state & ODS_SELECTED) != 0;
        const bool checked = (state & ODS_CHECKED) != 0;
        ExpectRow(item, state, [&](CDC& dc) {
            Bar(dc, selected, checked);
            if (checked) {
                dc.FillSolidRect({1, 4, 17, 19}, selected ? Back() : CheckBox());
                Edge(dc, {1, 4, 17, 19}, true);
                Tick(dc, 5, 8);
            }
            if ((state & ODS_GRAYED) == 0) {
                text(dc, {25, -1, 200, 23}, Sys(selected ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT));
            } else if (selected) {
                text(dc, {25, -1, 200, 23}, Back());
            } else {
                text(dc, {26, 0, 201, 24}, Sys(COLOR_3DHIGHLIGHT));
                text(dc, {25, -1, 200, 23}, Sys(COLOR_GRAYTEXT));
            }
        });
        EXPECT_EQ(stateAfter, state);
    }
    menu.AppendItem(L"", MF_SEPARATOR, 0, -1);
    ExpectRow(*menu.itemRecords.back(), ODS_SELECTED, [&](CDC& dc) {
        Bar(dc, false, false);
        CRect line(0, 12, 200, 24);
        ::DrawEdge(dc.GetHandle(), &line, EDGE_ETCHED, BF_TOP);
    });
    COwnerDrawMenu::selectDisabledClassic = 0;
    Paint(surface, item, ODS_SELECTED | ODS_GRAYED);
    EXPECT_EQ(stateAfter, UINT{ODS_GRAYED});
}

TEST_P(ClassicRow, Images) {
    const CImageList images = HalfImages({dark});
    CMenuItemRecord& own = AppendWithList(images);
    CMenuItemRecord& shared = Append(L"", 402);
    shared.sharedIndex = menu.AddSharedImage(images, 0, 402);
    const CRect box(0, 2, 20, 21), inner(1, 3, 19, 20);
    for (const UINT state : everyState) {
        const bool selected = (state & ODS_SELECTED) != 0;
        const bool checked = (state & ODS_CHECKED) != 0;
        for (CMenuItemRecord* item : {&own, &shared}) {
            ExpectRow(*item, state, [&](CDC& dc) {
                Bar(dc, selected, true);
                Frame(dc, inner, Back());
                if ((state & ODS_GRAYED) != 0) {
                    Frame(dc, box, Back());
                    Embossed(dc, 2, 4, Back());
                    return;
                }
                dc.FillSolidRect(inner, checked && !selected ? CheckBox() : Back());
                if (selected || checked) {
                    Edge(dc, box, checked);
                } else {
                    Frame(dc, box, Back());
                }
                Half(dc, 2, 4, dark);
            });
        }
    }
}

class MenuDrawing : public MenuRow {
protected:
    void Measure(CMenuItemRecord& record, UINT itemWidth, UINT itemHeight) {
        MEASUREITEMSTRUCT item{};
        item.CtlType = ODT_MENU;
        item.itemData = record.GetItemData();
        menu.MeasureItem(item);
        EXPECT_EQ(item.itemWidth, itemWidth);
        EXPECT_EQ(item.itemHeight, itemHeight);
    }
    static UINT TextWidth(std::wstring_view text, bool inMenuFont) {
        const CClientDC dc(nullptr);
        const CFont font(MenuFontDescription());
        const CSelectObject selected(dc, inMenuFont ? font.GetHandle() : nullptr);
        return static_cast<UINT>(dc.GetTextExtent(text).cx);
    }
};

TEST_F(MenuDrawing, MeasuredSizes) {
    const wchar_t* text = L"&Open\tCtrl+O";
    CMenuItemRecord& item = Append(text);
    CMenuItemRecord& empty = Append(nullptr);
    menu.AppendItem(L"not measured", MF_SEPARATOR, 0, -1);
    CMenuItemRecord& separator = *menu.itemRecords.back();
    const auto bar = static_cast<UINT>(::GetSystemMetrics(SM_CYMENU));
    for (const WindowsVersion version : {OtherNt, Windows98, WindowsXp}) {
        const UINT wide = TextWidth(text, version != OtherNt);
        system.Use(version, true);
        Measure(item, 16 + wide + 7 + 8, std::max(bar, 22U));
        Measure(empty, 16 + 7 + 8, std::max(bar, 22U));
        Measure(separator, 0, std::max(bar / 2, 11U));
        system.Use(version, false);
        Measure(item, wide + 33, std::max(bar, 19U));
        Measure(separator, 0, std::max(bar / 2, 9U));
    }
    system.Use(HostedWin32, false);
    Measure(empty, 3 + 33, std::max(bar, 19U));
}

TEST_F(MenuDrawing, ItemsOfOthersAreLeftAlone) {
    CMenuItemRecord& item = Append(L"Open");
    const CMenuItemRecord stranger;
    for (const ULONG_PTR data : {ULONG_PTR{0}, ULONG_PTR{1}, ~ULONG_PTR{0}, stranger.GetItemData()}) {
        DRAWITEMSTRUCT drawn = ItemOf(item, 0, surface.GetHandle());
        drawn.itemData = data;
        menu.DrawItem(drawn);
        EXPECT_EQ(surface.Pixel(20, 20), ColorOf(ground));
        MEASUREITEMSTRUCT measured{};
        measured.itemWidth = 5;
        measured.itemData = data;
        menu.MeasureItem(measured);
        EXPECT_EQ(measured.itemWidth, 5U);
    }
    DRAWITEMSTRUCT nowhere = ItemOf(item, ODS_GRAYED, nullptr);
    menu.DrawItem(nowhere);
}

TEST_F(MenuDrawing, EndlessCaptionsAndRowsOfNoSize) {
    std::wstring text(0x10000, L'W');
    text[0x8000] = L'\t';
    CMenuItemRecord& item = Append(text.c_str());
    for (const bool modern : {true, false}) {
        system.Use(OtherNt, modern);
        for (const UINT state : everyState) {
            Paint(surface, item, state);
            EXPECT_EQ(surface.Pixel(7 + 201, 10), ColorOf(ground)) << "text outside of its row";
            DRAWITEMSTRUCT flat = ItemOf(item, state, surface.GetHandle());
            flat.rcItem = {7, 5, 7, 5};
            menu.DrawItem(flat);
        }
        MEASUREITEMSTRUCT measured{};
        measured.itemData = item.GetItemData();
        menu.MeasureItem(measured);
        EXPECT_GT(measured.itemWidth, 0x10000U);
    }
}

TEST_F(MenuDrawing, NoPaintLosesAHandle) {
    const CImageList images = HalfImages({dark});
    CMenuItemRecord& ticked = Append(L"Open\tCtrl+O");
    for (const bool modern : {true, false}) {
        system.Use(OtherNt, modern);
        CMenuItemRecord& pictured = AppendWithList(images);
        const std::size_t before = FreeGdiObjects();
        for (int round = 0; round < Repeats(2'000); ++round) {
            menu.SetEmbossViaDib(round / 16 % 2 != 0);
            DRAWITEMSTRUCT item =
                ItemOf(round % 2 == 0 ? pictured : ticked, everyState[round / 2 % 8], surface.GetHandle());
            menu.DrawItem(item);
        }
        EXPECT_NEAR(static_cast<double>(FreeGdiObjects()), static_cast<double>(before), 8);
    }
}

// Pixels of the face and the light colour are ground, all others the shape; the second route takes what is nearer to
// white than to black for ground.
TEST_F(MenuDrawing, WhatIsEmbossed) {
    const COLORREF pixels[] = {RGB(0, 0, 0), Sys(COLOR_3DFACE), Sys(COLOR_3DHIGHLIGHT), RGB(250, 250, 200)};
    const CClientDC screen(nullptr);
    const CBitmap bitmap(::CreateCompatibleBitmap(screen.GetHandle(), 6, 3));
    {
        CMemoryDC dc(screen.GetHandle());
        const CSelectObject selected(dc, bitmap.GetHandle());
        dc.FillSolidRect({0, 0, 6, 3}, RGB(1, 2, 3));
        for (int x = 0; x < 4; ++x) ::SetPixel(dc.GetHandle(), x + 2, 1, pixels[x]);
    }
    const COLORREF back = RGB(0, 0, 255), shadow = Sys(COLOR_3DSHADOW), light = Sys(COLOR_3DHIGHLIGHT);
    const auto row = [&](int y) {
        std::vector<COLORREF> colors;
        for (int x = 10; x < 15; ++x) colors.push_back(surface.Pixel(x, y));
        return colors;
    };
    const auto at = ColorOf(ground);
    COwnerDrawMenu::EmbossImage(surface, 10, 8, 4, 1, bitmap, 2, 1, back);
    EXPECT_EQ(row(8), (std::vector<COLORREF>{shadow, back, back, shadow, at}));
    EXPECT_EQ(row(9), (std::vector<COLORREF>{at, light, back, back, light}));
    surface.FillSolidRect({0, 0, width, height}, at);
    COwnerDrawMenu::EmbossImageDib(surface, 10, 8, 4, 1, bitmap, 2, 1, back);
    EXPECT_EQ(row(8), (std::vector<COLORREF>{shadow, back, back, back, at}));
    EXPECT_EQ(row(9), (std::vector<COLORREF>{at, light, at, at, at}));
}

} // namespace
