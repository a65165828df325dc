// Message maps: which handler a message finds, with what arguments, and who hears of a control's own messages.
#include "framework/MessageMap.h"

#include <gtest/gtest.h>

#include "TestIds.h"
#include "framework/App.h"
#include "framework/Controls.h"
#include "framework/Dc.h"
#include "framework/Dialog.h"
#include "framework/Text.h"

namespace {

constexpr UINT ownMessage = WM_APP + 7, notified = 0xFFFFFFFE; // notification codes count down from 0
constexpr UINT first = 1000, last = 1003;

std::string trace; // what the handlers have seen, in their order

std::string Taken() {
    return std::exchange(trace, {});
}

class CProbeApp : public CWinApp {
public:
    bool InitInstance() override { return false; }
    bool OnCmdMsg(UINT id, UINT) override {
        trace += FormatText("app:%u ", id);
        return true;
    }
};

class CBaseProbe : public CDialog {
public:
    using CDialog::CDialog;
    static const CMessageMap& ClassMap() {
        static constexpr std::array entries{On<WM_ENABLE, &CBaseProbe::OnEnable>(),
                                            OnCommandIds<first, last, &CBaseProbe::OnRange>()};
        static const CMessageMap map{&CDialog::ClassMap(), entries};
        return map;
    }
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }
    void OnEnable(bool enabled) { trace += enabled ? "enabled " : "disabled "; }
    void OnRange(UINT id) { trace += FormatText("range:%u ", id); }
};

class CProbe : public CBaseProbe {
public:
    using CBaseProbe::CBaseProbe;
    static const CMessageMap& ClassMap() {
        static constexpr std::array entries{On<WM_MOUSEMOVE, &CProbe::OnMouseMove>(),
                                            On<WM_SETCURSOR, &CProbe::OnSetCursor>(),
                                            OnMessage<ownMessage, &CProbe::OnOwnMessage>(),
                                            OnCommandId<first + 1, &CProbe::OnSecond>(),
                                            OnCommandId<IDC_BUTTON, &CProbe::OnClick>(),
                                            OnControl<EN_CHANGE, IDC_FIRST, &CProbe::OnChange>(),
                                            OnNotifyCode<notified, IDC_FIRST, &CProbe::OnNotified>(),
                                            On<WM_MEASUREITEM, &CProbe::OnMeasureItem>(),
                                            OnColor<&CProbe::OnControlColor>()};
        static const CMessageMap map{&CBaseProbe::ClassMap(), entries};
        return map;
    }
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }
    void OnMouseMove(UINT keys, CPoint point) { trace += FormatText("move:%u,%ld,%ld ", keys, point.x, point.y); }
    bool OnSetCursor(CWnd* window, UINT hit, UINT message) {
        trace += FormatText("cursor:%d,%u,%X ", window == this, hit, message);
        return hit == HTCAPTION;
    }
    LRESULT OnOwnMessage(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam) - lParam; }
    void OnSecond() { trace += "second "; }
    void OnClick() { trace += "click "; }
    void OnChange() { trace += "change "; }
    void OnMeasureItem(int id, MEASUREITEMSTRUCT& item) { item.itemHeight = static_cast<UINT>(id); }
    LRESULT OnNotified(NMHDR& header) { return static_cast<LRESULT>(header.idFrom) + 1; }
    HBRUSH OnControlColor(CDC& dc, CWnd* control, UINT message) {
        if (message == WM_CTLCOLOREDIT) return static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH));
        return reinterpret_cast<HBRUSH>(RouteColor(message, reinterpret_cast<WPARAM>(dc.GetHandle()),
                                                   reinterpret_cast<LPARAM>(control->GetHandle())));
    }
};

class MessageMap : public testing::Test {
protected:
    MessageMap() {
        owner.Create("STATIC", "", WS_OVERLAPPEDWINDOW, {0, 0, 100, 100}, nullptr, 0);
        EXPECT_TRUE(dialog.Create(owner));
        Taken();
    }
    std::string Command(const CDialog& target, UINT id, UINT code = 0) {
        const HWND control = target.GetDlgItem(static_cast<int>(id));
        target.SendMessage(WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(control));
        return Taken();
    }

    CProbeApp app;
    CWnd owner;
    CProbe dialog{IDD_PLAIN};
};

TEST_F(MessageMap, CracksArgumentsAndGivesResults) {
    const auto self = dialog.GetHandle();
    const struct {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        const char* trace;
        LRESULT result;
    } cases[] = {
        {WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(-3, -32768), "move:1,-3,-32768 ", 0},
        {WM_MOUSEMOVE, 0, MAKELPARAM(32767, 0), "move:0,32767,0 ", 0},
        {WM_SETCURSOR, reinterpret_cast<WPARAM>(self), MAKELPARAM(HTCAPTION, WM_MOUSEMOVE), "cursor:1,2,200 ", 1},
        {WM_SETCURSOR, 0, MAKELPARAM(HTCLIENT, 0), "cursor:0,1,0 ", 0},
        {ownMessage, 3, 5, "", -2},
        {WM_ENABLE, FALSE, 0, "disabled ", 0}, // in the base class's table
    };
    for (const auto& each : cases) {
        EXPECT_EQ(dialog.SendMessage(each.message, each.wParam, each.lParam), each.result) << each.message;
        EXPECT_EQ(Taken(), each.trace) << each.message;
    }
}

TEST_F(MessageMap, CommandsFindTheNearestTarget) {
    CDialog panel(IDD_PANEL);
    ASSERT_TRUE(panel.Create(dialog));
    for (const CDialog* target : {static_cast<CDialog*>(&dialog), &panel}) { // the panel has no entries itself
        EXPECT_EQ(Command(*target, first - 1), "app:999 ");
        EXPECT_EQ(Command(*target, first), "range:1000 ");
        EXPECT_EQ(Command(*target, first, 1), "range:1000 "); // from an accelerator
        EXPECT_EQ(Command(*target, first + 1), "second ");    // the derived table comes first
        EXPECT_EQ(Command(*target, last), "range:1003 ");
        EXPECT_EQ(Command(*target, last + 1), "app:1004 ");
        EXPECT_EQ(Command(*target, IDC_BUTTON, BN_CLICKED), "click ");
        EXPECT_EQ(Command(*target, IDC_FIRST, EN_UPDATE), "");
    }
    EXPECT_EQ(Command(dialog, IDC_FIRST, EN_CHANGE), "change ");
    EXPECT_EQ(Command(panel, IDC_FIRST, EN_CHANGE), ""); // notifications concern the control's own dialog alone
    EXPECT_EQ(Command(panel, IDOK), "");                 // and so do OK and Cancel
    EXPECT_NE(dialog.GetHandle(), nullptr);
}

TEST_F(MessageMap, HandsStructuresOnAndRefusesNullOnes) {
    NMHDR header{dialog.GetDlgItem(IDC_FIRST), IDC_FIRST, notified};
    EXPECT_EQ(dialog.SendMessage(WM_NOTIFY, IDC_FIRST, reinterpret_cast<LPARAM>(&header)), IDC_FIRST + 1);
    MEASUREITEMSTRUCT item{};
    dialog.SendMessage(WM_MEASUREITEM, 3, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(item.itemHeight, 3U);
    for (const UINT message : {WM_NOTIFY, WM_MEASUREITEM, WM_DRAWITEM}) EXPECT_EQ(dialog.SendMessage(message), 0);
}

// A control that takes part in its click, its colour and its drawing.
class CReflecting : public CButton {
public:
    bool endsClick = false;
    HBRUSH brush = nullptr;

    static const CMessageMap& ClassMap() {
        static constexpr std::array entries{OnReflect<BN_CLICKED, &CReflecting::OnClicked>(),
                                            OnReflect<BN_SETFOCUS, &CReflecting::OnFocus>(),
                                            OnReflectColor<&CReflecting::OnOwnColor>()};
        static const CMessageMap map{&CButton::ClassMap(), entries};
        return map;
    }
    const CMessageMap& GetMessageMap() const override { return ClassMap(); }
    void DrawItem(DRAWITEMSTRUCT& item) override { trace += FormatText("draw:%u ", item.itemState); }
    bool OnClicked() {
        trace += "own ";
        return endsClick;
    }
    void OnFocus() { trace += "focus "; }
    HBRUSH OnOwnColor(CDC&, UINT) { return brush; }
};

TEST_F(MessageMap, ControlsHearOfTheirOwnMessagesFirst) {
    CReflecting button;
    ASSERT_TRUE(button.SubclassWindow(dialog.GetDlgItem(IDC_BUTTON)));
    EXPECT_EQ(Command(dialog, IDC_BUTTON, BN_CLICKED), "own click ");
    button.endsClick = true;
    EXPECT_EQ(Command(dialog, IDC_BUTTON, BN_CLICKED), "own ");
    EXPECT_EQ(Command(dialog, IDC_BUTTON, BN_SETFOCUS), "focus ");

    const CClientDC dc(dialog.GetHandle());
    const auto color = [&](UINT message, int id) {
        return reinterpret_cast<HBRUSH>(dialog.SendMessage(message, reinterpret_cast<WPARAM>(dc.GetHandle()),
                                                           reinterpret_cast<LPARAM>(dialog.GetDlgItem(id))));
    };
    EXPECT_EQ(color(WM_CTLCOLOREDIT, IDC_FIRST), ::GetStockObject(GRAY_BRUSH));
    EXPECT_NE(color(WM_CTLCOLORBTN, IDC_BUTTON), nullptr); // the platform's, since the control gives none
    button.brush = static_cast<HBRUSH>(::GetStockObject(HOLLOW_BRUSH));
    EXPECT_EQ(color(WM_CTLCOLORBTN, IDC_BUTTON), button.brush);

    DRAWITEMSTRUCT item{};
    item.CtlType = ODT_BUTTON;
    item.itemState = ODS_DISABLED;
    item.hwndItem = button.GetHandle();
    EXPECT_EQ(dialog.SendMessage(WM_DRAWITEM, IDC_BUTTON, reinterpret_cast<LPARAM>(&item)), TRUE);
    EXPECT_EQ(Taken(), "draw:4 ");
}

// A container that hands its children's commands on before it handles them itself.
class CPassingStatic : public CStatic {
protected:
    bool OnCommand(WPARAM wParam, LPARAM lParam) override {
        GetParent()->SendMessage(WM_COMMAND, wParam, lParam);
        return CStatic::OnCommand(wParam, lParam);
    }
};

TEST_F(MessageMap, CommandsHandedOnByContainersArriveOnce) {
    CPassingStatic outer, inner;
    CReflecting button;
    ASSERT_TRUE(outer.Create("STATIC", "", WS_CHILD, {0, 0, 50, 50}, dialog.GetHandle(), 0));
    ASSERT_TRUE(inner.Create("STATIC", "", WS_CHILD, {0, 0, 40, 40}, outer.GetHandle(), 0));
    ASSERT_TRUE(button.Create("BUTTON", "", WS_CHILD, {0, 0, 20, 20}, inner.GetHandle(), IDC_BUTTON));
    inner.SendMessage(WM_COMMAND, IDC_BUTTON, reinterpret_cast<LPARAM>(button.GetHandle()));
    EXPECT_EQ(Taken(), "click own ");
}

} // namespace
