// A file that is read while others write, rename or delete it.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#ifdef _WIN32
#include "framework/SystemHandles.h"
#else
#include "framework/FileStream.h"
#endif

class CSharedFile {
public:
    // False with the system's words in `error`. Takes no lock: on Windows the file is shared for reading, writing and
    // deleting, so that whoever opens it for writing meanwhile isn't refused.
    bool Open(const std::string& path, std::string& error);

    // The next bytes, as many as there are at once; 0 at the end, and with words in `error` where reading failed.
    std::size_t Read(std::span<char> buffer, std::string& error);

private:
#ifdef _WIN32
    CFileHandle file;
#else
    CFileStream file;
#endif
};
