// Which port the line is on and how it is set, in the terms of the user interface; how those become the values of
// Win32's DCB; how ports are named. Plain values, no handle.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

// What the name of a port begins with.
inline constexpr std::string_view portPrefix = "COM";

// The settings that every start begins with; only the port number is ever stored.
struct PortSettings {
    std::int32_t portNumber = 1;
    std::int32_t baudRate = 4800;
    char parityLetter = 'N'; // 'N' none, 'O' odd, 'E' even
    std::int32_t dataBits = 8;
    std::int32_t stopBits = 1; // 1 or 2

    bool operator==(const PortSettings&) const = default;
};

// The DCB's parity of a letter: 'N' 0 (none), 'O' 1 (odd), any other 2 (even).
std::uint32_t DcbParity(char parityLetter);

// The DCB's stop bits of a count: 1 gives 0 (one), any other 2 (two).
std::uint8_t DcbStopBits(std::int32_t stopBits);

// "COM%d": how every caller names a port. Any number is formatted, also one that no port has.
std::string PortName(std::int32_t portNumber);

// The path that opens the port `name`. Only COM1 to COM9 are names of devices by themselves; every other "COM" with a
// number gets the device prefix "\\.\", without which it would open nothing, or a plain file of that name. A name of
// another form is left as it is.
std::string DevicePath(std::string_view name);

// The ports of the COM menu: the six lowest, in rising order. The entries from `count` on are 0. Port 256 is probed but
// can't be listed: an entry has 8 bits.
struct AvailablePorts {
    std::array<std::uint8_t, 6> numbers{};
    std::int32_t count = 0; // valid entries

    bool operator==(const AvailablePorts&) const = default;
};
