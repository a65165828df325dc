// Reads and writes of a descriptor.
#include "port/DescriptorPort.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <system_error>

bool CDescriptorPort::KeepsPace() const {
    int modemLines = 0;
    return ioctl(ours.Get(), TIOCMGET, &modemLines) == 0;
}

bool CDescriptorPort::Read(LineBytes& bytes) {
    bytes.resize(512);
    const ssize_t count = read(ours.Get(), bytes.data(), bytes.size());
    const bool nothing = count < 0 && (errno == EAGAIN || errno == EINTR);
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return count > 0 || nothing;
}

bool CDescriptorPort::Write(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(ours.Get(), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno == EAGAIN;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

bool MakeRaw(int descriptor, speed_t speed) {
    termios mode{};
    if (tcgetattr(descriptor, &mode) != 0) return false;
    cfmakeraw(&mode);
    mode.c_cflag |= CLOCAL | CREAD;
    mode.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS);
    return cfsetspeed(&mode, speed) == 0 && tcsetattr(descriptor, TCSANOW, &mode) == 0;
}

bool FailBySystem(std::string& error, std::string_view what) {
    error = std::string(what) + ": " + std::generic_category().message(errno);
    return false;
}
