// The search for the machine's ports by their names: which name is probed next, when enough are found, what is listed.
// The threads that search are started elsewhere.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "serial/PortSettings.h"

// Ports are looked for from COM1 to COM256.
inline constexpr std::int32_t lastPortNumber = 256;

// Whether a port of that name can be opened at this moment. Called on several threads at once.
using PortProbe = std::function<bool(const std::string& name)>;

class CPortSearch {
public:
    // For the `limit` lowest ports that answer the probe.
    explicit CPortSearch(PortProbe portProbe, std::size_t portLimit = lastPortNumber);

    // For any number of threads at once: probes the lowest name that none has begun, and so on until all have been, or
    // enough lower ones have answered.
    void Run();

    // For any thread: no probe begins any more. One that is under way may still end.
    void Stop() { isStopped = true; }

    // The numbers of the ports that have answered so far, rising, `limit` at most.
    std::vector<std::int32_t> Found() const;

private:
    PortProbe probe;
    std::size_t limit;
    std::atomic<std::int32_t> next{1};
    std::atomic<bool> isStopped{false};
    std::array<std::atomic<bool>, lastPortNumber> hasAnswered{}; // by number, from 1
};

// The list of the ports found, of which there are six at most.
AvailablePorts ListPorts(const std::vector<std::int32_t>& found);
