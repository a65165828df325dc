// A place where programs meet on a serial line, whatever the platform.
//
// Nothing here waits: each platform has its own wait for input (a descriptor to poll, an event), which goes along with
// whatever else a program waits for.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "port/LineBytes.h"

class CLinePort {
public:
    CLinePort() = default;
    CLinePort(const CLinePort&) = delete;
    CLinePort& operator=(const CLinePort&) = delete;
    virtual ~CLinePort() = default;

    // False with words for the user in `error`; the port is closed then.
    virtual bool Open(std::string& error) = 0;
    virtual void Close() = 0;
    virtual bool IsOpen() const = 0;
    // How a program finds the port, once it is open.
    virtual std::string Name() const = 0;

    // Whether a byte takes its time on the way to the program and back by itself, once it is open, as on a serial
    // device; a pseudo-terminal passes everything at once.
    virtual bool KeepsPace() const = 0;

    // What waits, without waiting; may be nothing. False if the port is gone.
    virtual bool Read(LineBytes& bytes) = 0;
    // What nobody makes room for is lost, as on a wire. False if the port is gone.
    virtual bool Write(std::span<const std::uint8_t> bytes) = 0;
};
