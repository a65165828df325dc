#include "link/DeviceCommands.h"

#include <windows.h>

#include "framework/WorkerThread.h"
#include "link/CommandQueue.h"
#include "serial/CommPort.h"

namespace {

// Sends a request and gives what the line holds after the pause. Results of the port play no part: whatever goes wrong
// leaves an empty reply.
std::unique_ptr<ReplyBlock> Exchange(const WireCommand& command, const WireRequest& request) {
    const WireFrame frame = command.build(request);
    CCommPort* const port = CCommPort::Instance();
    port->Write(frame.bytes.data(), static_cast<std::uint32_t>(frame.length), nullptr, nullptr, INFINITE);
    PauseThread(command.pause);
    auto reply = std::make_unique<ReplyBlock>();
    std::uint32_t got = 0;
    port->Read(reply->data.data(), replyCapacity, &got, nullptr, INFINITE);
    reply->length = static_cast<std::int32_t>(got);
    reply->address = static_cast<std::int8_t>(request.address); // the panel knows "all counters" as -1
    reply->settings = request.settings;
    return reply;
}

void Run(RequestCode code, CReplyTarget* target, const WireRequest& request) {
    const WireCommand& command = CommandOf(code);
    auto reply = Exchange(command, request);
    if (target == nullptr) return;
    // For the panel's table an empty reply counts as much as a full one. The outcome of a user's command is other: no
    // block and 0 tell the panel that nobody answered.
    const std::intptr_t lParam = command.IsUsers() ? reply->length : reply->address;
    if (command.IsUsers() && reply->length == 0) reply.reset();
    target->PostReply(command.message, std::move(reply), lParam);
}

template <class Command>
std::unique_ptr<CCommand> Make(const WireRequest& request) {
    auto command = std::make_unique<Command>();
    if constexpr (requires { command->newAddress; }) command->newAddress = request.newAddress;
    if constexpr (requires { command->settings; })
        command->settings = std::make_unique<CounterRecord>(request.settings);
    return command;
}

std::unique_ptr<CCommand> Make(RequestCode code, const WireRequest& request) {
    switch (code) {
    case RequestCode::Poll:
        return Make<CPollCommand>(request);
    case RequestCode::ReadSettings:
        return Make<CReadSettingsCommand>(request);
    case RequestCode::ClearCounts:
        return Make<CClearCommand>(request);
    case RequestCode::WriteSettings:
        return Make<CWriteSettingsCommand>(request);
    case RequestCode::SetAddress:
        return Make<CSetAddressCommand>(request);
    case RequestCode::SetClock:
        break;
    }
    return Make<CSetClockCommand>(request);
}

} // namespace

void SendCommand(CReplyTarget& target, RequestCode code, const WireRequest& request) {
    auto command = Make(code, request);
    command->panel = &target;
    command->address = request.address;
    CCommandQueue::Instance()->Add(std::move(command));
}

void CPollCommand::Execute() {
    Run(RequestCode::Poll, panel, {.address = address});
}

void CReadSettingsCommand::Execute() {
    Run(RequestCode::ReadSettings, panel, {.address = address});
}

void CClearCommand::Execute() {
    Run(RequestCode::ClearCounts, panel, {.address = address});
}

void CSetAddressCommand::Execute() {
    Run(RequestCode::SetAddress, panel, {.address = address, .newAddress = newAddress});
}

void CSetClockCommand::Execute() {
    if (settings) Run(RequestCode::SetClock, panel, {.address = address, .settings = *settings});
}

void CWriteSettingsCommand::Execute() {
    if (settings) Run(RequestCode::WriteSettings, panel, {.address = address, .settings = *settings});
}
