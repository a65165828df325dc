// Finding, opening and setting a port.
#include "serial/PortSelection.h"

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <utility>

#include <windows.h>

#include "serial/CommLine.h"
#include "serial/CommPlatform.h"
#include "serial/CommPort.h"

namespace {

// How many ports are probed at a time: more than a machine has ports whose drivers hold a probe up.
constexpr std::size_t proberCount = 16;

// Some drivers refuse a device for 100 to 500 ms after it was closed. In ms.
constexpr std::uint32_t retryLimit = 600;
constexpr std::uint32_t retryPause = 50;

void OpenPatiently(CCommPort& port, const std::string& name) {
    CCommPlatform& platform = port.Platform();
    for (std::uint32_t waited = 0;; waited += retryPause) {
        const bool isRefused = port.Open(name.c_str(), 0, 0, true) == ERROR_ACCESS_DENIED && !port.IsOpen();
        if (!isRefused || waited >= retryLimit || !platform.turns.WasClosedLately(name)) return;
        platform.Sleep(retryPause);
    }
}

} // namespace

bool ProbePort(const char* name) {
    return ProbePort(name, CCommPlatform::System());
}

bool ProbePort(const char* name, CCommPlatform& platform) {
    return TryDevice(platform, name) == 0;
}

CPortFinder::CPortFinder(PortProbe probe, std::size_t limit)
    : search(std::make_shared<CPortSearch>(std::move(probe), limit)), run([shared = search] { shared->Run(); }) {}

std::vector<std::int32_t> CPortFinder::Await() {
    run.Await(searchLimit, proberCount);
    search->Stop();
    return search->Found();
}

AvailablePorts EnumeratePorts(CPortFinder& finder) {
    return ListPorts(finder.Await());
}

std::int32_t ConfigurePort(CCommPort& port, const PortSettings& settings) {
    return port.Configure(static_cast<std::uint32_t>(settings.baudRate), static_cast<std::uint8_t>(settings.dataBits),
                          DcbParity(settings.parityLetter), DcbStopBits(settings.stopBits));
}

bool OpenSelectedPort(CCommPort& port, const PortSettings& settings, std::uint32_t limit) {
    if (!port.IsOpen()) {
        // Prepared apart, so that a driver which never comes back has nothing of `port`.
        struct Offer {
            explicit Offer(CCommPlatform& platform) : prepared(platform) {}
            CCommPort prepared;
            std::atomic<bool> isSettled{false}; // by the side that comes first: prepared, or given up
        };
        const auto offer = std::make_shared<Offer>(port.Platform());
        const bool inTime = RunOnHelper(limit, [offer, settings, limit] {
            CCommPort& prepared = offer->prepared;
            const std::string name = PortName(settings.portNumber);
            const auto turn = prepared.Platform().turns.Take(name, std::chrono::milliseconds(limit));
            if (turn && !offer->isSettled) OpenPatiently(prepared, name);
            ConfigurePort(prepared, settings);
            if (offer->isSettled.exchange(true)) prepared.Close();
        });
        if (inTime || offer->isSettled.exchange(true)) port.TakeOver(offer->prepared);
        if (port.IsOpen()) return true;
    }
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
