#include "soak/AnswerWatch.h"

#include <algorithm>
#include <utility>

CAnswerWatch::CAnswerWatch(Calls callbacks)
    : calls(std::move(callbacks)), server([this] { ServeEmptyWindow(); }), reference([this] { AskEmptyWindow(); }),
      asker([this] { Run(); }) {}

void CAnswerWatch::Stop() {
    if (!asker.joinable()) return;
    stops = true;
    asker.join();
    reference.join();
    ::PostMessageA(emptyWindow, WM_CLOSE, 0, 0);
    server.join();
}

void CAnswerWatch::ServeEmptyWindow() {
    emptyWindow = ::CreateWindowExA(0, "STATIC", "", WS_POPUP | WS_CAPTION, 600, 500, 200, 100, nullptr, nullptr,
                                    nullptr, nullptr);
    MSG message{};
    while (::GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (message.message == WM_CLOSE) return;
        ::DispatchMessageA(&message);
    }
}

LineTime CAnswerWatch::TimeOfAnswer(HWND window) {
    constexpr UINT limit = 10'000;
    const LineTime begin = SteadyLineTime();
    DWORD_PTR result = 0;
    ::SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, limit, &result);
    return SteadyLineTime() - begin;
}

LineTime CAnswerWatch::SleepLate(DWORD pause) {
    const LineTime begin = SteadyLineTime();
    ::Sleep(pause);
    return SteadyLineTime() - begin - std::chrono::milliseconds(pause);
}

void CAnswerWatch::AskEmptyWindow() {
    while (!stops) {
        const LineTime lateness = SleepLate(referencePause);
        const LineTime answer = TimeOfAnswer(emptyWindow);
        empty.Add(answer);
        watch.Add(lateness);
        const std::scoped_lock hold(lock);
        machine = std::max({machine, answer, lateness});
    }
}

void CAnswerWatch::Run() {
    constexpr DWORD pause = 50;
    while (!stops) {
        ::Sleep(pause);
        const HWND window = asked;
        if (window == nullptr) continue;
        const bool worksOnPort = calls.isPortAtWork();
        TakeMachine();
        const LineTime answer = TimeOfAnswer(window);
        // A window that ends or goes meanwhile has no answer.
        if (asked != window || ::IsWindow(window) == FALSE) continue;
        calls.look(); // not sooner: it asks, too, and so would take the wait upon itself
        (worksOnPort ? atPortWork : program).Add(answer);
        if (answer < (worksOnPort ? portWorkBar : bar)) continue;
        ::Sleep(3 * referencePause); // the empty window's answer that was awaited beside this one, too
        calls.late(answer, TakeMachine());
    }
}

LineTime CAnswerWatch::TakeMachine() {
    const std::scoped_lock hold(lock);
    return std::exchange(machine, LineTime(0));
}
