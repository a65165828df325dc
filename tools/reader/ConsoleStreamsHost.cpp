// Standard streams of the host.
#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "reader/ConsoleStreams.h"

namespace {

int DescriptorOf(ConsoleStream stream) {
    return stream == ConsoleStream::Output ? STDOUT_FILENO : STDERR_FILENO;
}

} // namespace

bool WriteToStream(ConsoleStream stream, std::string_view text, std::string& error) {
    const int descriptor = DescriptorOf(stream);
    while (!text.empty()) {
        const ssize_t count = write(descriptor, text.data(), text.size());
        if (count >= 0) {
            text.remove_prefix(static_cast<std::size_t>(count));
        } else if (errno == EAGAIN) {
            // Somebody who shares it has made it so.
            pollfd room{descriptor, POLLOUT, 0};
            poll(&room, 1, -1);
        } else if (errno != EINTR) {
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
