// The thread that waits for control lines.
#include "line/ControlReader.h"

#include <array>
#include <thread>
#include <utility>

#include "line/LineSplitter.h"

CControlReader::CControlReader() : shared(std::make_shared<Shared>()) {
    shared->hasLines.Attach(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    shared->hasEnded.Attach(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    // Nothing ends a read of a console, so the thread is left to the end of the process and shares what it touches.
    std::thread(Run, shared).detach();
}

void CControlReader::Run(const std::shared_ptr<Shared>& shared) {
    CLineSplitter splitter;
    std::array<char, 512> piece{};
    const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
    DWORD count = 0;
    // Not through the C runtime: it would hold a lock of the stream that the end of the process waits for.
    while (ReadFile(input, piece.data(), static_cast<DWORD>(piece.size()), &count, nullptr) && count > 0) {
        Hand(*shared, splitter.Add({piece.data(), count}));
    }
    if (std::string rest = splitter.TakeRest(); !rest.empty()) Hand(*shared, {std::move(rest)});
    SetEvent(shared->hasEnded.GetHandle());
}

void CControlReader::Hand(Shared& shared, std::vector<std::string> lines) {
    const std::lock_guard guard(shared.lock);
    for (std::string& line : lines) shared.lines.push_back(std::move(line));
    if (!shared.lines.empty()) SetEvent(shared.hasLines.GetHandle());
}

std::optional<std::string> CControlReader::TakeLine() {
    const std::lock_guard guard(shared->lock);
    if (shared->lines.empty()) return std::nullopt;
    std::string line = std::move(shared->lines.front());
    shared->lines.pop_front();
    if (shared->lines.empty()) ResetEvent(shared->hasLines.GetHandle());
    return line;
}
