#include "menu/ClassicTheme.h"

#include <array>
#include <string_view>

#include "framework/SystemHandles.h"

bool NamesClassicTheme(const char* themeFile) {
    constexpr std::string_view classic = "Windows Classic.theme";
    const int excess = ::lstrlenA(themeFile) - static_cast<int>(classic.size());
    return excess >= 0 && ::lstrcmpiA(themeFile + excess, classic.data()) == 0;
}

bool ReadClassicThemeActive(HKEY userRoot) {
    CRegistryKey key;
    if (::RegOpenKeyExA(userRoot, R"(Software\Microsoft\Plus!\Themes\Current)", 0, KEY_READ, key.Receive()) !=
        ERROR_SUCCESS) {
        return false;
    }
    std::array<char, 260> value{};
    auto size = static_cast<DWORD>(value.size());
    DWORD type = 0;
    const LSTATUS result =
        ::RegQueryValueExA(key.GetHandle(), nullptr, nullptr, &type, reinterpret_cast<BYTE*>(value.data()), &size);
    value.back() = '\0'; // a stored string may lack its end
    return result == ERROR_SUCCESS && type == REG_SZ && NamesClassicTheme(value.data());
}
