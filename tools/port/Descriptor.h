// Owner of a file descriptor.
#pragma once

#include <unistd.h>

#include "framework/Handle.h"

struct DescriptorTraits {
    using Type = int;
    static constexpr int Empty() { return -1; }
    static void Close(int descriptor) { close(descriptor); }
};

class CDescriptor : public CHandle<DescriptorTraits> {
public:
    using CHandle::CHandle;
    // -1 if there is none.
    int Get() const { return GetHandle(); }
    bool IsOpen() const { return !IsEmpty(); }
};
