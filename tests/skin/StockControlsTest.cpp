// The selector, the tool strip, the round button and the display on a real window.
#include <gtest/gtest.h>

#include "Ground.h"
#include "resources/ResourceIds.h"
#include "skin/RoundButton.h"
#include "skin/SegmentDisplay.h"
#include "skin/SkinSelector.h"
#include "skin/SkinToolStrip.h"
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
    for (const char color : std::string("AB D")) { // one is missing
        const CPictureFile image(
            "slot.bmp", color == ' ' ? FileBytes() : BitmapFileOf(Art(slotHeight, std::string(width / 2, color))));
        selector.AddImage(image.name);
    }
    selector.Invalidate();
    // clang-format off
    const std::tuple<int, const char*, int, bool> rows[] = {
        {200, "Appp", 0, false}, {44, "pBpp", 1, true}, {176, "pBpp", 1, false}, {175, "pppD", 3, true}, {131, "pppp", 2, true}};
    // clang-format on
    for (const auto& [y, slots, selected, hand] : rows) {
        for (const UINT message : {WM_LBUTTONDOWN, WM_MOUSEMOVE, WM_LBUTTONUP}) {
            ::SetCursor(nullptr);
            if (y > 199) PumpMessages(); // not painted as yet
            Mouse(selector, message, 3, y);
            EXPECT_EQ(::GetCursor() != nullptr, hand) << y;
            const Art look = ground.Look({0, 0, width, 4 * slotHeight});
            for (std::size_t i = 0; i < look.size(); ++i)
                ASSERT_EQ(look[i], std::string(width / 2, slots[i / slotHeight]) + "pppppp") << y << " " << i;
            EXPECT_EQ(selector.GetSelected(), selected) << y;
        }
    }
    selector.RemoveImages();
    selector.Invalidate();
    PumpMessages();
    EXPECT_EQ(ground.Look({0, 0, 1, 176}), Art(176, "p"));
}

// As many as there are frames and ids.
TEST(SkinToolStrip, ButtonsHaveTheirPictureAndRoomForTheirText) {
    const CGround ground;
    CSkinToolStrip strip;
    Put(strip, ground, "STATIC", {0, 0, 300, 30});
    EXPECT_TRUE(strip.LoadStrip(stripPicture) && !CSkinToolStrip().LoadStrip(9999));
    TEXTMETRICA metrics{};
    ::GetTextMetricsA(CClientDC(strip.GetHandle()).GetHandle(), &metrics);
    const std::vector<UINT> all{IDS_START, wideText, IDS_OK, IDS_YES};
    for (const auto& [ids, frame, count] : {std::array{4, 20, 4}, {4, 0, 0}, {2, 20, 2}, {4, 91, 0}, {4, 30, 3}}) {
        const std::vector wanted(all.begin(), all.begin() + ids);
        strip.SetButtonIds(wanted);
        strip.CreateButtons(32, 21, frame);
        PumpMessages();
        LONG left = 30;
        for (int i = 0; i < 4; ++i) {
            const HWND button = strip.GetDlgItem(static_cast<int>(all[static_cast<std::size_t>(i)]));
            ASSERT_EQ(button != nullptr, i < count) << frame;
            if (button == nullptr) continue;
            const LONG right = left + 32 + std::array{5, 6, 2, 3}[static_cast<std::size_t>(i)] * metrics.tmAveCharWidth;
            EXPECT_EQ(CRect(PlaceInParent(button)), CRect(left, 2, right, 23));
            EXPECT_EQ(::GetWindowLongA(button, GWL_STYLE) & ~WS_CLIPSIBLINGS, LONG{0x50004000});
            if (frame == 30) { // of one row, at half the height and as far from the left
                EXPECT_EQ(ground.Look({left + 10, 12, left + 40, 13})[0], std::string(30, "abc"[i]));
            }
            left = right;
        }
    }
    CSkinButton single;
    Put(single, ground, "BUTTON", {0, 40, 22, 41});
    EXPECT_TRUE(single.SetBitmapResource(stripPicture));
    const CSurface surface(22, 1);
    single.SendMessage(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(surface.GetHandle()), PRF_CLIENT);
    EXPECT_EQ(surface.Read()[0], std::string(22, 'a'));
    CArchive stored, expected, again;
    StoreRects(expected, ButtonRow(3, 32, 21)); // without their texts
    EXPECT_TRUE(strip.SerializeButtonRects(stored) && stored.GetStored() == expected.GetStored());
    CArchive whole(stored.GetStored()), cut(std::span(stored.GetStored()).first(1));
    CSkinToolStrip copy;
    EXPECT_TRUE(copy.SerializeButtonRects(whole) && !copy.SerializeButtonRects(cut));
    EXPECT_TRUE(copy.SerializeButtonRects(again) && again.GetStored() == stored.GetStored());
}

TEST(RoundButton, IsACircleInAWindowOfAnyForm) {
    const CGround ground;
    CRoundButton button;
    Put(button, ground, "BUTTON", {10, 20, 40, 60}, 0, "WWWWWWW");
    EXPECT_EQ(PlaceText(button.GetHandle()), "10,20,30,30");
    const CRgn shape(::CreateRectRgn(0, 0, 0, 0)), circle(::CreateEllipticRgn(0, 0, 30, 30));
    EXPECT_NE(::GetWindowRgn(button.GetHandle(), shape.GetHandle()), ERROR);
    EXPECT_EQ(::CombineRgn(shape.GetHandle(), shape.GetHandle(), circle.GetHandle(), RGN_XOR), NULLREGION);
}

TEST(SegmentDisplay, ShowsTextsAndTheTimeInItsColoursAndTheSizeOfItsFirstPaint) {
    const CGround ground;
    CSegmentDisplay display;
    Put(display, ground, "STATIC", {10, 10, 110, 46}); // lines of 2 pixels, segments of 12, a pitch of 20
    const auto look = [&] { return PumpMessages(), ground.Pixels({10, 10, 110, 100}); };
    display.SetWindowPos(nullptr, 10, 10, 100, 90, SWP_NOZORDER);
    display.SetText("1");
    const auto one = look();
    EXPECT_EQ(std::vector(one.begin() + 3600, one.end()), std::vector<COLORREF>(5400, 0));
    display.SetText("");
    EXPECT_EQ(look(), std::vector<COLORREF>(9000, 0));
    display.text = "1";
    display.Refresh();
    EXPECT_EQ(look(), one);
    display.SetSegmentColor(CSegmentDisplay::systemColor);
    display.SetBackColor(CSegmentDisplay::systemColor); // the upper segment of the "1" is lit, and no corner
    EXPECT_TRUE(look()[10 * 100 + 14] == ::GetSysColor(COLOR_BTNTEXT) && look()[8999] == ::GetSysColor(COLOR_BTNFACE));
    display.SetTimeText("%H:%M");
    EXPECT_TRUE(display.GetWindowText().size() == 5 && display.text[2] == ':') << display.text;
}

} // namespace
