#include "soak/SoakedProgram.h"

#include <vector>

#include "resources/Product.h"
#include "resources/ResourceIds.h"
#include "soak/Waiting.h"
#include "user/ProgramStart.h"

namespace {

// A corner of a window that has none of its own beneath, and what it shows.
struct Mark {
    HWND window;
    COLORREF shown;
};

constexpr int markAt = 3;

void MarkLeaf(HWND window, std::vector<Mark>& marks) {
    HDC const dc = ::GetDC(window);
    const COLORREF before = ::GetPixel(dc, markAt, markAt);
    ::SetPixel(dc, markAt, markAt, before ^ 0x00FFFFFF);
    const COLORREF shown = ::GetPixel(dc, markAt, markAt);
    ::ReleaseDC(window, dc);
    if (shown != before) marks.push_back({window, shown});
}

bool IsWiped(const Mark& mark) {
    HDC const dc = ::GetDC(mark.window);
    const COLORREF now = ::GetPixel(dc, markAt, markAt);
    ::ReleaseDC(mark.window, dc);
    return now != mark.shown;
}

} // namespace

bool CSoakedProgram::Start() {
    process = StartProcess(BuiltFolder() + "Quorvane.exe");
    const bool shown = !process.IsEmpty() && AwaitFor(30'000, [this] {
        frame = ::FindWindowA(nullptr, PRODUCT_TITLE);
        return ::IsWindowVisible(frame) != FALSE;
    });
    DWORD_PTR result = 0;
    return shown && ::SendMessageTimeoutA(frame, WM_NULL, 0, 0, SMTO_NORMAL, 10'000, &result) != 0;
}

bool CSoakedProgram::Close(bool sessionEnds) {
    ::PostMessageA(frame, sessionEnds ? WM_ENDSESSION : WM_CLOSE, sessionEnds ? 1 : 0, 0);
    DWORD code = 1;
    if (::WaitForSingleObject(Process(), 10'000) == WAIT_OBJECT_0) ::GetExitCodeProcess(Process(), &code);
    frame = nullptr;
    return code == 0;
}

void CSoakedProgram::Kill() {
    ::TerminateProcess(Process(), 1);
    ::WaitForSingleObject(Process(), 10'000);
    frame = nullptr;
}

bool CSoakedProgram::IsRunning() const {
    return !process.IsEmpty() && ::WaitForSingleObject(Process(), 0) == WAIT_TIMEOUT;
}

// A window that doesn't answer has no text.
std::string CSoakedProgram::Text(int id) const {
    char text[256]{};
    DWORD_PTR length = 0;
    ::SendMessageTimeoutA(Control(id), WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text), SMTO_NORMAL, 5000,
                          &length);
    return text;
}

bool CSoakedProgram::IsPortOpen() const {
    const std::string caption = Text(IDC_PORT);
    return caption == "Close COM" || caption == "\xE5\x85\xB3\xE9\x97\xAD\xE4\xB8\xB2\xE5\x8F\xA3";
}

std::string CSoakedProgram::PaintsWithin(DWORD time) const {
    std::vector<Mark> marks;
    FindBelow(frame, [&](HWND window) {
        if (::IsWindowVisible(window) != FALSE && ::GetWindow(window, GW_CHILD) == nullptr) MarkLeaf(window, marks);
        return false;
    });
    if (marks.empty()) return "no mark stays";
    ::Sleep(time);
    std::string text;
    for (const Mark& mark : marks) text += IsWiped(mark) ? std::to_string(::GetDlgCtrlID(mark.window)) + " " : "";
    ::RedrawWindow(frame, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    return text;
}

// Not by the last active popup: another program may have brought the frame to the front before it.
HWND CSoakedProgram::Box() const {
    return FindOnDesktop([this, id = ::GetProcessId(Process())](HWND window) {
        DWORD owner = 0;
        ::GetWindowThreadProcessId(window, &owner);
        return owner == id && window != frame && ::IsWindowVisible(window) != FALSE &&
               ::IsWindowEnabled(window) != FALSE && IsOfClass(window, "#32770");
    });
}
