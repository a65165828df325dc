// A file that lines are added to, and a file that is replaced as a whole.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#ifdef _WIN32
#include "framework/SystemHandles.h"
#else
#include "port/Descriptor.h"
#endif

class COutputFile {
public:
    // Makes the file if there is none. Others may read it meanwhile, but not write. False with the system's words in
    // `error`.
    bool Open(const std::string& path, std::string& error);
    void Close() { file.Close(); }
    // Whether `Open` failed for another program that has the file.
    bool IsHeld() const { return isHeld; }

    // In bytes; none for what is no file, such as a pipe, which can neither be read back nor cut.
    std::optional<std::uint64_t> Size() const;
    // The `size` bytes from `offset` on; none if they can't all be read.
    std::optional<std::string> ReadAt(std::uint64_t offset, std::size_t size) const;
    // Adds to the end by one call. False with the system's words in `error`; a part may be written then.
    bool Append(std::string_view text, std::string& error);
    // What lies beyond `size` is gone.
    bool Cut(std::uint64_t size);

private:
    bool isHeld = false;
#ifdef _WIN32
    CFileHandle file;
#else
    CDescriptor file;
#endif
};

// Whether it leads to a pipe of the host: what is written while nobody reads is lost there, and its reader sees the end
// each time that it is closed.
bool IsPipe(const std::string& path);

// Whether both paths are there and lead to one file.
bool IsSameFile(const std::string& path, const std::string& other);

// Writes a file beside `path` and puts it in its place in one step, so that whoever reads it sees the old or the new
// one. A link on the host stays and leads to the new one; a device or a pipe is written to. False with the system's
// words in `error`; the old one is still there then.
bool ReplaceWholeFile(const std::string& path, std::string_view text, std::string& error);
