// The owner of an open registry key.
#pragma once

#include <windows.h>

#include "framework/Handle.h"

struct RegistryKeyTraits : NullTraits<HKEY> {
    static void Close(HKEY key) { ::RegCloseKey(key); }
};
using CRegistryKey = CHandle<RegistryKeyTraits>;
