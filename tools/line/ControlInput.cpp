// Control lines from a descriptor.
#include "line/ControlInput.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <utility>

CControlInput::~CControlInput() {
    if (!made.empty()) unlink(made.c_str());
}

void CControlInput::UseStandardInput() {
    // In the background of a terminal a read fails then, which is the end of this input, and stops nothing.
    signal(SIGTTIN, SIG_IGN);
    source = CDescriptor(fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, 0));
}

bool CControlInput::UseFifo(const std::string& path, std::string& error) {
    if (mkfifo(path.c_str(), 0600) == 0) {
        made = path;
    } else if (errno != EEXIST) {
        error = "can't make " + path + ": " + std::generic_category().message(errno);
        return false;
    }
    // Opened for writing as well, or the end of each writer would be the end of the input.
    source = CDescriptor(open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    struct stat kind {};
    if (source.IsOpen() && fstat(source.Get(), &kind) == 0 && S_ISFIFO(kind.st_mode)) return true;
    source.Close();
    error = path + " is no FIFO that can be opened";
    return false;
}

std::vector<std::string> CControlInput::ReadLines() {
    std::array<char, 1024> chunk{};
    const ssize_t count = read(source.Get(), chunk.data(), chunk.size());
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) return {};
    if (count > 0) return splitter.Add({chunk.data(), static_cast<std::size_t>(count)});
    source.Close();
    std::string rest = splitter.TakeRest();
    if (rest.empty()) return {};
    return {std::move(rest)};
}
