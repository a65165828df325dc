// Pseudo-terminal and serial device.
#include "line/HostPort.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace {

bool Fail(std::string& error, const std::string& what) {
    error = what + ": " + std::generic_category().message(errno);
    return false;
}

bool BaudConstant(int baudRate, speed_t& constant) {
    struct Row {
        int rate;
        speed_t constant;
    };
    constexpr std::array<Row, 10> rows{{{1200, B1200},
                                        {2400, B2400},
                                        {4800, B4800},
                                        {9600, B9600},
                                        {19200, B19200},
                                        {38400, B38400},
                                        {57600, B57600},
                                        {115200, B115200},
                                        {300, B300},
                                        {600, B600}}};
    for (const Row& row : rows) {
        if (row.rate != baudRate) continue;
        constant = row.constant;
        return true;
    }
    return false;
}

// 8 data bits, no parity, one stop bit, nothing translated, no modem lines needed.
bool MakeRaw(int descriptor, speed_t speed) {
    termios mode{};
    if (tcgetattr(descriptor, &mode) != 0) return false;
    cfmakeraw(&mode);
    mode.c_cflag |= CLOCAL | CREAD;
    mode.c_cflag &= ~static_cast<tcflag_t>(CSTOPB | CRTSCTS);
    return cfsetspeed(&mode, speed) == 0 && tcsetattr(descriptor, TCSANOW, &mode) == 0;
}

} // namespace

bool CHostPort::Open(std::string& error) {
    Hangup();
    const bool opened = place.device.empty() ? OpenPseudoTerminal(error) : OpenDevice(error);
    if (!opened) Hangup();
    return opened;
}

bool CHostPort::OpenPseudoTerminal(std::string& error) {
    ours = CDescriptor(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!ours.IsOpen() || grantpt(ours.Get()) != 0 || unlockpt(ours.Get()) != 0) {
        return Fail(error, "can't make a pseudo-terminal");
    }
    std::array<char, 64> path{};
    if (ptsname_r(ours.Get(), path.data(), path.size()) != 0) return Fail(error, "the pseudo-terminal has no name");
    name = path.data();
    theirs = CDescriptor(open(path.data(), O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (!theirs.IsOpen() || !MakeRaw(theirs.Get(), B4800)) return Fail(error, "can't set up " + name);
    return place.link.empty() || MakeLink(error);
}

bool CHostPort::MakeLink(std::string& error) {
    struct stat present {};
    const bool exists = lstat(place.link.c_str(), &present) == 0;
    if (exists && !S_ISLNK(present.st_mode)) {
        error = place.link + " is there already and is no link";
        return false;
    }
    if (exists && unlink(place.link.c_str()) != 0) return Fail(error, "can't replace " + place.link);
    if (symlink(name.c_str(), place.link.c_str()) != 0) return Fail(error, "can't make " + place.link);
    return true;
}

bool CHostPort::OpenDevice(std::string& error) {
    speed_t speed = B0;
    if (!BaudConstant(place.baudRate, speed)) {
        error = "a device can't have " + std::to_string(place.baudRate) + " baud";
        return false;
    }
    name = place.device;
    ours = CDescriptor(open(name.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!ours.IsOpen()) return Fail(error, "can't open " + name);
    if (!MakeRaw(ours.Get(), speed)) return Fail(error, "can't set up " + name);
    // What came while nobody listened was never heard.
    tcflush(ours.Get(), TCIOFLUSH);
    return true;
}

void CHostPort::Hangup() {
    if (ours.IsOpen() && !place.link.empty() && place.device.empty()) {
        std::array<char, 256> target{};
        const ssize_t length = readlink(place.link.c_str(), target.data(), target.size());
        // Another line may have taken the link over.
        if (length > 0 && name == std::string(target.data(), static_cast<std::size_t>(length))) {
            unlink(place.link.c_str());
        }
    }
    theirs.Close();
    ours.Close();
}

bool CHostPort::KeepsPace() const {
    int modemLines = 0;
    return ioctl(ours.Get(), TIOCMGET, &modemLines) == 0;
}

bool CHostPort::Read(LineBytes& bytes) {
    bytes.resize(512);
    const ssize_t count = read(ours.Get(), bytes.data(), bytes.size());
    const bool nothing = count < 0 && (errno == EAGAIN || errno == EINTR);
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return count > 0 || nothing;
}

bool CHostPort::Write(std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(ours.Get(), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno == EAGAIN;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}
