// Plays the counters at the far end of the program's line, on a thread of its own, and keeps what passes on the wire.
#pragma once

#include <atomic>
#include <mutex>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "line/CounterLine.h"
#include "Program.h"
#include "serial/CommPort.h"
#include "support/Hex.h"

class CCounterPlayer {
public:
    // Counters without people; answers come at once, whatever the baud rate. With the time standing still, their clocks
    // do, too.
    explicit CCounterPlayer(const std::vector<std::uint8_t>& addresses, bool timeStandsStill = false)
        : stands(timeStandsStill), line({.addresses = addresses, .baudRate = 0}, Now()) {}
    ~CCounterPlayer() {
        stops = true;
        if (thread.joinable()) thread.join();
    }

    // False if there is no such port.
    bool Play(const std::string& portName) {
        if (port.Open(portName.c_str(), 0, 0, true) != 0 || port.Configure(4800, 8, 0, 0) != 0) return false;
        thread = std::thread([this] {
            for (; !stops; std::this_thread::sleep_for(1ms)) Listen();
        });
        return true;
    }

    void Count(std::uint8_t address, int in, int out) {
        const std::scoped_lock hold(lock);
        CLineCounter* const counter = line.Find(address, Now());
        ASSERT_NE(counter, nullptr) << "no counter at address " << int{address};
        counter->SetCounts({.in = static_cast<std::uint16_t>(in), .out = static_cast<std::uint16_t>(out)});
    }
    // As the simulated line writes faults: "torn 3", "late=150 *". They take the place of those in force.
    void BringFaults(const std::vector<std::string>& faults) {
        const std::scoped_lock hold(lock);
        line.Faults().Clear();
        noisy = false;
        for (const std::string& text : faults) {
            std::string error;
            const auto fault = ParseLineFault(text, error);
            ASSERT_TRUE(fault) << error;
            line.Faults().Add(*fault);
        }
    }
    // Sends bytes of all kinds beside the answers, as fast as they are taken, until BringFaults.
    void MakeNoise() { noisy = true; }
    // The requests that came in, as HexOf gives them; of one command if `code` is given ("81" for polls).
    std::vector<std::string> Heard(const std::string& code = "") const {
        const std::scoped_lock hold(lock);
        std::vector<std::string> chosen = heard;
        std::erase_if(chosen, [&](const std::string& frame) { return !frame.substr(6).starts_with(code); });
        return chosen;
    }
    // with what is no request
    std::size_t HeardBytes() const {
        const std::scoped_lock hold(lock);
        return heardBytes;
    }
    LineBytes Spoken() const {
        const std::scoped_lock hold(lock);
        return spoken;
    }

    bool AwaitFrames(std::size_t more, const std::string& code = "") const {
        return Await([&, wanted = Heard(code).size() + more] { return Heard(code).size() >= wanted; });
    }
    // Until nothing has come in for two poll periods.
    bool AwaitSilence() const {
        std::size_t count = 0;
        auto since = Clock::now();
        return Await([&] {
            if (const std::size_t now = HeardBytes(); std::exchange(count, now) != now) since = Clock::now();
            return Clock::now() - since > 450ms;
        });
    }

private:
    void Listen() {
        std::uint8_t part[512];
        std::uint32_t got = 0;
        port.Read(part, sizeof part, &got, nullptr, INFINITE);
        LineBytes answer;
        {
            const std::scoped_lock hold(lock);
            heardBytes += got;
            for (const std::uint8_t byte : std::span(part, got)) {
                parser.Add(byte);
                while (const auto request = parser.Next()) heard.push_back(HexOf(request->frame));
            }
            line.Feed(std::span(part, got), Now());
            answer = line.TakeDue(stands ? 1h : Now());
            for (int i = 0; noisy && i < 256; ++i) answer.push_back(static_cast<std::uint8_t>(random() >> 16));
            spoken.insert(spoken.end(), answer.begin(), answer.end());
        }
        if (!answer.empty())
            port.Write(answer.data(), static_cast<std::uint32_t>(answer.size()), nullptr, nullptr, 1000);
    }
    LineTime Now() const { return stands ? LineTime{} : SteadyLineTime(); }

    CCommPort port;
    bool stands;
    mutable std::mutex lock; // guards everything down to `spoken`
    CCounterLine line;
    CRequestParser parser;
    std::vector<std::string> heard;
    std::size_t heardBytes = 0;
    LineBytes spoken;
    std::minstd_rand random;
    std::atomic<bool> noisy{false}, stops{false};
    std::thread thread;
};
