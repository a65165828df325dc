// All that tells the six commands of the wire apart, in one table.
//
// A new command is a row here, a frame in CounterFrame.h and a class in DeviceCommands.h.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

#include "link/CounterFrame.h"
#include "link/CounterRecord.h"
#include "link/ReplyMessages.h"
#include "resources/ResourceIds.h"

// What a request says, of which each command takes its part.
struct WireRequest {
    std::uint8_t address = allCountersAddress; // who is to obey
    std::uint8_t newAddress = 0;
    CounterRecord settings{};
};

struct WireFrame {
    std::array<std::uint8_t, 19> bytes{};
    std::size_t length = 0;

    std::span<const std::uint8_t> GetBytes() const { return {bytes.data(), length}; }
};

struct WireCommand {
    RequestCode code;
    WireFrame (*build)(const WireRequest& request);
    std::uint32_t pause;   // milliseconds that a counter has to answer
    int recordLength;      // of each record in the reply
    std::uint32_t message; // by which the reply reaches the panel (ReplyMessages.h)

    // Of a user's command; a poll and a settings read have neither words nor a change.
    std::uint16_t successText, failureText; // in the string table; 0: none
    // What a success changes in the counter's entry, given what was sent; may be null.
    void (*apply)(CounterRecord& entry, const CounterRecord& sent);

    // Whether the panel is told in words how it went: an empty reply then comes without a block.
    bool IsUsers() const { return successText != 0; }
};

namespace wire_commands_detail {

template <auto builder>
WireFrame Build(const WireRequest& request) {
    const auto frame = [&] {
        if constexpr (std::is_invocable_v<decltype(builder), std::uint8_t>) {
            return builder(request.address);
        } else if constexpr (std::is_invocable_v<decltype(builder), std::uint8_t, const CounterRecord&>) {
            return builder(request.address, request.settings);
        } else {
            return builder(request.address, request.newAddress);
        }
    }();
    WireFrame built{{}, frame.size()};
    std::ranges::copy(frame, built.bytes.begin());
    return built;
}

inline void ClearCounts(CounterRecord& entry, const CounterRecord&) {
    entry.inCount = entry.outCount = entry.extraCount = 0;
}
inline void TakeAll(CounterRecord& entry, const CounterRecord& sent) {
    entry = sent;
}
inline void TakeTime(CounterRecord& entry, const CounterRecord& sent) {
    entry.deviceTime = sent.deviceTime;
}

constexpr std::uint32_t usual = 100, storing = 200; // a counter that is given settings stores them first

} // namespace wire_commands_detail

inline constexpr auto wireCommands = [] {
    using namespace wire_commands_detail;
    using enum RequestCode;
    return std::array<WireCommand, 6>{{
        {Poll, Build<BuildPollRequest>, usual, statusRecordLength, WM_POLL_REPLY, 0, 0, nullptr},
        {ReadSettings, Build<BuildReadSettingsRequest>, usual, settingsRecordLength, WM_SETTINGS_REPLY, 0, 0, nullptr},
        {ClearCounts, Build<BuildClearRequest>, usual, acknowledgementLength, WM_CLEAR_REPLY, IDS_CLEAR_DONE,
         IDS_CLEAR_FAILED, &wire_commands_detail::ClearCounts},
        {WriteSettings, Build<BuildWriteSettingsRequest>, storing, acknowledgementLength, WM_WRITE_REPLY,
         IDS_WRITE_DONE, IDS_WRITE_FAILED, &TakeAll},
        {SetAddress, Build<BuildSetAddressRequest>, usual, acknowledgementLength, WM_ADDRESS_REPLY, IDS_ADDRESS_DONE,
         IDS_ADDRESS_FAILED, nullptr},
        {SetClock, Build<BuildSetClockRequest>, usual, acknowledgementLength, WM_CLOCK_REPLY, IDS_CLOCK_DONE,
         IDS_CLOCK_FAILED, &TakeTime},
    }};
}();

constexpr const WireCommand& CommandOf(RequestCode code) {
    return *std::ranges::find(wireCommands, code, &WireCommand::code);
}

// The longest that a command keeps the worker between its request and its reply, in milliseconds.
constexpr std::uint32_t LongestPause() {
    return std::ranges::max(wireCommands, {}, &WireCommand::pause).pause;
}
