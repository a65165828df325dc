#include "CounterPlayer.h"

#include <algorithm>
#include <iterator>

#include <gtest/gtest.h>

#include "SystemTest.h"

namespace {

LineConfiguration ConfigurationOf(const std::vector<std::uint8_t>& addresses) {
    LineConfiguration configuration;
    configuration.addresses = addresses;
    configuration.baudRate = 0;
    return configuration;
}

} // namespace

std::string HexOf(const LineBytes& bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : bytes) text += {digits[byte >> 4], digits[byte & 15], ' '};
    return text;
}

LineBytes PollFrame(std::uint8_t address) {
    return {0x02, address, 0x81, static_cast<std::uint8_t>(address + 0x81), 0x03};
}

CCounterPlayer::CCounterPlayer(const std::vector<std::uint8_t>& addresses)
    : line(ConfigurationOf(addresses), SteadyLineTime()) {}

CCounterPlayer::~CCounterPlayer() {
    stops = true;
    if (thread.joinable()) thread.join();
}

bool CCounterPlayer::Play() {
    if (!OpenTestPort(port, farPort)) return false;
    thread = std::thread([this] { Run(); });
    return true;
}

void CCounterPlayer::Run() {
    auto lastLook = Clock::now();
    while (!stops) {
        const auto look = Clock::now();
        Listen(lastLook);
        lastLook = look;
        std::this_thread::sleep_for(1ms);
    }
}

void CCounterPlayer::Listen(Clock::time_point lastLook) {
    std::uint8_t part[512];
    std::uint32_t got = 0;
    port.Read(part, sizeof part, &got, nullptr, INFINITE);
    const auto now = Clock::now();
    LineBytes answer;
    {
        const std::scoped_lock hold(lock);
        heardBytes += got;
        for (const std::uint8_t byte : std::span(part, got)) {
            parser.Add(byte);
            while (const auto request = parser.Next()) heard.push_back({request->frame, lastLook, now});
        }
        line.Feed(std::span(part, got), SteadyLineTime());
        answer = line.TakeDue(SteadyLineTime());
        spoken.insert(spoken.end(), answer.begin(), answer.end());
    }
    if (!answer.empty()) port.Write(answer.data(), static_cast<std::uint32_t>(answer.size()), nullptr, nullptr, 1000);
}

void CCounterPlayer::Count(std::uint8_t address, int in, int out) {
    const std::scoped_lock hold(lock);
    CLineCounter* const counter = line.Find(address, SteadyLineTime());
    ASSERT_NE(counter, nullptr) << "no counter at address " << int{address};
    counter->SetCounts({.in = static_cast<std::uint16_t>(in), .out = static_cast<std::uint16_t>(out)});
}

void CCounterPlayer::BringFault(const std::string& text) {
    std::string error;
    const auto fault = ParseLineFault(text, error);
    ASSERT_TRUE(fault) << error;
    const std::scoped_lock hold(lock);
    line.Faults().Add(*fault);
}

void CCounterPlayer::ClearFaults() {
    const std::scoped_lock hold(lock);
    line.Faults().Clear();
}

void CCounterPlayer::Say(LineBytes bytes) {
    const std::scoped_lock hold(lock);
    line.Send(std::move(bytes), SteadyLineTime());
}

std::vector<HeardFrame> CCounterPlayer::Heard() const {
    const std::scoped_lock hold(lock);
    return heard;
}

std::vector<HeardFrame> CCounterPlayer::Heard(std::uint8_t code) const {
    auto frames = Heard();
    std::erase_if(frames, [code](const HeardFrame& frame) { return frame.Code() != code; });
    return frames;
}

std::size_t CCounterPlayer::HeardBytes() const {
    const std::scoped_lock hold(lock);
    return heardBytes;
}

LineBytes CCounterPlayer::Spoken() const {
    const std::scoped_lock hold(lock);
    return spoken;
}

bool CCounterPlayer::AwaitSilence() const {
    std::size_t count = HeardBytes();
    auto since = Clock::now();
    return Await([&] {
        if (HeardBytes() != count) {
            count = HeardBytes();
            since = Clock::now();
        }
        return Clock::now() - since > 450ms;
    });
}

bool CCounterPlayer::AwaitFrames(std::size_t more) const {
    const std::size_t wanted = HeardCount() + more;
    return Await([&] { return HeardCount() >= wanted; }, 2s + more * 400ms);
}
