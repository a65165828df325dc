#include "dialogs/ComSettingText.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <optional>

namespace {

// None where no number begins, blanks before it aside.
std::optional<std::int32_t> ReadNumber(const char* text) {
    using Limits = std::numeric_limits<std::int32_t>;
    char* end = nullptr;
    const long long number = std::strtoll(text, &end, 10);
    if (end == text) return std::nullopt;
    return static_cast<std::int32_t>(std::clamp<long long>(number, Limits::min(), Limits::max()));
}

std::int32_t NumberOf(const std::string& text) {
    return ReadNumber(text.c_str()).value_or(0);
}

std::int32_t PortOf(const std::string& text, std::int32_t former) {
    if (!text.starts_with(portPrefix)) return former;
    return ReadNumber(text.c_str() + portPrefix.size()).value_or(former);
}

const char* ParityText(char letter) {
    switch (letter) {
    case 'E':
        return "EVEN";
    case 'O':
        return "ODD";
    default:
        return "NONE";
    }
}

} // namespace

ComSettingText TextOf(const PortSettings& settings) {
    return {PortName(settings.portNumber), std::to_string(settings.baudRate), ParityText(settings.parityLetter),
            std::to_string(settings.dataBits), std::to_string(settings.stopBits)};
}

PortSettings SettingsOf(const ComSettingText& text, const PortSettings& former) {
    return {PortOf(text.port, former.portNumber), NumberOf(text.baudRate),
            text.parity.empty() ? '\0' : text.parity.front(), NumberOf(text.dataBits), NumberOf(text.stopBits)};
}
