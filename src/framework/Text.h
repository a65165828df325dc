// Text in the program is std::string in the process's ANSI code page (UTF-8 where the system honours the manifest);
// what GDI draws and what menu records hold is wide. These are the conversions between the two, and printf-like
// formatting.
#pragma once

#include <string>
#include <string_view>

// printf into a string of whatever length the result has.
[[gnu::format(printf, 1, 2)]] std::string FormatText(const char* format, ...);

#ifdef _WIN32
// Bytes that are no valid text in the code page come out as the platform's replacement character.
std::wstring ToWide(std::string_view text);
std::string ToNarrow(std::wstring_view text);
#endif
