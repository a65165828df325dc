// A port that is a descriptor of the host: what a serial device and a pseudo-terminal have in common.
#pragma once

#include <termios.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "port/Descriptor.h"
#include "port/LinePort.h"

class CDescriptorPort : public CLinePort {
public:
    void Close() override { ours.Close(); }
    bool IsOpen() const override { return ours.IsOpen(); }
    std::string Name() const override { return name; }
    // A device with modem lines has it; a pseudo-terminal hasn't got any.
    bool KeepsPace() const override;
    bool Read(LineBytes& bytes) override;
    bool Write(std::span<const std::uint8_t> bytes) override;

    // For a poll on input; -1 while closed.
    int Descriptor() const { return ours.Get(); }

protected:
    std::string name; // of the device
    CDescriptor ours;
};

// 8 data bits, no parity, one stop bit, nothing translated, no modem lines needed. False as errno says.
bool MakeRaw(int descriptor, speed_t speed);

// False, and in `error` what could not be done with the system's words for errno.
bool FailBySystem(std::string& error, std::string_view what);
