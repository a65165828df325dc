// The selector, the tool strip and the separator on a real window.
#include "skin/SkinToolStrip.h"

#include <map>
#include <random>

#include <gtest/gtest.h>

#include "Ground.h"
#include "resources/ResourceIds.h"
#include "skin/SkinSelector.h"
#include "skin/SkinSeparator.h"
#include "skin/StripLayout.h"
#include "support/Seed.h"

namespace {

constexpr UINT wideText = 60000;
constexpr std::uint16_t stripPicture = 401;

TEST(SkinSelector, AClickChoosesItsSlotAtOnce) {
    constexpr int width = 12, slotHeight = 44;
    const CGround ground;
    CSkinSelector selector;
    selector.Create("STATIC", "", WS_CHILD | WS_VISIBLE | SS_NOTIFY, {0, 0, width, 190}, ground.GetHandle(), 7);
    const CPictureFile picture("slots.bmp", BitmapFileOf(Art(4 * slotHeight, std::string(width, 'p'))));
    EXPECT_TRUE(selector.SetBitmapFile(picture.name));
    for (const char color : {'A', 'B', ' ', 'D'}) { // one is missing
        const CPictureFile image(color == ' ' ? "no.bmp" : "slot.bmp",
                                 BitmapFileOf(Art(slotHeight, std::string(width / 2, color))));
        selector.AddImage(color == ' ' ? "no such.bmp" : image.name);
    }
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
            Art expected(190, std::string(width, 'g'));
            for (std::size_t y = 0; y < 4 * slotHeight; ++y)
                expected[y] = std::string(width / 2, row.slots[y / slotHeight]) + std::string(width / 2, 'p');
            EXPECT_EQ(ground.Look({0, 0, width, 190}), expected) << row.y;
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
        strip.Create("STATIC", "", WS_CHILD | WS_VISIBLE, {0, 0, 300, 30}, ground.GetHandle(), 1039);
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
    }
}

TEST_F(SkinToolStrip, StoredPlacesComeBackAndAParentMayRebuildItWheneverItHears) {
    strip.SetButtonIds({IDS_START, IDS_OK});
    strip.CreateButtons(40, 21, 30);
    CArchive made, again;
    strip.SerializeButtonRects(made);
    CArchive whole(made.GetStored()), cut(std::span(made.GetStored()).first(33));
    CSkinToolStrip other;
    EXPECT_TRUE(other.SerializeButtonRects(whole) && !other.SerializeButtonRects(cut));
    other.SerializeButtonRects(again);
    EXPECT_EQ(again.GetStored(), made.GetStored());
    strip.SendMessage(WM_COMMAND, MAKEWPARAM(IDS_OK, BN_CLICKED), 0);
    EXPECT_EQ(ground.commands.back().id, static_cast<UINT>(IDS_OK));
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
    strip.Create("STATIC", "", WS_CHILD | WS_VISIBLE, {0, 0, 300, 30}, ground.GetHandle(), 1039);
    EXPECT_EQ(strip.GetDlgItem(IDS_YES), nullptr) << "of another window";
}

TEST(SkinButton, TakesItsPictureFromAResource) {
    const CGround ground;
    CSkinButton button;
    button.Create("BUTTON", "", WS_CHILD | WS_VISIBLE, {0, 0, 22, 1}, ground.GetHandle(), 7);
    EXPECT_TRUE(button.SetBitmapResource(stripPicture));
    const CSurface surface(23, 1);
    Print(button, surface);
    EXPECT_EQ(surface.Read()[0], std::string(22, 'a') + " ");
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
    Art picture(12, "cccccttccccc"), expected(12, "Lcccc" + std::string(10, 't') + "cccccL ");
    for (const std::size_t y : {5U, 6U}) {
        picture[y] = "lllllmmrrrrr";
        expected[y] = "Lllll" + std::string(10, 'm') + "rrrrrL ";
    }
    const CPictureFile file("separator.bmp", BitmapFileOf(picture));
    EXPECT_TRUE(separator.SetBitmapFile(file.name));
    EXPECT_EQ(look(), expected);
}

} // namespace
