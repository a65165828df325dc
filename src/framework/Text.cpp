#include "framework/Text.h"

#include <cstdarg>
#include <cstdio>

#ifdef _WIN32
#include <windows.h>
#endif

std::string FormatText(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    std::va_list counting;
    va_copy(counting, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, counting);
    va_end(counting);
    std::string text;
    if (length > 0) {
        text.resize(static_cast<std::size_t>(length) + 1);
        std::vsnprintf(text.data(), text.size(), format, arguments);
        text.pop_back();
    }
    va_end(arguments);
    return text;
}

#ifdef _WIN32
std::wstring ToWide(std::string_view text) {
    const int bytes = static_cast<int>(text.size());
    const int length = ::MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, text.data(), bytes, wide.data(), length);
    return wide;
}

std::string ToNarrow(std::wstring_view text) {
    const int characters = static_cast<int>(text.size());
    const int length = ::WideCharToMultiByte(CP_ACP, 0, text.data(), characters, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(length), '\0');
    ::WideCharToMultiByte(CP_ACP, 0, text.data(), characters, narrow.data(), length, nullptr, nullptr);
    return narrow;
}
#endif
