// The operations of the serial port.
#include "serial/CommPort.h"

#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

#include "serial/CommLine.h"
#include "serial/CommPlatform.h"
#include "serial/CommTransfer.h"
#include "serial/HelperThreads.h"

namespace {

constexpr std::uint32_t openEventMask = EV_RXCHAR | EV_BREAK | EV_ERR;

// What a platform call has answered, as an error code. To be used on the call itself, so that nothing comes between.
std::int32_t ErrorOf(BOOL succeeded) {
    return succeeded ? 0 : LastPlatformError();
}

// The flags of a DCB are bit fields; handshaking is told in terms of the word that they fill.
constexpr std::size_t flagsOffset = 8;
static_assert(sizeof(DCB) == 28 && offsetof(DCB, wReserved) == flagsOffset + sizeof(DWORD));

void ChangeFlags(DCB& state, DWORD cleared, DWORD set) {
    auto* place = reinterpret_cast<unsigned char*>(&state) + flagsOffset;
    DWORD flags = 0;
    std::memcpy(&flags, place, sizeof flags);
    flags = (flags & ~cleared) | set;
    std::memcpy(place, &flags, sizeof flags);
}

struct FlagChange {
    DWORD cleared;
    DWORD set;
};

// By mode: off, hardware (CTS and DSR flow, DTR and RTS handshake), software (XON and XOFF).
constexpr std::array<FlagChange, 3> handshakings{{{0x333C, 0}, {0x1310, 0x202C}, {0x303C, 0x0300}}};

std::int32_t HandshakingOf(const DCB& state) {
    if (state.fDtrControl == DTR_CONTROL_HANDSHAKE && state.fRtsControl == RTS_CONTROL_HANDSHAKE) return 1;
    return state.fOutX && state.fInX ? 2 : 0;
}

// Holds an open line for a scope, if there is one: it isn't closed meanwhile.
class CLineUse {
public:
    explicit CLineUse(std::shared_ptr<CCommLine> line) : held(std::move(line)) {
        if (held && !held->Enter()) held.reset();
    }
    CLineUse(const CLineUse&) = delete;
    CLineUse& operator=(const CLineUse&) = delete;
    ~CLineUse() {
        if (held) held->Leave();
    }

    explicit operator bool() const { return held != nullptr; }
    CCommLine& operator*() const { return *held; }
    HANDLE Handle() const { return held ? held->Handle() : nullptr; }

private:
    std::shared_ptr<CCommLine> held;
};

// Some drivers refuse every setting of a line whose characters for XON and XOFF are equal, as 0 and 0 are: these get
// the usual ones then.
std::int32_t PutState(const CCommLine& line, DCB& state) {
    if (line.Platform().SetCommState(line.Handle(), &state)) return 0;
    const std::int32_t failed = LastPlatformError();
    if (state.XonChar != state.XoffChar) return failed;
    state.XonChar = 0x11;
    state.XoffChar = 0x13;
    return ErrorOf(line.Platform().SetCommState(line.Handle(), &state));
}

template <class Change>
std::int32_t ChangeLineState(const CCommLine& line, const Change& change) {
    DCB state{};
    state.DCBlength = sizeof state;
    if (!line.Platform().GetCommState(line.Handle(), &state)) return LastPlatformError();
    const std::int32_t failed = change(state);
    const std::int32_t refused = PutState(line, state);
    return refused != 0 ? refused : failed;
}

} // namespace

template <class Action>
std::int32_t CCommPort::OnLine(const Action& action) {
    Record(0);
    const CLineUse use(line.load());
    return Record(use ? action(*use) : ERROR_INVALID_HANDLE);
}

template <class Change>
std::int32_t CCommPort::ChangeState(const Change& change) {
    return OnLine([&](const CCommLine& open) { return ChangeLineState(open, change); });
}

template <class Pick>
std::int32_t CCommPort::PickFromState(std::int32_t failure, const Pick& pick) {
    std::int32_t picked = failure;
    OnLine([&](const CCommLine& open) {
        DCB state{};
        state.DCBlength = sizeof state;
        if (!platform.GetCommState(open.Handle(), &state)) return LastPlatformError();
        picked = static_cast<std::int32_t>(pick(state));
        return 0;
    });
    return picked;
}

CCommPort::CCommPort() : CCommPort(CCommPlatform::System()) {}

CCommPort::CCommPort(CCommPlatform& calls) : platform(calls) {}

CCommPort::~CCommPort() {
    CCommPort::Close();
}

CCommPort* CCommPort::Instance() {
    static auto* const port = new CCommPort;
    return port;
}

std::int32_t CCommPort::Open(const char* name, std::uint32_t inQueue, std::uint32_t outQueue, bool overlapped) {
    Record(0);
    if (IsOpen()) return Record(ERROR_ALREADY_INITIALIZED);
    OpenedDevice device = OpenDevice(platform, name, overlapped ? FILE_FLAG_OVERLAPPED : 0);
    if (device.handle.IsEmpty()) return Record(device.error);
    const auto opened = std::make_shared<CCommLine>(platform, std::move(device.handle), name);
    if (const std::int32_t failed = opened->CreateEvents(overlapped)) return Record(failed);
    line = opened;
    if (inQueue != 0 || outQueue != 0) {
        const std::int32_t failed = OnLine(
            [&](const CCommLine& open) { return ErrorOf(platform.SetupComm(open.Handle(), inQueue, outQueue)); });
        if (failed != 0) {
            Close();
            return Record(failed);
        }
    }
    SetEventMask(openEventMask);
    const std::int32_t result = SetReadMode(0);
    ApplyDefaultConfig(name);
    return result;
}

void CCommPort::ApplyDefaultConfig(const char* name) {
    const CLineUse use(line.load());
    COMMCONFIG config{};
    static_assert(sizeof config == 52);
    config.dwSize = sizeof config;
    DWORD size = sizeof config;
    if (use && platform.GetDefaultCommConfigA(name, &config, &size)) {
        platform.SetCommConfig(use.Handle(), &config, size);
    }
}

std::int32_t CCommPort::Close() {
    Record(0);
    const std::shared_ptr<CCommLine> closing = line.exchange(nullptr);
    if (!closing) return 0;
    closing->Shut();
    RunOnHelper(closeLimit, [closing] { closing->CloseWhenLeft(); });
    if (CTrafficTap* receiver = tap) receiver->ShowPortState(false);
    return 0;
}

std::int32_t CCommPort::Configure(std::uint32_t baudRate, std::uint8_t dataBits, std::uint32_t parity,
                                  std::uint8_t stopBits) {
    const auto configure = [=](DCB& state) {
        state.BaudRate = baudRate;
        state.ByteSize = dataBits;
        state.Parity = static_cast<BYTE>(parity);
        state.StopBits = stopBits;
        state.fParity = parity != 0;
        return 0;
    };
    Record(0);
    const auto use = std::make_shared<CLineUse>(line.load());
    if (!*use) return Record(ERROR_INVALID_HANDLE);
    const auto answer = std::make_shared<std::atomic<std::int32_t>>(ERROR_TIMEOUT);
    RunOnHelper(configureLimit, [use, answer, configure] { *answer = ChangeLineState(**use, configure); });
    return Record(*answer);
}

std::int32_t CCommPort::SetEventChar(std::uint8_t eventChar, bool adjustMask) {
    return ChangeState([&](DCB& state) {
        state.EvtChar = static_cast<char>(eventChar);
        return adjustMask ? SetEventMask(GetEventMask() | EV_RXFLAG) : 0;
    });
}

std::int32_t CCommPort::SetEventMask(std::uint32_t mask) {
    return OnLine([&](const CCommLine& open) {
        if (!platform.SetCommMask(open.Handle(), mask)) return LastPlatformError();
        eventMask = mask;
        return 0;
    });
}

std::int32_t CCommPort::WaitForEvent(OVERLAPPED* overlapped, std::uint32_t timeout) {
    return OnLine([&](CCommLine& open) { return AwaitEvent(open, receivedEvents, {overlapped, timeout}); });
}

std::int32_t CCommPort::SetHandshaking(std::int32_t mode) {
    if (mode < 0 || mode >= static_cast<std::int32_t>(handshakings.size()))
        return OnLine([](const CCommLine&) { return E_INVALIDARG; });
    const FlagChange& change = handshakings.at(static_cast<std::size_t>(mode));
    return ChangeState([&](DCB& state) {
        ChangeFlags(state, change.cleared, change.set);
        return 0;
    });
}

std::int32_t CCommPort::SetTimeouts(COMMTIMEOUTS* timeouts) {
    return OnLine([&](CCommLine& open) {
        if (!platform.SetCommTimeouts(open.Handle(), timeouts)) return LastPlatformError();
        open.readsAtOnce = timeouts->ReadIntervalTimeout == MAXDWORD && timeouts->ReadTotalTimeoutMultiplier == 0 &&
                           timeouts->ReadTotalTimeoutConstant == 0;
        return 0;
    });
}

std::int32_t CCommPort::SetReadMode(std::int32_t mode) {
    return OnLine([&](CCommLine& open) -> std::int32_t {
        COMMTIMEOUTS timeouts{};
        if (!platform.GetCommTimeouts(open.Handle(), &timeouts)) return LastPlatformError();
        if (mode != 0 && mode != 1) return E_INVALIDARG;
        timeouts.ReadIntervalTimeout = mode == 0 ? MAXDWORD : 0;
        timeouts.ReadTotalTimeoutMultiplier = 0;
        timeouts.ReadTotalTimeoutConstant = 0;
        if (!platform.SetCommTimeouts(open.Handle(), &timeouts)) return LastPlatformError();
        open.readsAtOnce = mode == 0;
        return 0;
    });
}

std::int32_t CCommPort::GetBaudRate() {
    return PickFromState(-1, [](const DCB& state) { return state.BaudRate; });
}

std::int32_t CCommPort::GetDataBits() {
    return PickFromState(-1, [](const DCB& state) { return state.ByteSize; });
}

std::int32_t CCommPort::GetParity() {
    return PickFromState(-1, [](const DCB& state) { return state.fParity ? state.Parity : 0; });
}

std::int32_t CCommPort::GetStopBits() {
    return PickFromState(-1, [](const DCB& state) { return state.StopBits; });
}

std::int32_t CCommPort::GetHandshaking() {
    return PickFromState(-1, HandshakingOf);
}

std::uint32_t CCommPort::GetEventMask() {
    const std::int32_t failed = OnLine([](const CCommLine&) { return 0; });
    return failed != 0 ? 0 : eventMask.load();
}

std::uint8_t CCommPort::GetEventChar() {
    return static_cast<std::uint8_t>(
        PickFromState(0, [](const DCB& state) { return static_cast<std::uint8_t>(state.EvtChar); }));
}

std::int32_t CCommPort::WriteString(const char* text, std::uint32_t* written, OVERLAPPED* overlapped,
                                    std::uint32_t timeout) {
    return Write(text, static_cast<std::uint32_t>(std::strlen(text)), written, overlapped, timeout);
}

// The taps lie outside the use of the line: they wait for the user-interface thread, which may be inside Close.
std::int32_t CCommPort::Write(const void* buffer, std::uint32_t count, std::uint32_t* written, OVERLAPPED* overlapped,
                              std::uint32_t timeout) {
    if (CTrafficTap* receiver = tap) receiver->LogTransmitted(buffer, count);
    std::uint32_t ignored = 0;
    std::uint32_t& transferred = written != nullptr ? *written : ignored;
    transferred = 0;
    return OnLine([&](CCommLine& open) {
        return TransferOut(open, buffer, count, {overlapped, timeout}, transferred);
    });
}

std::int32_t CCommPort::Read(void* buffer, std::uint32_t capacity, std::uint32_t* got, OVERLAPPED* overlapped,
                             std::uint32_t timeout) {
    std::uint32_t ignored = 0;
    std::uint32_t& transferred = got != nullptr ? *got : ignored;
    transferred = 0;
    const std::int32_t result = OnLine([&](CCommLine& open) {
        return TransferIn(open, buffer, capacity, {overlapped, timeout}, transferred);
    });
    CTrafficTap* receiver = tap;
    if (result == 0 && receiver != nullptr) receiver->LogReceived(buffer, transferred);
    return result;
}

void CCommPort::TakeOver(CCommPort& prepared) {
    eventMask = prepared.eventMask.load();
    line = prepared.line.exchange(nullptr);
    Record(prepared.LastError());
}

bool CCommPort::IsOpen() const {
    return line.load() != nullptr;
}

std::int32_t CCommPort::Purge() {
    return OnLine([&](const CCommLine& open) {
        return ErrorOf(platform.PurgeComm(open.Handle(), PURGE_TXCLEAR | PURGE_RXCLEAR));
    });
}

std::int32_t CCommPort::SendBreak() {
    constexpr DWORD breakTime = 100;
    return OnLine([&](const CCommLine& open) {
        platform.SetCommBreak(open.Handle());
        platform.Sleep(breakTime);
        platform.ClearCommBreak(open.Handle());
        return 0;
    });
}

std::uint32_t CCommPort::TakeEvents() {
    return eventMask & std::atomic_ref(receivedEvents).exchange(0);
}

std::uint32_t CCommPort::TakeErrors() {
    std::uint32_t taken = 0;
    OnLine([&](CCommLine& open) {
        DWORD errors = 0;
        if (!platform.ClearCommError(open.Handle(), &errors, nullptr)) return LastPlatformError();
        taken = errors | open.keptErrors.exchange(0);
        return 0;
    });
    return taken;
}

// An unopened port is asked too: the platform refuses the null handle.
bool CCommPort::GetModemLine(DWORD bit) {
    Record(0);
    const CLineUse use(line.load());
    DWORD status = 0;
    if (!platform.GetCommModemStatus(use.Handle(), &status)) {
        Record(LastPlatformError());
        return false;
    }
    return (status & bit) != 0;
}

bool CCommPort::GetCts() {
    return GetModemLine(MS_CTS_ON);
}
bool CCommPort::GetDsr() {
    return GetModemLine(MS_DSR_ON);
}
bool CCommPort::GetRing() {
    return GetModemLine(MS_RING_ON);
}
bool CCommPort::GetRlsd() {
    return GetModemLine(MS_RLSD_ON);
}

std::int32_t CCommPort::CheckPort(const char* name) {
    return CheckPort(name, CCommPlatform::System());
}

std::int32_t CCommPort::CheckPort(const char* name, CCommPlatform& calls) {
    switch (TryDevice(calls, name)) {
    case 0:
        return 0;
    case ERROR_FILE_NOT_FOUND:
        return 1;
    case ERROR_ACCESS_DENIED:
        return 2;
    default:
        return -1;
    }
}
