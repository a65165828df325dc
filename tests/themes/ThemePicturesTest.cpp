// The built theme pictures: the form that the program's layout asks of each, clean cut-outs, and captions that can be
// read on them. Read as files, since GDI would forgive a wrong form.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <ostream>
#include <string>
#include <vector>

namespace {

struct Color {
    int red, green, blue;
    bool operator==(const Color&) const = default;
    friend void PrintTo(const Color& color, std::ostream* out) {
        *out << color.red << ' ' << color.green << ' ' << color.blue;
    }
};

constexpr Color magenta{255, 0, 255};
constexpr Color chosenCaption{0, 0, 255}, otherCaption{80, 80, 80}, black{0, 0, 0}, white{255, 255, 255};

// An uncompressed bitmap of 24 bits a pixel. Any other file gives an empty picture.
class CPicture {
public:
    explicit CPicture(const std::string& name) {
        std::ifstream file("../bin/Themes/DefaultTheme/" + name, std::ios::binary);
        bytes.assign(std::istreambuf_iterator<char>(file), {});
        if (bytes.size() < 54 || bytes[0] != 'B' || bytes[1] != 'M' || Dword(14) != 40) return;
        if (Dword(28) % 0x10000 != 24 || Dword(30) != 0 || bytes.size() < Dword(10) + Stride(Dword(18)) * Dword(22))
            return;
        width = static_cast<int>(Dword(18));
        height = static_cast<int>(Dword(22));
    }

    Color At(int x, int y) const {
        const size_t row = static_cast<size_t>(height - 1 - y) * Stride(static_cast<size_t>(width));
        const size_t at = Dword(10) + row + static_cast<size_t>(x) * 3;
        return {Byte(at + 2), Byte(at + 1), Byte(at)};
    }

    int width = 0;
    int height = 0;

private:
    static size_t Stride(size_t pixels) { return (pixels * 3 + 3) / 4 * 4; }
    int Byte(size_t at) const { return static_cast<std::uint8_t>(bytes.at(at)); }
    size_t Dword(size_t at) const {
        return static_cast<size_t>(Byte(at) | Byte(at + 1) << 8 | Byte(at + 2) << 16) |
               static_cast<size_t>(Byte(at + 3)) << 24;
    }

    std::vector<char> bytes;
};

struct Form {
    const char* name;
    int minWidth, maxWidth, minHeight, maxHeight;
    int columns = 0, rows = 0; // of a strip of buttons, which is cut out of magenta

    bool IsStrip() const { return columns > 0; }
    friend void PrintTo(const Form& form, std::ostream* out) { *out << form.name; }
};

// No picture is larger than the smallest place that it fills, but for the bar in the labels. The smallest dialog is
// that of an empty message.
constexpr Form forms[] = {
    {"BottomPanel.bmp", 51, 480, 41, 347},
    {"BottomBorder.bmp", 51, 480, 3, 3},
    {"LeftTitleBar.bmp", 31, 465, 26, 30},
    {"DialogPanel.bmp", 21, 145, 11, 88},
    {"TopBorder.bmp", 1, 464, 1, 5},
    {"RightBorder.bmp", 1, 5, 1, 192},
    {"TextBK.bmp", 1, 200, 1, 20},
    {"TextBK2.bmp", 1, 110, 1, 24},
    {"StatusToolBar.bmp", 84, 84, 60, 60, 4, 3},
    {"XButton.bmp", 296, 296, 22, 22, 4, 1},
};

// The luminance ratio of WCAG 2: 4.5 and more is readable as running text.
double Contrast(Color first, Color second) {
    const auto linear = [](int value) {
        const double share = value / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    const auto luminance = [&](Color color) {
        return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue) + 0.05;
    };
    const double a = luminance(first), b = luminance(second);
    return std::max(a, b) / std::min(a, b);
}

bool IsSubset(Color bits, Color of) {
    return (bits.red & of.red) == bits.red && (bits.green & of.green) == bits.green &&
           (bits.blue & of.blue) == bits.blue;
}

std::vector<Color> Cell(const CPicture& picture, const Form& strip, int column, int row) {
    const int width = picture.width / strip.columns, height = picture.height / strip.rows;
    std::vector<Color> cell;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) cell.push_back(picture.At(column * width + x, row * height + y));
    return cell;
}

// Whether each row of the cell is one run between magenta ends, or magenta alone.
bool HasNoHole(const std::vector<Color>& cell, int width) {
    for (auto row = cell.begin(); row != cell.end(); row += width) {
        const auto isFace = [](Color color) { return color != magenta; };
        const auto first = std::find_if(row, row + width, isFace);
        if (std::any_of(std::find(first, row + width, magenta), row + width, isFace)) return false;
    }
    return true;
}

class CThemePicture : public testing::TestWithParam<Form> {};

TEST_P(CThemePicture, HasTheFormOfItsPlace) {
    const CPicture picture(GetParam().name);
    EXPECT_GE(picture.width, GetParam().minWidth);
    EXPECT_LE(picture.width, GetParam().maxWidth);
    EXPECT_GE(picture.height, GetParam().minHeight);
    EXPECT_LE(picture.height, GetParam().maxHeight);
}

// No other colour of the theme has little green beside much red and blue, so what does is a blend with magenta.
TEST_P(CThemePicture, HasMagentaOnlyPureAndOnlyAroundButtons) {
    const CPicture picture(GetParam().name);
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x) {
            const Color color = picture.At(x, y);
            const bool purple = std::min(color.red, color.blue) > color.green + 40;
            ASSERT_TRUE(!purple || (color == magenta && GetParam().IsStrip())) << x << ", " << y;
        }
}

INSTANTIATE_TEST_SUITE_P(All, CThemePicture, testing::ValuesIn(forms), [](const auto& form) {
    const std::string name = form.param.name;
    return name.substr(0, name.find('.'));
});

// A hole in a face would be a hole in the window, which the mouse falls through.
TEST(ThemePictures, ButtonsHaveWholeFacesThatDifferInEveryState) {
    for (const Form& strip : forms) {
        if (!strip.IsStrip()) continue;
        const CPicture picture(strip.name);
        ASSERT_GT(picture.width, 0) << strip.name;
        for (int row = 0; row < strip.rows; ++row) {
            std::vector<std::vector<Color>> states;
            for (int column = 0; column < strip.columns; ++column) {
                const std::vector<Color> cell = Cell(picture, strip, column, row);
                EXPECT_EQ(cell.front(), magenta) << strip.name << " has no free corner in column " << column;
                EXPECT_TRUE(HasNoHole(cell, picture.width / strip.columns)) << strip.name << ", column " << column;
                EXPECT_EQ(std::count(states.begin(), states.end(), cell), 0) << strip.name << " repeats a state";
                states.push_back(cell);
            }
        }
    }
}

struct Ground {
    const char* name;
    int left, top, right, bottom; // where captions lie
    Color caption;
};

TEST(ThemePictures, CarryReadableCaptions) {
    constexpr Ground grounds[] = {
        {"LeftTitleBar.bmp", 5, 4, 340, 22, chosenCaption},
        {"XButton.bmp", 4, 4, 70, 18, chosenCaption},
        {"XButton.bmp", 4, 4, 70, 18, otherCaption},
        {"XButton.bmp", 78, 4, 144, 18, chosenCaption},
        {"XButton.bmp", 78, 4, 144, 18, otherCaption},
        {"XButton.bmp", 152, 4, 218, 18, chosenCaption},
        {"XButton.bmp", 152, 4, 218, 18, otherCaption},
        {"XButton.bmp", 226, 4, 292, 18, chosenCaption},
        {"TextBK.bmp", 0, 0, 200, 20, white},
        {"TextBK2.bmp", 0, 0, 100, 24, chosenCaption},
        {"TextBK2.bmp", 0, 0, 100, 24, black},
    };
    for (const Ground& ground : grounds) {
        const CPicture picture(ground.name);
        ASSERT_GE(picture.width, ground.right) << ground.name;
        ASSERT_GE(picture.height, ground.bottom) << ground.name;
        double worst = 21;
        for (int y = ground.top; y < ground.bottom; ++y)
            for (int x = ground.left; x < ground.right; ++x)
                worst = std::min(worst, Contrast(picture.At(x, y), ground.caption));
        EXPECT_GE(worst, 4.5) << ground.name << " at " << ground.left;
    }
}

// Labels are lower than the picture: GDI then joins rows with AND, which must give one of the two colours.
TEST(ThemePictures, BarRowsCanBeJoined) {
    const CPicture bar("LeftTitleBar.bmp");
    ASSERT_GT(bar.height, 0);
    for (int x = 0; x < bar.width; ++x)
        for (int y = 1; y < bar.height; ++y) ASSERT_TRUE(IsSubset(bar.At(x, y), bar.At(x, y - 1))) << x << ", " << y;
}

// On the panel the bar begins in its first row, and the totals 31 rows above its lower edge.
TEST(ThemePictures, BarAndTotalsMeetThePanelWithoutASeam) {
    const CPicture panel("BottomPanel.bmp"), bar("LeftTitleBar.bmp"), totals("TextBK.bmp");
    ASSERT_GT(panel.height, 57);
    ASSERT_GE(bar.height, 26);
    ASSERT_EQ(totals.height, 20);
    for (int y = 0; y < 26; ++y) EXPECT_EQ(panel.At(panel.width - 1, y), bar.At(bar.width - 1, y)) << y;
    for (int y = 0; y < 20; ++y) EXPECT_EQ(panel.At(10, panel.height - 31 + y), totals.At(0, y)) << y;
}

} // namespace
