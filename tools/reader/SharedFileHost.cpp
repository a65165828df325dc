#include "reader/SharedFile.h"

#include <cerrno>
#include <system_error>

bool CSharedFile::Open(const std::string& path, std::string& error) {
    file.Attach(std::fopen(path.c_str(), "rb"));
    if (file.IsEmpty()) error = std::generic_category().message(errno);
    return !file.IsEmpty();
}

std::size_t CSharedFile::Read(std::span<char> buffer, std::string& error) {
    const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), file.GetHandle());
    if (got == 0 && std::ferror(file.GetHandle()) != 0) error = std::generic_category().message(errno);
    return got;
}
