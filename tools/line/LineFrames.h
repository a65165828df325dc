// The counters' wire protocol as a counter sees it: requests taken out of a byte stream, replies built.
//
// A frame is 0x02, an address, a body, a checksum and 0x03. Requests tell their length by the command byte; replies
// carry no type, since the request that went before says what they are.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "framework/Time.h"
#include "link/CounterFrame.h"
#include "port/LineBytes.h"

// The address after it means all counters.
inline constexpr int highestLineAddress = 254;

// What a counter keeps besides its clock. Each flag is true where the wire bit is set or the word says yes.
struct LineSettings {
    bool english = true;           // else Chinese
    bool countsIn = true;          // direction IN, else OUT
    bool sdDetect = false;         // look for an SD card
    std::uint8_t sdPeriod = 4;     // 0 to 31
    std::uint8_t sensitivity = 21; // 0 to 255

    bool operator==(const LineSettings&) const = default;
};

struct LineCounts {
    std::uint16_t in = 0;
    std::uint16_t out = 0;
    std::uint16_t extra = 0; // the third count, of which nothing is known but its place
    std::uint8_t extraByte = 0;

    bool operator==(const LineCounts&) const = default;
};

// One whole request with a good checksum.
struct LineRequest {
    LineBytes frame;

    std::uint8_t Address() const { return frame[1]; }
    RequestCode Code() const { return static_cast<RequestCode>(frame[2]); }
    bool IsFor(std::uint8_t counterAddress) const {
        return Address() == counterAddress || Address() == allCountersAddress;
    }
    // Of Write settings and Set clock only.
    ClockField Clock() const;
    // Of Write settings only.
    LineSettings Settings() const;
    // Of Set address only.
    std::uint8_t NewAddress() const { return frame[3]; }
};

// Takes requests out of a stream that may come in any pieces, with garbage and torn frames between them. A torn frame
// never hides a good one behind it. Keeps at most one unfinished frame.
class CRequestParser {
public:
    void Add(std::uint8_t byte) { pending.push_back(byte); }

    // The next whole request of what was added; to be called until it gives none.
    std::optional<LineRequest> Next();

    void Clear() { pending.clear(); }

private:
    LineBytes pending;
};

// No date unless every byte is two decimal digits and the day exists in its month.
std::optional<CalendarFields> DateOfClockField(const ClockField& clock);
// `date` is a valid date of the years 2000 to 2099.
ClockField ClockFieldOfDate(const CalendarFields& date);

std::uint8_t SettingsByteOf(const LineSettings& settings);

LineBytes StatusReply(std::uint8_t address, const ClockField& clock, const LineCounts& counts);
LineBytes SettingsReply(std::uint8_t address, const ClockField& clock, const LineSettings& settings);
LineBytes AcknowledgementReply(std::uint8_t address, std::uint8_t status);
