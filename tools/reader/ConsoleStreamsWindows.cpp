// Standard streams of Windows.
#include <windows.h>

#include "port/SystemWords.h"
#include "reader/ConsoleStreams.h"

namespace {

HANDLE HandleOf(ConsoleStream stream) {
    return GetStdHandle(stream == ConsoleStream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

} // namespace

bool WriteToStream(ConsoleStream stream, std::string_view text, std::string& error) {
    while (!text.empty()) {
        DWORD count = 0;
        if (!WriteFile(HandleOf(stream), text.data(), static_cast<DWORD>(text.size()), &count, nullptr)) {
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
