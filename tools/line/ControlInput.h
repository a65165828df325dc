// Control lines from a descriptor on the host: standard input, or a FIFO that other programs write to.
#pragma once

#include <string>
#include <vector>

#include "port/Descriptor.h"
#include "line/LineSplitter.h"

class CControlInput {
public:
    CControlInput() = default;
    CControlInput(const CControlInput&) = delete;
    CControlInput& operator=(const CControlInput&) = delete;
    ~CControlInput();

    void UseStandardInput();
    // Makes the FIFO if there is none, and takes it away at the end if it made it. False with words in `error`.
    bool UseFifo(const std::string& path, std::string& error);

    // For a poll on input; -1 when there is nothing more to come.
    int Descriptor() const { return source.Get(); }
    // The lines that have become whole, after a poll has shown input. The last one of a file needs no line end.
    std::vector<std::string> ReadLines();

private:
    CDescriptor source;
    std::string made; // path of the FIFO to take away
    CLineSplitter splitter;
};
