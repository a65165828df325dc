// The round button: its shape on a window, its pixels in each state on a surface.
#include "skin/RoundButton.h"

#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "Ground.h"

namespace {

constexpr int side = 30, middle = 15;

class RoundButton : public testing::Test {
protected:
    RoundButton() {
        button.Create("BUTTON", "", WS_CHILD | WS_VISIBLE | WS_TABSTOP, {10, 20, 40, 60}, ground.GetHandle(), 7);
        PumpMessages();
    }
    std::vector<COLORREF> Draw(UINT state, const char* text = "") {
        button.SetWindowText(text);
        const CSurface surface(side, side);
        ::SetTextColor(surface.GetHandle(), 0);
        DrawButton(button, surface, state, {0, 0, side, side});
        return surface.Pixels();
    }
    static std::size_t Index(int x, int y) { return static_cast<std::size_t>(y * side + x); }

    CGround ground;
    CRoundButton button;
};

TEST_F(RoundButton, BecomesRoundAtItsUpperLeftCorner) {
    EXPECT_EQ(PlaceText(button.GetHandle()), "10,20,30,30");
    const CRgn shape(::CreateRectRgn(0, 0, 0, 0)), circle(::CreateEllipticRgn(0, 0, side, side));
    EXPECT_NE(::GetWindowRgn(button.GetHandle(), shape.GetHandle()), ERROR);
    EXPECT_EQ(::CombineRgn(shape.GetHandle(), shape.GetHandle(), circle.GetHandle(), RGN_XOR), NULLREGION);
}

// Two rings, which are black below the focus, lit from the upper left: by their distance from the middle.
TEST_F(RoundButton, StatesChooseTheRings) {
    const auto system = [](int color) { return ::GetSysColor(color); };
    const COLORREF highlight = system(COLOR_BTNHIGHLIGHT), dark = system(COLOR_3DDKSHADOW), black = 0;
    const COLORREF light = system(COLOR_3DLIGHT), shadow = system(COLOR_BTNSHADOW), face = system(COLOR_BTNFACE);
    using Rings = std::vector<std::pair<COLORREF, COLORREF>>; // from outside, upper left and lower right
    struct Row {
        UINT state;
        DWORD style;
        bool focusBorder;
        Rings rings;
    };
    const Rings raised{{highlight, dark}, {light, shadow}}, sunken{{dark, highlight}, {shadow, light}};
    const Rings flat{{black, black}, {highlight, highlight}};
    const Row rows[] = {{0, 0, true, raised},
                        {ODS_SELECTED, 0, true, sunken},
                        {ODS_FOCUS, 0, true, {{black, black}, raised[0], raised[1]}},
                        {ODS_FOCUS, 0, false, raised},
                        {ODS_SELECTED, BS_FLAT, true, flat},
                        {ODS_FOCUS, BS_FLAT, true, {{black, black}, flat[0], flat[1]}}};
    for (const Row& row : rows) {
        SCOPED_TRACE(&row - rows);
        button.ModifyStyle(BS_FLAT, row.style);
        button.focusBorder = row.focusBorder;
        const std::vector<COLORREF> look = Draw(row.state);
        std::size_t dots = 0;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const double distance = std::hypot(x - middle, y - middle);
                const COLORREF color = look[Index(x, y)];
                if (distance > 14.8 || distance < 8 || (distance > 10 && distance < 11)) {
                    EXPECT_EQ(color, face) << x << "," << y;
                } else if (distance < 9.8) {
                    EXPECT_TRUE(color == face || color == black);
                    dots += color == black ? 1 : 0;
                }
            }
        }
        EXPECT_EQ(dots > 10 && dots < 50, row.rings.size() == 3) << dots;
        for (int ring = 0; ring < static_cast<int>(row.rings.size()); ++ring) {
            const auto& [upper, lower] = row.rings[static_cast<std::size_t>(ring)];
            const int step = static_cast<int>(std::lround((14 - ring) * std::sqrt(0.5)));
            EXPECT_EQ(look[Index(middle - step, middle - step)], upper) << ring;
            EXPECT_EQ(look[Index(middle + step, middle + step)], lower) << ring;
            for (const int at : {middle - 14 + ring, middle + 14 - ring}) EXPECT_NE(look[Index(at, middle)], face);
        }
    }
}

TEST_F(RoundButton, CaptionStaysInsideAndFollowsThePress) {
    const std::vector<COLORREF> bare = Draw(0), up = Draw(0, "i"), down = Draw(ODS_SELECTED, "i");
    EXPECT_NE(up, bare);
    for (int y = 8; y < 22; ++y) {
        for (int x = 8; x < 22; ++x) EXPECT_EQ(up[Index(x, y)], down[Index(x + 1, y + 1)]) << x << "," << y;
    }
    const std::vector<COLORREF> wide = Draw(0, "WWWWWWW\xE4\xB8\xAD");
    EXPECT_NE(bare, wide);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            if (std::hypot(x - middle, y - middle) <= 12.5) continue;
            EXPECT_EQ(wide[Index(x, y)], bare[Index(x, y)]) << x << "," << y;
        }
    }
    const std::vector<COLORREF> engraved = Draw(ODS_DISABLED, "&i");
    EXPECT_NE(engraved, bare);
    EXPECT_EQ(std::ranges::count(engraved, 0U), std::ranges::count(bare, 0U));
}

} // namespace
