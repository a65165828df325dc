// The built program, found and started as by a user.
#pragma once

#include <string>

#include <windows.h>

#include "framework/SystemHandles.h"

// The folder `bin` beside that of the running program, with a backslash behind it.
inline std::string BuiltFolder() {
    char path[MAX_PATH]{};
    ::GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string own(path);
    return own.substr(0, own.rfind('\\', own.rfind('\\') - 1)) + "\\bin\\";
}

// The process of a program, by its full path, whose folder is the current one there. Empty if it doesn't start.
inline CKernelHandle StartProcess(const std::string& path) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION made{};
    const std::string folder = path.substr(0, path.rfind('\\') + 1);
    if (!::CreateProcessA(path.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, folder.c_str(), &start, &made))
        return {};
    ::CloseHandle(made.hThread);
    return CKernelHandle(made.hProcess);
}
