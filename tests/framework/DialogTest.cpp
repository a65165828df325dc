// Dialogs as the user meets them: what shows, who is disabled, where the focus lies, where keys and commands go.
#include "framework/Dialog.h"

#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "framework/App.h"
#include "framework/HandleMap.h"
#include "support/Meanwhile.h"
#include "TestIds.h"

namespace {

constexpr UINT destroy = WM_APP + 1;

class CTestDialog : public CDialog {
public:
    using CDialog::CDialog;
    std::function<void()> atInit;
    std::string trace; // "ok " and "cancel "
    bool closes = true, everVisible = false;
    CWnd bound;

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        everVisible = everVisible || IsWindowVisible();
        return message == destroy ? DestroyWindow() : CDialog::WindowProc(message, wParam, lParam);
    }

    // Runs it, with one step at each tick from when it shows.
    INT_PTR Play(std::vector<std::function<void()>> steps) {
        const CMeanwhile meanwhile(
            [&, next = std::size_t{0}]() mutable { return steps[next++](), next == steps.size(); });
        return DoModal();
    }
    // Runs it for one step.
    template <class Step>
    INT_PTR Run(Step step) {
        return Play({step, [&] { EndDialog(IDYES); }});
    }

protected:
    bool OnInitDialog() override { return CDialog::OnInitDialog() && (atInit ? atInit() : void(), true); }
    void DoDataExchange(CDataExchange& exchange) override { DDX_Control(exchange, IDC_BUTTON, bound); }
    void OnOK() override { return trace += "ok ", closes ? CDialog::OnOK() : void(); }
    void OnCancel() override { return trace += "cancel ", closes ? CDialog::OnCancel() : void(); }
};

class CTopWindow : public CWnd {
public:
    CTopWindow() { Create("STATIC", "Top", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {0, 0, 200, 100}, nullptr, 0); }
};

class CTestApp : public CWinApp {
public:
    explicit CTestApp(CWnd& window) { mainWindow = &window; }
    bool InitInstance() override { return false; }
};

TEST(ModalDialog, EndsHoweverThatGoes) {
    static std::thread thread;
    using Act = void (*)(CTestDialog&);
    const Act end = [](CTestDialog& dialog) { dialog.EndDialog(5); };
    const Act close = [](CTestDialog& dialog) { dialog.PostMessage(WM_SYSCOMMAND, SC_CLOSE); };
    const Act destroyIt = [](CTestDialog& dialog) { dialog.DestroyWindow(); };
    const Act quit = [](CTestDialog&) { ::PostQuitMessage(3); };
    const Act sendLater = [](CTestDialog& dialog) { // which doesn't end a wait for posted messages
        thread = std::thread([window = dialog.GetHandle()] { ::Sleep(200), ::SendMessageA(window, destroy, 0, 0); });
    };
    const std::tuple<UINT, Act, Act, INT_PTR, bool> rows[] = {
        {IDD_PLAIN, end, nullptr, 5, false},        {IDD_EXTENDED, end, nullptr, 5, false},
        {IDD_EXTENDED, nullptr, end, 5, true},      {IDD_PLAIN, nullptr, close, IDCANCEL, true},
        {IDD_NONE, nullptr, nullptr, -1, false},    {IDD_CUT, end, nullptr, -1, false},
        {IDD_PLAIN, destroyIt, nullptr, -1, false}, {IDD_PLAIN, nullptr, destroyIt, -1, true},
        {IDD_PLAIN, sendLater, nullptr, -1, true},  {IDD_PLAIN, nullptr, quit, -1, true}};
    CTopWindow owner;
    CWnd child;
    ASSERT_TRUE(child.Create("STATIC", "", WS_CHILD | WS_VISIBLE, {0, 0, 50, 50}, owner.GetHandle(), 1));
    int number = 0;
    for (const auto& [form, inInit, inStep, result, shows] : rows) {
        SCOPED_TRACE(++number);
        CTestDialog dialog(form, &child); // the whole top-level window is its owner
        dialog.atInit = [&, act = inInit] {
            EXPECT_FALSE(owner.IsWindowEnabled());
            EXPECT_EQ(::GetCapture(), nullptr); // it would go on hearing the mouse
            EXPECT_EQ(dialog.DoModal(), -1);
            if (act != nullptr) act(dialog);
        };
        ::SetCapture(child.GetHandle());
        EXPECT_EQ(inStep != nullptr ? dialog.Play({[&, act = inStep] { act(dialog); }}) : dialog.DoModal(), result);
        EXPECT_EQ(dialog.everVisible, shows);
        EXPECT_EQ(dialog.GetHandle(), nullptr);
        EXPECT_TRUE(owner.IsWindowEnabled());
    }
    thread.join();
    MSG message{}; // the loop outside ends as well
    while (::GetMessageA(&message, nullptr, 0, 0) > 0) continue;
    EXPECT_EQ(message.wParam, 3U);
}

// Hiding the active window while its owner is disabled would activate whatever other window there is.
TEST(ModalDialog, BelongsToTheLastPopupAndGivesItsFocusBack) {
    CTopWindow main;
    const CTopWindow bystander;
    const CTestApp app(main);
    CTestDialog outer(IDD_PLAIN), panel(IDD_PANEL), inner(IDD_PLAIN, &panel), next(IDD_PLAIN);
    const auto ownerOf = [](HWND dialog) { return ::GetWindow(dialog, GW_OWNER); };
    const auto inInner = [&] {
        EXPECT_FALSE(outer.IsWindowEnabled());
        EXPECT_TRUE(HaveTemporaryWrappers()); // still of use to the handler that runs this dialog
        inner.EndDialog(IDOK);
        EXPECT_TRUE(outer.IsWindowEnabled());
        EXPECT_EQ(::GetActiveWindow(), outer.GetHandle());
    };
    const auto atBox = [&] { // the platform's box is one of them
        const HWND box = ShownDialog(outer.GetHandle());
        EXPECT_TRUE(box == nullptr || (ownerOf(box) == outer.GetHandle() && !outer.IsWindowEnabled()));
        return box != nullptr && ::EndDialog(box, IDRETRY) != FALSE;
    };
    const auto inOuter = [&] {
        EXPECT_EQ(ownerOf(outer.GetHandle()), main.GetHandle());
        EXPECT_TRUE(panel.Create(outer) && !panel.Create(outer));
        bystander.SetWindowPos(HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        const CWnd* const second = CWnd::FromHandle(outer.GetDlgItem(IDC_SECOND));
        second->SetFocus();
        EXPECT_EQ(inner.Play({inInner}), IDOK);
        EXPECT_EQ(::GetFocus(), second->GetHandle());
        next.Run([&] { EXPECT_EQ(ownerOf(next.GetHandle()), outer.GetHandle()); });
        {
            const CMeanwhile box(atBox);
            EXPECT_EQ(main.MessageBox("text"), IDRETRY);
        }
        EXPECT_TRUE(outer.IsWindowEnabled() && !main.IsWindowEnabled());
        ::SetActiveWindow(bystander.GetHandle());
        outer.EndDialog(IDOK);
        // It has ended, though its handler still runs.
        next.Run([&] { EXPECT_EQ(ownerOf(next.GetHandle()), main.GetHandle()); });
    };
    EXPECT_EQ(outer.Play({inOuter}), IDOK);
    EXPECT_TRUE(main.IsWindowEnabled());
}

TEST(ModalDialog, AllOfThemEndTogetherAndNoneComesUpMeanwhile) {
    CTopWindow main;
    const CTestApp app(main);
    CTestDialog outer(IDD_PLAIN), inner(IDD_PLAIN), late(IDD_PLAIN);
    const auto atBox = [&] { return ShownDialog(inner.GetHandle()) != nullptr && (CDialog::EndAllLoops(), true); };
    const auto inInner = [&] {
        const CMeanwhile box(atBox);
        main.MessageBox("text");
    };
    const auto inOuter = [&] {
        EXPECT_EQ(inner.Play({inInner}), IDCANCEL);
        EXPECT_EQ(late.DoModal(), IDCANCEL);
        EXPECT_EQ(main.MessageBox("text"), IDCANCEL);
    };
    EXPECT_EQ(outer.Play({inOuter}), IDCANCEL);
    EXPECT_TRUE(main.IsWindowEnabled() && !late.everVisible);
    EXPECT_EQ(late.Run([] {}), IDYES); // now one comes up again
}

class CHostingDialog : public CTestDialog {
public:
    explicit CHostingDialog(int hostOfTwo) : CTestDialog(IDD_PANEL), host(hostOfTwo) {}

protected:
    int HostOf(int id) const override { return id == IDC_NESTED || id == IDC_BUTTON ? host : 0; }

private:
    int host;
};

// A panel within a dialog has two controls in one of its static ones. The platform's search for the next control has no
// end where it can't find back to the one it began with.
TEST(Dialog, KeysGoToTheOneThatHasTheFocus) {
    CTestDialog outer(IDD_PLAIN);
    CHostingDialog panel(IDC_CONTAINER);
    HWND nested = nullptr;
    outer.closes = panel.closes = false;
    panel.atInit = [&] {
        nested = panel.FindControl(IDC_NESTED);
        ::SetFocus(nested);
    };
    outer.atInit = [&] { ASSERT_TRUE(panel.Create(outer)); };
    std::vector<std::function<void()>> steps{[&] { EXPECT_EQ(::GetFocus(), nested); }};
    const auto press = [&](const CWnd* focus, WPARAM key, const std::function<void()>& expect) {
        steps.emplace_back([=, &nested] {
            if (key != VK_TAB) ::SetFocus(focus != nullptr ? focus->GetDlgItem(IDC_FIRST) : nested);
            ::PostMessageA(::GetFocus(), WM_KEYDOWN, key, 0);
        });
        steps.emplace_back(expect);
    };
    const auto traces = [&](const char* seen) {
        return [&, seen] { EXPECT_EQ(std::exchange(outer.trace, {}) + '|' + std::exchange(panel.trace, {}), seen); };
    };
    press(&outer, VK_RETURN, traces("ok |"));
    press(&outer, VK_ESCAPE, traces("cancel |"));
    press(&panel, VK_RETURN, traces("|ok "));
    press(nullptr, VK_ESCAPE, traces("|cancel "));
    press(nullptr, VK_TAB, [&] { EXPECT_EQ(::GetFocus(), panel.bound.GetHandle()); });
    press(nullptr, VK_TAB, [&] { EXPECT_EQ(::GetFocus(), panel.GetDlgItem(IDC_FIRST)); });
    press(nullptr, VK_TAB, [&] { EXPECT_EQ(::GetFocus(), nested); });
    steps.emplace_back([&] { outer.EndDialog(HaveTemporaryWrappers() ? 1 : 0); }); // none, as nothing waited
    EXPECT_EQ(outer.Play(steps), 0);
}

TEST(Dialog, ControlsAreMadeInTheirHosts) {
    CTopWindow top;
    CHostingDialog hosting(IDC_CONTAINER), astray(IDC_NESTED);
    EXPECT_FALSE(astray.Create(top)); // nobody can stand in itself
    EXPECT_EQ(astray.GetHandle(), nullptr);
    ASSERT_TRUE(hosting.Create(top));
    const HWND container = hosting.GetDlgItem(IDC_CONTAINER), nested = hosting.FindControl(IDC_NESTED);
    EXPECT_EQ(::GetWindow(container, GW_CHILD), nested);
    EXPECT_EQ(::GetWindow(nested, GW_HWNDNEXT), hosting.bound.GetHandle());
    EXPECT_EQ(hosting.bound.GetWindowText(), "Button");
    EXPECT_EQ(hosting.FindControl(IDC_FIRST), hosting.GetDlgItem(IDC_FIRST));
    EXPECT_EQ(hosting.FindControl(IDC_SECOND), nullptr);
}

} // namespace
