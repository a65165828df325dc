// The system's shell, which opens what a name stands for. It's loaded when it is first asked for: that takes longer,
// and holds more, than the rest of a start.
#pragma once

#include <windows.h>
#include <shellapi.h>

struct Shell {
    decltype(&::ShellExecuteA) open;
    decltype(&::ShellExecuteW) openWide;
    decltype(&::ShellExecuteExA) openWith;
};

// Prepares the user-interface thread, which calls this, for components of the system; once for the whole process.
void PrepareComponents();

// For the user-interface thread, which is prepared for the components that the shell may call. All of them are there on
// every Windows. One that is replaced is called from then on.
Shell& SystemShell();
