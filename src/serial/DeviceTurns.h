// Whose turn it is with a device: within this process a device is opened or probed by one thread at a time, and it is
// known which devices were closed a short while ago.
//
// A driver may hold an opening for seconds or for good. Who comes then waits for its turn or goes away; a second call
// into the same driver would only be held as well, or be refused on account of the first. All operations may be called
// on any thread.
#pragma once

#include <chrono>
#include <map>
#include <mutex>
#include <string>

class CDeviceTurns {
public:
    // How long a closing is remembered, in ms: well above the time for which drivers refuse to open a device again.
    static constexpr std::chrono::milliseconds closingMemory{3000};

    // A turn ends with its scope, on the thread that has taken it.
    using Turn = std::unique_lock<std::timed_mutex>;

    // Waits at most `patience` for the turn with the device `name`; an empty one, false, if that wasn't enough.
    Turn Take(const std::string& name, std::chrono::milliseconds patience) { return Turn(Find(name).turn, patience); }

    // For who closes `name`: before and after, since a driver may hold that up.
    void NoteClosing(const std::string& name) {
        Device& device = Find(name);
        const std::scoped_lock hold(lock);
        device.closed = Clock::now();
        device.wasOpen = true;
    }

    bool WasClosedLately(const std::string& name) {
        const Device& device = Find(name);
        const std::scoped_lock hold(lock);
        return device.wasOpen && Clock::now() - device.closed < closingMemory;
    }

private:
    using Clock = std::chrono::steady_clock;

    struct Device {
        std::timed_mutex turn;
        Clock::time_point closed;
        bool wasOpen = false;
    };

    // A device that has been named once stays.
    Device& Find(const std::string& name) {
        const std::scoped_lock hold(lock);
        return devices[name];
    }

    std::mutex lock;
    std::map<std::string, Device> devices;
};
