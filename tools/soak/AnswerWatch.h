// How long the program's window takes to answer what is sent to it, twenty times a second. Beside it a window of this
// process that does nothing is asked: what that waits for isn't the program's doing.
#pragma once

#include <atomic>
#include <functional>
#include <future>
#include <mutex>
#include <thread>
#include <vector>

#include <windows.h>

#include "port/LineTime.h"
#include "soak/MachineWaits.h"

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

// An answer that took the bar or longer.
struct LateAnswer {
    LineTime time;
    LineTime machine; // of that, what the machine itself let others wait
    LineTime stolen;  // what the machine's host took from its processors meanwhile; told, but excuses nothing
    bool excused;     // less than the bar without the machine's part
};

// An empty window, 200 by 100 and hidden at first, with a thread of its own.
class CServedWindow {
public:
    CServedWindow();
    CServedWindow(const CServedWindow&) = delete;
    CServedWindow& operator=(const CServedWindow&) = delete;
    ~CServedWindow();

    HWND GetHandle() const { return window; }

private:
    void Serve();

    HWND window = nullptr;
    std::promise<void> made;
    std::thread server;
};

class CAnswerWatch {
public:
    // Both on the watch's thread: `look` after each question, `late` before it.
    struct Calls {
        std::function<void()> look;
        std::function<bool()> isPortAtWork;
        std::function<void(const LateAnswer&)> late;
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

    // `watch`: how late its own sleeps end.
    AnswerFigures program, atPortWork, empty, watch;

private:
    void Run();
    void AskEmptyWindow();
    LineTime WaitsOfMachine(LineTime begin, LineTime end);
    static LineTime TimeOfAnswer(HWND window);

    const Calls calls;
    const CServedWindow emptyWindow;
    std::atomic<HWND> asked{nullptr};
    std::atomic<bool> stops{false};
    std::mutex lock;
    std::vector<MachineWait> waits; // since the last question, under the lock
    std::thread reference, asker;
};
