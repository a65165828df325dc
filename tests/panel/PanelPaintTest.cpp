// What the panel paints, and when: nothing at rest, under the mouse one button alone, and all of it quickly.
#include <map>

#include "PanelFixture.h"
#include "Repeats.h"
#include "framework/ResourceModule.h"

namespace {

using Clock = std::chrono::steady_clock;

// Counts this thread's paint messages by window, those from its queue and those that an update sends.
class CPaintCounter {
public:
    CPaintCounter()
        : posted(::SetWindowsHookExA(WH_GETMESSAGE, &OnMessage, nullptr, ::GetCurrentThreadId())),
          sent(::SetWindowsHookExA(WH_CALLWNDPROC, &OnCall, nullptr, ::GetCurrentThreadId())) {
        paints.clear();
    }
    CPaintCounter(const CPaintCounter&) = delete;
    CPaintCounter& operator=(const CPaintCounter&) = delete;
    ~CPaintCounter() {
        ::UnhookWindowsHookEx(posted);
        ::UnhookWindowsHookEx(sent);
    }

    static inline std::map<HWND, int> paints;

private:
    static LRESULT CALLBACK OnMessage(int code, WPARAM removed, LPARAM lParam) {
        const MSG& message = *reinterpret_cast<const MSG*>(lParam);
        if (code == HC_ACTION && removed == PM_REMOVE && message.message == WM_PAINT) ++paints[message.hwnd];
        return ::CallNextHookEx(nullptr, code, removed, lParam);
    }

    static LRESULT CALLBACK OnCall(int code, WPARAM wParam, LPARAM lParam) {
        const CWPSTRUCT& call = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (code == HC_ACTION && call.message == WM_PAINT) ++paints[call.hwnd];
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }

    HHOOK posted, sent;
};

// Lets the panel find the theme, which lies beside the program.
class CProgramsFolder {
public:
    CProgramsFolder() {
        ::GetCurrentDirectoryA(sizeof former, former);
        EXPECT_TRUE(::SetCurrentDirectoryA((ProgramFolder() + "..\\bin").c_str()));
    }
    CProgramsFolder(const CProgramsFolder&) = delete;
    CProgramsFolder& operator=(const CProgramsFolder&) = delete;
    ~CProgramsFolder() { ::SetCurrentDirectoryA(former); }

private:
    char former[MAX_PATH]{};
};

class PanelPaint : private CProgramsFolder, public PanelTest {
protected:
    PanelPaint() { Settle(); }

    static void PumpFor(std::chrono::milliseconds time) {
        const auto end = Clock::now() + time;
        PumpUntil([end] { return Clock::now() >= end; });
    }
    // Until everything that had to be painted is.
    static void Settle() { PumpFor(std::chrono::milliseconds(300)); }

    // What a move of the mouse over the control's middle, or out of it, sends.
    static void MoveMouse(HWND control, bool inside) {
        RECT client{};
        ::GetClientRect(control, &client);
        const int x = inside ? client.right / 2 : -5;
        ::SendMessageA(control, WM_MOUSEMOVE, 0, MAKELPARAM(x, client.bottom / 2));
        // The pointer isn't really there, and the control would be told so soon.
        TRACKMOUSEEVENT untold{sizeof untold, TME_CANCEL | TME_LEAVE, control, 0};
        ::_TrackMouseEvent(&untold);
    }
};

TEST_F(PanelPaint, AtRestNothing) {
    const CPaintCounter counter;
    PumpFor(std::chrono::seconds(2));
    for (const auto& [window, count] : CPaintCounter::paints) ADD_FAILURE() << ::GetDlgCtrlID(window) << ": " << count;
}

TEST_F(PanelPaint, UnderTheMouseTheButtonAlone) {
    for (const int id : {IDC_START, IDC_UPDATE, IDC_DIRECTION_OUT, ID_PORT_MENU}) {
        for (const bool inside : {true, false}) {
            const CPaintCounter counter;
            MoveMouse(Control(id), inside);
            Settle();
            EXPECT_EQ(CPaintCounter::paints[Control(id)], 1) << id << (inside ? " entered" : " left");
            EXPECT_EQ(CPaintCounter::paints.size(), 1U) << id;
        }
    }
}

TEST_F(PanelPaint, APollThatBringsNothingNewPaintsNothing) {
    FindTwoCounters();
    Settle();
    const CPaintCounter counter;
    Reply(WM_POLL_REPLY, 0, Status(0, 12, 34));
    Settle();
    for (const auto& [window, count] : CPaintCounter::paints) ADD_FAILURE() << ::GetDlgCtrlID(window) << ": " << count;
    Reply(WM_POLL_REPLY, 0, Status(0, 13, 34));
    Settle();
    EXPECT_EQ(CPaintCounter::paints, (std::map<HWND, int>{{Control(IDC_IN_DISPLAY), 1}}));
}

TEST_F(PanelPaint, TheWholePanelAndEachButtonQuickly) {
    const auto best = [](const std::function<void()>& paint) {
        auto time = Clock::duration::max();
        for (int tries = 0; tries < Repeats(200); ++tries) {
            const auto begun = Clock::now();
            paint();
            ::GdiFlush();
            time = std::min(time, Clock::now() - begun);
        }
        return std::chrono::duration<double, std::milli>(time).count();
    };
    constexpr UINT now = RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW;
    const HWND window = panel->GetHandle();
    const auto repaint = [window] { ::RedrawWindow(window, nullptr, nullptr, now | RDW_ALLCHILDREN); };
    // What else the machine does, for seconds at times, can only add to the figure.
    double whole = best(repaint);
    for (int rounds = 0; rounds < 9 && whole >= 10 * TimeFactor(); ++rounds) whole = std::min(whole, best(repaint));
    RecordProperty("panelMilliseconds", std::to_string(whole));
    EXPECT_LT(whole, 10 * TimeFactor());
    for (const int id : {IDC_START, IDC_LANGUAGE_ENGLISH, ID_HELP_MENU}) {
        const HWND control = Control(id);
        const double button = best([control] { ::RedrawWindow(control, nullptr, nullptr, now); });
        RecordProperty("buttonMilliseconds_" + std::to_string(id), std::to_string(button));
        EXPECT_LT(button, 1.0 * TimeFactor()) << id;
    }
    // From the move of the mouse to the finished frame.
    const HWND start = Control(IDC_START);
    bool inside = false;
    const double hover = best([&] {
        MoveMouse(start, inside = !inside);
        ::UpdateWindow(start);
    });
    RecordProperty("hoverMilliseconds", std::to_string(hover));
    EXPECT_LT(hover, 20 * TimeFactor());
}

} // namespace
