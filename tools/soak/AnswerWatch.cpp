#include "soak/AnswerWatch.h"

#include <fstream>
#include <string>
#include <utility>

namespace {

// What a host has taken from all processors of its guest so far, in steps of 10 ms, where the kernel below Wine tells
// it; 0 elsewhere.
LineTime StolenTime() {
    constexpr int field = 8; // of the first line, behind its name
    std::ifstream file("Z:\\proc\\stat");
    std::string name;
    long ticks = 0;
    file >> name;
    for (int i = 0; i < field; ++i) file >> ticks;
    return file ? ticks * std::chrono::milliseconds(10) : LineTime(0);
}

} // namespace

CServedWindow::CServedWindow() : server([this] { Serve(); }) {
    made.get_future().wait();
}

CServedWindow::~CServedWindow() {
    ::PostMessageA(window, WM_CLOSE, 0, 0);
    server.join();
}

void CServedWindow::Serve() {
    window = ::CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_CAPTION, 600, 500, 200, 100, nullptr, nullptr, nullptr,
                               nullptr);
    made.set_value();
    MSG message{};
    while (window != nullptr && ::GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_CLOSE) return;
        ::DispatchMessageA(&message);
    }
}

CAnswerWatch::CAnswerWatch(Calls callbacks)
    : calls(std::move(callbacks)), reference([this] { AskEmptyWindow(); }), asker([this] { Run(); }) {}

void CAnswerWatch::Stop() {
    if (!asker.joinable()) return;
    stops = true;
    asker.join();
    reference.join();
}

LineTime CAnswerWatch::TimeOfAnswer(HWND window) {
    constexpr UINT limit = 10'000;
    const LineTime begin = SteadyLineTime();
    DWORD_PTR result = 0;
    ::SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, limit, &result);
    return SteadyLineTime() - begin;
}

void CAnswerWatch::AskEmptyWindow() {
    constexpr DWORD pause = 10;
    while (!stops) {
        const LineTime begin = SteadyLineTime();
        ::Sleep(pause);
        const LineTime lateness = SteadyLineTime() - begin - std::chrono::milliseconds(pause);
        const LineTime answer = TimeOfAnswer(emptyWindow.GetHandle());
        watch.Add(lateness);
        empty.Add(answer);
        const std::scoped_lock hold(lock);
        waits.push_back({begin, SteadyLineTime(), lateness + answer});
    }
}

void CAnswerWatch::Run() {
    constexpr DWORD pause = 50;
    while (!stops) {
        ::Sleep(pause);
        const HWND window = asked;
        if (window == nullptr) continue;
        const bool worksOnPort = calls.isPortAtWork();
        {
            const std::scoped_lock hold(lock);
            waits.clear();
        }
        const LineTime stolen = StolenTime();
        const LineTime begin = SteadyLineTime();
        const LineTime answer = TimeOfAnswer(window);
        // A window that ends or goes meanwhile has no answer.
        if (asked != window || ::IsWindow(window) == FALSE) continue;
        (worksOnPort ? atPortWork : program).Add(answer);
        const LineTime usedBar = worksOnPort ? portWorkBar : bar;
        if (answer >= usedBar) {
            const LineTime taken = StolenTime() - stolen; // before the next wait
            const LineTime machine = WaitsOfMachine(begin, begin + answer);
            calls.late({answer, machine, taken, answer - machine < usedBar});
        }
        calls.look(); // not before the question: it asks, too, and so would take the wait upon itself
    }
}

LineTime CAnswerWatch::WaitsOfMachine(LineTime begin, LineTime end) {
    for (;; ::Sleep(1)) { // until the sample is over during which the answer came
        const std::scoped_lock hold(lock);
        if (stops || (!waits.empty() && waits.back().end >= end)) return WaitsWithin(waits, begin, end);
    }
}
