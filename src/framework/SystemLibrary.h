// Libraries of the system that Windows doesn't take from its own folder whatever lies beside the program: bound late,
// by full path. What a program imports of them would be looked for beside it first, so a file that somebody put there,
// in a folder of downloads say, would run in its place.
#pragma once

#include <windows.h>

// From now on libraries that the system itself loads by name come from its own folder. Does nothing on systems without
// that call: before Windows 8, those that lack an update of 2011.
void KeepToSystemLibraries();

// The library of that name in the system's folder, loaded for good; null if it can't be.
HMODULE LoadSystemLibrary(const wchar_t* name);

// Sets `function` to what `module` exports by that name; null if it has none, or for a null module.
template <class Function>
void FindFunction(HMODULE module, const char* name, Function& function) {
    const FARPROC address = module != nullptr ? ::GetProcAddress(module, name) : nullptr;
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(address));
}
