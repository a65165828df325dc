#include "Program.h"

#include <array>

#include <gtest/gtest.h>
#include <psapi.h>
#include <tlhelp32.h>

#include "resources/ResourceIds.h"

namespace {

const UINT answerLimit = 5000 * TimeFactor(); // milliseconds

HWND FindControl(HWND window, int id) {
    for (HWND child = ::GetWindow(window, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (::GetDlgCtrlID(child) == id) return child;
        if (const HWND inner = FindControl(child, id)) return inner;
    }
    return nullptr;
}

// Asks the window itself, as the system keeps no text of another process's control.
std::string TextOf(HWND window) {
    std::array<wchar_t, 512> wide{};
    DWORD_PTR length = 0;
    ::SendMessageTimeoutW(window, WM_GETTEXT, wide.size(), reinterpret_cast<LPARAM>(wide.data()), SMTO_NORMAL,
                          answerLimit, &length);
    std::array<char, 3 * wide.size()> text{};
    ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), -1, text.data(), static_cast<int>(text.size()), nullptr, nullptr);
    return text.data();
}

// The program's own dialog has its text at any depth; the platform's box has statics of other ids.
std::string BoxText(HWND box) {
    if (const HWND text = FindControl(box, IDC_MESSAGE_TEXT)) return TextOf(text);
    std::string found;
    for (HWND text = nullptr; (text = ::FindWindowExA(box, text, "Static", nullptr)) != nullptr;) found += TextOf(text);
    return found;
}

Clock::time_point ClickOn(HWND control) {
    RECT rect{};
    ::GetWindowRect(control, &rect);
    const POINT middle{(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    const HWND there = ::WindowFromPoint(middle);
    if (control == nullptr || (there != control && !::IsChild(control, there))) {
        ADD_FAILURE() << "no way to click at control " << ::GetDlgCtrlID(control);
        return {};
    }
    return ClickAt(middle);
}

} // namespace

Clock::time_point ClickAt(POINT place) {
    // A window that has just come up may still be told where the pointer was before: the hand has to rest for a moment.
    auto resting = Clock::now();
    EXPECT_TRUE(Await([&] {
        POINT now{};
        ::GetCursorPos(&now);
        if (now.x != place.x || now.y != place.y) {
            ::SetCursorPos(place.x, place.y);
            resting = Clock::now();
        }
        return Clock::now() - resting > 50ms * TimeFactor();
    }));
    // A hand is never quite still: a window that has had no move since a menu over it ended hears of the pointer now.
    ::SetCursorPos(place.x - 1, place.y);
    ::SetCursorPos(place.x, place.y);
    std::array<INPUT, 2> press{};
    press[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    press[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    const auto pressed = Clock::now();
    ::SendInput(2, press.data(), sizeof(INPUT));
    return pressed;
}

void PressKey(WORD key, WORD held) {
    const auto send = [](WORD virtualKey, DWORD flags) {
        INPUT event{};
        event.type = INPUT_KEYBOARD;
        event.ki.wVk = virtualKey;
        event.ki.wScan = static_cast<WORD>(::MapVirtualKeyA(virtualKey, MAPVK_VK_TO_VSC));
        event.ki.dwFlags = flags;
        ::SendInput(1, &event, sizeof event);
    };
    if (held != 0) send(held, 0);
    send(key, 0);
    send(key, KEYEVENTF_KEYUP);
    if (held != 0) send(held, KEYEVENTF_KEYUP);
}

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

bool CProgram::Launch(const std::string& path) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    const std::string folder = path.substr(0, path.rfind('\\') + 1);
    if (!::CreateProcessA(path.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(), &start, &made)) {
        return false;
    }
    ::AssignProcessToJobObject(job, made.hProcess);
    ::CloseHandle(made.hThread);
    if (process != nullptr) ::CloseHandle(process);
    process = made.hProcess;
    processId = made.dwProcessId;
    return true;
}

bool CProgram::Start(const std::string& path, const char* caption) {
    return Launch(path) && Await([this, caption] {
               frame = ::FindWindowA(nullptr, caption);
               return ::IsWindowVisible(frame) != FALSE;
           }) &&
           Answers();
}

std::optional<DWORD> CProgram::AwaitExit(Clock::duration limit) const {
    const auto time = std::chrono::duration_cast<std::chrono::milliseconds>(limit * TimeFactor()).count();
    if (::WaitForSingleObject(process, static_cast<DWORD>(time)) != WAIT_OBJECT_0) return std::nullopt;
    DWORD code = 0;
    ::GetExitCodeProcess(process, &code);
    return code;
}

std::optional<DWORD> CProgram::Close() {
    ::PostMessageA(frame, WM_CLOSE, 0, 0);
    return AwaitExit(10s);
}

bool CProgram::ShowsAnyWindow() const {
    for (HWND window = nullptr; (window = ::FindWindowExA(nullptr, window, nullptr, nullptr)) != nullptr;) {
        DWORD owner = 0;
        ::GetWindowThreadProcessId(window, &owner);
        if (owner == processId && ::IsWindowVisible(window)) return true;
    }
    return false;
}

HWND CProgram::Control(int id) const {
    return FindControl(frame, id);
}

HWND CProgram::ControlIn(HWND window, int id) {
    return FindControl(window, id);
}

std::string CProgram::Text(int id) const {
    return TextOf(Control(id));
}

Clock::time_point CProgram::Click(int id) const {
    return ClickOn(Control(id));
}

void CProgram::Type(int id, std::string_view digits) const {
    Click(id);
    PressKey(VK_HOME);
    PressKey(VK_END, VK_SHIFT);
    for (const char digit : digits) PressKey(static_cast<WORD>(digit));
}

void CProgram::ExpectBox(const std::string& text) const {
    HWND box = nullptr;
    std::string reads;
    const bool stands = Await([&] {
        box = ::GetLastActivePopup(frame);
        reads = box != frame ? BoxText(box) : "";
        return ::IsWindowVisible(box) && reads == text;
    });
    ASSERT_TRUE(stands) << "the box reads \"" << reads << "\", not \"" << text << '"';
    HWND button = nullptr;
    for (const int id : {IDC_MESSAGE_OK, IDOK, IDCANCEL}) button = button != nullptr ? button : FindControl(box, id);
    ClickOn(button);
    EXPECT_TRUE(Await([box] { return !::IsWindow(box); })) << "the box stays: " << text;
}

DWORD CProgram::HandleCount() const {
    DWORD count = 0;
    ::GetProcessHandleCount(process, &count);
    return count;
}

std::size_t CProgram::ResidentBytes() const {
    PROCESS_MEMORY_COUNTERS counters{};
    ::GetProcessMemoryInfo(process, &counters, sizeof counters);
    return counters.WorkingSetSize;
}

// Thread by thread, as a system may know the times of a whole process only for the one that asks.
Clock::duration CProgram::ProcessorTime() const {
    ULONGLONG sum = 0; // of 100 ns
    const HANDLE threads = ::CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
    THREADENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = ::Thread32First(threads, &entry); more; more = ::Thread32Next(threads, &entry)) {
        if (entry.th32OwnerProcessID != processId) continue;
        const HANDLE thread = ::OpenThread(THREAD_QUERY_INFORMATION, FALSE, entry.th32ThreadID);
        FILETIME created{}, exited{}, kernel{}, user{};
        // The high halves fill only after seven minutes.
        if (::GetThreadTimes(thread, &created, &exited, &kernel, &user))
            sum += kernel.dwLowDateTime + user.dwLowDateTime;
        ::CloseHandle(thread);
    }
    ::CloseHandle(threads);
    return std::chrono::microseconds(sum / 10);
}

bool CProgram::SendTo(HWND window, UINT message, WPARAM wParam) {
    DWORD_PTR result = 0;
    return ::SendMessageTimeoutA(window, message, wParam, 0, SMTO_NORMAL, answerLimit, &result) != 0;
}
