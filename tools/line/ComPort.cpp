// Overlapped reads and writes on a COM port.
#include "line/ComPort.h"

#include <algorithm>
#include <utility>

#include "line/LineWords.h"

namespace {

constexpr DWORD transferLimit = 1000; // milliseconds

bool IsPortName(const std::string& name) {
    return name.starts_with("COM") && ParseLineNumber(std::string_view(name).substr(3), 1, 256).has_value();
}

} // namespace

CComPort::CComPort(std::string portName, int baudRate)
    : name(std::move(portName)), baud(baudRate), transferDone(CreateEventA(nullptr, TRUE, FALSE, nullptr)) {}

bool CComPort::Open(std::string& error) {
    Close();
    if (!IsPortName(name)) {
        error = "no port: \"" + name + "\"";
        return false;
    }
    // With the device prefix the numbers from 10 up are devices too, and no file is ever taken for one.
    const HANDLE opened = CreateFileA((R"(\\.\)" + name).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr);
    if (opened == INVALID_HANDLE_VALUE) {
        const DWORD reason = GetLastError();
        error = "can't open " + name + ": error " + std::to_string(reason);
        return false;
    }
    port.reset(opened);
    if (SetUp()) {
        // What came while nobody listened was never heard.
        PurgeComm(port.get(), PURGE_RXCLEAR | PURGE_TXCLEAR);
        return true;
    }
    const DWORD reason = GetLastError();
    error = "can't set up " + name + ": error " + std::to_string(reason);
    Close();
    return false;
}

bool CComPort::SetUp() {
    DCB state{};
    state.DCBlength = sizeof(state);
    if (!GetCommState(port.get(), &state)) return false;
    state.BaudRate = static_cast<DWORD>(baud);
    state.ByteSize = 8;
    state.Parity = NOPARITY;
    state.StopBits = ONESTOPBIT;
    state.fBinary = TRUE;
    state.fParity = FALSE;
    state.fOutxCtsFlow = FALSE;
    state.fOutxDsrFlow = FALSE;
    state.fDsrSensitivity = FALSE;
    state.fOutX = FALSE;
    state.fInX = FALSE;
    state.fNull = FALSE;
    state.fErrorChar = FALSE;
    // Else one framing error stops every transfer until it is fetched.
    state.fAbortOnError = FALSE;
    state.fDtrControl = DTR_CONTROL_ENABLE;
    state.fRtsControl = RTS_CONTROL_ENABLE;
    if (!SetCommState(port.get(), &state)) return false;
    // A read gives what is there and ends; a write isn't limited by the driver. All five are set, since those of the
    // program before may be left.
    COMMTIMEOUTS timeouts{};
    timeouts.ReadIntervalTimeout = MAXDWORD;
    return SetCommTimeouts(port.get(), &timeouts) != FALSE;
}

int CComPort::Finish(OVERLAPPED& transfer) {
    const bool inTime = WaitForSingleObject(transferDone.get(), transferLimit) == WAIT_OBJECT_0;
    // The caller's buffer is free again only when the transfer has told its end.
    if (!inTime) CancelIo(port.get());
    DWORD count = 0;
    const bool ended = GetOverlappedResult(port.get(), &transfer, &count, TRUE) != FALSE;
    return ended && inTime ? static_cast<int>(count) : -1;
}

bool CComPort::Read(LineBytes& bytes) {
    bytes.clear();
    DWORD errors = 0;
    COMSTAT status{};
    if (!ClearCommError(port.get(), &errors, &status)) return false;
    if (status.cbInQue == 0) return true;
    bytes.resize(status.cbInQue);
    OVERLAPPED transfer{};
    transfer.hEvent = transferDone.get();
    const bool accepted = ReadFile(port.get(), bytes.data(), status.cbInQue, nullptr, &transfer) != FALSE ||
                          GetLastError() == ERROR_IO_PENDING;
    const int count = accepted ? Finish(transfer) : -1;
    bytes.resize(static_cast<std::size_t>(std::max(count, 0)));
    return count >= 0;
}

bool CComPort::Write(std::span<const std::uint8_t> bytes) {
    OVERLAPPED transfer{};
    transfer.hEvent = transferDone.get();
    const bool accepted =
        WriteFile(port.get(), bytes.data(), static_cast<DWORD>(bytes.size()), nullptr, &transfer) != FALSE ||
        GetLastError() == ERROR_IO_PENDING;
    return accepted && Finish(transfer) >= 0;
}
