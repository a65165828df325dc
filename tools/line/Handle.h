// Owner of a kernel handle.
#pragma once

#include <memory>

#include <windows.h>

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};

// Null stands for none; INVALID_HANDLE_VALUE, which CreateFile gives, must not get in here.
using UniqueHandle = std::unique_ptr<HANDLE, HandleCloser>;
