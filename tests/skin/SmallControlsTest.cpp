// What many controls of the skin have in common on a screen: that the platform's look never shows, that nothing is
// painted at rest, and that no handle is lost; the coloured combo box and the bold font.
#include <algorithm>
#include <functional>
#include <memory>

#include <gtest/gtest.h>

#include "Ground.h"
#include "skin/BoldFont.h"
#include "skin/ColorCombo.h"
#include "skin/LinkStatic.h"
#include "skin/PlainIconButton.h"
#include "skin/RoundButton.h"
#include "skin/SegmentDisplay.h"
#include "skin/SkinBar.h"
#include "skin/SkinSelector.h"
#include "skin/SkinSeparator.h"
#include "skin/SkinToolStrip.h"

namespace {

const CRect place(10, 10, 70, 30);

template <class Control>
std::unique_ptr<Control> Put(std::unique_ptr<Control> made, const CGround& ground, const char* windowClass) {
    made->Create(windowClass, "W", WS_CHILD | WS_VISIBLE | WS_TABSTOP, place, ground.GetHandle(), 7);
    PumpMessages();
    return made;
}
std::unique_ptr<CSkinButton> MakeSkinButton(int mode) {
    auto made = std::make_unique<CSkinButton>();
    const CBitmap picture(MakeBitmap({"aabbccdd", "a.b.c.d."})), former(made->SetBitmapHandle(picture.GetHandle()));
    made->drawMode = mode;
    made->SetCaption("W", 5, 0x123456);
    return made;
}
template <class Control>
std::unique_ptr<Control> MakePictured() {
    auto made = std::make_unique<Control>();
    const CPictureFile file("picture.bmp", BitmapFileOf(Art(12, "abcdefghijkl")));
    EXPECT_TRUE(made->SetBitmapFile(file.name));
    return made;
}
std::unique_ptr<CSkinBar> MakeBar() {
    auto made = MakePictured<CSkinBar>();
    made->cornerWidth = made->cornerHeight = 1;
    made->SetCaption("W", 5, 0x123456);
    return made;
}
std::unique_ptr<CSkinSelector> MakeSelector() {
    auto made = MakePictured<CSkinSelector>();
    made->AddImage("no such.bmp");
    return made;
}
std::unique_ptr<CIconButton> MakeIconButton(bool plain) {
    std::unique_ptr<CIconButton> made = plain ? std::make_unique<CPlainIconButton>() : std::make_unique<CIconButton>();
    made->SetFlat(plain, false);
    made->SetBitmapHandles(MakeBitmap({"A.", "A."}), ColorOf('.'), nullptr, 0);
    made->SetToolTip("tip", true);
    return made;
}
std::unique_ptr<CSegmentDisplay> MakeDisplay() {
    auto made = std::make_unique<CSegmentDisplay>();
    made->SetText("-8:8.8");
    return made;
}

struct Kind {
    const char* name;
    bool painted; // by the control alone, whatever the platform's class would paint
    std::function<std::unique_ptr<CWnd>(const CGround&)> make;
};
const Kind kinds[] = {
    {"strip", true, [](const CGround& on) { return Put(MakeSkinButton(CSkinButton::stripMode), on, "BUTTON"); }},
    {"picture", true, [](const CGround& on) { return Put(MakeSkinButton(CSkinButton::pictureMode), on, "BUTTON"); }},
    {"bar", true, [](const CGround& on) { return Put(MakeBar(), on, "STATIC"); }},
    {"separator", true, [](const CGround& on) { return Put(MakePictured<CSkinSeparator>(), on, "STATIC"); }},
    {"selector", true, [](const CGround& on) { return Put(MakeSelector(), on, "STATIC"); }},
    {"display", true, [](const CGround& on) { return Put(MakeDisplay(), on, "STATIC"); }},
    {"icon", false, [](const CGround& on) { return Put(MakeIconButton(false), on, "BUTTON"); }},
    {"plain", false, [](const CGround& on) { return Put(MakeIconButton(true), on, "BUTTON"); }},
    {"round", false, [](const CGround& on) { return Put(std::make_unique<CRoundButton>(), on, "BUTTON"); }},
    {"link", false, [](const CGround& on) { return Put(std::make_unique<CLinkStatic>(), on, "STATIC"); }}};

// A strip's "disabled" differs, so each change is followed by its opposite.
TEST(AllControls, ThePlatformsLookNeverShowsAndNothingIsPaintedAtRest) {
    const std::function<void(const CWnd&)> changes[] = {
        [](const CWnd& each) { ::SetWindowTextA(each.GetHandle(), "Other"); },
        [](const CWnd& each) { each.EnableWindow(!each.IsWindowEnabled()); },
        [](const CWnd& each) { each.EnableWindow(!each.IsWindowEnabled()); },
        [](const CWnd& each) { each.SendMessage(BM_SETSTATE, TRUE); },
        [](const CWnd& each) { each.SendMessage(BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE); },
        [](const CWnd& each) { each.SendMessage(WM_UPDATEUISTATE, MAKEWPARAM(UIS_CLEAR, 3)); },
        [](const CWnd& each) { each.SendMessage(WM_SETFONT, 0, TRUE); },
        [](const CWnd& each) { each.SetFocus(); },
        [](const CWnd& each) { each.SendMessage(WM_KEYDOWN, VK_SPACE); },
        [](const CWnd& each) { each.SendMessage(WM_KEYUP, VK_SPACE); },
        [](const CWnd&) { ::SetFocus(nullptr); },
        [](const CWnd& each) { ::SetWindowLongA(each.GetHandle(), GWL_STYLE, each.GetStyle() | SS_NOTIFY); },
        [](const CWnd& each) { each.SendMessage(WM_SYSCOLORCHANGE); },
        [](const CWnd& each) { each.SendMessage(BM_CLICK); }};
    for (const Kind& kind : kinds) {
        SCOPED_TRACE(kind.name);
        const CGround ground;
        const auto control = kind.make(ground);
        for (int rest = 0; rest < 3; ++rest) {
            EXPECT_FALSE(::GetUpdateRect(control->GetHandle(), nullptr, FALSE));
            PumpMessages();
        }
        if (!kind.painted) continue;
        const auto look = ground.Pixels(place);
        std::vector<COLORREF> disabled;
        for (const auto& change : changes) {
            change(*control);
            const auto atOnce = ground.Pixels(place);
            PumpMessages();
            const auto after = ground.Pixels(place);
            if (!control->IsWindowEnabled()) disabled = after;
            EXPECT_TRUE(after == (control->IsWindowEnabled() ? look : disabled)) << &change - changes;
            EXPECT_TRUE(atOnce == look || atOnce == disabled) << &change - changes;
        }
        EXPECT_EQ(control->GetWindowText(), "Other");
    }
}

TEST(AllControls, LoseNoHandleFromTheirMakingToTheirEnd) {
    for (const Kind& kind : kinds) {
        SCOPED_TRACE(kind.name);
        const CGround ground;
        ExpectNoGdiObjectLost(20, [&] {
            const auto control = kind.make(ground);
            for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_CANCELMODE, WM_SYSCOLORCHANGE}) {
                if (message != WM_LBUTTONDOWN || kind.name[0] != 'l') Mouse(*control, message, 2, 2);
                control->Invalidate();
                control->UpdateWindow();
            }
            control->EnableWindow(false);
            PumpMessages();
        });
    }
}

TEST(ColorCombo, EditFieldAndOpenListLookAlike) {
    const CGround ground;
    CColorCombo combo;
    combo.Create("COMBOBOX", "", WS_CHILD | WS_VISIBLE | CBS_DROPDOWN, {10, 10, 110, 150}, ground.GetHandle(), 1044);
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    ::GetComboBoxInfo(combo.GetHandle(), &parts);
    combo.SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>("COM3"));
    combo.SetWindowText("COM1");
    combo.SendMessage(CB_SHOWDROPDOWN, TRUE);
    PumpMessages();
    for (const HWND part : {parts.hwndItem, parts.hwndList}) {
        const CClientDC dc(part);
        const auto pixels = ReadPixels(dc.GetHandle(), CWnd::FromHandle(part)->GetClientRect());
        EXPECT_NE(std::ranges::count(pixels, RGB(255, 0, 0)), 0);
        EXPECT_GT(std::ranges::count(pixels, RGB(224, 236, 200)), static_cast<std::ptrdiff_t>(pixels.size() / 2));
    }
}

TEST(BoldFont, IsTheWindowsFontAndReplacesAFormerOne) {
    const CGround ground;
    CFont font;
    HGDIOBJ former = nullptr;
    const int dpi = ::GetDeviceCaps(CClientDC(nullptr).GetHandle(), LOGPIXELSY);
    CWnd window;
    window.Create("EDIT", "Bold", WS_CHILD | WS_VISIBLE, place, ground.GetHandle(), 7);
    for (const int size : {105, 240}) {
        SetBoldFont(window, size, font);
        LOGFONTW description{};
        ::GetObjectW(font.GetHandle(), sizeof description, &description);
        EXPECT_STREQ(description.lfFaceName, L"Times New Roman");
        EXPECT_EQ(description.lfWeight, 700);
        EXPECT_EQ(description.lfHeight, -(dpi * size / 720));
        EXPECT_EQ(window.SendMessage(WM_GETFONT), reinterpret_cast<LRESULT>(font.GetHandle()));
        EXPECT_EQ(::GetObjectType(former), 0U);
        former = font.GetHandle();
    }
}

} // namespace
