// QuorvaneLine.exe: the simulated counter line on a COM port, the far end of a null-modem pair.
//
// One thread that sleeps until there is input, a control line, Ctrl+C, or a byte is due.
#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <windows.h>

#include "framework/SystemLibrary.h"
#include "framework/Time.h"
#include "line/ControlReader.h"
#include "line/LineOptions.h"
#include "line/LineRunner.h"
#include "line/LineWords.h"
#include "port/ComPort.h"
#include "port/ExactWaits.h"
#include "port/PortNames.h"
#include "port/StopEvent.h"

namespace {

void Say(const std::string& text) {
    std::printf("%s\n", text.c_str());
    std::fflush(stdout);
}

int Complain(const std::string& text) {
    std::fprintf(stderr, "QuorvaneLine: %s\n", text.c_str());
    return 1;
}

const LineProgram program{"QuorvaneLine",
                          {{"--port", "COM2",
                            "the COM port, joined to the program's by a null-modem cable or a pair of ports;\n"
                            "asked for if it isn't given"}}};

// The next line that the user writes; none if there will be no more, or the program is to end.
std::optional<std::string> AwaitLine(const CStopEvent& stop, CControlReader& control) {
    const std::array<HANDLE, 3> events{stop.Event(), control.LinesEvent(), control.EndEvent()};
    WaitForMultipleObjects(static_cast<DWORD>(events.size()), events.data(), FALSE, INFINITE);
    return control.TakeLine();
}

// Opens the port that the user chooses, who may try until one opens. False if none does.
bool OpenChosenPort(const CStopEvent& stop, CControlReader& control, CComPort& port, CLineRunner& runner,
                    const std::string& wirePath) {
    std::string list;
    for (const NamedPort& each : MachinePorts()) list += " " + each.name;
    Say("QuorvaneLine plays people counters on a COM port. Ports here:" + (list.empty() ? " none" : list) +
        "\nWhich one? Write its name, such as COM2. (QuorvaneLine.exe --port COM2 doesn't ask; --help shows the "
        "rest.)");
    while (const auto text = AwaitLine(stop, control)) {
        const auto words = SplitLineWords(*text);
        const auto name = words.size() == 1 ? ComPortName(words[0]) : std::nullopt;
        std::string error = "\"" + *text + "\" is no port from COM1 to COM256";
        if (name) {
            port.Choose(*name);
            if (runner.Start(wirePath, error)) return true;
        }
        Say(error + "\nWhich port?");
    }
    return false;
}

// The time until something is to be done; without a port only a control line can bring that about.
DWORD TimeToNextStep(const CComPort& port, std::optional<LineTime> due) {
    const DWORD look = port.IsOpen() ? port.TimeToLook() : INFINITE;
    if (!due) return look;
    const LineTime left = std::max(*due - SteadyLineTime(), LineTime(0));
    return std::min(look, static_cast<DWORD>(std::chrono::ceil<std::chrono::milliseconds>(left).count()));
}

void Run(const CStopEvent& stop, CControlReader& control, const CComPort& port, CLineRunner& runner) {
    bool goOn = true;
    while (goOn) {
        const auto due = runner.NextDue();
        std::optional<CExactWaits> exact;
        if (due) exact.emplace();
        std::vector<HANDLE> events{stop.Event(), control.LinesEvent()};
        if (port.IsOpen()) events.push_back(port.InputEvent());
        const DWORD woken =
            WaitForMultipleObjects(static_cast<DWORD>(events.size()), events.data(), FALSE, TimeToNextStep(port, due));
        if (woken == WAIT_OBJECT_0) return;
        runner.Receive(SteadyLineTime());
        while (const auto text = control.TakeLine()) goOn = runner.Obey(*text, SteadyLineTime()) && goOn;
        runner.Speak(SteadyLineTime());
    }
}

int RunLine(std::span<const char* const> arguments) {
    LineOptions options;
    std::string error;
    if (!ParseLineOptions(arguments, program, options, error)) return Complain(error);
    if (!options.help.empty()) {
        Say(options.help);
        return 0;
    }
    const bool isPortGiven = options.own.contains("--port");
    const auto name = ComPortName(options.own["--port"]);
    if (isPortGiven && !name) return Complain("--port: COM1 to COM256");
    const CStopEvent stop;
    CControlReader control;
    CComPort port(options.configuration.baudRate);
    CLineRunner runner(options, CTime::Now().GetLocalFields(), SteadyLineTime(), port, Say);
    if (isPortGiven) {
        port.Choose(*name);
        if (!runner.Start(options.wirePath, error)) return Complain(error);
    } else if (!OpenChosenPort(stop, control, port, runner, options.wirePath)) {
        return Complain("no port");
    }
    Run(stop, control, port, runner);
    return 0;
}

} // namespace

int main(int argumentCount, char** arguments) {
    KeepToSystemLibraries();
    try {
        return RunLine({arguments, static_cast<std::size_t>(argumentCount)});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "QuorvaneLine: %s\n", failure.what());
    }
    return 1;
}
