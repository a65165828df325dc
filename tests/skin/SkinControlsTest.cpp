// Skin buttons, statics and bars on a real window: what they do and show besides following the mouse.
#include <map>
#include <memory>

#include <gtest/gtest.h>

#include <oleacc.h>

#include "framework/ResourceModule.h"
#include "framework/Shell.h"
#include "Ground.h"
#include "resources/ResourceIds.h"
#include "skin/SkinBar.h"
#include "skin/SkinButton.h"

namespace {

const CRect buttonPlace(10, 10, 16, 14);

// Frames of 6 x 4; each has an outline of its own, and none the top left corner.
const Art strip{".1111..22222.3333..4444.", "111111222222333333444444", "111111222222333333444444",
                ".1111.222222.3333..4444."};
// On the screen, with the ground outside the outline.
const Art normal{"g1111g", "111111", "111111", "g1111g"};
const Art over{"g22222", "222222", "222222", "222222"};
const Art down{"g3333g", "333333", "333333", "g3333g"};

class SkinButton : public testing::Test {
protected:
    SkinButton() {
        const CBitmap picture(MakeBitmap(strip)), former(button->SetBitmapHandle(picture.GetHandle()));
        Put(*button, ground, "BUTTON", buttonPlace);
    }
    Art Look() const { return ground.Look(buttonPlace); }
    int ShapeKind() const { return ::GetWindowRgn(button->GetHandle(), CRgn(::CreateRectRgn(0, 0, 0, 0)).GetHandle()); }

    CGround ground;
    std::unique_ptr<CSkinButton> button = std::make_unique<CSkinButton>();
};

TEST_F(SkinButton, EachFrameIsItsShapeInWhichAloneTheMouseIsFelt) {
    const HCURSOR arrow = ::LoadCursorA(nullptr, IDC_ARROW);
    const HCURSOR hand = ::LoadCursorA(ProgramModule(), MAKEINTRESOURCEA(IDC_HAND_CURSOR));
    ASSERT_NE(hand, nullptr);
    bool held = false;
    // clang-format off
    const std::tuple<int, int, bool, const Art&, bool> rows[] = {
        {0, 0, false, normal, false}, {3, 0, false, over, true}, {5, 3, false, over, true}, {0, 0, false, normal, false},
        {3, 2, true, down, true}, {5, 3, true, normal, false}, {3, 2, true, down, true}, {6, 2, true, normal, false}};
    // clang-format on
    for (const auto& [x, y, press, look, felt] : rows) {
        ::SetCursor(arrow);
        if (press && !std::exchange(held, true)) Mouse(*button, WM_LBUTTONDOWN, x, y, MK_LBUTTON);
        Mouse(*button, WM_MOUSEMOVE, x, y, press ? MK_LBUTTON : 0);
        EXPECT_EQ(Look(), look) << x << y;
        EXPECT_EQ(::GetCursor(), felt ? hand : arrow);
        POINT upper{buttonPlace.left + 5, buttonPlace.top};
        ::ClientToScreen(ground.GetHandle(), &upper);
        EXPECT_EQ(::WindowFromPoint(upper) == button->GetHandle(), look == over);
        PumpMessages();
    }
    ::SetWindowRgn(button->GetHandle(), nullptr, FALSE); // taken away by somebody
    button->Invalidate();
    PumpMessages();
    EXPECT_EQ(ShapeKind(), COMPLEXREGION);
}

TEST_F(SkinButton, WithoutAPictureItWorksByItsRectangle) {
    EXPECT_FALSE(button->SetBitmapFile("no such.bmp"));
    button->SetCaption("Unseen", 5, 0);
    button->Invalidate();
    ground.Invalidate();
    PumpMessages();
    EXPECT_TRUE(Look() == Art(4, "gggggg") && ShapeKind() == ERROR);
    Mouse(*button, WM_MOUSEMOVE, 0, 0); // where the corner was
    EXPECT_EQ(::GetCapture(), button->GetHandle());
    EXPECT_FALSE(button->SetBitmapResource(9999));
    ::ReleaseCapture();
    button->drawMode = 4; // neither strip nor picture
    for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP}) Mouse(*button, message, 5, 5);
    EXPECT_TRUE(ground.commands.empty() && ::GetCapture() == nullptr);
}

TEST_F(SkinButton, AClickMayEndTheButton) {
    ground.atCommand = [&] { button.reset(); };
    const HWND window = button->GetHandle();
    Mouse(*button, WM_MOUSEMOVE, 3, 2);
    ::SendMessageA(window, WM_LBUTTONUP, 0, MAKELPARAM(3, 2));
    EXPECT_TRUE(!::IsWindow(window) && ground.commands.size() == 1);
}

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
    const std::tuple<const char*, const char*, const char*, int, int> rows[] = {
        // two rows of three pixels first
        {"", "One", "Two", 5, 0}, {"", "More", "M && W", 5, 0}, {"", "More", "M", 9, 0},    {"", "", "", 9, 0},
        {"abcdef", "", "", 0, 1}, {"abcdef", "W", "X", 10, 1},  {"abcdef", "W", "Y", 10, 0}};
    std::vector<COLORREF> former;
    Pair old(ground);
    for (const auto& [picture, outer, within, left, corner] : rows) {
        SCOPED_TRACE(outer);
        const std::string cells(picture);
        const CPictureFile file("label.bmp",
                                cells.empty() ? FileBytes() : BitmapFileOf({cells.substr(0, 3), cells.substr(3)}));
        const auto show = [&](Pair& pair) {
            pair.label.SetBitmapFile(file.name);
            pair.label.cornerWidth = pair.label.cornerHeight = corner;
            pair.label.SetCaption(outer, left, RGB(0, 0, 255));
            pair.inner.SetCaption(within, left, RGB(0, 0, 255));
            if (!cells.empty()) pair.label.Invalidate();
            PumpMessages();
            return ground.Pixels(place);
        };
        const auto look = show(old);
        EXPECT_NE(look, std::exchange(former, look));
        old.label.ShowWindow(SW_HIDE);
        EXPECT_EQ(show(*std::make_unique<Pair>(ground)), look);
        old.label.ShowWindow(SW_SHOW);
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

constexpr int helpId = 305, languageId = 306, portId = 304;
const std::array ids{helpId, languageId, portId};

class SkinBar : public testing::Test {
protected:
    SkinBar() {
        Put(bar, ground, "STATIC", {0, 0, 200, 26});
        bar.SetButtonIds({helpId, languageId, portId});
        EXPECT_EQ(bar.LoadButtons("no such.bmp"), 1);
        PumpMessages();
    }
    std::string Places() const {
        std::string places;
        for (const int id : ids) places += PlaceText(bar.GetDlgItem(id)) + " ";
        return places;
    }

    CGround ground;
    CSkinBar bar;
};

TEST_F(SkinBar, LoadingAgainReplacesTheButtons) {
    const HWND former = bar.GetDlgItem(helpId);
    ground.atCommand = [this] { bar.LoadButtons("no such.bmp"); }; // even in the middle of a click
    ::SendMessageA(former, BM_CLICK, 0, 0);
    EXPECT_FALSE(::IsWindow(former));
    EXPECT_EQ(Places(), "116,3,21,20 137,3,21,20 158,3,21,20 ");
    ground.atCommand = nullptr;
    bar.SetButtonIds({helpId, languageId, portId, 1});
    bar.LoadButtons("no such.bmp");
    EXPECT_EQ(bar.GetDlgItem(1), nullptr) << "three at most";
    bar.SetWindowPos(nullptr, 0, 0, 465, 26, SWP_NOZORDER);
    EXPECT_EQ(Places(), "11,3,21,20 32,3,21,20 53,3,21,20 ");
    bar.DestroyWindow();
    Put(bar, ground, "STATIC", {0, 0, 200, 26});
    EXPECT_EQ(bar.GetDlgItem(helpId), nullptr) << "of another window";
}

// Stands in for the platform's store of names, and is its own factory: a COM object is a table of calls.
std::map<HWND, std::wstring> names;
HRESULT WINAPI Query(void* self, REFIID, void** object) {
    *object = self;
    return S_OK;
}
ULONG WINAPI Count(void*) {
    return 1;
}
HRESULT WINAPI Make(void* self, IUnknown*, REFIID id, void** object) {
    return id == IID_IAccPropServices ? Query(self, id, object) : E_NOINTERFACE;
}
HRESULT WINAPI SetName(void*, HWND window, DWORD object, DWORD child, MSAAPROPID property, LPCWSTR name) {
    EXPECT_TRUE(object == static_cast<DWORD>(OBJID_CLIENT) && child == 0 && property == PROPID_ACC_NAME);
    names[window] = name;
    return S_OK;
}
HRESULT WINAPI ClearName(void*, HWND window, DWORD, DWORD, const MSAAPROPID*, int) {
    EXPECT_TRUE(::IsWindow(window));
    names.erase(window);
    return S_OK;
}
template <class Call>
void* Entry(Call* call) {
    return reinterpret_cast<void*>(call);
}
void* calls[] = {Entry(&Query), Entry(&Count), Entry(&Count),   Entry(&Make), nullptr,
                 nullptr,       nullptr,       Entry(&SetName), nullptr,      Entry(&ClearName)};
void* store = calls;

TEST_F(SkinBar, ItsButtonsAreNamedUntilTheyEnd) {
    bar.SetButtonNames({"About", "Language"});
    PrepareComponents();
    DWORD cookie = 0;
    EXPECT_TRUE(SUCCEEDED(::CoRegisterClassObject(CLSID_AccPropServices, reinterpret_cast<IUnknown*>(&store),
                                                  CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie)));
    for (int round = 0; round < 2; ++round) {
        bar.LoadButtons("no such.bmp");
        EXPECT_TRUE(names.empty()); // until somebody asks
        for (const int id : ids) ::SendMessageA(bar.GetDlgItem(id), WM_GETOBJECT, 0, OBJID_CLIENT);
        EXPECT_EQ(names, (std::map<HWND, std::wstring>{{bar.GetDlgItem(helpId), L"About"},
                                                       {bar.GetDlgItem(languageId), L"Language"}}));
    }
    bar.DestroyWindow();
    EXPECT_TRUE(names.empty());
    ::CoRevokeClassObject(cookie);
}

} // namespace
