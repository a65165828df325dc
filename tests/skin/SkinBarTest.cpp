// The skin bar on a real window: its three buttons, cut from one picture and placed from its right edge.
#include "skin/SkinBar.h"

#include <map>

#include <oleacc.h>

#include <gtest/gtest.h>

#include "Ground.h"
#include "Repeats.h"

namespace {

constexpr UINT helpId = 305, languageId = 306, portId = 304;

class SkinBar : public testing::Test {
protected:
    SkinBar() {
        bar.Create("STATIC", "", WS_CHILD | WS_VISIBLE, {0, 0, 200, 26}, ground.GetHandle(), 1039);
        bar.SetButtonIds({helpId, languageId, portId});
        // Rows of three buttons, columns of four states, each cell of 21 x 20 pixels.
        Art cells;
        for (const char* row : {"abcd", "efgh", "ijkl"}) {
            std::string line;
            for (const char cell : std::string(row)) line += std::string(21, cell);
            cells.insert(cells.end(), 20, line);
        }
        const CPictureFile file("buttons.bmp", BitmapFileOf(cells));
        EXPECT_EQ(bar.LoadButtons(file.name), 1);
        CGround::Pump();
    }

    CRect PlaceOf(UINT id) const {
        CRect rect;
        ::GetWindowRect(bar.GetDlgItem(static_cast<int>(id)), &rect);
        ::MapWindowPoints(nullptr, bar.GetHandle(), reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }

    void ExpectButtonsAt(int left) const {
        for (const UINT id : {helpId, languageId, portId}) {
            EXPECT_EQ(PlaceOf(id), CRect(left, 3, left + 21, 23)) << id;
            left += 21;
        }
    }

    char FaceOf(UINT id) const {
        const CRect place = PlaceOf(id);
        return ground.Look({place.left + 10, place.top + 10, place.left + 11, place.top + 11})[0][0];
    }

    CGround ground;
    CSkinBar bar;
};

TEST_F(SkinBar, ButtonsStandInARowThatFollowsTheWidth) {
    ExpectButtonsAt(200 - 84);
    EXPECT_EQ(::GetWindowLongA(bar.GetDlgItem(portId), GWL_STYLE) & ~WS_CLIPSIBLINGS, LONG{WS_CHILD | WS_VISIBLE});
    for (const int width : {465, 480, 200}) {
        bar.SetWindowPos(nullptr, 0, 0, width, 26, SWP_NOZORDER);
        ExpectButtonsAt(width - 454);
    }
}

TEST_F(SkinBar, EachButtonShowsItsOwnRow) {
    EXPECT_EQ((std::string{FaceOf(helpId), FaceOf(languageId), FaceOf(portId)}), "aei");
    const HWND language = bar.GetDlgItem(languageId);
    ::SendMessageA(language, WM_MOUSEMOVE, 0, MAKELPARAM(20, 0)); // no gap: the whole cell is button
    EXPECT_EQ(FaceOf(languageId), 'f');
    ::SendMessageA(language, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(20, 0));
    EXPECT_EQ(FaceOf(languageId), 'g');
    ::SendMessageA(language, WM_LBUTTONUP, 0, MAKELPARAM(20, 0));
    ::EnableWindow(language, FALSE);
    CGround::Pump();
    EXPECT_EQ(FaceOf(languageId), 'h');
    EXPECT_EQ(ground.commands, (std::vector{ReceivedCommand{languageId, BN_CLICKED, language}}));
}

TEST_F(SkinBar, LoadingAgainReplacesTheButtons) {
    const HWND former = bar.GetDlgItem(helpId);
    ground.atCommand = [this] { bar.LoadButtons("no such.bmp"); }; // even in the middle of a click
    ::SendMessageA(former, BM_CLICK, 0, 0);
    EXPECT_FALSE(::IsWindow(former));
    ExpectButtonsAt(200 - 84);
    ground.atCommand = nullptr;
    const HWND blank = bar.GetDlgItem(portId);
    ::SendMessageA(blank, WM_MOUSEMOVE, 0, MAKELPARAM(0, 0));
    ::SendMessageA(blank, WM_LBUTTONUP, 0, MAKELPARAM(0, 0));
    EXPECT_EQ(ground.commands.back(), (ReceivedCommand{portId, BN_CLICKED, blank}));

    const std::size_t before = FreeGdiObjects();
    const CPictureFile file("buttons.bmp", BitmapFileOf(Art(60, std::string(84, 'x'))));
    for (int round = 0; round < Repeats(100); ++round) bar.LoadButtons(file.name);
    EXPECT_GE(FreeGdiObjects() + 8, before);
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
    bar.LoadButtons("no such.bmp"); // without COM there are no names, and nothing else is amiss
    ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
    DWORD cookie = 0;
    EXPECT_TRUE(SUCCEEDED(::CoRegisterClassObject(CLSID_AccPropServices, reinterpret_cast<IUnknown*>(&store),
                                                  CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie)));
    for (int round = 0; round < 2; ++round) {
        bar.LoadButtons("no such.bmp");
        EXPECT_TRUE(names.empty()); // until somebody asks
        for (const UINT id : {helpId, languageId, portId})
            ::SendMessageA(bar.GetDlgItem(id), WM_GETOBJECT, 0, OBJID_CLIENT);
        EXPECT_EQ(names, (std::map<HWND, std::wstring>{{bar.GetDlgItem(helpId), L"About"},
                                                       {bar.GetDlgItem(languageId), L"Language"}}));
    }
    bar.DestroyWindow();
    EXPECT_TRUE(names.empty());
    ::CoRevokeClassObject(cookie);
    ::CoUninitialize();
}

} // namespace
