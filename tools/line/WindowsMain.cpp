// QuorvaneLine.exe: the simulated counter line on a COM port, the far end of a null-modem pair.
//
// One thread that sleeps until there is a control line, Ctrl+C, or a byte is due, and looks for input every 2 ms, the
// time of one byte.
#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <string>

#include <windows.h>
#include <mmsystem.h>

#include "framework/Time.h"
#include "line/ComPort.h"
#include "line/ControlReader.h"
#include "line/Handle.h"
#include "line/LineOptions.h"
#include "line/LineRunner.h"

namespace {

// Signalled when the program is to end. The console calls its handler on a thread of the system's choice, without an
// argument to hand an object through.
HANDLE StopEvent() {
    static const UniqueHandle event(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    return event.get();
}

BOOL WINAPI AskToStop(DWORD /*event*/) {
    SetEvent(StopEvent());
    return TRUE;
}

// A wait is exact to a millisecond meanwhile; by itself Windows gives 16.
class CExactWaits {
public:
    CExactWaits() { timeBeginPeriod(1); }
    CExactWaits(const CExactWaits&) = delete;
    CExactWaits& operator=(const CExactWaits&) = delete;
    ~CExactWaits() { timeEndPeriod(1); }
};

void Say(const std::string& text) {
    std::printf("%s\n", text.c_str());
    std::fflush(stdout);
}

int Complain(const std::string& text) {
    std::fprintf(stderr, "QuorvaneLine: %s\n", text.c_str());
    return 1;
}

void ShowHelp() {
    std::printf("QuorvaneLine: people counters on a simulated serial line\n"
                "  --port COM2        the COM port, joined to the program's by a null-modem cable or a pair of ports\n"
                "%s",
                DescribeLineOptions().c_str());
}

// The time until something is to be done; without a port only a control line can bring that about.
DWORD TimeToNextStep(const CComPort& port, const CLineRunner& runner) {
    constexpr LineTime step(2000);
    if (!port.IsOpen()) return INFINITE;
    const auto due = runner.NextDue();
    const auto left = due ? std::clamp(*due - SteadyLineTime(), LineTime(0), step) : step;
    return static_cast<DWORD>(std::chrono::ceil<std::chrono::milliseconds>(left).count());
}

void Run(const CComPort& port, CLineRunner& runner) {
    const CExactWaits exact;
    CControlReader control;
    const std::array<HANDLE, 2> events{StopEvent(), control.LinesEvent()};
    bool goOn = true;
    while (goOn) {
        const DWORD woken = WaitForMultipleObjects(static_cast<DWORD>(events.size()), events.data(), FALSE,
                                                   TimeToNextStep(port, runner));
        if (woken == WAIT_OBJECT_0) return;
        runner.Receive(SteadyLineTime());
        for (const std::string& text : control.TakeLines()) goOn = runner.Obey(text, SteadyLineTime()) && goOn;
        runner.Speak(SteadyLineTime());
    }
}

} // namespace

int main(int argumentCount, char** arguments) {
    LineOptions options;
    std::string error;
    const std::span<const char* const> all(arguments, static_cast<std::size_t>(argumentCount));
    if (!ParseLineOptions(all.subspan(1), {"--port"}, options, error)) return Complain(error);
    if (options.help) {
        ShowHelp();
        return 0;
    }
    SetConsoleCtrlHandler(AskToStop, TRUE);
    CComPort port(options.own["--port"], options.configuration.baudRate);
    CLineRunner runner(options, CTime::Now().GetLocalFields(), SteadyLineTime(), port, Say);
    if (!runner.Start(options.wirePath, error)) return Complain(error);
    Run(port, runner);
    return 0;
}
