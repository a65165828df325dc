// What a process holds, seen from outside.
#pragma once

#include <cstdint>
#include <string>

#include <windows.h>

struct ProcessFigures {
    std::int64_t memory = 0; // KiB of its own
    int handles = 0, threads = 0, gdiObjects = 0, windows = 0;

    std::string kinds{}; // what the handles, and the GDI objects of a counted table, are
    // Whether the system has told all of them. What isn't told can't be seen to grow.
    bool AreTold() const;
    // "memory 2810 KiB, handles 91, ...".
    std::string Text() const;
};

// Zero for what the system doesn't tell. `process` may be read and asked.
ProcessFigures FiguresOf(HANDLE process);
