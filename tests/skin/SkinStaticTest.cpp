// The skin static on a real window: its stretched picture, its caption, and the way of commands through it.
#include "skin/SkinStatic.h"

#include <memory>
#include <optional>

#include <gtest/gtest.h>

#include "Ground.h"
#include "skin/SkinButton.h"

namespace {

const CRect place{30, 30, 90, 50};

// The one within the other: whatever they showed before, they look as new ones do that are so from the start.
TEST(SkinStatic, NothingStaysOfAFormerCaptionOrPicture) {
    const CGround ground;
    struct Pair {
        explicit Pair(const CGround& ground) {
            Put(label, ground, "STATIC", place, 0, "Template text");
            Put(inner, label, "STATIC", {20, 0, 60, 20});
        }
        CSkinStatic label, inner;
    };
    struct Row {
        const char *picture, *outer, *within; // the picture's two rows of three pixels, one after the other
        int left, corner;
    };
    const Row rows[] = {{"", "First", "Third", 5, 0},
                        {"", "Second", "Fourth && W", 5, 0},
                        {"", "Second", "Fourth", 9, 0},
                        {"", "", "", 9, 0},
                        {"abcdef", "", "", 0, 1},
                        {"abcdef", "W", "X", 10, 1},
                        {"abcdef", "W", "Y", 10, 0},
                        {"aaaddd", "More than there is room for", "", 5, 0},
                        {"", "", "W", 0, 0},
                        {"aaaddd", "", "W", 0, 1}};
    std::vector<COLORREF> former;
    std::optional<Pair> old(std::in_place, ground);
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        const std::string cells = row.picture;
        const CPictureFile file("label.bmp",
                                BitmapFileOf({(cells + "   ").substr(0, 3), (cells + "      ").substr(3, 3)}));
        const auto show = [&](Pair& pair) {
            pair.label.SetBitmapFile(cells.empty() ? "no such.bmp" : file.name);
            pair.label.cornerWidth = pair.label.cornerHeight = row.corner;
            pair.label.SetCaption(row.outer, row.left, RGB(0, 0, 255));
            pair.inner.SetCaption(row.within, row.left, RGB(0, 0, 255));
            PumpMessages();
            return ground.Pixels(place);
        };
        const auto look = show(*old);
        EXPECT_NE(look, std::exchange(former, look));
        old->label.ShowWindow(SW_HIDE);
        {
            Pair made(ground);
            EXPECT_EQ(show(made), look);
        }
        old->label.ShowWindow(SW_SHOW);
    }
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
