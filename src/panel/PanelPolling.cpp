// Start and Stop: in the polling mode a timer walks through the six addresses, whether a counter is known there or not.
#include "panel/CounterPanel.h"

#include "link/CommandQueue.h"
#include "link/DeviceCommands.h"

namespace {

constexpr UINT_PTR pollTimer = 101;

} // namespace

void CCounterPanel::OnStartStop() {
    // Not by the caption: where the system's code page lacks their characters, both captions read the same.
    if (polling) {
        StopPolling();
    } else {
        StartPolling();
    }
}

void CCounterPanel::StartPolling() {
    SetTimer(pollTimer, static_cast<UINT>(pollInterval));
    CCommandQueue::Instance()->Start();
    CaptionButton(startButton, stopText, activeColor);
    updateButton.EnableWindow(false);
    CaptionButton(updateButton, updateText, activeColor);
    clearButton.EnableWindow(false);
    CaptionButton(clearButton, clearText, inactiveColor);
    polling = true;
}

void CCounterPanel::StopPolling() {
    KillTimer(pollTimer);
    CaptionButton(startButton, startText, activeColor);
    updateButton.EnableWindow(true);
    CaptionButton(updateButton, updateText, activeColor);
    clearButton.EnableWindow(true);
    CaptionButton(clearButton, clearText, activeColor);
    polling = false;
}

void CCounterPanel::StopWork() {
    KillTimer(pollTimer);
    polling = false;
}

void CCounterPanel::OnTimer(UINT_PTR id) {
    if (id == pollTimer) {
        const auto address = static_cast<std::uint8_t>(pollIndex++);
        SendPoll(address);
        if (pollIndex >= counterCount) pollIndex = 0;
    }
    Default();
}

void CCounterPanel::SendPoll(std::uint8_t address) {
    SendCommand(*replyTarget, RequestCode::Poll, {.address = address});
}
