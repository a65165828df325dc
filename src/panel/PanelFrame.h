// What the panel asks of the frame around it: the port settings live there, and it opens the port.
#pragma once

#include <cstdint>

#include "serial/PortSettings.h"

class CPanelFrame {
public:
    // The ports found at the program's start.
    virtual const AvailablePorts& GetAvailablePorts() const = 0;

    // The port to use from the next OpenSelectedPort on.
    virtual void SelectPort(std::int32_t portNumber) = 0;
    virtual std::int32_t GetSelectedPort() const = 0;

    // Opens and configures the selected port, tells the panel whether it is open, and stores the number if it is.
    // Always 1.
    virtual int OpenSelectedPort() = 0;

    // Whether the running language is Chinese, from the start of the program to its end.
    virtual bool IsChinese() const = 0;

    // Lets the user change all settings of the line in a dialog.
    virtual void OnComSetting() {}

protected:
    CPanelFrame() = default;
    CPanelFrame(const CPanelFrame&) = default;
    CPanelFrame& operator=(const CPanelFrame&) = default;
    ~CPanelFrame() = default;
};
