// The selector and the tool strip on a real window.
#include "skin/SkinToolStrip.h"

#include <map>
#include <random>

#include <gtest/gtest.h>

#include "Ground.h"
#include "resources/ResourceIds.h"
#include "skin/SkinSelector.h"
#include "skin/StripLayout.h"
#include "support/Seed.h"

namespace {

constexpr UINT wideText = 60000;
constexpr std::uint16_t stripPicture = 401;

TEST(SkinSelector, AClickChoosesItsSlotAtOnce) {
    constexpr int width = 12, slotHeight = 44;
    const CGround ground;
    CSkinSelector selector;
    Put(selector, ground, "STATIC", {0, 0, width, 190}, SS_NOTIFY);
    const CPictureFile picture("slots.bmp", BitmapFileOf(Art(4 * slotHeight, std::string(width, 'p'))));
    EXPECT_TRUE(selector.SetBitmapFile(picture.name));
    for (const char color : {'A', 'B', ' ', 'D'}) { // one is missing
        const CPictureFile image(color == ' ' ? "no.bmp" : "slot.bmp",
                                 BitmapFileOf(Art(slotHeight, std::string(width / 2, color))));
        selector.AddImage(color == ' ' ? "no such.bmp" : image.name);
    }
    selector.Invalidate();
    struct Row {
        int y;
        const char* slots;
        int selected;
        bool hand;
    };
    for (const Row& row : {Row{200, "Appp", 0, false}, Row{44, "pBpp", 1, true}, Row{43, "Appp", 0, true},
                           Row{175, "pppD", 3, true}, Row{176, "pppD", 3, false}, Row{131, "pppp", 2, true},
                           Row{189, "pppp", 2, false}, Row{88, "pppp", 2, true}, Row{87, "pBpp", 1, true}}) {
        for (const UINT message : {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP}) {
            ::SetCursor(nullptr);
            if (row.y > 199) PumpMessages(); // not painted as yet
            Mouse(selector, message, 3, row.y);
            EXPECT_EQ(::GetCursor() != nullptr, row.hand) << row.y;
            Art expected;
            for (std::size_t y = 0; y < 4 * slotHeight; ++y)
                expected.push_back(std::string(width / 2, row.slots[y / slotHeight]) + "pppppp");
            EXPECT_EQ(ground.Look({0, 0, width, 176}), expected) << row.y;
            EXPECT_EQ(selector.GetSelected(), row.selected) << row.y;
        }
    }
    selector.RemoveImages();
    selector.Invalidate();
    PumpMessages();
    EXPECT_EQ(ground.Look({0, 0, 1, 176}), Art(176, "p"));
}

class SkinToolStrip : public testing::Test {
protected:
    SkinToolStrip() {
        Put(strip, ground, "STATIC", {0, 0, 300, 30});
        EXPECT_TRUE(strip.LoadStrip(stripPicture));
        EXPECT_FALSE(CSkinToolStrip().LoadStrip(9999));
    }

    CGround ground;
    CSkinToolStrip strip;
};

// Made anew and anew, with other ids, sizes and widths of frames: what stands there, from left to right.
TEST_F(SkinToolStrip, ButtonsHaveTheirPictureAndRoomForTheirText) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    TEXTMETRICA metrics{};
    ::GetTextMetricsA(CClientDC(strip.GetHandle()).GetHandle(), &metrics);
    const std::map<UINT, LONG> bytes{{IDS_START, 5}, {wideText, 6}, {IDS_OK, 2}, {IDS_YES, 3}};
    for (int round = 0; round < 30; ++round) {
        std::vector<UINT> ids{IDS_START, wideText, IDS_OK, IDS_YES};
        std::ranges::shuffle(ids, random);
        ids.resize(random() % 5);
        const int width = 32 + static_cast<int>(random() % 10), height = 21 + static_cast<int>(random() % 5);
        const int frame = std::array{0, 20, 30, 91}[random() % 4];
        strip.SetButtonIds(ids);
        strip.CreateButtons(width, height, frame);
        PumpMessages();
        const std::size_t count = frame == 0 ? 0 : std::min<std::size_t>(ids.size(), 90 / static_cast<unsigned>(frame));
        LONG left = 0;
        std::vector<HWND> made;
        for (HWND child = ::GetWindow(strip.GetHandle(), GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT))
            made.push_back(child);
        ASSERT_EQ(made.size(), count) << frame;
        for (std::size_t i = 0; i < count; ++i) {
            const HWND button = strip.GetDlgItem(static_cast<int>(ids[i]));
            const CRect place = PlaceInParent(button);
            if (i == 0) left = place.left;
            EXPECT_EQ(place, CRect(left, place.top, left + width + bytes.at(ids[i]) * metrics.tmAveCharWidth,
                                   place.top + height));
            EXPECT_EQ(::GetWindowLongA(button, GWL_STYLE) & ~WS_CLIPSIBLINGS, LONG{0x50004000});
            if (frame == 30 && height == 21) { // of one row, at half the height and as far from the left
                EXPECT_EQ(ground.Look({left + 10, place.top + 10, left + 40, place.top + 11})[0],
                          std::string(30, "abc"[i]));
            }
            left = place.right;
        }
        CArchive stored, expected;
        StoreBoxes(expected, ButtonRow(static_cast<int>(count), width, height)); // without their texts
        EXPECT_TRUE(strip.SerializeButtonRects(stored));
        EXPECT_EQ(stored.GetStored(), expected.GetStored());
        CArchive whole(stored.GetStored()), cut(std::span(stored.GetStored()).first(1)), again;
        CSkinToolStrip copy;
        EXPECT_TRUE(copy.SerializeButtonRects(whole) && !copy.SerializeButtonRects(cut));
        copy.SerializeButtonRects(again);
        EXPECT_EQ(again.GetStored(), stored.GetStored());
    }
}

TEST_F(SkinToolStrip, AParentMayRebuildItWheneverItHears) {
    strip.SetButtonIds({IDS_START, IDS_OK});
    strip.CreateButtons(40, 21, 30);
    int heard = 0;
    ground.atCommand = [&] {
        ++heard;
        strip.SetButtonIds({IDS_YES});
        strip.CreateButtons(40, 21, 30);
    };
    ::SendMessageA(strip.GetDlgItem(IDS_START), BM_CLICK, 0, 0);
    EXPECT_EQ(heard, 2) << "of the click, and that the focus left a button which was going";
    EXPECT_NE(strip.GetDlgItem(IDS_YES), nullptr);
    EXPECT_EQ(strip.GetDlgItem(IDS_OK), nullptr);
    strip.DestroyWindow();
    Put(strip, ground, "STATIC", {0, 0, 300, 30});
    EXPECT_EQ(strip.GetDlgItem(IDS_YES), nullptr) << "of another window";
}

TEST(SkinButton, TakesItsPictureFromAResource) {
    const CGround ground;
    CSkinButton button;
    Put(button, ground, "BUTTON", {0, 0, 22, 1});
    EXPECT_TRUE(button.SetBitmapResource(stripPicture));
    const CSurface surface(23, 1);
    Print(button, surface);
    EXPECT_EQ(surface.Read()[0], "aaaaaaaaaaaaaaaaaaaaaa ");
}

} // namespace
