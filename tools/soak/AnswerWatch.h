// How long the program's window takes to answer, twenty times a second, beside a window of this process that does
// nothing: who is late on a machine without time isn't the program.
#pragma once

#include <atomic>
#include <functional>
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
    // `look` is called on the watch's thread after each question, `late` with an answer that took the bar or longer,
    // the empty window's beside it and how late the watch itself was.
    struct Calls {
        std::function<void()> look;
        std::function<bool()> isPortAtWork;
        std::function<void(LineTime answer, LineTime empty, LineTime watch)> late;
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

    AnswerFigures program, atPortWork, empty, watch;

private:
    void Run();
    void ServeEmptyWindow();
    static LineTime TimeOfAnswer(HWND window);

    const Calls calls;
    std::atomic<HWND> asked{nullptr}, emptyWindow{nullptr};
    std::atomic<bool> stops{false};
    std::thread server, asker;
};
