#include "quick/QuickLine.h"

#include <algorithm>

void CQuickLine::AddFault(const LineFault& fault) {
    const std::scoped_lock hold(lock);
    line.Faults().Add(fault);
}

void CQuickLine::Heal() {
    const std::scoped_lock hold(lock);
    line.Faults().Clear();
}

bool CQuickLine::WereToldLately(std::uint8_t address, int in, int out) const {
    const std::scoped_lock hold(lock);
    if (address >= told.size() || told.at(address).empty()) return true;
    return std::ranges::count(told.at(address), std::pair(in, out)) != 0;
}

// An event stands for the device: it is closed as one.
HANDLE CQuickLine::CreateFileA(const char*, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE) {
    return ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
}

BOOL CQuickLine::ClearCommError(HANDLE, DWORD* errors, COMSTAT* status) {
    const std::scoped_lock hold(lock);
    const LineBytes due = line.TakeDue(Now());
    waiting.insert(waiting.end(), due.begin(), due.end());
    *errors = 0;
    if (status != nullptr) status->cbInQue = static_cast<DWORD>(waiting.size());
    return TRUE;
}

BOOL CQuickLine::WriteFile(HANDLE, const void* buffer, DWORD count, DWORD* written, OVERLAPPED*) {
    const std::scoped_lock hold(lock);
    line.Feed({static_cast<const std::uint8_t*>(buffer), count}, Now());
    wasPolled =
        count > 2 && static_cast<const std::uint8_t*>(buffer)[2] == static_cast<std::uint8_t>(RequestCode::Poll);
    ++requests;
    *written = count;
    return TRUE;
}

BOOL CQuickLine::ReadFile(HANDLE, void* buffer, DWORD capacity, DWORD* got, OVERLAPPED*) {
    const std::scoped_lock hold(lock);
    *got = std::min(capacity, static_cast<DWORD>(waiting.size()));
    std::copy_n(waiting.begin(), *got, static_cast<std::uint8_t*>(buffer));
    if (wasPolled) Note({waiting.data(), *got});
    waiting.erase(waiting.begin(), waiting.begin() + static_cast<std::ptrdiff_t>(*got));
    return TRUE;
}

// A record ends the search within it, as the records of one answer don't overlap.
void CQuickLine::Note(std::span<const std::uint8_t> read) {
    for (std::size_t at = 0; at + statusRecordLength <= read.size(); ++at) {
        const auto record = read.subspan(at, statusRecordLength);
        if (record.front() != frameStart || record.back() != frameEnd ||
            !CheckFrameChecksum(record.data(), statusRecordLength))
            continue;
        at += statusRecordLength - 1;
        if (record[1] >= told.size()) continue;
        auto& latest = told.at(record[1]);
        latest.emplace_back(record[8] << 8 | record[9], record[10] << 8 | record[11]);
        if (latest.size() > 3) latest.pop_front();
    }
}
