// Port settings and names.
#include "serial/PortSettings.h"

#include <algorithm>

namespace {

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
