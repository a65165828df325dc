// A COM port of Windows as the counters' end of a line.
//
// A read is issued for bytes that wait already, never for bytes to come: a read on a silent line would be a matter of
// the driver's time-outs, which not all of them keep. So the caller asks every few milliseconds. For one thread.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include <windows.h>

#include "line/Handle.h"
#include "line/LinePort.h"

class CComPort final : public CLinePort {
public:
    // `portName` is "COM1" to "COM256"; any other opens nothing.
    CComPort(std::string portName, int baudRate);

    // 8 data bits, no parity, one stop bit, no flow control.
    bool Open(std::string& error) override;
    void Close() override { port.reset(); }
    bool IsOpen() const override { return port != nullptr; }
    std::string Name() const override { return name; }
    bool Read(LineBytes& bytes) override;
    // A port that takes nothing for a second counts as gone.
    bool Write(std::span<const std::uint8_t> bytes) override;

private:
    bool SetUp();
    // Waits for the end of a transfer that the port has accepted; the count of bytes, or -1 if it failed or took too
    // long.
    int Finish(OVERLAPPED& transfer);

    std::string name;
    int baud;
    UniqueHandle transferDone;
    UniqueHandle port;
};
