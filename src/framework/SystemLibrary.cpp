#include "framework/SystemLibrary.h"

#include <array>
#include <string>

void KeepToSystemLibraries() {
    constexpr DWORD searchSystemFolder = 0x800; // LOAD_LIBRARY_SEARCH_SYSTEM32
    BOOL(WINAPI * setFolders)(DWORD) = nullptr;
    FindFunction(::GetModuleHandleA("kernel32.dll"), "SetDefaultDllDirectories", setFolders);
    if (setFolders != nullptr) setFolders(searchSystemFolder);
}

HMODULE LoadSystemLibrary(const wchar_t* name) {
    std::array<wchar_t, MAX_PATH> folder{};
    const UINT length = ::GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
    if (length == 0 || length >= folder.size()) return nullptr;
    const std::wstring path = std::wstring(folder.data(), length) + L'\\' + name;
    return ::LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}
