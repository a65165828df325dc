// Where the simulated line meets a program on the host: a pseudo-terminal of its own, or a serial device.
//
// A pseudo-terminal gets a new name each time it is opened, so programs use a symbolic link that always leads to the
// present one. It is raw: no echo, no line editing, every byte passes as it is.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <utility>

#include "line/Descriptor.h"
#include "line/LinePort.h"

struct HostPortPlace {
    std::string link;    // pseudo-terminal: path of the symbolic link to it; may be empty
    std::string device;  // serial device; if not empty, the link isn't used
    int baudRate = 4800; // of the device; one that the system has no constant for can't be opened
};

class CHostPort final : public CLinePort {
public:
    explicit CHostPort(HostPortPlace where) : place(std::move(where)) {}
    ~CHostPort() override { Hangup(); }

    // A symbolic link that is in the way is replaced, any other file isn't.
    bool Open(std::string& error) override;
    // Programs that have it open see the line hang up. Takes the link away, lest it leads to whoever gets the name
    // next.
    void Close() override { Hangup(); }
    bool IsOpen() const override { return ours.IsOpen(); }
    // The device's path; the link may lead there.
    std::string Name() const override { return name; }
    // A device with modem lines has it; a pseudo-terminal, one that is given as a device too, hasn't got any.
    bool KeepsPace() const override;
    bool Read(LineBytes& bytes) override;
    bool Write(std::span<const std::uint8_t> bytes) override;

    // For a poll on input; -1 while closed.
    int Descriptor() const { return ours.Get(); }

private:
    void Hangup();
    bool OpenPseudoTerminal(std::string& error);
    bool OpenDevice(std::string& error);
    bool MakeLink(std::string& error);

    HostPortPlace place;
    std::string name;
    CDescriptor ours;
    // The program's end, held open too: without it the pseudo-terminal reports a hang-up, over and over, until a
    // program comes and after it has gone.
    CDescriptor theirs;
};
