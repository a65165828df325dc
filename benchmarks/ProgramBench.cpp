// ProgramBench.exe: the built program beside an empty window, in turns, so that a busy machine hurts both. A line for
// each figure: its name, its value, and where there is one that of the empty window.
//
//     ProgramBench.exe FOLDER [SECONDS]   Quorvane.exe and EmptyWindow.exe lie there; it polls that long, on the stored
//     port
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "MeasuredProgram.h"
#include "framework/ResourceModule.h"
#include "panel/TrafficLog.h"
#include "resources/Product.h"
#include "resources/ResourceIds.h"
#include "user/WindowSearch.h"

namespace {

constexpr int turns = 15;

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void Tell(const char* name, const std::vector<double>& program, const std::vector<double>& empty = {}) {
    std::printf("%s %.3f", name, Median(program));
    if (!empty.empty()) std::printf(" %.3f", Median(empty));
    std::printf("\n");
    std::fflush(stdout);
}

void Press(const CMeasuredProgram& program, int id) {
    const HWND button = FindControl(program.Window(), id);
    ::PostMessageA(::FindWindowExA(program.Window(), nullptr, "#32770", nullptr), WM_COMMAND,
                   MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

// From the press to the popup that is there.
double Popup(const CMeasuredProgram& program) {
    const double begun = Milliseconds();
    Press(program, ID_PORT_MENU);
    while (ShownPopup() == nullptr && Milliseconds() - begun < 5000) ::Sleep(0);
    const double time = Milliseconds() - begun;
    ::SendMessageA(program.Window(), WM_CANCELMODE, 0, 0);
    ::Sleep(50);
    return time;
}

// From a move over a button to its new face.
double Hover(const CMeasuredProgram& program, bool over) {
    const HWND button = FindControl(program.Window(), IDC_UPDATE);
    const double begun = Milliseconds();
    ::SendMessageA(button, over ? WM_MOUSEMOVE : WM_MOUSELEAVE, 0, MAKELPARAM(5, 5));
    ::UpdateWindow(button);
    ::SendMessageA(button, WM_NULL, 0, 0);
    return Milliseconds() - begun;
}

class CBenchLog : public CTrafficLog {
public:
    CBenchLog() { PrepareLog(); }
    void ShowPortState(bool /*open*/) override {}
};

// A line of the log, in microseconds, once the file beside this program has that many bytes.
std::vector<double> LogLines(LONGLONG size) {
    constexpr int lines = 200;
    constexpr std::uint8_t poll[] = {0x02, 0x00, 0x81, 0x81, 0x03};
    CBenchLog log;
    {
        const CFileHandle file(::CreateFileW((ProgramFolderWide() + L"Quorvane.log").c_str(), GENERIC_WRITE, 0, nullptr,
                                             OPEN_EXISTING, 0, nullptr));
        LARGE_INTEGER end{};
        end.QuadPart = size;
        ::SetFilePointerEx(file.GetHandle(), end, nullptr, FILE_BEGIN);
        ::SetEndOfFile(file.GetHandle());
    }
    std::vector<double> times;
    for (int line = 0; line < lines; ++line) {
        const double begun = Milliseconds();
        log.LogTransmitted(poll, sizeof poll);
        times.push_back(1e3 * (Milliseconds() - begun));
    }
    return times;
}

int Fail(const char* what) {
    std::fprintf(stderr, "ProgramBench: %s\n", what);
    return 1;
}

} // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount != 3) return Fail("which folder, how many seconds?");
    const std::string folder = std::string(arguments[1]) + "\\";
    const int seconds = std::atoi(arguments[2]);
    CMeasuredProgram program(folder + "Quorvane.exe", PRODUCT_TITLE), empty(folder + "EmptyWindow.exe", "Empty window");
    std::vector<double> start[2], memory[2], paint[2], close[2], popup, hover;
    for (int turn = 0; turn < turns; ++turn) {
        for (const int which : {0, 1}) {
            CMeasuredProgram& measured = which == 0 ? program : empty;
            const auto started = measured.Start();
            if (!started) return Fail("no window");
            ::Sleep(300);
            start[which].push_back(*started);
            memory[which].push_back(measured.GetUse().memory);
            paint[which].push_back(measured.Paint());
            if (which == 0) {
                popup.push_back(Popup(program));
                hover.push_back(Hover(program, true) + Hover(program, false));
            }
            const auto closed = measured.Close();
            if (!closed) return Fail("no end");
            close[which].push_back(*closed);
        }
    }
    Tell("start_ms", start[0], start[1]);
    Tell("memory_MiB", memory[0], memory[1]);
    Tell("paint_ms", paint[0], paint[1]);
    Tell("close_ms", close[0], close[1]);
    Tell("popup_ms", popup);
    Tell("hover_ms", hover);
    Tell("log_line_1MB_us", LogLines(1'000'000));
    Tell("log_line_4GB_us", LogLines(4'300'000'000));
    const CBenchLog emptied;
    if (!program.Start() || !empty.Start()) return Fail("no window");
    Press(program, IDC_START);
    ::Sleep(2000);
    std::printf("polls\n");
    std::fflush(stdout);
    ::Sleep(static_cast<DWORD>(seconds) * 1000);
    program.Close();
    empty.Close();
    return 0;
}
