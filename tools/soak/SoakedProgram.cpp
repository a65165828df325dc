#include "soak/SoakedProgram.h"

#include <vector>

#include "resources/Product.h"
#include "resources/ResourceIds.h"
#include "soak/Waiting.h"
#include "user/ProgramStart.h"

namespace {

constexpr int markAt = 3; // from the corner of a window that has none of its own beneath

// What the screen shows there. A foreign window's own context can't be read on every system.
struct Mark {
    int id;
    POINT place;
    COLORREF shown;
};

COLORREF ShownAt(const POINT& place) {
    HDC const screen = ::GetDC(nullptr);
    const COLORREF color = ::GetPixel(screen, place.x, place.y);
    ::ReleaseDC(nullptr, screen);
    return color;
}

void MarkLeaf(HWND window, std::vector<Mark>& marks) {
    RECT rect{};
    ::GetWindowRect(window, &rect);
    const POINT place{rect.left + markAt, rect.top + markAt};
    const COLORREF before = ShownAt(place);
    HDC const screen = ::GetDC(nullptr);
    ::SetPixel(screen, place.x, place.y, before ^ 0x00FFFFFF);
    ::ReleaseDC(nullptr, screen);
    if (const COLORREF shown = ShownAt(place); shown != before) marks.push_back({::GetDlgCtrlID(window), place, shown});
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
    for (const auto& [id, place, shown] : marks) text += ShownAt(place) != shown ? std::to_string(id) + " " : "";
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
