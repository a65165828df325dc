// A serial device of the host, or the program's end of a pseudo-terminal.
#pragma once

#include <string>
#include <utility>

#include "port/DescriptorPort.h"

class CSerialDevice final : public CDescriptorPort {
public:
    // A baud rate that the system has no constant for can't be opened.
    CSerialDevice(std::string devicePath, int baudRate) : path(std::move(devicePath)), baud(baudRate) {}
    ~CSerialDevice() override { CSerialDevice::Close(); }

    // Refused while another program holds the device, and held against others from then on.
    bool Open(std::string& error) override;
    void Close() override;

private:
    bool Prepare(speed_t speed, std::string& error);

    std::string path;
    int baud;
};
