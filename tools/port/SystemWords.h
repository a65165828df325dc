// Words for the console: what Windows says to an error, and other wide text.
#pragma once

#include <string>
#include <string_view>

#include <windows.h>

// In the code page of the console that the program runs in.
std::string ForConsole(std::wstring_view text);

// "Access denied. (error 5)", for the console.
std::string SystemWords(DWORD error);
