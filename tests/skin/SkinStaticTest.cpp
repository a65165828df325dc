// The skin static on a real window: its stretched picture, its caption, and the way of commands through it.
#include "skin/SkinStatic.h"

#include <memory>

#include <gtest/gtest.h>

#include "Ground.h"
#include "skin/SkinButton.h"

namespace {

constexpr COLORREF blue = RGB(0, 0, 255);
constexpr UINT buttonId = 1024;

class SkinStatic : public testing::Test {
protected:
    SkinStatic() { Make(label, place, ground); }

    static void Make(CSkinStatic& made, const CRect& rect, const CWnd& parent) {
        made.Create("STATIC", "Template text", WS_CHILD | WS_VISIBLE, rect, parent.GetHandle(), 7);
        PumpMessages();
    }
    void LoadPicture(const Art& art) {
        const CPictureFile file("label.bmp", BitmapFileOf(art));
        ASSERT_TRUE(label.SetBitmapFile(file.name));
    }
    // The face, with the caption over it.
    void ExpectLook(const Art& face, const char* caption, int left) {
        CSurface expected(60, 20);
        const CSkinBitmap drawn = MakePicture(face);
        drawn.Draw(expected.GetHandle(), drawn.GetBounds());
        DrawExpected(expected, ground, caption, blue, {left, 0, 60, 20}, DT_VCENTER | DT_SINGLELINE);
        PumpMessages();
        EXPECT_EQ(ground.Pixels(place), expected.Pixels()) << caption;
    }

    const CRect place{30, 30, 90, 50};
    CGround ground;
    CCounted<CSkinStatic> label;
};

TEST_F(SkinStatic, TheCaptionStandsOnTheStretchedPicture) {
    LoadPicture({"abc", "def"});
    Art rounded(20, "d" + std::string(58, 'e') + "f"), halves(20, std::string(60, 'a'));
    rounded[0] = "a" + std::string(58, 'b') + "c";
    for (std::size_t y = 10; y < 20; ++y) halves[y].assign(60, 'd');
    for (const auto& [text, left] :
         {std::pair("", 0), {"Caption", 5}, {"Two words && more than there is room for", 10}}) {
        label.cornerWidth = label.cornerHeight = 1;
        label.SetCaption(text, left, blue);
        label.Invalidate();
        ExpectLook(rounded, text, left);
        EXPECT_EQ(label.GetWindowText(), left == 0 ? "Template text" : text);
        EXPECT_EQ(ground.fontsAsked, left == 0 ? 0 : 1);
    }
    label.cornerWidth = label.cornerHeight = 0;
    LoadPicture({"aaa", "ddd"});
    for (const char* text : {"Caption", ""}) { // the face that was kept goes with the corners, and with the picture
        label.SetCaption(text, 5, blue);
        label.Invalidate();
        ExpectLook(halves, text, 5);
    }
    const int before = label.paints;
    label.SetCaption("Other", 5, blue);
    ExpectLook(halves, "", 5);
    EXPECT_EQ(label.paints, before) << "nothing is painted unless asked";

    CClientDC(label.GetHandle()).FillSolidRect(label.GetClientRect(), ColorOf('x'));
    label.SetCaption("", 5, blue);
    const CRect part{10, 5, 30, 10};
    ::InvalidateRect(label.GetHandle(), &part, FALSE);
    Art look(20, std::string(60, 'x'));
    for (std::size_t y = 5; y < 10; ++y) look[y].replace(10, 20, 20, 'a');
    ExpectLook(look, "", 5);
    EXPECT_FALSE(::GetUpdateRect(label.GetHandle(), nullptr, FALSE)) << "nothing is left to be painted";
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

TEST_F(SkinStatic, WithoutAPictureTheCaptionStandsOnTheGround) {
    EXPECT_FALSE(label.SetBitmapFile("no such.bmp"));
    CSkinStatic inner; // on a blank one
    Make(inner, {0, 0, 60, 20}, label);
    for (CSkinStatic* const blank : {static_cast<CSkinStatic*>(&label), &inner}) {
        for (const int left : {5, 9}) {
            for (const char* text : {"First", "Second", ""}) { // each instead of the one before
                blank->SetCaption(text, left, blue);
                ExpectLook(Art(20, std::string(60, 'g')), text, left);
            }
        }
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

} // namespace
