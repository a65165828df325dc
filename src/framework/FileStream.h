// The owner of a stream of the C library.
#pragma once

#include <cstdio>

#include "framework/Handle.h"

struct FileStreamTraits : NullTraits<std::FILE*> {
    static void Close(std::FILE* stream) { std::fclose(stream); }
};
using CFileStream = CHandle<FileStreamTraits>;
