// The line settings as the COM Setting dialog shows them, and back. Nothing is checked: what is no number counts as 0,
// and the platform refuses a line that can't be.
#pragma once

#include <string>

#include "serial/PortSettings.h"

struct ComSettingText {
    std::string port;     // "COM3"
    std::string baudRate; // decimal, as are data and stop bits
    std::string parity;   // "NONE", "ODD" or "EVEN"
    std::string dataBits;
    std::string stopBits;

    bool operator==(const ComSettingText&) const = default;
};

// A parity letter other than 'E' and 'O' shows as "NONE".
ComSettingText TextOf(const PortSettings& settings);

// Numbers are read as far as they go ("9600 baud" is 9600) and end at the range of 32 bits. The port is the number
// behind "COM" in capitals; text of another form keeps the port of `former`. The parity is the text's first character,
// or 0 without one.
PortSettings SettingsOf(const ComSettingText& text, const PortSettings& former);
