// The product's folder, beside that of the tests, and the Chinese resource library in it.
#pragma once

#include <string>

#include <windows.h>

#include "framework/ResourceModule.h"

inline std::string ProductFolder() {
    const std::string tests = ProgramFolder();
    return tests.substr(0, tests.rfind('\\', tests.size() - 2) + 1) + "bin\\";
}

inline HMODULE ChineseLibrary() {
    static const HMODULE library = ::LoadLibraryA((ProductFolder() + "QuorvaneZHCN.dll").c_str());
    return library;
}
