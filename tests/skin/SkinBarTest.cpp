// The skin bar on a real window: its three buttons, cut from one picture and placed from its right edge.
#include "skin/SkinBar.h"

#include <map>

#include <oleacc.h>

#include <gtest/gtest.h>

#include "Ground.h"

namespace {

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
    void ExpectButtonsAt(LONG left) const {
        for (const int id : ids) {
            EXPECT_EQ(CRect(PlaceInParent(bar.GetDlgItem(id))), CRect(left, 3, left + 21, 23)) << id;
            left += 21;
        }
    }
    CGround ground;
    CSkinBar bar;
};

TEST_F(SkinBar, LoadingAgainReplacesTheButtons) {
    const HWND former = bar.GetDlgItem(helpId);
    ground.atCommand = [this] { bar.LoadButtons("no such.bmp"); }; // even in the middle of a click
    ::SendMessageA(former, BM_CLICK, 0, 0);
    EXPECT_FALSE(::IsWindow(former));
    ExpectButtonsAt(200 - 84);
    ground.atCommand = nullptr;
    bar.SetButtonIds({portId, helpId});
    bar.LoadButtons("no such.bmp");
    EXPECT_EQ(bar.GetDlgItem(languageId), nullptr) << "as many as have an id";
    bar.SetButtonIds({helpId, languageId, portId, 1});
    bar.LoadButtons("no such.bmp");
    EXPECT_EQ(bar.GetDlgItem(1), nullptr) << "three at most";
    for (const int width : {465, 480}) {
        bar.SetWindowPos(nullptr, 0, 0, width, 26, SWP_NOZORDER);
        ExpectButtonsAt(width - 454);
    }
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
    ASSERT_TRUE(SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)));
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
    ::CoUninitialize();
}

} // namespace
