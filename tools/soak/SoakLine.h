// The counters at the far end of the program's cable, on a thread of their own, with faults, floods and a cable to
// pull.
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "line/CounterLine.h"
#include "serial/CommPort.h"
#include "soak/SoakRecord.h"

class CSoakLine {
public:
    // `pulledFile` is the file that stands for the pulled cable while it is there; empty: nobody pulls it.
    CSoakLine(std::string portName, std::string pulledFile, CSoakRecord& record);
    CSoakLine(const CSoakLine&) = delete;
    CSoakLine& operator=(const CSoakLine&) = delete;
    ~CSoakLine();

    // Opens the port, within some seconds. False if there is none.
    bool Plug();
    void Pull();
    bool IsPulled() const { return isPulled; }

    // Other counters, without faults.
    void Renew(const std::vector<std::uint8_t>& addresses);
    void AddFault(const std::string& text);
    void Heal();
    void Count(std::size_t which, LineCounts counts);
    void Flood(std::size_t bytes);
    // At the address, no counts if nobody is there.
    LineCounts CountsAt(std::uint8_t address);

private:
    void Run();
    void Listen();

    const std::string name, pulled;
    CSoakRecord& record;
    std::mutex lock; // guards port, line and parser
    CCommPort port;
    CCounterLine line;
    CRequestParser parser;
    std::uint64_t seed = 1;
    std::size_t heardBytes = 0, framedBytes = 0;
    std::atomic<bool> isPulled{false}, stops{false};
    std::thread thread;
};
