// Control lines from the standard input of a Windows program, read on a thread of its own, since a console, a pipe and
// a file have no wait in common.
#pragma once

#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>

#include "framework/SystemHandles.h"

class CControlReader {
public:
    // The thread ends with the input or with the process.
    CControlReader();

    // Signalled while there are lines to take.
    HANDLE LinesEvent() const { return shared->hasLines.GetHandle(); }
    // The oldest line; none if there is none yet.
    std::optional<std::string> TakeLine();
    // Signalled when no more will come.
    HANDLE EndEvent() const { return shared->hasEnded.GetHandle(); }

private:
    struct Shared {
        CKernelHandle hasLines;
        CKernelHandle hasEnded;
        std::mutex lock; // of `lines` and the state of `hasLines`
        std::deque<std::string> lines;
    };
    static void Run(const std::shared_ptr<Shared>& shared);
    static void Hand(Shared& shared, std::vector<std::string> lines);

    std::shared_ptr<Shared> shared;
};
