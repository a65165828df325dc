// Owners of kernel handles.
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
