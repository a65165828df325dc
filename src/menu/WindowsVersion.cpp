#include "menu/WindowsVersion.h"

WindowsVersion WindowsVersionCode(std::uint32_t versionWord, std::optional<SystemVersion> details) {
    const auto [major, minor] = details.value_or(SystemVersion{0, 0});
    const bool isNt = (versionWord & 0x80000000U) == 0;
    if (!isNt && (versionWord & 0xFF) < 4) return HostedWin32;
    if (isNt) {
        if (major == 4) return WindowsNt4;
        if (major == 5 && minor == 0) return Windows2000;
        return major == 5 && minor == 1 ? WindowsXp : OtherNt;
    }
    if (major == 4 && minor == 10) return Windows98;
    return major == 4 && minor == 90 ? WindowsMe : Windows95;
}
