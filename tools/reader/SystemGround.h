// The ground that the program stands on: the platform's port, its clocks and its signals.
#pragma once

#include <string>

#include "port/PlatformPort.h"
#include "reader/Console.h"
#include "reader/ReaderGround.h"

class CSystemGround final : public CReaderGround {
public:
    CSystemGround(const std::string& portName, int baudRate, CConsole& readerConsole)
        : port(portName, baudRate), console(readerConsole) {}

    CLinePort& Port() override { return port; }
    LineTime Now() override { return SteadyLineTime(); }
    Moment WallTime() override;
    bool AwaitInput(LineTime until) override { return ::AwaitInput(port, stop, until); }
    bool Rest(LineTime until) override;
    void Say(const std::string& text) override { console.Complain(text); }

private:
    CStopRequest stop;
    CPlatformPort port;
    CPlatformPort noPort{"", 0}; // never open
    CConsole& console;
};
