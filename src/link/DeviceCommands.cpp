#include "link/DeviceCommands.h"

#include <span>

#include <windows.h>

#include "framework/WorkerThread.h"
#include "link/CounterFrame.h"
#include "link/ReplyMessages.h"
#include "serial/CommPort.h"

namespace {

constexpr std::uint32_t answerPause = 100; // milliseconds that a counter has to answer
constexpr std::uint32_t writePause = 200;  // and after Write settings, which it stores first

// Sends a request and gives what the line holds after the pause. Results of the port play no part: whatever goes wrong
// leaves an empty reply.
std::unique_ptr<ReplyBlock> Exchange(std::span<const std::uint8_t> request, std::uint32_t pause) {
    CCommPort* const port = CCommPort::Instance();
    port->Write(request.data(), static_cast<std::uint32_t>(request.size()), nullptr, nullptr, INFINITE);
    PauseThread(pause);
    auto reply = std::make_unique<ReplyBlock>();
    std::uint32_t got = 0;
    port->Read(reply->data.data(), replyCapacity, &got, nullptr, INFINITE);
    reply->length = static_cast<std::int32_t>(got);
    // Byte 1 of every request is the address, and the panel knows "all counters" as -1.
    reply->address = static_cast<std::int8_t>(request[1]);
    return reply;
}

// For the panel's table an empty reply counts as much as a full one.
void PostAlways(CReplyTarget* panel, std::uint32_t message, std::unique_ptr<ReplyBlock> reply) {
    if (panel == nullptr) return;
    const std::intptr_t address = reply->address;
    panel->PostReply(message, std::move(reply), address);
}

// The outcome of a user's command: no block and 0 tell the panel that nobody answered.
void PostOutcome(CReplyTarget* panel, std::uint32_t message, std::unique_ptr<ReplyBlock> reply) {
    if (panel == nullptr) return;
    const std::intptr_t length = reply->length;
    if (length == 0) reply.reset();
    panel->PostReply(message, std::move(reply), length);
}

} // namespace

void CPollCommand::Execute() {
    PostAlways(panel, WM_POLL_REPLY, Exchange(BuildPollRequest(address), answerPause));
}

void CReadSettingsCommand::Execute() {
    PostAlways(panel, WM_SETTINGS_REPLY, Exchange(BuildReadSettingsRequest(address), answerPause));
}

void CClearCommand::Execute() {
    PostOutcome(panel, WM_CLEAR_REPLY, Exchange(BuildClearRequest(address), answerPause));
}

void CSetAddressCommand::Execute() {
    PostOutcome(panel, WM_ADDRESS_REPLY, Exchange(BuildSetAddressRequest(address, newAddress), answerPause));
}

void CSetClockCommand::Execute() {
    if (!settings) return;
    auto reply = Exchange(BuildSetClockRequest(address, *settings), answerPause);
    reply->settings = *settings;
    PostOutcome(panel, WM_CLOCK_REPLY, std::move(reply));
}

void CWriteSettingsCommand::Execute() {
    if (!settings) return;
    auto reply = Exchange(BuildWriteSettingsRequest(address, *settings), writePause);
    reply->settings = *settings;
    PostOutcome(panel, WM_WRITE_REPLY, std::move(reply));
}
