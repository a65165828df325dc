// Transfers on an open line.
#include "serial/CommTransfer.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "serial/CommLine.h"
#include "serial/CommPlatform.h"

// What the driver works on while a transfer is in flight. It is on the heap, with bytes of its own, since it has to
// outlive the transfer: if the driver never gives a cancelled transfer back, the block is left to it.
struct TransferBlock {
    explicit TransferBlock(std::size_t size) : bytes(size) {}

    OVERLAPPED overlapped{};
    DWORD count = 0;
    DWORD events = 0;
    std::vector<std::byte> bytes;
};

namespace {

std::int32_t CheckTerms(const CCommLine& line, const TransferTerms& terms) {
    const bool blocks = !line.IsOverlapped();
    return blocks && (terms.overlapped != nullptr || terms.timeout != INFINITE) ? ERROR_INVALID_FUNCTION : 0;
}

// How long, in ms, a read at once is left to a driver that doesn't tell whether anything waits.
constexpr std::uint32_t silentLimit = 2;

// Only a transfer of our own in overlapped mode goes through a block; the others use the caller's memory and block, or
// stay pending in the caller's hands.
bool NeedsBlock(const CCommLine& line, const TransferTerms& terms) {
    return line.IsOverlapped() && terms.overlapped == nullptr;
}

template <class Issue>
std::int32_t IssueDirectly(const CCommLine& line, OVERLAPPED* overlapped, std::uint32_t& count, const Issue& issue) {
    DWORD transferred = 0;
    if (!issue(&transferred, overlapped)) {
        const std::int32_t error = LastPlatformError();
        return error == ERROR_IO_PENDING && overlapped != nullptr ? 0 : error;
    }
    if (overlapped != nullptr) line.Platform().SetEvent(overlapped->hEvent);
    count = transferred;
    return 0;
}

// Also a cancelled transfer has its count: what had passed by then.
bool HasEnded(const CCommLine& line, TransferBlock& block) {
    return line.Platform().GetOverlappedResult(line.Handle(), &block.overlapped, &block.count, FALSE) ||
           ::GetLastError() != ERROR_IO_INCOMPLETE;
}

// Sees to it that a transfer has ended, for the block may not go before. CancelIoEx only asks, and waits for no driver.
// False: the driver still holds the block.
bool MakeEnd(const CCommLine& line, TransferBlock& block) {
    if (HasEnded(line, block)) return true;
    line.Platform().CancelIoEx(line.Handle(), &block.overlapped);
    line.Platform().WaitForSingleObject(block.overlapped.hEvent, CCommLine::cancelLimit);
    return HasEnded(line, block);
}

// Waits for a transfer that pends until it has ended, its time is up or the line is being closed.
std::int32_t AwaitEnd(const CCommLine& line, TransferBlock& block, std::uint32_t timeout, bool fetchCount) {
    CCommPlatform& platform = line.Platform();
    const std::array<HANDLE, 2> awaited{block.overlapped.hEvent, line.ClosingEvent()};
    switch (platform.WaitForMultipleObjects(static_cast<DWORD>(awaited.size()), awaited.data(), FALSE, timeout)) {
    case WAIT_OBJECT_0:
        if (!fetchCount) return 0;
        return platform.GetOverlappedResult(line.Handle(), &block.overlapped, &block.count, FALSE)
                   ? 0
                   : LastPlatformError();
    case WAIT_OBJECT_0 + 1:
        return ERROR_OPERATION_ABORTED;
    case WAIT_TIMEOUT:
        return ERROR_TIMEOUT;
    default:
        return LastPlatformError();
    }
}

// A driver may give a cancelled transfer back late: when its adapter is awake again, say.
void TakeBackHeld(CCommLine& line) {
    std::unique_ptr<TransferBlock> block(line.held.exchange(nullptr));
    if (block == nullptr) return;
    if (HasEnded(line, *block)) {
        line.EndTransfer();
    } else {
        line.held = block.release();
    }
}

template <class Issue>
std::int32_t RunBlock(CCommLine& line, std::unique_ptr<TransferBlock>& block, std::uint32_t timeout, bool fetchCount,
                      const Issue& issue) {
    TakeBackHeld(line);
    if (!line.BeginTransfer()) return ERROR_BUSY;
    block->overlapped.hEvent = line.OverlappedEvent();
    std::int32_t result = 0;
    bool ended = true;
    if (issue(*block)) {
        line.Platform().SetEvent(block->overlapped.hEvent);
    } else {
        result = LastPlatformError();
        if (result == ERROR_IO_PENDING) {
            result = AwaitEnd(line, *block, timeout, fetchCount);
            ended = result == 0 || MakeEnd(line, *block);
        }
    }
    if (ended) {
        line.EndTransfer();
    } else {
        line.held = block.release();
    }
    return result;
}

struct LineStatus {
    std::int32_t error; // why the driver can't tell
    std::uint32_t waiting;
};

// Asks how many bytes wait. That clears the line's errors, which is wanted: with fAbortOnError, which another program
// may have left set, the driver refuses every transfer until then.
LineStatus ClearErrors(CCommLine& line) {
    DWORD errors = 0;
    COMSTAT status{};
    if (!line.Platform().ClearCommError(line.Handle(), &errors, &status)) return {LastPlatformError(), 0};
    line.keptErrors |= errors;
    return {0, status.cbInQue};
}

// As much of `bytes` as the driver takes at once.
std::int32_t WritePart(CCommLine& line, std::span<const std::byte> bytes, const TransferTerms& terms,
                       std::uint32_t& written) {
    CCommPlatform& platform = line.Platform();
    const auto count = static_cast<DWORD>(bytes.size());
    if (!NeedsBlock(line, terms)) {
        return IssueDirectly(line, terms.overlapped, written, [&](DWORD* transferred, OVERLAPPED* overlapped) {
            return platform.WriteFile(line.Handle(), bytes.data(), count, transferred, overlapped);
        });
    }
    auto block = std::make_unique<TransferBlock>(count);
    std::ranges::copy(bytes, block->bytes.begin());
    const std::int32_t result = RunBlock(line, block, terms.timeout, true, [&](TransferBlock& own) {
        return platform.WriteFile(line.Handle(), own.bytes.data(), count, &own.count, &own.overlapped);
    });
    if (result == 0) written = block->count;
    return result;
}

std::int32_t ReadWithin(CCommLine& line, void* buffer, std::uint32_t capacity, std::uint32_t timeout, bool keepsCutRead,
                        std::uint32_t& got) {
    auto block = std::make_unique<TransferBlock>(capacity);
    const std::int32_t result = RunBlock(line, block, timeout, true, [&](TransferBlock& own) {
        return line.Platform().ReadFile(line.Handle(), own.bytes.data(), capacity, &own.count, &own.overlapped);
    });
    const bool isCut = result == ERROR_TIMEOUT && keepsCutRead && block != nullptr;
    if (result != 0 && !isCut) return result;
    got = std::min<std::uint32_t>(block->count, capacity);
    std::copy_n(block->bytes.data(), got, static_cast<std::byte*>(buffer));
    return 0;
}

} // namespace

std::int32_t TransferOut(CCommLine& line, const void* buffer, std::uint32_t count, const TransferTerms& terms,
                         std::uint32_t& written) {
    if (const std::int32_t refused = CheckTerms(line, terms)) return refused;
    ClearErrors(line);
    std::span<const std::byte> rest(static_cast<const std::byte*>(buffer), count);
    const DWORD begun = ::GetTickCount();
    TransferTerms left = terms;
    for (;;) {
        std::uint32_t part = 0;
        if (const std::int32_t failed = WritePart(line, rest, left, part)) return failed;
        rest = rest.subspan(std::min<std::size_t>(part, rest.size()));
        if (rest.empty() || part == 0 || terms.overlapped != nullptr) break;
        if (terms.timeout != INFINITE)
            left.timeout = terms.timeout - std::min<std::uint32_t>(terms.timeout, ::GetTickCount() - begun);
    }
    written = count - static_cast<std::uint32_t>(rest.size());
    return 0;
}

std::int32_t TransferIn(CCommLine& line, void* buffer, std::uint32_t capacity, const TransferTerms& terms,
                        std::uint32_t& got) {
    if (const std::int32_t refused = CheckTerms(line, terms)) return refused;
    std::uint32_t timeout = terms.timeout;
    bool isSilent = false;
    if (terms.overlapped == nullptr && line.readsAtOnce) {
        // On some drivers a read of a silent line pends until the next byte comes, so what doesn't wait isn't asked
        // for; others never tell that bytes wait, and are read all the same as long as that can be bounded.
        const LineStatus status = ClearErrors(line);
        isSilent = status.waiting == 0;
        if (isSilent && !line.IsOverlapped()) return status.error;
        if (isSilent)
            timeout = std::min(timeout, silentLimit);
        else
            capacity = std::min(capacity, status.waiting);
    }
    if (NeedsBlock(line, terms)) return ReadWithin(line, buffer, capacity, timeout, isSilent, got);
    return IssueDirectly(line, terms.overlapped, got, [&](DWORD* transferred, OVERLAPPED* overlapped) {
        return line.Platform().ReadFile(line.Handle(), buffer, capacity, transferred, overlapped);
    });
}

std::int32_t AwaitEvent(CCommLine& line, DWORD& events, const TransferTerms& terms) {
    if (const std::int32_t refused = CheckTerms(line, terms)) return refused;
    CCommPlatform& platform = line.Platform();
    if (!NeedsBlock(line, terms)) {
        std::uint32_t ignored = 0;
        return IssueDirectly(line, terms.overlapped, ignored, [&](DWORD*, OVERLAPPED* overlapped) {
            return platform.WaitCommEvent(line.Handle(), &events, overlapped);
        });
    }
    auto block = std::make_unique<TransferBlock>(0);
    const std::int32_t result = RunBlock(line, block, terms.timeout, false, [&](TransferBlock& own) {
        return platform.WaitCommEvent(line.Handle(), &own.events, &own.overlapped);
    });
    if (result == 0) events = block->events;
    return result;
}
