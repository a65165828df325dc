// Files of the host.
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <system_error>

#include "reader/OutputFile.h"

namespace {

bool Fail(std::string& error, int reason = errno) {
    error = std::generic_category().message(reason);
    return false;
}

bool WriteWhole(int file, std::string_view text, std::string& error) {
    const ssize_t written = write(file, text.data(), text.size());
    if (written < 0) return Fail(error);
    return static_cast<std::size_t>(written) == text.size() || Fail(error, ENOSPC);
}

// Where links lead to; the path itself if nothing is there.
std::string TargetOf(const std::string& path) {
    std::array<char, PATH_MAX> target{};
    return realpath(path.c_str(), target.data()) != nullptr ? target.data() : path;
}

} // namespace

bool COutputFile::Open(const std::string& path, std::string& error) {
    file = CDescriptor(open(path.c_str(), O_RDWR | O_CREAT | O_APPEND | O_NOCTTY | O_CLOEXEC, 0666));
    // What can't be read, such as standard output under its name, may still be written.
    if (!file.IsOpen()) file = CDescriptor(open(path.c_str(), O_WRONLY | O_APPEND | O_NOCTTY | O_CLOEXEC));
    if (!file.IsOpen()) return Fail(error);
    if (!Size() || flock(file.Get(), LOCK_EX | LOCK_NB) == 0) return true;
    isHeld = errno == EWOULDBLOCK;
    Fail(error);
    if (isHeld) error.insert(0, "another program writes it: ");
    file.Close();
    return false;
}

std::optional<std::uint64_t> COutputFile::Size() const {
    struct stat state {};
    if (fstat(file.Get(), &state) != 0 || !S_ISREG(state.st_mode)) return std::nullopt;
    return static_cast<std::uint64_t>(state.st_size);
}

std::optional<std::string> COutputFile::ReadAt(std::uint64_t offset, std::size_t size) const {
    std::string text(size, '\0');
    const ssize_t got = pread(file.Get(), text.data(), size, static_cast<off_t>(offset));
    if (got < 0 || static_cast<std::size_t>(got) != size) return std::nullopt;
    return text;
}

bool COutputFile::Append(std::string_view text, std::string& error) {
    return WriteWhole(file.Get(), text, error);
}

bool COutputFile::Cut(std::uint64_t size) {
    return ftruncate(file.Get(), static_cast<off_t>(size)) == 0;
}

bool IsPipe(const std::string& path) {
    struct stat state {};
    return stat(path.c_str(), &state) == 0 && S_ISFIFO(state.st_mode);
}

bool IsSameFile(const std::string& path, const std::string& other) {
    struct stat first {};
    struct stat second {};
    return stat(path.c_str(), &first) == 0 && stat(other.c_str(), &second) == 0 && first.st_dev == second.st_dev &&
           first.st_ino == second.st_ino;
}

bool ReplaceWholeFile(const std::string& path, std::string_view text, std::string& error) {
    struct stat state {};
    if (stat(path.c_str(), &state) == 0 && !S_ISREG(state.st_mode)) {
        const CDescriptor device(open(path.c_str(), O_WRONLY | O_NOCTTY | O_CLOEXEC));
        return device.IsOpen() ? WriteWhole(device.Get(), text, error) : Fail(error);
    }
    const std::string target = TargetOf(path), beside = target + ".new";
    CDescriptor file(open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    if (!file.IsOpen()) return Fail(error);
    bool replaced = WriteWhole(file.Get(), text, error);
    file.Close();
    if (replaced && std::rename(beside.c_str(), target.c_str()) != 0) replaced = Fail(error);
    if (!replaced) unlink(beside.c_str());
    return replaced;
}
