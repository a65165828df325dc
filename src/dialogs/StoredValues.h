// The two numbers that last between runs, under HKEY_CURRENT_USER: "COM", the port last opened with success, and
// "Language", 0 English or 1 Chinese. For the user-interface thread.
#pragma once

#include <cstdint>

// Fills `value` and gives 1, or fills it with `defaultValue` and gives 0. The stored type doesn't matter; fewer than
// four bytes read as a small number, more than four count as unreadable.
int ReadRegistryInt(const char* name, std::int32_t& value, std::int32_t defaultValue);

// Stores a REG_DWORD, with its key at the first write. 1, or 0 if the registry refused.
int WriteRegistryInt(const char* name, std::int32_t value);
