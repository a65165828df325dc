// Port settings, names and the search for ports.
#include "serial/PortSettings.h"

#include <algorithm>
#include <limits>

namespace {

constexpr std::string_view portPrefix = "COM";
constexpr std::string_view devicePrefix = R"(\\.\)";

bool IsNumber(std::string_view text) {
    if (text.starts_with('-')) text.remove_prefix(1);
    return !text.empty() && std::ranges::all_of(text, [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace

std::uint32_t DcbParity(char parityLetter) {
    switch (parityLetter) {
    case 'N':
        return 0;
    case 'O':
        return 1;
    default:
        return 2;
    }
}

std::uint8_t DcbStopBits(std::int32_t stopBits) {
    return stopBits == 1 ? 0 : 2;
}

std::string PortName(std::int32_t portNumber) {
    return std::string(portPrefix) + std::to_string(portNumber);
}

std::string DevicePath(std::string_view name) {
    const bool isPort = name.starts_with(portPrefix) && IsNumber(name.substr(portPrefix.size()));
    const bool isReservedName = name.size() == portPrefix.size() + 1 && name.back() != '0';
    if (!isPort || isReservedName) return std::string(name);
    return std::string(devicePrefix).append(name);
}

std::vector<std::int32_t> FindPorts(const PortProbe& probe, std::size_t limit) {
    std::vector<std::int32_t> found;
    for (std::int32_t number = 1; number <= lastPortNumber && found.size() < limit; ++number) {
        if (probe(PortName(number))) found.push_back(number);
    }
    return found;
}

AvailablePorts EnumeratePorts(const PortProbe& probe) {
    AvailablePorts ports;
    for (const std::int32_t number : FindPorts(probe, ports.numbers.size())) {
        if (number > std::numeric_limits<std::uint8_t>::max()) continue;
        ports.numbers.at(static_cast<std::size_t>(ports.count++)) = static_cast<std::uint8_t>(number);
    }
    return ports;
}
