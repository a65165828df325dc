// Message maps: which handler a message finds, and who hears of a control's own messages.
#include "framework/MessageMap.h"

#include <gtest/gtest.h>

#include "framework/App.h"
#include "framework/Controls.h"
#include "framework/Dc.h"
#include "framework/Dialog.h"
#include "framework/Text.h"
#include "TestIds.h"

namespace {

constexpr UINT throwing = WM_APP + 8;

// What the handlers have seen, in their order.
struct Trace {
    static inline std::string text;
    static bool Add(const std::string& more) { return (text += more + ' ', true); }
    static std::string Take() { return std::exchange(text, {}); }
};

class CBaseProbe : public CDialog {
public:
    using CDialog::CDialog;
    static const CMessageMap& ClassMap() {
        static constexpr std::array entries{OnCommandIds<1000, 1003, &CBaseProbe::OnRange>(),
                                            On<WM_ERASEBKGND, &CBaseProbe::OnErase>()};
        static const CMessageMap map{&CDialog::ClassMap(), entries};
        return map;
    }
    void OnRange(UINT id) { Trace::Add(FormatText("range:%u", id)); }
    bool OnErase(HDC dc) { return dc != nullptr; }
};

class CProbe : public CBaseProbe {
public:
    using CBaseProbe::CBaseProbe;
    const CMessageMap& GetMessageMap() const override {
        static constexpr std::array entries{
            OnMessage<throwing, &CProbe::OnThrowing>(), OnCommandId<1001, &CProbe::Hear<1>>(),
            OnCommandId<IDC_BUTTON, &CProbe::Hear<2>>(), OnControl<EN_CHANGE, IDC_FIRST, &CProbe::Hear<3>>(),
            OnColor<&CProbe::OnControlColor>()};
        static const CMessageMap map{&CBaseProbe::ClassMap(), entries};
        return map;
    }
    template <int number>
    void Hear() {
        Trace::Add(std::to_string(number));
    }
    LRESULT OnThrowing(WPARAM wParam, LPARAM lParam) { return wParam == 0 ? throw 1 : LRESULT(wParam) - lParam; }
    HBRUSH OnControlColor(CDC& dc, CWnd* control, UINT message) {
        if (message == WM_CTLCOLOREDIT) return static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH));
        const auto window = reinterpret_cast<LPARAM>(control->GetHandle());
        return reinterpret_cast<HBRUSH>(RouteColor(message, reinterpret_cast<WPARAM>(dc.GetHandle()), window));
    }
};

// A control that takes part in its click, its colour and its drawing.
class CReflecting : public CButton {
public:
    bool endsClick = false;
    HBRUSH brush = nullptr;

    const CMessageMap& GetMessageMap() const override {
        static constexpr std::array entries{OnReflect<BN_CLICKED, &CReflecting::OnClicked>(),
                                            OnReflect<BN_SETFOCUS, &CReflecting::OnFocus>(),
                                            OnReflectColor<&CReflecting::OnOwnColor>()};
        static const CMessageMap map{&CButton::ClassMap(), entries};
        return map;
    }
    void DrawItem(DRAWITEMSTRUCT& item) override { Trace::Add(FormatText("draw:%u", item.itemState)); }
    bool OnClicked() { return Trace::Add("own") && endsClick; }
    void OnFocus() { Trace::Add("focus"); }
    HBRUSH OnOwnColor(CDC&, UINT) { return brush; }
};

class CProbeApp : public CWinApp {
    bool InitInstance() override { return false; }
    bool OnCmdMsg(UINT id, UINT) override { return Trace::Add(FormatText("app:%u", id)); }
};

class MessageMap : public testing::Test {
protected:
    MessageMap() {
        owner.Create("STATIC", "", WS_OVERLAPPEDWINDOW, {0, 0, 100, 100}, nullptr, 0);
        EXPECT_TRUE(dialog.Create(owner) && panel.Create(dialog));
        EXPECT_TRUE(button.SubclassWindow(dialog.GetDlgItem(IDC_BUTTON)));
        Trace::Take();
    }
    std::string Command(const CWnd& target, UINT id, UINT code, HWND control) {
        target.SendMessage(WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(control));
        return Trace::Take();
    }

    CProbeApp app;
    CWnd owner;
    CProbe dialog{IDD_PLAIN};
    CDialog panel{IDD_PANEL}; // has no entries itself
    CReflecting button;
};

TEST_F(MessageMap, CommandsFindTheNearestTarget) {
    const std::tuple<const CDialog*, UINT, UINT, const char*> rows[] = {
        {&dialog, 999, 0, "app:999 "},
        {&dialog, 1000, 0, "range:1000 "},
        {&dialog, 1000, 1, "range:1000 "}, // from an accelerator
        {&dialog, 1001, 0, "1 "},          // the derived table comes first
        {&dialog, 1003, 0, "range:1003 "},
        {&panel, 1003, 0, "range:1003 "}, // through its parent
        {&panel, 1004, 0, "app:1004 "},
        {&panel, IDC_BUTTON, BN_CLICKED, "2 "},
        {&panel, IDC_FIRST, EN_CHANGE, ""}, // notifications concern the control's own dialog alone
        {&panel, IDOK, 0, ""},              // and so do OK and Cancel
        {&dialog, IDC_FIRST, EN_CHANGE, "3 "},
        {&dialog, IDC_FIRST, EN_UPDATE, ""},
        {&dialog, IDC_BUTTON, BN_CLICKED, "own 2 "}, // the control hears of it first
        {&dialog, IDC_BUTTON, BN_SETFOCUS, "focus "}};
    for (const auto& [target, id, code, seen] : rows)
        EXPECT_EQ(Command(*target, id, code, target->GetDlgItem(static_cast<int>(id))), seen) << id << ' ' << code;
    button.endsClick = true;
    EXPECT_EQ(Command(dialog, IDC_BUTTON, BN_CLICKED, button.GetHandle()), "own ");
}

TEST_F(MessageMap, ControlsAreAskedForWhatIsTheirs) {
    const CClientDC dc(dialog.GetHandle());
    const auto color = [&](UINT message, int id) {
        return reinterpret_cast<HBRUSH>(dialog.SendMessage(message, reinterpret_cast<WPARAM>(dc.GetHandle()),
                                                           reinterpret_cast<LPARAM>(dialog.GetDlgItem(id))));
    };
    EXPECT_EQ(color(WM_CTLCOLOREDIT, IDC_FIRST), ::GetStockObject(GRAY_BRUSH));
    EXPECT_NE(color(WM_CTLCOLORBTN, IDC_BUTTON), nullptr); // the platform's, since the control gives none
    button.brush = static_cast<HBRUSH>(::GetStockObject(HOLLOW_BRUSH));
    for (const UINT message : {WM_CTLCOLORMSGBOX, WM_CTLCOLORBTN, WM_CTLCOLORSTATIC})
        EXPECT_EQ(color(message, IDC_BUTTON), button.brush);

    DRAWITEMSTRUCT item{ODT_BUTTON, IDC_BUTTON, 0, 0, ODS_DISABLED, button.GetHandle(), nullptr, {}, 0};
    EXPECT_EQ(dialog.SendMessage(WM_DRAWITEM, IDC_BUTTON, reinterpret_cast<LPARAM>(&item)), TRUE);
    EXPECT_EQ(Trace::Take(), "draw:4 ");
    for (const UINT message : {WM_NOTIFY, WM_DRAWITEM, WM_MEASUREITEM}) EXPECT_EQ(dialog.SendMessage(message), 0);
    EXPECT_EQ(dialog.SendMessage(WM_MENUCHAR), MAKELRESULT(0, MNC_IGNORE));
    EXPECT_EQ(dialog.SendMessage(WM_ERASEBKGND, 7), 1);
    EXPECT_EQ(dialog.SendMessage(WM_ERASEBKGND), 0);
    EXPECT_EQ(dialog.SendMessage(throwing, 3, 5), -2);
}

// No exception unwinds through the window manager.
TEST_F(MessageMap, WhatAHandlerThrowsStopsTheProgram) {
    EXPECT_DEATH(
        {
            try {
                dialog.SendMessage(throwing);
            } catch (int) {
                std::exit(0);
            }
        },
        "");
}

} // namespace
