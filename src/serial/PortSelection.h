// Finding, opening and setting a port of the machine as the user's settings say. For the user-interface thread, which
// no driver holds up for longer than the bounds here and those of CCommPort.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "serial/HelperThreads.h"
#include "serial/PortSearch.h"

class CCommPlatform;
class CCommPort;

// Bounds in ms. With the start of its threads a search takes a second at most. While the program starts, nothing is
// seen of it; afterwards a port may take most of the time that drivers of Bluetooth ports take, 3 to 5 s, but not so
// long that the system takes the window for dead, which it does after 5 s.
inline constexpr std::uint32_t searchLimit = 950;
inline constexpr std::uint32_t openLimitAtStart = 2000;
inline constexpr std::uint32_t openLimit = 4000;

// Whether the device `name` ("COM3") exists and can be opened at this moment. False for a port that anyone holds, this
// process included. Takes as long as the driver; for any thread.
bool ProbePort(const char* name);
bool ProbePort(const char* name, CCommPlatform& platform);

// A search for the `limit` lowest ports that answer the probe, under way from the start of this object. Several are
// probed at a time, and a probe that hasn't answered `searchLimit` after the start has failed, or later by as much as
// the wait for it began late; it goes on alone, so `probe` owns what it touches. Of a search that nobody waits for no
// further probe begins.
class CPortFinder {
public:
    explicit CPortFinder(PortProbe probe, std::size_t limit = lastPortNumber);
    CPortFinder(const CPortFinder&) = delete;
    CPortFinder& operator=(const CPortFinder&) = delete;
    ~CPortFinder() { search->Stop(); }

    // Ends the search, and gives the numbers that it has found, rising.
    std::vector<std::int32_t> Await();

private:
    std::shared_ptr<CPortSearch> search;
    CHelperRun run;
};

// The machine's ports for the COM menu, of a search for as many as it has rows; ends it.
AvailablePorts EnumeratePorts(CPortFinder& finder);

// Puts speed, byte size, parity and stop bits of the settings on the open line; answers as CCommPort::Configure.
std::int32_t ConfigurePort(CCommPort& port, const PortSettings& settings);

// Opens the port of the settings and configures it; whether `port` is open then. The line becomes that of `port` when
// it is configured. A port that is open already stays open under its former name and takes the new line parameters.
//
// At most `limit` ms: if the driver holds the call for longer, the port stays closed, and a line that comes late is
// closed again. A probe or an earlier opening of the same name that a driver still holds is waited for. A device that
// this process closed a short while ago is tried again for a while if the driver refuses it.
bool OpenSelectedPort(CCommPort& port, const PortSettings& settings, std::uint32_t limit = openLimit);

// Puts the open line from one selection onto another: onto another port by closing the present one, if one is open, and
// opening the new one; onto other line parameters of the same port without closing it, and nothing if it is closed.
// True if the port number has changed, in which case `port` may be open or not, whatever it was before.
bool MoveLine(CCommPort& port, const PortSettings& from, const PortSettings& to);
