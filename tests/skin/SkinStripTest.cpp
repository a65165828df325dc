// The selector and the tool strip on a real window.
#include "skin/SkinToolStrip.h"

#include <gtest/gtest.h>

#include "Ground.h"
#include "resources/ResourceIds.h"
#include "skin/SkinSelector.h"
#include "skin/StripLayout.h"

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
    for (const auto& [y, slots, selected, hand] : {std::tuple(200, "Appp", 0, false),
                                                   {44, "pBpp", 1, true},
                                                   {176, "pBpp", 1, false},
                                                   {175, "pppD", 3, true},
                                                   {131, "pppp", 2, true}}) {
        for (const UINT message : {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP}) {
            ::SetCursor(nullptr);
            if (y > 199) PumpMessages(); // not painted as yet
            Mouse(selector, message, 3, y);
            EXPECT_EQ(::GetCursor() != nullptr, hand) << y;
            for (int slot = 0; slot < 4; ++slot)
                EXPECT_EQ(ground.Look({0, 44 * slot, width, 44 * slot + 44}),
                          Art(44, std::string(width / 2, slots[slot]) + "pppppp"))
                    << y;
            EXPECT_EQ(selector.GetSelected(), selected) << y;
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

// As many as there are frames and ids.
TEST_F(SkinToolStrip, ButtonsHaveTheirPictureAndRoomForTheirText) {
    TEXTMETRICA metrics{};
    ::GetTextMetricsA(CClientDC(strip.GetHandle()).GetHandle(), &metrics);
    const std::vector<std::pair<UINT, LONG>> bytes{{IDS_START, 5}, {wideText, 6}, {IDS_OK, 2}, {IDS_YES, 3}};
    for (const auto& [ids, frame, count] :
         {std::tuple(4U, 20, 4U), {4U, 0, 0U}, {2U, 20, 2U}, {4U, 91, 0U}, {4U, 30, 3U}}) {
        std::vector<UINT> wanted;
        for (std::size_t i = 0; i < ids; ++i) wanted.push_back(bytes[i].first);
        strip.SetButtonIds(wanted);
        strip.CreateButtons(32, 21, frame);
        PumpMessages();
        LONG left = 30;
        for (std::size_t i = 0; i < 4; ++i) {
            const HWND button = strip.GetDlgItem(static_cast<int>(bytes[i].first));
            ASSERT_EQ(button != nullptr, i < count) << frame;
            if (button == nullptr) continue;
            const LONG right = left + 32 + bytes[i].second * metrics.tmAveCharWidth;
            EXPECT_EQ(CRect(PlaceInParent(button)), CRect(left, 2, right, 23));
            EXPECT_EQ(::GetWindowLongA(button, GWL_STYLE) & ~WS_CLIPSIBLINGS, LONG{0x50004000});
            if (frame == 30) { // of one row, at half the height and as far from the left
                EXPECT_EQ(ground.Look({left + 10, 12, left + 40, 13})[0], std::string(30, "abc"[i]));
            }
            left = right;
        }
    }
    CArchive stored, expected;
    StoreBoxes(expected, ButtonRow(3, 32, 21)); // without their texts
    EXPECT_TRUE(strip.SerializeButtonRects(stored));
    EXPECT_EQ(stored.GetStored(), expected.GetStored());
    CArchive whole(stored.GetStored()), cut(std::span(stored.GetStored()).first(1)), again;
    CSkinToolStrip copy;
    EXPECT_TRUE(copy.SerializeButtonRects(whole) && !copy.SerializeButtonRects(cut));
    copy.SerializeButtonRects(again);
    EXPECT_EQ(again.GetStored(), stored.GetStored());
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
    button.SendMessage(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(surface.GetHandle()), PRF_CLIENT);
    EXPECT_EQ(surface.Read()[0], "aaaaaaaaaaaaaaaaaaaaaa ");
}

} // namespace
