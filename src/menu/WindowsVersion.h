// Version codes of the systems whose menus look different.
#pragma once

#include <cstdint>
#include <optional>

enum WindowsVersion : std::int32_t {
    HostedWin32 = 0, // a 16-bit system with its Win32 extension
    OtherNt = 1,     // any system of the NT family without a code of its own, all newer than XP among them
    Windows95 = 2,
    Windows98 = 3,
    WindowsMe = 4,
    WindowsNt4 = 5,
    Windows2000 = 6,
    WindowsXp = 7,
};

struct SystemVersion {
    std::uint32_t major;
    std::uint32_t minor;
};

// The code, from the result of GetVersion (the top bit is clear on the NT family, the low byte is the major version)
// and what GetVersionEx says; nothing if that failed.
WindowsVersion WindowsVersionCode(std::uint32_t versionWord, std::optional<SystemVersion> details);
