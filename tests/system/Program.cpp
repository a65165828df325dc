#include "Program.h"

#include <array>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "Input.h"
#include "resources/ResourceIds.h"

namespace {

constexpr UINT answerLimit = 5000; // milliseconds

using WindowTest = std::function<bool(HWND)>;

struct WindowSearch {
    const WindowTest& test;
    HWND found;

    static BOOL CALLBACK Visit(HWND window, LPARAM search) {
        auto& [test, found] = *reinterpret_cast<WindowSearch*>(search);
        if (test(window)) found = window;
        return found == nullptr;
    }
};

HWND FindDescendant(HWND window, const WindowTest& test) {
    WindowSearch search{test, nullptr};
    // Without a window all top-level windows would be meant.
    if (window != nullptr) ::EnumChildWindows(window, &WindowSearch::Visit, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND FindVisibleControl(HWND window, int id) {
    return FindDescendant(
        window, [id](HWND child) { return ::GetDlgCtrlID(child) == id && ::IsWindowVisible(child) != FALSE; });
}

std::string ClassOf(HWND window) {
    std::array<char, 64> name{};
    ::GetClassNameA(window, name.data(), static_cast<int>(name.size()));
    return name.data();
}

// Asks the window itself, as the system keeps no text of another process's control.
std::string TextOf(HWND window) {
    std::array<wchar_t, 512> wide{};
    DWORD_PTR length = 0;
    if (!::SendMessageTimeoutW(window, WM_GETTEXT, wide.size(), reinterpret_cast<LPARAM>(wide.data()), SMTO_NORMAL,
                               answerLimit, &length)) {
        return {};
    }
    std::array<char, 3 * wide.size()> text{};
    ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), -1, text.data(), static_cast<int>(text.size()), nullptr, nullptr);
    return text.data();
}

void ClickOn(HWND control) {
    RECT rect{};
    ::GetWindowRect(control, &rect);
    const POINT middle{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    const HWND there = ::WindowFromPoint(middle);
    if (control == nullptr || (there != control && !::IsChild(control, there))) {
        ADD_FAILURE() << "no way to click at control " << ::GetDlgCtrlID(control) << ": a window of class "
                      << ClassOf(there) << " is there";
        return;
    }
    ClickAt(middle);
}

} // namespace

CProgram::CProgram() : job(::CreateJobObjectA(nullptr, nullptr)) {
    JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
    limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
    ::SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
}

CProgram::~CProgram() {
    ::CloseHandle(job);
    if (process == nullptr) return;
    ::WaitForSingleObject(process, answerLimit);
    ::CloseHandle(process);
}

std::string CProgram::Folder() {
    std::array<char, MAX_PATH> path{};
    ::GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const std::string test(path.data());
    return test.substr(0, test.rfind('\\', test.rfind('\\') - 1)) + "\\bin\\";
}

bool CProgram::Launch() {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    std::string command = "\"" + Folder() + "Quorvane.exe\"";
    if (!::CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, Folder().c_str(), &start,
                          &made)) {
        return false;
    }
    ::CloseHandle(made.hThread);
    ::AssignProcessToJobObject(job, made.hProcess);
    process = made.hProcess;
    processId = made.dwProcessId;
    return true;
}

bool CProgram::Start() {
    return Launch() && Await([this] {
               frame = FindTopWindow([](HWND window) { return FindPanel(window) && ::IsWindowVisible(window); });
               return frame != nullptr;
           }) &&
           Answers();
}

std::optional<DWORD> CProgram::Close(Clock::duration limit) {
    ::PostMessageA(frame, WM_CLOSE, 0, 0);
    return AwaitExit(limit);
}

std::optional<DWORD> CProgram::AwaitExit(Clock::duration limit) const {
    if (::WaitForSingleObject(process, static_cast<DWORD>(Milliseconds(limit))) != WAIT_OBJECT_0) return std::nullopt;
    DWORD code = 0;
    ::GetExitCodeProcess(process, &code);
    return code;
}

HWND CProgram::FindTopWindow(const WindowTest& test) const {
    const WindowTest ownTest = [&](HWND window) {
        DWORD owner = 0;
        ::GetWindowThreadProcessId(window, &owner);
        return owner == processId && test(window);
    };
    WindowSearch search{ownTest, nullptr};
    ::EnumWindows(&WindowSearch::Visit, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// Menus and tool tips are top-level windows too, hence the class of dialogs.
HWND CProgram::FindBox() const {
    return FindTopWindow(
        [this](HWND window) { return window != frame && ::IsWindowVisible(window) && ClassOf(window) == "#32770"; });
}

HWND CProgram::Control(int id) const {
    return FindDescendant(frame, [id](HWND child) { return ::GetDlgCtrlID(child) == id; });
}

std::string CProgram::Text(int id) const {
    return TextOf(Control(id));
}

int CProgram::FocusId() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    ::GetGUIThreadInfo(::GetWindowThreadProcessId(frame, nullptr), &info);
    return ::GetDlgCtrlID(info.hwndFocus);
}

void CProgram::Click(int id) const {
    ClickOn(Control(id));
}

void CProgram::Type(int id, const std::string& text, const std::string& reads) const {
    Click(id);
    PressKey(VK_HOME);
    PressKey(VK_END, VK_SHIFT);
    TypeKeys(text);
    EXPECT_TRUE(Await([&] { return Text(id) == reads; })) << "reads " << Text(id) << " instead of " << reads;
}

// The program's own message dialog, or the platform's box, whose one button bears the id of either answer.
std::string CProgram::TakeBox() const {
    HWND box = nullptr;
    HWND button = nullptr;
    const bool stands = Await([&] {
        box = FindBox();
        for (const int id : {IDC_MESSAGE_OK, IDOK, IDCANCEL}) {
            if ((button = FindVisibleControl(box, id)) != nullptr) return true;
        }
        return false;
    });
    if (!stands) return {};
    std::string text;
    FindDescendant(box, [&](HWND child) {
        if (ClassOf(child) == "Static") text += TextOf(child);
        return false;
    });
    ClickOn(button);
    EXPECT_TRUE(Await([box] { return !::IsWindow(box); })) << "the box stays: " << text;
    return text;
}

DWORD CProgram::HandleCount() const {
    DWORD count = 0;
    ::GetProcessHandleCount(process, &count);
    return count;
}

double CProgram::ProcessorSeconds() const {
    FILETIME created{}, exited{}, kernel{}, user{};
    ::GetProcessTimes(process, &created, &exited, &kernel, &user);
    const auto seconds = [](const FILETIME& time) {
        return static_cast<double>((static_cast<unsigned long long>(time.dwHighDateTime) << 32) | time.dwLowDateTime) /
               1e7;
    };
    return seconds(kernel) + seconds(user);
}

bool CProgram::SendTo(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR result = 0;
    return ::SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, answerLimit, &result) != 0;
}
