#include "soak/SoakLine.h"

#include <array>
#include <cstdio>
#include <span>

#include <windows.h>

#include "framework/FileStream.h"

CSoakLine::CSoakLine(std::string portName, std::string pulledFile, CSoakRecord& soakRecord)
    : name(std::move(portName)), pulled(std::move(pulledFile)), record(soakRecord), line({}, SteadyLineTime()),
      thread([this] { Run(); }) {}

CSoakLine::~CSoakLine() {
    stops = true;
    thread.join();
    if (!pulled.empty()) std::remove(pulled.c_str());
}

bool CSoakLine::Plug() {
    if (!pulled.empty()) std::remove(pulled.c_str());
    for (int tries = 0; tries < 200; ++tries, ::Sleep(50)) {
        const std::scoped_lock hold(lock);
        if (port.IsOpen()) return true;
        record.Disturb();
        if (port.Open(name.c_str(), 0, 0, true) == 0) {
            port.Configure(4800, 8, 0, 0);
            isPulled = false;
            return true;
        }
    }
    return false;
}

void CSoakLine::Pull() {
    if (pulled.empty()) return;
    const std::scoped_lock hold(lock);
    isPulled = true;
    record.Disturb();
    port.Close();
    const CFileStream file(std::fopen(pulled.c_str(), "w"));
}

void CSoakLine::Renew(const std::vector<std::uint8_t>& addresses) {
    const std::scoped_lock hold(lock);
    line = CCounterLine({.addresses = addresses, .seed = ++seed}, SteadyLineTime());
}

void CSoakLine::AddFault(const std::string& text) {
    std::string error;
    const std::scoped_lock hold(lock);
    if (const auto fault = ParseLineFault(text, error)) line.Faults().Add(*fault);
    ++record.faults;
}

void CSoakLine::Heal() {
    const std::scoped_lock hold(lock);
    line.Faults().Clear();
}

void CSoakLine::Count(std::size_t which, LineCounts counts) {
    const std::scoped_lock hold(lock);
    const std::span<CLineCounter> all = line.Counters(SteadyLineTime());
    all[which % all.size()].SetCounts(counts);
}

void CSoakLine::Flood(std::size_t bytes) {
    const std::scoped_lock hold(lock);
    CLineRandom noise(++seed);
    LineBytes flood(bytes);
    for (std::uint8_t& byte : flood) byte = noise.Byte();
    line.Send(std::move(flood), SteadyLineTime());
    ++record.faults;
}

LineCounts CSoakLine::CountsAt(std::uint8_t address) {
    const std::scoped_lock hold(lock);
    const CLineCounter* const counter = line.Find(address, SteadyLineTime());
    return counter != nullptr ? counter->Counts() : LineCounts{};
}

void CSoakLine::Run() {
    for (; !stops; ::Sleep(1)) {
        const std::scoped_lock hold(lock);
        Listen();
    }
}

void CSoakLine::Listen() {
    std::array<std::uint8_t, 512> part{};
    std::uint32_t got = 0;
    if (port.IsOpen()) port.Read(part.data(), static_cast<std::uint32_t>(part.size()), &got, nullptr, INFINITE);
    const LineTime now = SteadyLineTime();
    heardBytes += got;
    const std::span<const std::uint8_t> bytes(part.data(), got);
    for (const std::uint8_t byte : bytes) {
        parser.Add(byte);
        while (const auto request = parser.Next()) {
            framedBytes += request->frame.size();
            record.Hear(*request);
        }
    }
    // A frame is written as a whole and comes so; what is left over is none.
    if (framedBytes != heardBytes) record.Fail("bytes on the wire that are no frame");
    line.Feed(bytes, now);
    const LineBytes answer = line.TakeDue(now);
    if (answer.empty() || !port.IsOpen()) return;
    record.Speak(answer);
    port.Write(answer.data(), static_cast<std::uint32_t>(answer.size()), nullptr, nullptr, 1000);
}
