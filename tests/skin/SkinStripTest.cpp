// The selector, the tool strip and the separator on a real window.
#include "skin/SkinToolStrip.h"

#include <gtest/gtest.h>

#include "Ground.h"
#include "resources/ResourceIds.h"
#include "skin/SkinSelector.h"
#include "skin/SkinSeparator.h"
#include "skin/StripLayout.h"

namespace {

LPARAM At(int x, int y) {
    return MAKELPARAM(x, y);
}

class SkinSelector : public testing::Test {
protected:
    static constexpr int width = 12, slotHeight = 44;

    SkinSelector() {
        ::SetCursorPos(700, 700);
        selector.Create("STATIC", "", WS_CHILD | WS_VISIBLE | SS_NOTIFY, {0, 0, width, 190}, ground.GetHandle(), 7);
        const CPictureFile picture("slots.bmp", BitmapFileOf(Art(4 * slotHeight, std::string(width, 'p'))));
        EXPECT_TRUE(selector.SetBitmapFile(picture.name));
        for (const char color : {'A', 'B', 'C', 'D'}) {
            const CPictureFile image("slot.bmp", BitmapFileOf(Art(slotHeight, std::string(width / 2, color))));
            selector.AddImage(image.name);
        }
        CGround::Pump();
    }
    // The colours down the left edge, one for each slot.
    std::string Slots() const {
        std::string slots;
        for (int slot = 0; slot < 4; ++slot) {
            const Art column = ground.Look({0, slot * slotHeight, 1, (slot + 1) * slotHeight});
            EXPECT_EQ(column, Art(slotHeight, column[0]));
            slots += column[0];
        }
        return slots;
    }

    CGround ground;
    CCounted<CSkinSelector> selector;
};

TEST_F(SkinSelector, AClickChoosesItsSlotAtOnce) {
    EXPECT_EQ(Slots(), "Appp");
    EXPECT_EQ(ground.Look({width / 2, 0, width / 2 + 1, 1})[0], "p");
    struct Row {
        int y;
        const char* slots;
        bool hand;
    };
    for (const Row& row : {Row{44, "pBpp", true}, Row{43, "Appp", true}, Row{175, "pppD", true},
                           Row{176, "pppD", false}, Row{131, "ppCp", true}, Row{189, "ppCp", false}}) {
        ::SetCursor(nullptr);
        selector.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, At(3, row.y));
        EXPECT_EQ(Slots(), row.slots) << row.y;
        EXPECT_NE(row.slots[selector.GetSelected()], 'p') << row.y;
        EXPECT_EQ(::GetCursor() != nullptr, row.hand) << row.y;
        for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONUP}) {
            ::SetCursor(nullptr);
            selector.SendMessage(message, 0, At(3, row.y));
            EXPECT_EQ(::GetCursor() != nullptr, row.hand) << row.y;
        }
        EXPECT_EQ(Slots(), row.slots) << row.y;
    }
}

class SkinToolStrip : public testing::Test {
protected:
    static constexpr UINT wideText = 60000;

    SkinToolStrip() {
        strip.Create("STATIC", "", WS_CHILD | WS_VISIBLE, {0, 0, 300, 30}, ground.GetHandle(), 1039);
        EXPECT_TRUE(strip.LoadStrip(401));
        strip.SetButtonIds({IDS_START, wideText, IDS_OK});
    }
    int CountButtons() const {
        int count = 0;
        for (HWND child = ::GetWindow(strip.GetHandle(), GW_CHILD); child != nullptr;
             child = ::GetWindow(child, GW_HWNDNEXT))
            ++count;
        return count;
    }

    CGround ground;
    CSkinToolStrip strip;
};

TEST_F(SkinToolStrip, ButtonsHaveTheirPictureAndRoomForTheirText) {
    strip.CreateButtons(40, 21, 30);
    CGround::Pump();
    EXPECT_EQ(CountButtons(), 3);
    TEXTMETRICA metrics{};
    ::GetTextMetricsA(CClientDC(strip.GetHandle()).GetHandle(), &metrics);
    LONG left = 30;
    char frame = 'a';
    for (const auto& [id, bytes] : {std::pair<UINT, LONG>(IDS_START, 5), {wideText, 6}, {IDS_OK, 2}}) {
        const HWND button = strip.GetDlgItem(static_cast<int>(id));
        CRect place = CWnd::FromHandle(button)->GetWindowRect();
        ::MapWindowPoints(nullptr, strip.GetHandle(), reinterpret_cast<POINT*>(&place), 2);
        const LONG right = left + 40 + bytes * metrics.tmAveCharWidth;
        EXPECT_EQ(place, CRect(left, 2, right, 23)) << id;
        EXPECT_EQ(::GetWindowLongA(button, GWL_STYLE) & ~WS_CLIPSIBLINGS, LONG{0x50004000}) << id;
        // The picture of one row stands at half the height, as far from the left.
        EXPECT_EQ(ground.Look({left + 10, 12, left + 40, 13})[0], std::string(30, frame++)) << id;
        left = right;
    }
    CArchive made, expected, stored;
    StoreBoxes(expected, ButtonRow(3, 40, 21)); // without their texts
    strip.SerializeButtonRects(made);
    EXPECT_EQ(made.GetStored(), expected.GetStored());
    CArchive whole(made.GetStored()), cut(std::span(made.GetStored()).first(49));
    CSkinToolStrip other;
    EXPECT_TRUE(other.SerializeButtonRects(whole) && !other.SerializeButtonRects(cut));
    other.SerializeButtonRects(stored);
    EXPECT_EQ(stored.GetStored(), made.GetStored());
    strip.SendMessage(WM_COMMAND, MAKEWPARAM(IDS_OK, BN_CLICKED), 0);
    EXPECT_EQ(ground.commands.back().id, static_cast<UINT>(IDS_OK));
}

TEST_F(SkinToolStrip, EachCreationReplacesTheFormerButtons) {
    const std::size_t before = FreeGdiObjects();
    for (int round = 0; round < 20; ++round) strip.CreateButtons(40, 21, 30);
    EXPECT_EQ(CountButtons(), 3);
    strip.SetButtonIds({IDS_OK});
    strip.CreateButtons(40, 21, 30);
    EXPECT_EQ(CountButtons(), 1) << "as many as have an id";
    strip.CreateButtons(40, 21, 0);
    EXPECT_EQ(CountButtons(), 0);
    EXPECT_NEAR(static_cast<double>(FreeGdiObjects()), static_cast<double>(before), 8);
}

TEST_F(SkinToolStrip, AParentMayRebuildItWheneverItHearsOfAButton) {
    strip.CreateButtons(40, 21, 30);
    int heard = 0;
    ground.atCommand = [&] {
        ++heard;
        strip.SetButtonIds({IDS_YES});
        strip.CreateButtons(40, 21, 30);
    };
    ::SendMessageA(strip.GetDlgItem(IDS_START), BM_CLICK, 0, 0);
    EXPECT_EQ(heard, 2) << "of the click, and that the focus left a button which was going";
    EXPECT_EQ(CountButtons(), 1);
    EXPECT_NE(strip.GetDlgItem(IDS_YES), nullptr);
}

TEST(SkinSeparator, StretchesItsPictureBetweenTwoLines) {
    const CGround ground;
    CSkinSeparator separator;
    separator.Create("STATIC", "", WS_CHILD | WS_VISIBLE, {0, 0, 20, 12}, ground.GetHandle(), 7);
    separator.lineColor = ColorOf('L');
    const auto look = [&] {
        const CSurface surface(22, 12);
        Print(separator, surface);
        return surface.Read();
    };
    EXPECT_EQ(look(), Art(12, "L" + std::string(19, ' ') + "L "));
    const std::string edge = "cccccttccccc", inner = "lllllmmrrrrr";
    Art picture(5, edge);
    picture.insert(picture.end(), 2, inner);
    picture.insert(picture.end(), 5, edge);
    const CPictureFile file("separator.bmp", BitmapFileOf(picture));
    EXPECT_TRUE(separator.SetBitmapFile(file.name));
    const Art drawn = look();
    EXPECT_EQ(drawn[0], "Lcccc" + std::string(10, 't') + "cccccL ");
    EXPECT_EQ(drawn[5], "Lllll" + std::string(10, 'm') + "rrrrrL ");
    PaintOften(separator);
}

} // namespace
