// The skin static on a real window: its stretched picture, its caption, and the way of commands through it.
#include "skin/SkinStatic.h"

#include <chrono>
#include <memory>
#include <tuple>

#include <gtest/gtest.h>

#include "Ground.h"
#include "TimeFactor.h"
#include "skin/SkinButton.h"

namespace {

constexpr UINT captionFormat = DT_VCENTER | DT_SINGLELINE;
constexpr COLORREF blue = RGB(0, 0, 255);
constexpr UINT buttonId = 1024;

class SkinStatic : public testing::Test {
protected:
    SkinStatic() { Make(label, place, ground); }

    static void Make(CSkinStatic& made, const CRect& rect, const CWnd& parent) {
        made.Create("STATIC", "Template text", WS_CHILD | WS_VISIBLE, rect, parent.GetHandle(), 7);
        CGround::Pump();
    }

    void LoadPicture(const Art& art) {
        const CPictureFile file("label.bmp", BitmapFileOf(art));
        ASSERT_TRUE(label.SetBitmapFile(file.name));
    }

    // The face, with the caption over it.
    void ExpectLook(const Art& face, const char* caption, int left, COLORREF color) {
        CSurface expected(60, 20);
        const CSkinBitmap drawn = MakePicture(face);
        drawn.Draw(expected.GetHandle(), drawn.GetBounds());
        DrawExpected(expected, ground, caption, color, {left, 0, 60, 20}, captionFormat);
        CGround::Pump();
        EXPECT_EQ(ground.Pixels(place), expected.Pixels()) << caption;
    }

    const CRect place{30, 30, 90, 50};
    const Art blank = Art(20, std::string(60, 'g'));
    CGround ground;
    CCounted<CSkinStatic> label;
};

TEST_F(SkinStatic, TheCaptionStandsOnTheStretchedPicture) {
    LoadPicture({"abc", "def"});
    label.cornerWidth = 1;
    label.cornerHeight = 1;
    Art face(20, "d" + std::string(58, 'e') + "f");
    face[0] = "a" + std::string(58, 'b') + "c";
    label.Invalidate();
    ExpectLook(face, "", 0, blue);
    EXPECT_EQ(ground.fontsAsked, 0);
    for (const auto& [text, left] : {std::pair("Caption", 5), {"Two words && more than there is room for", 10}}) {
        label.SetCaption(text, left, blue);
        label.Invalidate();
        ExpectLook(face, text, left, blue);
        EXPECT_EQ(label.GetWindowText(), text);
    }
    EXPECT_EQ(ground.fontsAsked, 1);

    LoadPicture({"a", "b"});
    label.cornerWidth = label.cornerHeight = 0;
    label.SetCaption("", 0, blue);
    label.Invalidate();
    Art halves(20, std::string(60, 'a'));
    for (std::size_t y = 10; y < 20; ++y) halves[y].assign(60, 'b');
    ExpectLook(halves, "", 0, blue);
}

int CALLBACK CountText(HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM counter) {
    if (record->iType == EMR_EXTTEXTOUTW) ++*reinterpret_cast<int*>(counter);
    return 1;
}

// A text in a bitmap would be stretched where the system scales.
TEST_F(SkinStatic, CaptionsReachTheContextAsText) {
    LoadPicture({"a"});
    CSkinButton button;
    button.Create("BUTTON", "", WS_CHILD, place, ground.GetHandle(), buttonId);
    const CBitmap strip(MakeBitmap(Art(20, std::string(240, '1')))), former(button.SetBitmapHandle(strip.GetHandle()));
    button.SetCaption("Caption", 5, blue);
    label.SetCaption("Caption", 5, blue);
    for (const HWND control : {label.GetHandle(), button.GetHandle()}) {
        const HDC dc = ::CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr);
        ::SendMessageA(control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
        const HENHMETAFILE drawing = ::CloseEnhMetaFile(dc);
        int texts = 0;
        ::EnumEnhMetaFile(nullptr, drawing, &CountText, &texts, nullptr);
        ::DeleteEnhMetaFile(drawing);
        EXPECT_EQ(texts, 1);
    }
}

TEST_F(SkinStatic, ALargePictureIsPaintedSoon) {
    const CPictureFile file("large.bmp", MakeBitmapFile(24, 4000, 4000));
    for (const auto& [width, height, corner] : {std::tuple(60, 20, 0), {300, 200, 0}, {300, 200, 50}}) {
        label.SetWindowPos(nullptr, 0, 0, width, height, SWP_NOZORDER);
        label.cornerWidth = label.cornerHeight = corner;
        auto time = std::chrono::steady_clock::duration::max();
        for (int tries = 0; tries < 3; ++tries) {
            const auto start = std::chrono::steady_clock::now();
            ASSERT_TRUE(label.SetBitmapFile(file.name));
            label.Invalidate();
            label.UpdateWindow();
            time = std::min(time, std::chrono::steady_clock::now() - start);
        }
        EXPECT_LT(time, std::chrono::milliseconds(50) * TimeFactor()) << width;
        EXPECT_EQ(::GetPixel(CClientDC(label.GetHandle()).GetHandle(), width - 1, height - 1), RGB(255, 200, 10));
    }
}

TEST_F(SkinStatic, NothingIsPaintedUnlessAsked) {
    LoadPicture({"a"});
    label.Invalidate();
    CGround::Pump();
    const int before = label.paints;
    label.SetCaption("Text", 5, blue);
    ::SetWindowTextA(label.GetHandle(), "Other");
    ExpectLook(Art(20, std::string(60, 'a')), "", 0, blue);
    EXPECT_EQ(label.paints, before);
    ::EnableWindow(label.GetHandle(), FALSE);
    ExpectLook(Art(20, std::string(60, 'a')), "Text", 5, blue);
}

TEST_F(SkinStatic, APartIsPaintedAlone) {
    LoadPicture({"a"});
    label.Invalidate();
    CGround::Pump();
    CClientDC(label.GetHandle()).FillSolidRect(label.GetClientRect(), ColorOf('x'));
    const CRect part{10, 5, 30, 15};
    ::InvalidateRect(label.GetHandle(), &part, FALSE);
    CGround::Pump();
    Art look(20, std::string(60, 'x'));
    for (std::size_t y = 5; y < 15; ++y) look[y].replace(10, 20, 20, 'a');
    EXPECT_EQ(ground.Look(place), look);
    EXPECT_FALSE(::GetUpdateRect(label.GetHandle(), nullptr, FALSE)) << "nothing is left to be painted";
}

TEST_F(SkinStatic, WithoutAPictureTheCaptionStandsOnTheGround) {
    EXPECT_FALSE(label.SetBitmapFile("no such.bmp"));
    for (const char* text : {"First", "Second", ""}) { // each instead of the one before
        label.SetCaption(text, 5, blue);
        ExpectLook(blank, text, 5, blue);
    }
    CSkinStatic inner; // on a blank one
    Make(inner, {0, 0, 60, 20}, label);
    for (const char* text : {"First", "Second", ""}) {
        inner.SetCaption(text, 5, blue);
        ExpectLook(blank, text, 5, blue);
    }
}

TEST_F(SkinStatic, ACommandFromAnyDepthReachesTheDialogOnce) {
    auto inner = std::make_unique<CSkinStatic>();
    Make(*inner, {0, 0, 60, 20}, label);
    CSkinButton button;
    button.Create("BUTTON", "", WS_CHILD | WS_VISIBLE, {0, 0, 10, 10}, inner->GetHandle(), buttonId);
    const ReceivedCommand click{buttonId, BN_CLICKED, button.GetHandle()};
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(ground.commands, std::vector{click});
    // The dialog may drop the static that passes the command on.
    ground.atCommand = [&] { inner.reset(); };
    button.SendMessage(BM_CLICK);
    EXPECT_EQ(ground.commands, std::vector(2, click));
    EXPECT_EQ(button.GetHandle(), nullptr);
}

TEST_F(SkinStatic, ManyPaintsKeepNoHandle) {
    LoadPicture({"abc", "def"});
    label.cornerWidth = 1;
    label.SetCaption("Caption", 5, blue);
    RecordProperty("microseconds", static_cast<int>(PaintOften(label)));
}

} // namespace
