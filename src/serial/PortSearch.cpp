#include "serial/PortSearch.h"

#include <algorithm>
#include <limits>
#include <utility>

CPortSearch::CPortSearch(PortProbe portProbe, std::size_t portLimit) : probe(std::move(portProbe)), limit(portLimit) {}

void CPortSearch::Run() {
    while (!isStopped) {
        const std::int32_t number = next++;
        if (number > lastPortNumber) return;
        const auto own = hasAnswered.begin() + (number - 1);
        if (static_cast<std::size_t>(std::count(hasAnswered.begin(), own, true)) >= limit) return;
        if (probe(PortName(number))) *own = true;
    }
}

std::vector<std::int32_t> CPortSearch::Found() const {
    std::vector<std::int32_t> found;
    for (std::int32_t number = 1; number <= lastPortNumber && found.size() < limit; ++number) {
        if (hasAnswered.at(static_cast<std::size_t>(number - 1))) found.push_back(number);
    }
    return found;
}

AvailablePorts ListPorts(const std::vector<std::int32_t>& found) {
    AvailablePorts ports;
    for (const std::int32_t number : found) {
        if (number > std::numeric_limits<std::uint8_t>::max()) continue;
        ports.numbers.at(static_cast<std::size_t>(ports.count++)) = static_cast<std::uint8_t>(number);
    }
    return ports;
}
