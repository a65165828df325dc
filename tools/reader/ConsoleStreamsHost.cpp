// Standard streams of the host.
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdlib>
#include <system_error>

#include "reader/ConsoleStreams.h"

namespace {

int DescriptorOf(ConsoleStream stream) {
    return stream == ConsoleStream::Output ? STDOUT_FILENO : STDERR_FILENO;
}

// The signals that end the program are blocked, and are read with the rest of the input; no write sees them.
bool IsEndWished() {
    sigset_t waiting;
    sigpending(&waiting);
    return std::ranges::any_of(std::array{SIGINT, SIGTERM, SIGHUP},
                               [&](int each) { return sigismember(&waiting, each) == 1; });
}

} // namespace

bool WriteToStream(ConsoleStream stream, std::string_view text, std::string& error) {
    const int descriptor = DescriptorOf(stream);
    while (!text.empty()) {
        constexpr int patience = 200; // ms
        pollfd room{descriptor, POLLOUT, 0};
        if (poll(&room, 1, patience) == 0) {
            if (IsEndWished()) return false;
            continue;
        }
        // A pipe with room takes a piece of this size at once.
        const ssize_t count = write(descriptor, text.data(), std::min<std::size_t>(text.size(), PIPE_BUF));
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno != EAGAIN && errno != EINTR) {
            if (errno != EPIPE) error = std::generic_category().message(errno);
            return false;
        }
    }
    return true;
}

bool IsTerminal(ConsoleStream stream) {
    const char* const kind = std::getenv("TERM"); // NOLINT(concurrency-mt-unsafe): nothing here sets the environment
    return isatty(DescriptorOf(stream)) == 1 && kind != nullptr && std::string_view(kind) != "dumb";
}
