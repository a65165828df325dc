// A COM port of Windows.
//
// A read pends until bytes come and a write until they are gone, and nobody waits for either: the caller waits for the
// events among others. For one thread.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>

#include <windows.h>

#include "framework/SystemHandles.h"
#include "port/LinePort.h"
#include "port/LineTime.h"

class CComPort final : public CLinePort {
public:
    explicit CComPort(int baudRate) : baud(baudRate) {}
    CComPort(std::string portName, int baudRate) : name(std::move(portName)), baud(baudRate) {}
    ~CComPort() override { CComPort::Close(); }

    // Which port Open opens: "COM1" to "COM256".
    void Choose(std::string portName) { name = std::move(portName); }

    // 8 data bits, no parity, one stop bit, no flow control; refused while another program holds the port.
    bool Open(std::string& error) override;
    // Within a second, if the driver lets the handle go.
    void Close() override;
    bool IsOpen() const override { return !port.IsEmpty(); }
    std::string Name() const override { return name; }
    bool KeepsPace() const override;
    bool Read(LineBytes& bytes) override;
    bool Write(std::span<const std::uint8_t> bytes) override;

    // Signalled when Read has something to give; valid until the port is closed.
    HANDLE InputEvent() const { return reading->ended.GetHandle(); }
    // The milliseconds after which Read is to be called whatever the event says.
    DWORD TimeToLook() const;

private:
    // What the driver works on while a transfer is under way.
    struct Transfer {
        Transfer() : ended(CreateEventA(nullptr, TRUE, FALSE, nullptr)) {}
        OVERLAPPED state{};
        CKernelHandle ended;
        LineBytes bytes;
        bool underWay = false;
    };
    enum class Progress { UnderWay, Done, Failed };

    bool SetUp();
    bool Listen();
    bool Send(LineBytes bytes);
    // `count` is set when the transfer is done. One that isn't under way is done, with nothing.
    Progress Look(Transfer& transfer, DWORD& count);
    // Ends a transfer with the port. A driver that doesn't give it back in time keeps its memory.
    static void Abandon(std::unique_ptr<Transfer>& transfer);

    std::string name;
    int baud;
    std::unique_ptr<Transfer> reading;
    std::unique_ptr<Transfer> writing;
    LineTime writeBegun{};
    LineBytes waiting; // for the end of the write
    CFileHandle port;
};
