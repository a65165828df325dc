// Finding, opening and setting a port.
#include "serial/PortSelection.h"

#include <memory>
#include <string>

#include <windows.h>

#include "serial/CommLine.h"
#include "serial/CommPlatform.h"
#include "serial/CommPort.h"
#include "serial/HelperThreads.h"

namespace {

// How many ports are probed at a time: more than a machine has ports whose drivers hold a probe up.
constexpr std::size_t proberCount = 16;

} // namespace

bool ProbePort(const char* name) {
    return ProbePort(name, CCommPlatform::System());
}

bool ProbePort(const char* name, CCommPlatform& platform) {
    const OpenedDevice device = OpenDevice(platform, name, 0);
    if (device.handle == nullptr) return false;
    platform.CloseHandle(device.handle);
    return true;
}

std::vector<std::int32_t> FindPorts(const PortProbe& probe, std::size_t limit) {
    const auto search = std::make_shared<CPortSearch>(probe, limit);
    RunOnHelpers(
        searchLimit, [search] { search->Run(); }, proberCount);
    search->Stop();
    return search->Found();
}

AvailablePorts EnumeratePorts() {
    const PortProbe probe = [](const std::string& name) { return ProbePort(name.c_str()); };
    return ListPorts(FindPorts(probe, AvailablePorts().numbers.size()));
}

std::int32_t ConfigurePort(CCommPort& port, const PortSettings& settings) {
    return port.Configure(static_cast<std::uint32_t>(settings.baudRate), static_cast<std::uint8_t>(settings.dataBits),
                          DcbParity(settings.parityLetter), DcbStopBits(settings.stopBits));
}

bool OpenSelectedPort(CCommPort& port, const PortSettings& settings) {
    port.Open(PortName(settings.portNumber).c_str(), 0, 0, true);
    ConfigurePort(port, settings);
    return port.IsOpen();
}

bool MoveLine(CCommPort& port, const PortSettings& from, const PortSettings& to) {
    if (from.portNumber == to.portNumber) {
        ConfigurePort(port, to);
        return false;
    }
    if (port.IsOpen()) port.Close();
    OpenSelectedPort(port, to);
    return true;
}
