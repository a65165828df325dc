// What the serial port reports to: every transfer for the traffic log, every closing for the port button.
//
// The port knows its receiver by this type alone, so that it can be built and tested without a window.
#pragma once

#include <cstdint>

class CTrafficTap {
public:
    virtual ~CTrafficTap() = default;

    // `count` bytes at `buffer` are about to be written; they are reported as asked for, even if the port is closed and
    // nothing goes out. Called on the thread that writes.
    virtual void LogTransmitted(const void* buffer, std::uint32_t count) = 0;

    // A read has ended well with `count` bytes at `buffer`, possibly none. Called on the thread that reads.
    virtual void LogReceived(const void* buffer, std::uint32_t count) = 0;

    // The port was closed (false) or its state is shown anew. Called on the thread that closes.
    virtual void ShowPortState(bool open) = 0;

protected:
    CTrafficTap() = default;
    CTrafficTap(const CTrafficTap&) = default;
    CTrafficTap& operator=(const CTrafficTap&) = default;
};
