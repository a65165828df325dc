// The serial port: the one object through which every byte reaches the RS-232 line.
//
// It wraps the Win32 communications calls. Every operation answers 0 or a Win32 error code and keeps that answer in
// `lastError`; nothing is thrown or shown. An operation that needs the line answers ERROR_INVALID_HANDLE (6) while the
// port is closed. After Open the line has the driver's default configuration of that port, with its handshaking;
// Configure puts speed, byte size, parity and stop bits on top.
//
// Threads. Write, Read and WaitForEvent, the transfers, belong to one thread at a time (the worker of the command
// queue). Open, Close, Configure and IsOpen belong to the thread that owns the port (the user-interface thread). Close
// may come while a transfer is under way: the transfer then ends at once with ERROR_OPERATION_ABORTED (995) and a count
// of 0, and only then the line is closed. Close waits for no tap, so a tap may call synchronously into the closing
// thread.
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>

#include <windows.h>

#include "serial/TrafficTap.h"

class CCommLine;
class CCommPlatform;

class CCommPort {
public:
    // Opens nothing.
    CCommPort();
    // Over other platform calls than the system's; `calls` must outlive the port.
    explicit CCommPort(CCommPlatform& calls);
    CCommPort(const CCommPort&) = delete;
    CCommPort& operator=(const CCommPort&) = delete;

    // The process's port, created at the first call and never deleted; the system releases its line at process exit.
    static CCommPort* Instance();

    // Closes the line if it is open. No transfer may be under way.
    virtual ~CCommPort();

    // Opens the device `name` ("COM3", see DevicePath) for this process alone and applies the driver's default
    // configuration of that name. The read mode is 0, the event mask EV_RXCHAR, EV_BREAK and EV_ERR. SetupComm is
    // called only if one of the queue sizes (bytes) is not 0. ERROR_ALREADY_INITIALIZED (1247) if the port is open: it
    // stays as it is. On failure nothing is left open. That the mask or the default configuration can't be set fails
    // nothing; that the read mode can't be set is the answer of an Open that leaves the line open.
    virtual std::int32_t Open(const char* name, std::uint32_t inQueue, std::uint32_t outQueue, bool overlapped);

    // Ends a transfer under way, closes the line and tells the tap. 0 always; a closed port is left alone and the tap
    // is not told. What the driver hasn't sent yet is discarded. If the driver holds the closing up for longer than
    // `closeLimit`, the port counts as closed and a thread of its own waits for the driver. A driver that doesn't give
    // a cancelled transfer back, within CCommLine::cancelLimit, keeps it and its bytes for good.
    virtual std::int32_t Close();
    static constexpr std::uint32_t closeLimit = 400; // ms

    // Line parameters: `parity` 0 none, 1 odd, 2 even and `stopBits` 0 one, 2 two as in Win32's DCB, `dataBits` 5 to 8.
    // Everything else of the line stays, but that equal characters for XON and XOFF become 0x11 and 0x13 for a driver
    // that refuses them. On failure the former parameters stay. ERROR_TIMEOUT (1460) after `configureLimit`, if the
    // driver holds the call.
    virtual std::int32_t Configure(std::uint32_t baudRate, std::uint8_t dataBits, std::uint32_t parity,
                                   std::uint8_t stopBits);
    static constexpr std::uint32_t configureLimit = 1000; // ms

    // The character whose arrival is an event; with `adjustMask` EV_RXFLAG is added to the event mask.
    virtual std::int32_t SetEventChar(std::uint8_t eventChar, bool adjustMask);

    virtual std::int32_t SetEventMask(std::uint32_t mask);

    // Waits until an event of the mask comes, at most `timeout` ms; TakeEvents then tells which. As a transfer below.
    virtual std::int32_t WaitForEvent(OVERLAPPED* overlapped, std::uint32_t timeout);

    // 0 off, 1 hardware (CTS, DSR, with RTS and DTR driven by the driver), 2 software (XON, XOFF); else E_INVALIDARG.
    virtual std::int32_t SetHandshaking(std::int32_t mode);

    virtual std::int32_t SetTimeouts(COMMTIMEOUTS* timeouts);

    // 0: a read returns at once with the bytes that wait, possibly none. 1: a read blocks until its buffer is full.
    // Else E_INVALIDARG. The write timeouts stay.
    virtual std::int32_t SetReadMode(std::int32_t mode);

    // What the line is set to, as Win32's DCB has it; -1 on any failure. GetParity is 0 while parity checking is off,
    // GetHandshaking answers in the modes of SetHandshaking.
    virtual std::int32_t GetBaudRate();
    virtual std::int32_t GetDataBits();
    virtual std::int32_t GetParity();
    virtual std::int32_t GetStopBits();
    virtual std::int32_t GetHandshaking();

    // The mask last accepted by SetEventMask, and the event character; 0 on failure.
    virtual std::uint32_t GetEventMask();
    virtual std::uint8_t GetEventChar();

    virtual std::int32_t WriteString(const char* text, std::uint32_t* written, OVERLAPPED* overlapped,
                                     std::uint32_t timeout);

    // The transfers. Error bits that they clear are kept for TakeErrors. They end when the driver has taken or handed
    // over the bytes, or after `timeout` ms (INFINITE: no limit) with ERROR_TIMEOUT (1460), cancelled; the port stays
    // usable. A count pointer may be null; on failure the count is 0. With an OVERLAPPED of the caller's the call
    // doesn't wait: a transfer that stays pending counts as begun well, with a count of 0, and buffer and OVERLAPPED
    // are the caller's to keep until it has ended. Without one the caller's buffer is free as soon as the call returns,
    // whatever the driver does. A port opened without overlapped mode blocks, and answers ERROR_INVALID_FUNCTION (1) to
    // an OVERLAPPED or a limit. While another transfer is in flight, or one that was cancelled and that the driver
    // hasn't given back, the answer is ERROR_BUSY (170).
    virtual std::int32_t Write(const void* buffer, std::uint32_t count, std::uint32_t* written, OVERLAPPED* overlapped,
                               std::uint32_t timeout);
    virtual std::int32_t Read(void* buffer, std::uint32_t capacity, std::uint32_t* got, OVERLAPPED* overlapped,
                              std::uint32_t timeout);

    // Makes the line of `prepared`, open or not, that of this closed port, with its event mask and latest answer;
    // `prepared`, over the same platform calls, is closed then. So the thread of the transfers sees a line only when it
    // is set up.
    void TakeOver(CCommPort& prepared);

    bool IsOpen() const;

    CCommPlatform& Platform() const { return platform; }

    // Discards what waits in the driver's queues, in both directions.
    std::int32_t Purge();

    // A break of 100 ms; whether the driver could send it is not told.
    std::int32_t SendBreak();

    // The events of the mask that WaitForEvent has delivered since the last call.
    std::uint32_t TakeEvents();

    // The line's error bits (CE_FRAME, CE_RXPARITY and so on) since the last call; 0 on failure.
    std::uint32_t TakeErrors();

    // The modem's lines; false on failure.
    bool GetCts();
    bool GetDsr();
    bool GetRing();
    bool GetRlsd();

    // Whether the device `name` could be opened at this moment: 0 it could, 1 there is none, 2 it is held, -1 anything
    // else.
    static std::int32_t CheckPort(const char* name);
    static std::int32_t CheckPort(const char* name, CCommPlatform& calls);

    // The receiver of the reports, not owned; null for none. Set before the first transfer.
    void SetTap(CTrafficTap* receiver) { tap = receiver; }

    // The answer of the latest operation of any thread.
    std::int32_t LastError() const { return lastError; }

private:
    std::int32_t Record(std::int32_t code) { return lastError = code; }

    // The shape of most operations: clear the error, hold the line, record what the action on it answers.
    template <class Action>
    std::int32_t OnLine(const Action& action);
    template <class Change>
    std::int32_t ChangeState(const Change& change);
    template <class Pick>
    std::int32_t PickFromState(std::int32_t failure, const Pick& pick);
    bool GetModemLine(DWORD bit);
    void ApplyDefaultConfig(const char* name);

    CCommPlatform& platform;

    // Touched by both threads. `line` is null while the port is closed; whoever uses it holds it by a CLineUse.
    std::atomic<std::int32_t> lastError{0};
    std::atomic<std::shared_ptr<CCommLine>> line;
    std::atomic<std::uint32_t> eventMask{0};
    std::atomic<CTrafficTap*> tap{nullptr};

    // Touched by the thread that waits for events, and by the driver while a wait with the caller's OVERLAPPED pends.
    DWORD receivedEvents = 0;
};
