// QuickSoak.exe HOURS SEED: days of polling in minutes. The program's own panel, queue, commands and port, over
// simulated counters, in one process whose pauses take no time: each moves a clock, as does the worker's wait for
// commands, and each poll is due when that clock says so.
//
// Not quickened are the system's timer, which polls otherwise, and the time of day in the log.
#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <span>
#include <string>
#include <utility>

#include <windows.h>

#include "framework/CommonControls.h"
#include "link/CommandQueue.h"
#include "panel/CounterPanel.h"
#include "resources/ResourceIds.h"
#include "serial/CommPort.h"
#include "soak/ProcessFigures.h"
#include "quick/QuickLine.h"

namespace {

constexpr LineTime pollInterval = std::chrono::milliseconds(200);
constexpr UINT_PTR pollTimer = 101;

CQuickLine& Line() {
    static auto* const line =
        new CQuickLine({.addresses = {0, 1, 2, 3, 4, 5}, .turnaround = LineTime(1000), .peoplePerMinute = 30});
    return *line;
}

// Where the panel polls, and how its thread tells that everything sent to it has been handled.
struct PollClock {
    std::atomic<HWND> panel{nullptr};
    HANDLE handled = ::CreateEventA(nullptr, FALSE, FALSE, nullptr);
    LineTime next{};
};

PollClock& Clock() {
    static auto* const clock = new PollClock;
    return *clock;
}

constexpr UINT everythingHandled = WM_APP;
constexpr std::size_t pollsPerMinute = 300, pollsPerHour = 60 * pollsPerMinute;

std::atomic<std::size_t> paints{0};

LRESULT CALLBACK CountPaints(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION && reinterpret_cast<const CWPSTRUCT*>(lParam)->message == WM_PAINT) ++paints;
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

// The lines of this program's traffic log that tell of a request.
std::size_t LoggedRequests() {
    char path[MAX_PATH]{};
    ::GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string own(path);
    std::ifstream file(own.substr(0, own.rfind('\\') + 1) + "Quorvane.log");
    std::size_t requests = 0;
    for (std::string line; std::getline(file, line);) requests += line.find("TX-->") != std::string::npos ? 1 : 0;
    return requests;
}

} // namespace

// The linker hands the queue and the commands this one in place of their pause, and the program this port of its own.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the linker names it so
extern "C" void __wrap__Z11PauseThreadj(std::uint32_t milliseconds) {
    PollClock& clock = Clock();
    Line().Pass(std::chrono::milliseconds(milliseconds));
    const HWND panel = clock.panel;
    if (panel == nullptr) return ::Sleep(1);
    if (Line().Now() < clock.next) return;
    clock.next += pollInterval;
    ::PostMessageA(panel, WM_TIMER, pollTimer, 0);
    ::PostMessageA(::GetParent(panel), everythingHandled, 0, 0);
    ::WaitForSingleObject(clock.handled, 10'000);
}

// The worker of the queue is who moves the clock, so it doesn't wait for commands.
// NOLINTNEXTLINE(bugprone-reserved-identifier): the linker names it so
extern "C" void __wrap__ZN7CSignal5AwaitEv(CSignal*) {
    constexpr std::uint32_t step = 10; // ms
    __wrap__Z11PauseThreadj(step);
}

// NOLINTNEXTLINE(bugprone-reserved-identifier): the linker names it so
extern "C" CCommPort* __wrap__ZN9CCommPort8InstanceEv() {
    static auto* const port = new CCommPort(Line());
    return port;
}

namespace {

struct OnePort final : CPanelFrame {
    OnePort() = default;
    OnePort(const OnePort&) = delete;
    OnePort& operator=(const OnePort&) = delete;
    virtual ~OnePort() = default;

    const AvailablePorts& GetAvailablePorts() const override { return ports; }
    void SelectPort(std::int32_t) override {}
    std::int32_t GetSelectedPort() const override { return 1; }
    bool IsChinese() const override { return false; }
    int OpenSelectedPort() override { return 1; }
    void OnComSetting() override {}
    AvailablePorts ports{{1}, 1};
};

class CQuickRun {
public:
    CQuickRun(double hours, std::uint64_t seed) : end(static_cast<LineTime::rep>(hours * 3600e6)), random(seed) {}

    bool Run();

private:
    void Start();
    void HandlePoll();
    void CheckCounts();
    void ChangeFaults();
    void Measure();
    bool Report(double seconds);

    std::string Text(int id) const {
        std::array<char, 64> text{};
        ::GetDlgItemTextA(panel.GetHandle(), id, text.data(), static_cast<int>(text.size()));
        return text.data();
    }

    const LineTime end;
    CLineRandom random;
    CWnd host;
    OnePort frame;
    CCounterPanel panel;
    std::size_t polls = 0, faults = 0;
    ProcessFigures base, last;
    double paintsOfFirstHour = 0, paintsOfHour = 0;
    std::string wrong;
};

void CQuickRun::Start() {
    INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), ICC_DATE_CLASSES};
    SystemCommonControls().initialise(&classes);
    host.Create("STATIC", "Quick", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {0, 0, 500, 400}, nullptr, 0);
    panel.frame = &frame;
    panel.Create(host);
    panel.ShowWindow(SW_SHOW);
    CCommPort::Instance()->Open("COM1", 0, 0, true);
    ::SetWindowsHookExA(WH_CALLWNDPROC, &CountPaints, nullptr, ::GetCurrentThreadId());
    panel.OnStartStop();
    ::KillTimer(panel.GetHandle(), pollTimer);
    Clock().panel = panel.GetHandle();
}

bool CQuickRun::Run() {
    constexpr UINT halfMinute = 30'000;
    const DWORD begun = ::GetTickCount();
    Start();
    ::SetTimer(nullptr, 0, halfMinute, nullptr);
    std::size_t pollsAtLook = 0;
    MSG message{};
    while (wrong.empty() && Line().Now() < end && ::GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (message.message == everythingHandled) {
            HandlePoll();
            ::SetEvent(Clock().handled);
        } else if (message.message == WM_TIMER && message.hwnd == nullptr) {
            if (std::exchange(pollsAtLook, polls) == polls) wrong = "no poll for half a minute";
        } else {
            if (message.message == WM_PAINT) ++paints;
            ::DispatchMessageA(&message);
        }
    }
    Clock().panel = nullptr;
    ::SetEvent(Clock().handled);
    return Report(static_cast<double>(::GetTickCount() - begun) / 1000);
}

void CQuickRun::HandlePoll() {
    ++polls;
    ::RedrawWindow(panel.GetHandle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    CheckCounts();
    if (polls % pollsPerMinute == 0) ChangeFaults();
    if (polls % pollsPerHour == 0) Measure();
}

void CQuickRun::CheckCounts() {
    const std::string in = Text(IDC_IN_DISPLAY), out = Text(IDC_OUT_DISPLAY), address = Text(IDC_ADDRESS_EDIT);
    const auto at = static_cast<std::uint8_t>(std::atoi(address.c_str()));
    if (!Line().WereToldLately(at, std::atoi(in.c_str()), std::atoi(out.c_str())))
        wrong = "the displays show " + in + " and " + out + ", which counter " + address + " hasn't told";
}

// A minute with one, then one without.
void CQuickRun::ChangeFaults() {
    Line().Heal();
    if (random.Below(2) == 0) return;
    const auto kind = static_cast<LineFaultKind>(random.Below(static_cast<std::uint32_t>(LineFaultKind::Echo) + 1));
    const bool isForAll = random.Below(4) == 0;
    LineFault fault{.kind = kind, .address = std::nullopt, .value = 9, .remaining = 0};
    if (kind == LineFaultKind::Late || kind == LineFaultKind::Split) fault.value = 150;
    if (!isForAll) fault.address = static_cast<std::uint8_t>(random.Below(counterCount));
    Line().AddFault(fault);
    ++faults;
}

// The first hour fills what is kept.
void CQuickRun::Measure() {
    last = FiguresOf(::GetCurrentProcess());
    paintsOfHour = static_cast<double>(paints.exchange(0)) / static_cast<double>(pollsPerHour);
    if (base.memory == 0) base = last, paintsOfFirstHour = paintsOfHour;
    if (!last.AreTold() && wrong.empty()) wrong = "the system doesn't tell what is held";
    std::printf("hour %d: %.2f paints a poll, %s\n", static_cast<int>(polls / pollsPerHour), paintsOfHour,
                last.Text().c_str());
    std::fflush(stdout);
}

bool CQuickRun::Report(double seconds) {
    constexpr std::int64_t memoryBound = 1024; // KiB
    // The worker may be about to send one more; what it sends is logged first.
    const std::size_t before = Line().Requests(), logged = LoggedRequests(), after = Line().Requests() + 1;
    if (wrong.empty() && (logged < before || logged > after))
        wrong = "the log has " + std::to_string(logged) + " requests, the line heard " + std::to_string(before);
    const double hours = std::chrono::duration<double, std::ratio<3600>>(Line().Now()).count();
    std::printf("%.1f hours in %.0f s, %zu polls, %zu requests, %zu faults\n", hours, seconds, polls, Line().Requests(),
                faults);
    if (wrong.empty() && (last.gdiObjects > base.gdiObjects || last.windows > base.windows ||
                          last.threads > base.threads || last.handles > base.handles ||
                          last.memory - base.memory > memoryBound || paintsOfHour > 1.25 * paintsOfFirstHour))
        wrong = "it holds or paints more than in the first hour";
    std::puts(wrong.empty() ? "sound" : ("WRONG " + wrong).c_str());
    return wrong.empty();
}

} // namespace

int main(int count, char** arguments) {
    const std::span<char* const> all(arguments, static_cast<std::size_t>(count));
    const double hours = all.size() == 3 ? std::strtod(all[1], nullptr) : 0;
    if (hours < 2) {
        std::puts("QuickSoak HOURS SEED: the second hour and those behind it are held against the first");
        return 2;
    }
    CQuickRun run(hours, std::strtoull(all[2], nullptr, 10));
    const bool isSound = run.Run();
    std::fflush(stdout);
    ::TerminateProcess(::GetCurrentProcess(), isSound ? 0 : 1); // the worker never ends
}
