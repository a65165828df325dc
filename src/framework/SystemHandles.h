// Owners of the platform's handles, but for those of GDI (Gdi.h) and device contexts (Dc.h).
#pragma once

#include <windows.h>

#include "framework/Handle.h"

// An event, a thread, a process and so on.
struct KernelHandleTraits : NullTraits<HANDLE> {
    static void Close(HANDLE handle) { ::CloseHandle(handle); }
};
using CKernelHandle = CHandle<KernelHandleTraits>;

// A file or a device, for which the platform has another value for none.
struct FileHandleTraits : KernelHandleTraits {
    static HANDLE Empty() { return INVALID_HANDLE_VALUE; }
};
using CFileHandle = CHandle<FileHandleTraits>;

struct RegistryKeyTraits : NullTraits<HKEY> {
    static void Close(HKEY key) { ::RegCloseKey(key); }
};
using CRegistryKey = CHandle<RegistryKeyTraits>;

// One reference to a COM object.
template <class Interface>
struct InterfaceTraits : NullTraits<Interface*> {
    static void Close(Interface* object) { object->Release(); }
};
template <class Interface>
using CInterface = CHandle<InterfaceTraits<Interface>>;
