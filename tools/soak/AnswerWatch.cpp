#include "soak/AnswerWatch.h"

#include <utility>

CAnswerWatch::CAnswerWatch(Calls callbacks)
    : calls(std::move(callbacks)), server([this] { ServeEmptyWindow(); }), asker([this] { Run(); }) {}

void CAnswerWatch::Stop() {
    if (!asker.joinable()) return;
    stops = true;
    asker.join();
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

void CAnswerWatch::Run() {
    constexpr DWORD pause = 50;
    while (!stops) {
        const LineTime begin = SteadyLineTime();
        ::Sleep(pause);
        const LineTime lateness = SteadyLineTime() - begin - std::chrono::milliseconds(pause);
        const HWND window = asked;
        if (window == nullptr) continue;
        const bool worksOnPort = calls.isPortAtWork();
        const LineTime answer = TimeOfAnswer(window);
        // A window that ends or goes meanwhile has no answer.
        if (asked != window || ::IsWindow(window) == FALSE) continue;
        const LineTime reference = TimeOfAnswer(emptyWindow);
        calls.look(); // not sooner: it asks, too, and so would take the wait upon itself
        (worksOnPort ? atPortWork : program).Add(answer);
        empty.Add(reference);
        watch.Add(lateness);
        if (answer >= (worksOnPort ? portWorkBar : bar)) calls.late(answer, reference, lateness);
    }
}
