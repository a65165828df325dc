// How long the program's window takes to answer, twenty times a second. At the same time a window of this process that
// does nothing is asked: who is late on a machine without time isn't the program.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <thread>

#include <windows.h>

#include "port/LineTime.h"

struct AnswerFigures {
    LineTime worst{}, sum{};
    long count = 0;

    void Add(LineTime time) {
        worst = time > worst ? time : worst;
        sum += time;
        ++count;
    }
    LineTime Mean() const { return count != 0 ? sum / count : LineTime(0); }
};

class CAnswerWatch {
public:
    // `look` is called on the watch's thread after each question, `late` with an answer that took the bar or longer and
    // the longest wait for the empty window, or for a sleep to end, of the same time.
    struct Calls {
        std::function<void()> look;
        std::function<bool()> isPortAtWork;
        std::function<void(LineTime answer, LineTime machine)> late;
    };
    static constexpr LineTime bar = std::chrono::milliseconds(100);
    static constexpr LineTime portWorkBar = std::chrono::milliseconds(1000);

    explicit CAnswerWatch(Calls callbacks);
    CAnswerWatch(const CAnswerWatch&) = delete;
    CAnswerWatch& operator=(const CAnswerWatch&) = delete;
    ~CAnswerWatch() { Stop(); }
    // Afterwards the figures may be read.
    void Stop();

    // Whom to ask; null: nobody for now.
    void Ask(HWND window) { asked = window; }

    // The empty one, 200 by 100; null until it is made.
    HWND EmptyWindow() const { return emptyWindow; }

    // `watch`: how late its own sleeps end.
    AnswerFigures program, atPortWork, empty, watch;

private:
    static constexpr DWORD referencePause = 10; // ms

    void Run();
    void ServeEmptyWindow();
    void AskEmptyWindow();
    LineTime TakeMachine();
    static LineTime SleepLate(DWORD pause);
    static LineTime TimeOfAnswer(HWND window);

    const Calls calls;
    std::atomic<HWND> asked{nullptr}, emptyWindow{nullptr};
    std::atomic<bool> stops{false};
    std::mutex lock;
    LineTime machine{}; // the longest wait since it was taken; under the lock
    std::thread server, reference, asker;
};
