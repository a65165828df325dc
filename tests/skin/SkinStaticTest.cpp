// The skin static on a real window: its stretched picture, its caption, and the way of commands through it.
#include "skin/SkinStatic.h"

#include <memory>

#include <gtest/gtest.h>

#include "Ground.h"
#include "skin/SkinButton.h"

namespace {

constexpr COLORREF blue = RGB(0, 0, 255);
const CRect place{30, 30, 90, 50};

TEST(SkinStatic, TheCaptionStandsOnTheStretchedPictureOrOnTheGround) {
    CGround ground;
    CSkinStatic label, inner; // the one within the other, where neither has a picture
    Put(label, ground, "STATIC", place, 0, "Template text");
    Put(inner, label, "STATIC", {0, 0, 60, 20});
    Art blank(20, std::string(60, 'g')), rounded(20, "d" + std::string(58, 'e') + "f"),
        halves(20, std::string(60, 'a'));
    rounded[0] = "a" + std::string(58, 'b') + "c";
    for (std::size_t y = 10; y < 20; ++y) halves[y].assign(60, 'd');
    struct Row {
        CSkinStatic& shown;
        const char* picture; // its upper row; null: as before
        int corner;
        const char* caption;
        int left;
        const Art& face;
    };
    const Row rows[] = {{label, "", 0, "First", 5, blank},
                        {label, "", 0, "Second", 5, blank},
                        {label, "", 0, "Second", 9, blank},
                        {label, "", 0, "", 9, blank},
                        {inner, "", 0, "Third", 9, blank},
                        {inner, "", 0, "Fourth && W", 9, blank},
                        {inner, "", 0, "", 9, blank},
                        {label, "abc", 1, "", 0, rounded},
                        {label, nullptr, 1, "W", 10, rounded},
                        {label, nullptr, 1, "More than there is room for", 5, rounded},
                        {label, "aaa", 0, "Caption", 5, halves},
                        {label, nullptr, 0, "", 5, halves}};
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        const std::string upper = row.picture != nullptr ? row.picture : "";
        const CPictureFile file("label.bmp",
                                BitmapFileOf({upper.empty() ? "   " : upper, upper == "abc" ? "def" : "ddd"}));
        if (row.picture != nullptr) row.shown.SetBitmapFile(upper.empty() ? "no such.bmp" : file.name);
        row.shown.cornerWidth = row.shown.cornerHeight = row.corner;
        row.shown.SetCaption(row.caption, row.left, blue);
        if (row.face != blank) row.shown.ShowWindow(SW_SHOW), inner.ShowWindow(SW_HIDE), row.shown.Invalidate();
        PumpMessages();
        CSurface expected(60, 20);
        const CSkinBitmap drawn = MakePicture(row.face);
        drawn.Draw(expected.GetHandle(), drawn.GetBounds());
        DrawExpected(expected, ground, row.caption, blue, {row.left, 0, 60, 20}, DT_VCENTER | DT_SINGLELINE);
        EXPECT_EQ(ground.Pixels(place), expected.Pixels());
    }
    EXPECT_EQ(ground.fontsAsked, 2) << "once by each";
}

TEST(SkinStatic, ACommandFromAnyDepthReachesTheDialogOnce) {
    CGround ground;
    CSkinStatic label;
    auto inner = std::make_unique<CSkinStatic>();
    CSkinButton button;
    Put(label, ground, "STATIC", place);
    Put(*inner, label, "STATIC", {0, 0, 60, 20});
    Put(button, *inner, "BUTTON", {0, 0, 10, 10});
    const ReceivedCommand click{7, BN_CLICKED, button.GetHandle()};
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(ground.commands, std::vector{click});
    ground.atCommand = [&] { inner.reset(); }; // the dialog may drop the static that passes the command on
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(ground.commands, std::vector(2, click));
    EXPECT_EQ(button.GetHandle(), nullptr);
}

} // namespace
