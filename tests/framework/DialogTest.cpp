// Dialogs as the user meets them: what shows, who is disabled, where the focus lies, where keys and commands go.
#include "framework/Dialog.h"

#include <thread>

#include <gtest/gtest.h>

#include "TestDialog.h"
#include "framework/App.h"

namespace {

// A visible top-level window, to own dialogs or to stand by.
class CTopWindow : public CWnd {
public:
    CTopWindow() { Create("STATIC", "Top", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {0, 0, 200, 100}, nullptr, 0); }
};

class CTestApp : public CWinApp {
public:
    explicit CTestApp(CWnd& window) { mainWindow = &window; }
    bool InitInstance() override { return false; }
};

TEST(ModalDialog, NeverShowsIfItEndsInItsInitialisation) {
    for (const UINT form : {IDD_PLAIN, IDD_EXTENDED}) {
        CTopWindow owner;
        CScriptedDialog dialog(form, &owner);
        dialog.atInit = [&] {
            EXPECT_FALSE(owner.IsWindowEnabled());
            dialog.EndDialog(5);
        };
        EXPECT_EQ(dialog.DoModal(), 5);
        EXPECT_FALSE(dialog.everVisible) << form;
        EXPECT_TRUE(owner.IsWindowEnabled());

        dialog.atInit = nullptr; // and runs again
        dialog.steps = {[&] { EXPECT_TRUE(dialog.IsWindowVisible()); }};
        EXPECT_EQ(dialog.DoModal(), CScriptedDialog::scriptOver);
    }
}

// Its parent may be a child window. Hiding the active window while its owner is disabled would activate whatever other
// window there is.
TEST(ModalDialog, DisablesItsWholeOwnerAndGivesActivationAndFocusBackToIt) {
    const CTopWindow bystander;
    CScriptedDialog outer(IDD_PLAIN), panel(IDD_PANEL), inner(IDD_PLAIN, &panel);
    outer.atInit = [&] { EXPECT_TRUE(panel.Create(outer)); };
    outer.steps = {[&] {
        bystander.SetWindowPos(HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        ::SetFocus(outer.GetDlgItem(IDC_SECOND));
        EXPECT_EQ(inner.DoModal(), IDOK);
        EXPECT_EQ(::GetFocus(), outer.GetDlgItem(IDC_SECOND));
    }};
    inner.steps = {[&] {
        EXPECT_FALSE(outer.IsWindowEnabled());
        inner.EndDialog(IDOK);
        EXPECT_TRUE(outer.IsWindowEnabled());
        EXPECT_EQ(::GetActiveWindow(), outer.GetHandle());
    }};
    EXPECT_EQ(outer.DoModal(), CScriptedDialog::scriptOver);
}

TEST(ModalDialog, WithoutParentIsOwnedByTheLastPopupOfTheMainWindow) {
    CTopWindow main;
    const CTestApp app(main);
    const auto expectOwner = [&](const CWnd& dialog, const CWnd& owner) {
        EXPECT_EQ(::GetWindow(dialog.GetHandle(), GW_OWNER), owner.GetHandle());
        EXPECT_FALSE(main.IsWindowEnabled());
    };
    CScriptedDialog outer(IDD_PLAIN), inner(IDD_PLAIN), last(IDD_PLAIN);
    outer.steps = {[&] {
        expectOwner(outer, main);
        inner.DoModal();
        outer.meanwhile = [&] { // the platform's box is one of them
            const HWND box = ::GetLastActivePopup(main.GetHandle());
            if (box == outer.GetHandle() || box == main.GetHandle()) return;
            EXPECT_EQ(::GetWindow(box, GW_OWNER), outer.GetHandle());
            EXPECT_FALSE(outer.IsWindowEnabled());
            ::EndDialog(box, IDOK);
        };
        EXPECT_EQ(main.MessageBox("text"), IDOK);
        outer.meanwhile = nullptr;
        EXPECT_TRUE(outer.IsWindowEnabled());
        EXPECT_FALSE(main.IsWindowEnabled());
        const CTopWindow bystander;
        ::SetActiveWindow(bystander.GetHandle());
        outer.EndDialog(IDOK);
        last.DoModal();
    }};
    inner.steps = {[&] { expectOwner(inner, outer); }};
    last.steps = {[&] { expectOwner(last, main); }}; // for the outer dialog has ended, though its handler still runs
    EXPECT_EQ(outer.DoModal(), IDOK);
    EXPECT_TRUE(main.IsWindowEnabled());
}

TEST(ModalDialog, EndsWithItsWindowHoweverThatGoes) {
    constexpr UINT destroy = WM_APP + 1;
    class CDestroyable : public CScriptedDialog {
    public:
        using CScriptedDialog::CScriptedDialog;
        LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
            return message == destroy ? DestroyWindow() : CScriptedDialog::WindowProc(message, wParam, lParam);
        }
    };
    CTopWindow owner;
    CDestroyable missing(IDD_NONE, &owner), inHandler(IDD_PLAIN, &owner), inInit(IDD_PLAIN, &owner);
    CDestroyable byThread(IDD_PLAIN, &owner), quit(IDD_PLAIN, &owner);
    inHandler.steps = {[&] { inHandler.DestroyWindow(); }};
    inInit.atInit = [&] { inInit.DestroyWindow(); };
    std::thread thread;
    byThread.atInit = [&] { // a sent message doesn't end a wait for posted ones
        thread = std::thread([window = byThread.GetHandle()] {
            ::Sleep(200);
            ::SendMessageA(window, destroy, 0, 0);
        });
    };
    quit.steps = {[] { ::PostQuitMessage(3); }};
    EXPECT_FALSE(inInit.Create(owner));
    for (CDestroyable* dialog : {&missing, &inHandler, &inInit, &byThread, &quit}) {
        EXPECT_EQ(dialog->DoModal(), -1);
        EXPECT_EQ(dialog->GetHandle(), nullptr);
        EXPECT_TRUE(owner.IsWindowEnabled());
    }
    thread.join();
    MSG message{}; // the loop outside ends as well
    while (::GetMessageA(&message, nullptr, 0, 0) > 0) continue;
    EXPECT_EQ(message.wParam, 3U);
}

// A capture would go on hearing the mouse, as the platform only disables the window.
TEST(ModalDialog, TakesTheMouseAwayBeforeItDisables) {
    CTopWindow owner;
    CWnd child;
    ASSERT_TRUE(child.Create("STATIC", "", WS_CHILD | WS_VISIBLE, {0, 0, 50, 50}, owner.GetHandle(), 1));
    CScriptedDialog dialog(IDD_PLAIN, &owner);
    ::SetCapture(child.GetHandle());
    dialog.atInit = [] { EXPECT_EQ(::GetCapture(), nullptr); };
    dialog.steps = {[] {}};
    EXPECT_EQ(dialog.DoModal(), CScriptedDialog::scriptOver);
}

TEST(ModalDialog, AllOfThemEndTogetherAndNoneComesUpMeanwhile) {
    CTopWindow main;
    const CTestApp app(main);
    CScriptedDialog outer(IDD_PLAIN), inner(IDD_PLAIN), late(IDD_PLAIN);
    outer.steps = {[&] {
        EXPECT_EQ(inner.DoModal(), IDCANCEL);
        EXPECT_EQ(late.DoModal(), IDCANCEL);
        EXPECT_EQ(main.MessageBox("text"), IDCANCEL);
    }};
    inner.steps = {[&] { main.MessageBox("text"); }};
    inner.meanwhile = [] { CDialog::EndAllLoops(); };
    EXPECT_EQ(outer.DoModal(), IDCANCEL);
    EXPECT_FALSE(late.everVisible);
    EXPECT_TRUE(main.IsWindowEnabled());
    late.steps = {[] {}};
    EXPECT_EQ(late.DoModal(), CScriptedDialog::scriptOver) << "now one comes up again";
}

TEST(ModalDialog, CloseBoxCancels) {
    CScriptedDialog dialog(IDD_PLAIN);
    dialog.steps = {[&] { dialog.PostMessage(WM_SYSCOMMAND, SC_CLOSE); }, [] {}, [] {}};
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST(Dialog, FocusIsWhereTheInitialisationPutItElseOnTheFirstTabStop) {
    for (const int placed : {0, IDC_FIRST, IDC_BUTTON}) {
        CScriptedDialog dialog(IDD_PLAIN);
        dialog.atInit = [&] { ::SetFocus(placed != 0 ? dialog.GetDlgItem(placed) : nullptr); };
        dialog.steps = {[&] { EXPECT_EQ(::GetFocus(), dialog.GetDlgItem(placed != 0 ? placed : IDC_FIRST)); }};
        dialog.DoModal();
    }
}

// A modal dialog with a child panel, which puts a check box into one of its static controls and gives it the focus.
class DialogWithPanel : public testing::Test {
protected:
    DialogWithPanel() {
        outer.closes = panel.closes = false;
        panel.atInit = [this] {
            container.SubclassWindow(panel.GetDlgItem(IDC_CONTAINER));
            nested = panel.GetDlgItem(IDC_NESTED);
            CWnd::FromHandle(nested)->SetParent(container);
            ::SetFocus(nested);
        };
        outer.atInit = [this] { ASSERT_TRUE(panel.Create(outer)); };
    }
    static void Press(WPARAM key) { ::PostMessageA(::GetFocus(), WM_KEYDOWN, key, 0); }

    CScriptedDialog outer{IDD_PLAIN}, panel{IDD_PANEL};
    CWnd container;
    HWND nested = nullptr;
};

TEST_F(DialogWithPanel, EnterAndEscapeGoToTheDialogThatHasTheFocus) {
    outer.steps = {[&] { EXPECT_EQ(::GetFocus(), nested); }};
    const auto addCase = [&](const std::function<HWND()>& focus, WPARAM key, const char* outerTrace,
                             const char* panelTrace) {
        outer.steps.emplace_back([=] {
            ::SetFocus(focus());
            Press(key);
        });
        outer.steps.emplace_back([=, this] {
            EXPECT_EQ(std::exchange(outer.trace, {}), outerTrace) << key;
            EXPECT_EQ(std::exchange(panel.trace, {}), panelTrace) << key;
        });
    };
    addCase([&] { return outer.GetDlgItem(IDC_FIRST); }, VK_RETURN, "ok ", "");
    addCase([&] { return outer.GetDlgItem(IDC_FIRST); }, VK_ESCAPE, "cancel ", "");
    addCase([&] { return panel.GetDlgItem(IDC_FIRST); }, VK_RETURN, "", "ok ");
    addCase([&] { return panel.GetDlgItem(IDC_FIRST); }, VK_ESCAPE, "", "cancel ");
    addCase([&] { return nested; }, VK_RETURN, "", "ok ");
    addCase([&] { return nested; }, VK_ESCAPE, "", "cancel ");
    outer.DoModal();
}

// The platform's search for the next control has no end where it can't find back to the one it began with.
TEST_F(DialogWithPanel, TabVisitsEveryControlOfThePanelAndComesBack) {
    std::vector<HWND> visited;
    for (int press = 0; press < 3; ++press) {
        outer.steps.emplace_back([] { Press(VK_TAB); });
        outer.steps.emplace_back([&] { visited.push_back(::GetFocus()); });
    }
    outer.steps.emplace_back([&] {
        const std::vector<HWND> expected{panel.GetDlgItem(IDC_FIRST), panel.GetDlgItem(IDC_BUTTON), nested};
        EXPECT_EQ(visited, expected);
    });
    outer.DoModal();
}

TEST(Dialog, FillsItsListsFromTheInitialisationList) {
    CScriptedDialog dialog(IDD_LISTS);
    std::string texts;
    const auto read = [&](int id, UINT message, WPARAM index) {
        std::array<char, 100> text{};
        ::SendDlgItemMessageA(dialog.GetHandle(), id, message, index, reinterpret_cast<LPARAM>(text.data()));
        texts += std::string(text.data()) + '|';
    };
    dialog.atInit = [&] {
        read(IDC_COMBO, CB_GETLBTEXT, 0);
        read(IDC_COMBO, CB_GETLBTEXT, 1);
        read(IDC_LIST, LB_GETTEXT, 0);
        dialog.EndDialog(0);
    };
    dialog.DoModal();
    EXPECT_EQ(texts, "one|中文|item|");
}

TEST(Dialog, ModelessWindowEndsWithItsObject) {
    CTopWindow owner;
    HWND window = nullptr;
    {
        CScriptedDialog dialog(IDD_PLAIN);
        ASSERT_TRUE(dialog.Create(owner));
        EXPECT_FALSE(dialog.Create(owner));
        window = dialog.GetHandle();
    }
    EXPECT_FALSE(::IsWindow(window));
}

} // namespace
