#include "CounterPlayer.h"

#include <gtest/gtest.h>

std::string HexOf(const LineBytes& bytes) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : bytes) text += {digits[byte >> 4], digits[byte & 15], ' '};
    return text;
}

std::string FrameAround(const std::string& hex) {
    LineBytes frame{0x02};
    unsigned sum = 0;
    for (std::size_t at = 0; at + 1 < hex.size(); at += 3) {
        frame.push_back(static_cast<std::uint8_t>(std::stoi(hex.substr(at, 2), nullptr, 16)));
        sum += frame.back();
    }
    frame.insert(frame.end(), {static_cast<std::uint8_t>(sum), 0x03});
    return HexOf(frame);
}

CCounterPlayer::CCounterPlayer(const std::vector<std::uint8_t>& addresses)
    : line({.addresses = addresses, .baudRate = 0}, SteadyLineTime()) {}

CCounterPlayer::~CCounterPlayer() {
    stops = true;
    if (thread.joinable()) thread.join();
}

bool CCounterPlayer::Play(const std::string& portName) {
    if (port.Open(portName.c_str(), 0, 0, true) != 0 || port.Configure(4800, 8, 0, 0) != 0) return false;
    thread = std::thread([this] {
        for (auto lastLook = Clock::now(); !stops; std::this_thread::sleep_for(1ms)) {
            const auto look = Clock::now();
            Listen(lastLook);
            lastLook = look;
        }
    });
    return true;
}

void CCounterPlayer::Listen(Clock::time_point lastLook) {
    std::uint8_t part[512];
    std::uint32_t got = 0;
    port.Read(part, sizeof part, &got, nullptr, INFINITE);
    LineBytes answer;
    {
        const std::scoped_lock hold(lock);
        heardBytes += got;
        for (const std::uint8_t byte : std::span(part, got)) {
            parser.Add(byte);
            while (const auto request = parser.Next()) heard.push_back({HexOf(request->frame), lastLook, Clock::now()});
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

void CCounterPlayer::BringFaults(const std::vector<std::string>& faults) {
    const std::scoped_lock hold(lock);
    line.Faults().Clear();
    for (const std::string& text : faults) {
        std::string error;
        const auto fault = ParseLineFault(text, error);
        ASSERT_TRUE(fault) << error;
        line.Faults().Add(*fault);
    }
}

void CCounterPlayer::Say(const LineBytes& bytes) {
    const std::scoped_lock hold(lock);
    line.Send(bytes, SteadyLineTime());
}

std::vector<HeardFrame> CCounterPlayer::Heard(const std::string& code) const {
    const std::scoped_lock hold(lock);
    std::vector<HeardFrame> chosen = heard;
    std::erase_if(chosen, [&](const HeardFrame& frame) { return !frame.hex.substr(6).starts_with(code); });
    return chosen;
}

std::size_t CCounterPlayer::HeardBytes() const {
    const std::scoped_lock hold(lock);
    return heardBytes;
}

LineBytes CCounterPlayer::Spoken() const {
    const std::scoped_lock hold(lock);
    return spoken;
}

bool CCounterPlayer::AwaitFrames(std::size_t more) const {
    const std::size_t wanted = Heard().size() + more;
    return Await([&] { return Heard().size() >= wanted; }, 2s + more * 400ms);
}

bool CCounterPlayer::AwaitSilence() const {
    std::size_t count = 0;
    auto since = Clock::now();
    return Await([&] {
        if (const std::size_t now = HeardBytes(); now != count) {
            count = now;
            since = Clock::now();
        }
        return Clock::now() - since > 450ms;
    });
}
