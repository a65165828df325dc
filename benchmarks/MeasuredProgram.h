// A program with one window, as somebody outside sees it: how long it takes, what it holds.
#pragma once

#include <optional>
#include <string>

#include <windows.h>

#include "framework/SystemHandles.h"

// Milliseconds since an instant that stays the same, with their fractions.
double Milliseconds();

struct ProcessUse {
    double memory = 0;    // resident, MiB
    double processor = 0; // seconds, of both kinds
};

class CMeasuredProgram {
public:
    // `path` is a full one, and the program's folder becomes its current one. `title`: of its window.
    CMeasuredProgram(std::string path, std::string title) : file(std::move(path)), caption(std::move(title)) {}
    CMeasuredProgram(const CMeasuredProgram&) = delete;
    CMeasuredProgram& operator=(const CMeasuredProgram&) = delete;
    ~CMeasuredProgram();

    // From the request to the window that is drawn and answers. Nothing if that doesn't come within 20 s.
    std::optional<double> Start();
    // From the request to the end of the process; nothing after 20 s.
    std::optional<double> Close();
    // Of the whole window with all it holds, drawn anew.
    double Paint() const;
    ProcessUse GetUse() const;

    HWND Window() const { return window; }

private:
    std::string file, caption;
    CKernelHandle process;
    HWND window = nullptr;
};
