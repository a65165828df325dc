// Window objects and their windows: who outlives whom, wrappers, text, and the resources that windows are made from.
#include "framework/Wnd.h"

#include <gtest/gtest.h>

#include "TestIds.h"
#include "framework/Dialog.h"
#include "framework/HandleMaps.h"
#include "framework/ResourceModule.h"
#include "framework/Text.h"

namespace {

constexpr UINT deleteObject = WM_APP + 1, destroyWindow = WM_APP + 2;

// Ends itself or its window while it handles a message.
class CMortal : public CWnd {
public:
    int windowsLost = 0;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == destroyWindow) return DestroyWindow() ? 12 : 0;
        if (message != deleteObject) return CWnd::WindowProc(message, wParam, lParam);
        delete this;
        return 11;
    }
    void PostNcDestroy() override { ++windowsLost; }
};

class Window : public testing::Test {
protected:
    Window() {
        parent.Create("STATIC", "Parent", WS_OVERLAPPEDWINDOW, {0, 0, 200, 100}, nullptr, 0);
        edit = ::CreateWindowExA(0, "EDIT", "text", WS_CHILD, 0, 0, 50, 20, parent.GetHandle(),
                                 reinterpret_cast<HMENU>(UINT_PTR{IDC_FIRST}), nullptr, nullptr);
    }
    // Its own procedure answers, as no other would.
    void ExpectEditWorks() const {
        ::SetWindowTextA(edit, "other");
        EXPECT_EQ(::SendMessageA(edit, EM_LINELENGTH, 0, 0), 5);
    }

    CWnd parent;
    HWND edit = nullptr;
};

TEST_F(Window, OutlivesAnObjectThatSubclassedIt) {
    const LONG_PTR procedure = ::GetWindowLongPtrA(edit, GWLP_WNDPROC);
    {
        CMortal object, second;
        ASSERT_TRUE(object.SubclassWindow(edit));
        EXPECT_FALSE(second.SubclassWindow(edit));
        EXPECT_FALSE(object.SubclassWindow(parent.GetHandle()));
        ExpectEditWorks();
    }
    EXPECT_EQ(::GetWindowLongPtrA(edit, GWLP_WNDPROC), procedure);
    auto* selfEnding = new CMortal;
    ASSERT_TRUE(selfEnding->SubclassWindow(edit));
    EXPECT_EQ(::SendMessageA(edit, deleteObject, 0, 0), 11);
    ExpectEditWorks();
}

TEST_F(Window, MayGoBeforeItsObject) {
    CMortal object;
    ASSERT_TRUE(object.SubclassWindow(edit));
    EXPECT_EQ(object.SendMessage(destroyWindow), 12);
    EXPECT_FALSE(::IsWindow(edit));
    EXPECT_EQ(object.GetHandle(), nullptr);
    ASSERT_TRUE(object.Create("EDIT", "", WS_CHILD, {0, 0, 9, 9}, parent.GetHandle(), 1));
    parent.DestroyWindow();
    EXPECT_EQ(object.GetHandle(), nullptr);
    EXPECT_EQ(object.windowsLost, 2);
}

TEST_F(Window, EndsWithTheObjectThatMadeIt) {
    auto* owning = new CMortal;
    ASSERT_TRUE(owning->Create("EDIT", "", WS_CHILD, {0, 0, 9, 9}, parent.GetHandle(), 1));
    const HWND owned = owning->GetHandle();
    EXPECT_EQ(::SendMessageA(owned, deleteObject, 0, 0), 11);
    EXPECT_FALSE(::IsWindow(owned));
}

WNDPROC behind = nullptr;

LRESULT CALLBACK ForeignProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return ::CallWindowProcA(behind, window, message, wParam, lParam);
}

// A procedure that was put in front since stays there, and leads through to the window's own.
TEST_F(Window, SurvivesAnObjectBehindAForeignProcedure) {
    const WNDPROC foreign = &ForeignProcedure;
    {
        CMortal object;
        ASSERT_TRUE(object.SubclassWindow(edit));
        behind =
            reinterpret_cast<WNDPROC>(::SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(foreign)));
    }
    EXPECT_EQ(::GetWindowLongPtrA(edit, GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(foreign));
    ExpectEditWorks();
    CMortal second;
    ASSERT_TRUE(second.SubclassWindow(edit));
    ExpectEditWorks();
    EXPECT_EQ(::SendMessageA(edit, destroyWindow, 0, 0), 12);
}

TEST_F(Window, HasATemporaryWrapperUntilTheMapIsCleared) {
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
    CWnd* wrapper = CWnd::FromHandle(edit);
    EXPECT_EQ(CWnd::FromHandle(edit), wrapper);
    EXPECT_EQ(CWnd::FromHandlePermanent(edit), nullptr);
    CMortal object;
    ASSERT_TRUE(object.SubclassWindow(edit));
    EXPECT_EQ(CWnd::FromHandle(edit), &object);
    EXPECT_EQ(wrapper->GetWindowText(), "text"); // good to the end of the handler that got it
    DropTemporaryWrappers();
    ExpectEditWorks();
}

TEST_F(Window, TextIsUtf8) {
    ASSERT_EQ(::GetACP(), 65001U) << "the manifest is not in force";
    for (const std::string text : {"", "plain", "人数统计", "a\xC3\xA9\xF0\x9F\x9A\xAA"}) {
        parent.SetDlgItemText(IDC_FIRST, text);
        EXPECT_EQ(parent.GetDlgItemText(IDC_FIRST), text);
    }
    parent.SetDlgItemText(IDC_FIRST, "人数");
    std::array<wchar_t, 8> wide{};
    ::GetWindowTextW(edit, wide.data(), 8);
    EXPECT_EQ(std::wstring(wide.data()), L"\u4EBA\u6570");
    EXPECT_EQ(ToWide("a\xFF"), L"a\uFFFD");
    EXPECT_EQ(parent.GetDlgItemText(IDC_SECOND), ""); // no such control
}

TEST(ResourceModule, FallsBackToTheProgramForWhatTheLibraryLacks) {
    const HMODULE library = ::LoadLibraryExA("framework_test_language.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(library, nullptr);
    SetResourceModule(library);
    EXPECT_EQ(LoadText(IDS_BOTH), "library");
    EXPECT_EQ(LoadText(IDS_PROGRAM_ONLY), "program, 中文");
    EXPECT_EQ(LoadText(999), "");
    CWnd owner;
    owner.Create("STATIC", "", WS_POPUP, {0, 0, 9, 9}, nullptr, 0);
    CDialog both(IDD_PLAIN), programOnly(IDD_EXTENDED);
    EXPECT_TRUE(both.Create(owner) && programOnly.Create(owner));
    EXPECT_EQ(both.GetWindowText(), "Library");
    EXPECT_EQ(programOnly.GetWindowText(), "Extended");
    SetResourceModule(nullptr);
    ::FreeLibrary(library);
    EXPECT_EQ(LoadText(IDS_BOTH), "program");
    EXPECT_TRUE(ProgramFolder().ends_with("\\tests\\")) << ProgramFolder();
}

} // namespace
