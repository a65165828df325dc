// Opening and holding a serial device.
#include "port/SerialDevice.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace {

struct BaudRow {
    int rate;
    speed_t constant;
};

constexpr std::array<BaudRow, 10> baudRows{{{300, B300},
                                            {600, B600},
                                            {1200, B1200},
                                            {2400, B2400},
                                            {4800, B4800},
                                            {9600, B9600},
                                            {19200, B19200},
                                            {38400, B38400},
                                            {57600, B57600},
                                            {115200, B115200}}};

} // namespace

bool CSerialDevice::Open(std::string& error) {
    Close();
    const auto* const row = std::ranges::find(baudRows, baud, &BaudRow::rate);
    if (row == baudRows.end()) {
        error = "a device can't have " + std::to_string(baud) + " baud";
        return false;
    }
    name = path;
    ours = CDescriptor(open(name.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC));
    if (!ours.IsOpen()) return FailBySystem(error, (errno == EBUSY ? "another program holds " : "can't open ") + name);
    if (Prepare(row->constant, error)) return true;
    // Not by Close: what another program holds stays as it is.
    ours.Close();
    return false;
}

bool CSerialDevice::Prepare(speed_t speed, std::string& error) {
    // A lock that programs ask for, and one that the system enforces, but not against root.
    if (flock(ours.Get(), LOCK_EX | LOCK_NB) != 0) return FailBySystem(error, "another program holds " + name);
    // The second isn't asked for where the end of its holder may not free it: a pseudo-terminal's other end keeps it.
    if (!MakeRaw(ours.Get(), speed) || (KeepsPace() && ioctl(ours.Get(), TIOCEXCL) != 0)) {
        return FailBySystem(error, "can't set up " + name);
    }
    // What came while nobody listened was never heard.
    tcflush(ours.Get(), TCIOFLUSH);
    return true;
}

void CSerialDevice::Close() {
    // Somebody else may have had the device open before.
    if (ours.IsOpen()) ioctl(ours.Get(), TIOCNXCL);
    CDescriptorPort::Close();
}
