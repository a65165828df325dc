// Standard streams of Windows.
#include <windows.h>

#include <algorithm>
#include <cstddef>

#include "port/SystemWords.h"
#include "reader/ConsoleStreams.h"

namespace {

HANDLE HandleOf(ConsoleStream stream) {
    return GetStdHandle(stream == ConsoleStream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

} // namespace

bool WriteToStream(ConsoleStream stream, std::string_view text, std::string& error) {
    // Consoles up to Windows 7 refuse more than about 64 KiB at once.
    constexpr std::size_t most = 16'384;
    while (!text.empty()) {
        const auto size = static_cast<DWORD>(std::min(text.size(), most));
        DWORD count = 0;
        if (!WriteFile(HandleOf(stream), text.data(), size, &count, nullptr)) {
            const DWORD reason = GetLastError();
            if (reason != ERROR_NO_DATA && reason != ERROR_BROKEN_PIPE) error = SystemWords(reason);
            return false;
        }
        text.remove_prefix(count);
    }
    return true;
}

bool IsTerminal(ConsoleStream stream) {
    constexpr DWORD takesSequences = 0x4; // ENABLE_VIRTUAL_TERMINAL_PROCESSING, since Windows 10
    const HANDLE handle = HandleOf(stream);
    DWORD mode = 0;
    if (!GetConsoleMode(handle, &mode)) return false;
    return (mode & takesSequences) != 0 || SetConsoleMode(handle, mode | takesSequences) != FALSE;
}
