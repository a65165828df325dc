// The system's words for errors.
#include "port/SystemWords.h"

#include <array>
#include <cstddef>

std::string ForConsole(std::wstring_view text) {
    std::string narrow(3 * text.size(), '\0');
    const int size = WideCharToMultiByte(GetConsoleOutputCP(), 0, text.data(), static_cast<int>(text.size()),
                                         narrow.data(), static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(size));
    return narrow;
}

std::string SystemWords(DWORD error) {
    std::array<wchar_t, 512> wide{};
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                  wide.data(), static_cast<DWORD>(wide.size()), nullptr);
    while (length > 0 && wide[length - 1] <= L' ') --length;
    return ForConsole({wide.data(), length}) + " (error " + std::to_string(error) + ")";
}
