// Control lines from the standard input of a Windows program, read on a thread of its own, since a console, a pipe and
// a file have no wait in common.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include <windows.h>

#include "line/Handle.h"

class CControlReader {
public:
    // The thread ends with the input or with the process.
    CControlReader();

    // Signalled while there are lines to take.
    HANDLE LinesEvent() const { return shared->hasLines.get(); }
    std::vector<std::string> TakeLines();

private:
    struct Shared {
        UniqueHandle hasLines;
        std::mutex lock; // of `lines` and the state of the event
        std::vector<std::string> lines;
    };
    static void Run(const std::shared_ptr<Shared>& shared);
    static void Hand(Shared& shared, std::vector<std::string> lines);

    std::shared_ptr<Shared> shared;
};
