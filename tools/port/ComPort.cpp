// Overlapped reads and writes on a COM port.
#include "port/ComPort.h"

#include <algorithm>
#include <utility>

#include "port/SystemWords.h"

namespace {

constexpr DWORD cancelLimit = 1000; // milliseconds
// A write that takes longer is one that nobody makes room for.
constexpr LineTime writeLimit(1'000'000);
constexpr DWORD lookStep = 10;
constexpr DWORD readLimit = 512;

} // namespace

bool CComPort::Open(std::string& error) {
    Close();
    // With the device prefix the numbers from 10 up are devices too, and no file is ever taken for one.
    port.Attach(CreateFileA((R"(\\.\)" + name).c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                            FILE_FLAG_OVERLAPPED, nullptr));
    if (port.IsEmpty()) {
        const DWORD reason = GetLastError();
        error = (reason == ERROR_ACCESS_DENIED ? "another program holds " : "can't open ") + name + ": " +
                SystemWords(reason);
        return false;
    }
    reading = std::make_unique<Transfer>();
    writing = std::make_unique<Transfer>();
    // What came while nobody listened was never heard.
    if (SetUp() && PurgeComm(port.GetHandle(), PURGE_RXCLEAR | PURGE_TXCLEAR) && Listen()) return true;
    const DWORD reason = GetLastError();
    error = "can't set up " + name + ": " + SystemWords(reason);
    Close();
    return false;
}

void CComPort::Close() {
    if (!port.IsEmpty()) CancelIo(port.GetHandle());
    Abandon(reading);
    Abandon(writing);
    waiting.clear();
    port.Close();
}

void CComPort::Abandon(std::unique_ptr<Transfer>& transfer) {
    const bool ended = !transfer || !transfer->underWay ||
                       WaitForSingleObject(transfer->ended.GetHandle(), cancelLimit) == WAIT_OBJECT_0;
    if (ended) {
        transfer.reset();
    } else {
        static_cast<void>(transfer.release());
    }
}

bool CComPort::SetUp() {
    DCB state{};
    state.DCBlength = sizeof(state);
    if (!GetCommState(port.GetHandle(), &state)) return false;
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
    // Some drivers refuse equal ones, although nothing here needs either.
    state.XonChar = 0x11;
    state.XoffChar = 0x13;
    state.fNull = FALSE;
    state.fErrorChar = FALSE;
    // Else one framing error stops every transfer until it is fetched.
    state.fAbortOnError = FALSE;
    state.fDtrControl = DTR_CONTROL_ENABLE;
    state.fRtsControl = RTS_CONTROL_ENABLE;
    if (!SetCommState(port.GetHandle(), &state)) return false;
    // A transfer ends when all its bytes have passed and not before. All five are set, since those of the program
    // before may be left.
    COMMTIMEOUTS timeouts{};
    return SetCommTimeouts(port.GetHandle(), &timeouts) != FALSE;
}

bool CComPort::KeepsPace() const {
    DWORD modemLines = 0;
    return GetCommModemStatus(port.GetHandle(), &modemLines) != FALSE;
}

CComPort::Progress CComPort::Look(Transfer& transfer, DWORD& count) {
    if (!transfer.underWay) return Progress::Done;
    const bool done = GetOverlappedResult(port.GetHandle(), &transfer.state, &count, FALSE) != FALSE;
    if (!done && GetLastError() == ERROR_IO_INCOMPLETE) return Progress::UnderWay;
    transfer.underWay = false;
    ResetEvent(transfer.ended.GetHandle());
    return done ? Progress::Done : Progress::Failed;
}

bool CComPort::Listen() {
    // Any driver ends a read of one byte when it comes. What waits besides is asked for with the next read, or, where
    // the driver doesn't tell, byte by byte.
    DWORD errors = 0;
    COMSTAT status{};
    const bool told = ClearCommError(port.GetHandle(), &errors, &status) != FALSE;
    const DWORD size = told ? std::clamp<DWORD>(status.cbInQue, 1, readLimit) : 1;
    reading->bytes.resize(size);
    reading->state = {};
    reading->state.hEvent = reading->ended.GetHandle();
    // One that ends at once signals its event as well.
    reading->underWay = ReadFile(port.GetHandle(), reading->bytes.data(), size, nullptr, &reading->state) != FALSE ||
                        GetLastError() == ERROR_IO_PENDING;
    return reading->underWay;
}

bool CComPort::Read(LineBytes& bytes) {
    bytes.clear();
    if (!waiting.empty() && !Write({})) return false;
    while (bytes.size() < readLimit) {
        if (!reading->underWay && !Listen()) return false;
        DWORD count = 0;
        const Progress progress = Look(*reading, count);
        if (progress != Progress::Done) return progress == Progress::UnderWay;
        // A driver that doesn't keep a read waiting is asked again after a while, not at once and for ever.
        if (count == 0) return true;
        const auto begin = reading->bytes.begin();
        bytes.insert(bytes.end(), begin, begin + static_cast<std::ptrdiff_t>(count));
    }
    return Listen();
}

bool CComPort::Send(LineBytes bytes) {
    writing->bytes = std::move(bytes);
    writing->state = {};
    writing->state.hEvent = writing->ended.GetHandle();
    writeBegun = SteadyLineTime();
    writing->underWay = WriteFile(port.GetHandle(), writing->bytes.data(), static_cast<DWORD>(writing->bytes.size()),
                                  nullptr, &writing->state) != FALSE ||
                        GetLastError() == ERROR_IO_PENDING;
    return writing->underWay;
}

bool CComPort::Write(std::span<const std::uint8_t> bytes) {
    waiting.insert(waiting.end(), bytes.begin(), bytes.end());
    DWORD count = 0;
    const Progress progress = Look(*writing, count);
    if (progress == Progress::Failed) return false;
    if (progress == Progress::UnderWay) {
        if (SteadyLineTime() - writeBegun > writeLimit) waiting.clear();
        return true;
    }
    return waiting.empty() || Send(std::exchange(waiting, {}));
}

DWORD CComPort::TimeToLook() const {
    return !reading->underWay || !waiting.empty() ? lookStep : INFINITE;
}
