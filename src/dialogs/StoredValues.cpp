#include "dialogs/StoredValues.h"

#include <windows.h>

#include "framework/SystemHandles.h"

namespace {

constexpr char keyName[] = "SOFTWARE\\BRENHOLT\\QV";

bool OpenKey(CRegistryKey& key, REGSAM access) {
    return ::RegOpenKeyExA(HKEY_CURRENT_USER, keyName, 0, access, key.Receive()) == ERROR_SUCCESS;
}

bool CreateKey(CRegistryKey& key) {
    char noClass[] = "";
    return ::RegCreateKeyExA(HKEY_CURRENT_USER, keyName, 0, noClass, 0, KEY_ALL_ACCESS, nullptr, key.Receive(),
                             nullptr) == ERROR_SUCCESS;
}

} // namespace

int ReadRegistryInt(const char* name, std::int32_t& value, std::int32_t defaultValue) {
    CRegistryKey key;
    std::int32_t stored = 0; // stays 0 where the value is shorter
    DWORD length = sizeof stored;
    if (OpenKey(key, KEY_READ) && ::RegQueryValueExA(key.GetHandle(), name, nullptr, nullptr,
                                                     reinterpret_cast<BYTE*>(&stored), &length) == ERROR_SUCCESS) {
        value = stored;
        return 1;
    }
    value = defaultValue;
    return 0;
}

int WriteRegistryInt(const char* name, std::int32_t value) {
    CRegistryKey key;
    if (!OpenKey(key, KEY_WRITE) && !CreateKey(key)) return 0;
    const auto* bytes = reinterpret_cast<const BYTE*>(&value);
    return ::RegSetValueExA(key.GetHandle(), name, 0, REG_DWORD, bytes, sizeof value) == ERROR_SUCCESS ? 1 : 0;
}
