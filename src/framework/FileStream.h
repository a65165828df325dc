// Streams of the C library.
#pragma once

#include <cstdint>
#include <cstdio>

#include "framework/Handle.h"

struct FileStreamTraits : NullTraits<std::FILE*> {
    static void Close(std::FILE* stream) { std::fclose(stream); }
};
using CFileStream = CHandle<FileStreamTraits>;

// In bytes; the stream is at its beginning afterwards.
inline std::uint64_t SizeOf(std::FILE* file) {
    std::fseek(file, 0, SEEK_END);
    const long size = std::ftell(file);
    std::fseek(file, 0, SEEK_SET);
    return size > 0 ? static_cast<std::uint64_t>(size) : 0;
}
