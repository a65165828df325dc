// How the counters on the line hear, obey and answer.
#include "line/CounterLine.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::uint8_t obeyed = 0;
constexpr std::uint8_t refused = 1;
constexpr int bitsPerByte = 10;

LineTime ByteTime(int baudRate) {
    if (baudRate <= 0) return LineTime(0);
    return LineTime((bitsPerByte * 1'000'000 + baudRate / 2) / baudRate);
}

bool IsCommand(RequestCode code) {
    return code != RequestCode::Poll && code != RequestCode::ReadSettings;
}

// A clock that is no date is refused as a whole, with the settings that come along with it.
std::uint8_t TakeClock(CLineCounter& counter, const LineRequest& request, LineTime heard) {
    const auto date = DateOfClockField(request.Clock());
    if (!date) return refused;
    counter.SetDate(*date, heard);
    if (request.Code() == RequestCode::WriteSettings) counter.SetSettings(request.Settings());
    return obeyed;
}

std::uint8_t Obey(CLineCounter& counter, const LineRequest& request, LineTime heard) {
    switch (request.Code()) {
    case RequestCode::ClearCounts:
        counter.SetCounts({.extraByte = counter.Counts().extraByte});
        return obeyed;
    case RequestCode::SetAddress:
        // Sent to all, it gives every counter the one new address. 255 would be one that nobody can ask alone.
        if (request.NewAddress() == allCountersAddress) return refused;
        counter.SetAddress(request.NewAddress());
        return obeyed;
    case RequestCode::WriteSettings:
    case RequestCode::SetClock:
        return TakeClock(counter, request, heard);
    case RequestCode::Poll:
    case RequestCode::ReadSettings:
        break;
    }
    return refused;
}

// Two voices at once: neither is understood while both speak.
void Collide(LineBytes& spoken, LineBytes other, CLineRandom& random) {
    if (other.size() > spoken.size()) spoken.swap(other);
    for (std::size_t at = 0; at < other.size(); ++at) spoken[at] = random.Byte();
}

LineBytes ReadRecord(const CLineCounter& counter, RequestCode code, LineTime heard) {
    const ClockField clock = ClockFieldOfDate(counter.Date(heard));
    if (code == RequestCode::ReadSettings) return SettingsReply(counter.Address(), clock, counter.Settings());
    return StatusReply(counter.Address(), clock, counter.Counts());
}

} // namespace

CCounterLine::CCounterLine(const LineConfiguration& configuration, LineTime now)
    : byteTime(ByteTime(configuration.baudRate)), turnaround(configuration.turnaround), replies(byteTime, turnaround),
      random(configuration.seed), lastHeard(now) {
    for (const std::uint8_t address : configuration.addresses) {
        CLineCounter& counter = counters.emplace_back(address, configuration.date, now, configuration.seed + address);
        counter.SetRate(configuration.peoplePerMinute, now);
    }
}

void CCounterLine::LeavePaceToPort(bool portKeepsPace) {
    portPaces = portKeepsPace;
    replies.LeavePaceToPort(portKeepsPace);
}

void CCounterLine::Feed(std::span<const std::uint8_t> bytes, LineTime now) {
    if (!plugged) return;
    for (const std::uint8_t byte : bytes) {
        lastHeard = portPaces ? now : std::max(lastHeard, now) + byteTime;
        parser.Add(byte);
        while (const auto request = parser.Next()) Serve(*request, lastHeard);
    }
}

void CCounterLine::Serve(const LineRequest& request, LineTime heard) {
    if (faults.Take(LineFaultKind::Echo, request.Address())) {
        const auto length = static_cast<LineTime::rep>(request.frame.size());
        replies.Add(heard - length * byteTime, request.frame);
    }
    // One turn for each address, and for those of its counters that a fault makes late.
    struct Turn {
        std::uint8_t asked;
        SpokenReply reply;
    };
    std::vector<Turn> turns;
    for (CLineCounter& counter : counters) {
        const std::uint8_t asked = counter.Address();
        if (!request.IsFor(asked)) continue;
        auto reply = Answer(counter, request, heard);
        if (!reply) continue;
        const auto same = std::ranges::find_if(
            turns, [&](const Turn& turn) { return turn.asked == asked && turn.reply.delay == reply->delay; });
        if (same == turns.end()) {
            turns.push_back({asked, std::move(*reply)});
        } else {
            Collide(same->reply.bytes, std::move(reply->bytes), random);
        }
    }
    for (Turn& turn : turns) Say(std::move(turn.reply), heard);
}

std::optional<SpokenReply> CCounterLine::Answer(CLineCounter& counter, const LineRequest& request, LineTime heard) {
    const std::uint8_t asked = counter.Address();
    counter.Advance(heard);
    if (faults.Take(LineFaultKind::Silent, asked)) return std::nullopt;

    const bool isCommand = IsCommand(request.Code());
    LineBytes record;
    if (isCommand) {
        const auto refusal = faults.Take(LineFaultKind::Refuse, asked);
        const std::uint8_t status = refusal ? static_cast<std::uint8_t>(*refusal) : Obey(counter, request, heard);
        // After Set address this already is the new address.
        record = AcknowledgementReply(counter.Address(), status);
    } else {
        record = ReadRecord(counter, request.Code(), heard);
    }

    return SpeakRecord(std::move(record), asked, !isCommand, faults, random);
}

void CCounterLine::Say(SpokenReply reply, LineTime heard) {
    const LineTime start = heard + turnaround + reply.delay;
    if (reply.pause > LineTime(0) && reply.pauseAt < reply.bytes.size()) {
        const auto cut = reply.bytes.begin() + static_cast<std::ptrdiff_t>(reply.pauseAt);
        const LineTime resumed = start + static_cast<LineTime::rep>(reply.pauseAt) * byteTime + reply.pause;
        replies.Add(resumed, LineBytes(cut, reply.bytes.end()), reply.latency);
        reply.bytes.erase(cut, reply.bytes.end());
    }
    replies.Add(start, std::move(reply.bytes), reply.latency);
}

LineBytes CCounterLine::TakeDue(LineTime now) {
    return replies.TakeDue(now);
}

void CCounterLine::Send(LineBytes bytes, LineTime now) {
    if (plugged) replies.Add(now, std::move(bytes));
}

void CCounterLine::SetPlugged(bool isPlugged) {
    plugged = isPlugged;
    if (plugged) return;
    parser.Clear();
    replies.Clear();
}

std::span<CLineCounter> CCounterLine::Counters(LineTime now) {
    for (CLineCounter& counter : counters) counter.Advance(now);
    return counters;
}

CLineCounter* CCounterLine::Find(std::uint8_t address, LineTime now) {
    for (CLineCounter& counter : Counters(now)) {
        if (counter.Address() == address) return &counter;
    }
    return nullptr;
}
