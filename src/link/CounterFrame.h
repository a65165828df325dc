// Frames of the counters' wire protocol: checksum, BCD clock, request frames, reply records and the search for them.
//
// Pure functions over byte buffers, safe on any thread. Every frame has the same skeleton: start byte 0x02, counter
// address, body, checksum, end byte 0x03. The checksum is the low 8 bits of the plain sum of everything between the
// start byte and the checksum. Nothing is escaped, no frame carries its length, and a reply doesn't say what it is:
// both follow from the request alone. `length` always counts bytes of the whole frame.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "link/CounterRecord.h"

inline constexpr std::uint8_t frameStart = 0x02;
inline constexpr std::uint8_t frameEnd = 0x03;

// Byte 2 of a request frame.
enum class RequestCode : std::uint8_t {
    Poll = 0x81,
    ReadSettings = 0x82,
    ClearCounts = 0x87,
    WriteSettings = 0x88,
    SetAddress = 0x89,
    SetClock = 0x8A,
};

// Lengths of the three reply records: to Poll, to Read settings, and to each of the four others.
inline constexpr int statusRecordLength = 17;
inline constexpr int settingsRecordLength = 12;
inline constexpr int acknowledgementLength = 5;

// The most that one read takes from the line, in bytes.
inline constexpr int replyCapacity = 512;

// Writes the checksum of bytes 1 to length-3 into byte length-2, whatever was there. A length of 2 or less does
// nothing.
void SetFrameChecksum(std::uint8_t* frame, int length);

// True when byte length-2 is the checksum of bytes 1 to length-3; false for a length below 3.
bool CheckFrameChecksum(const std::uint8_t* frame, int length);

// One byte for two decimal digits, the high digit in the high nibble. Neither direction checks: a nibble above 9 counts
// as its value (0xFF is 165), and a value that needs more than two digits keeps its low 8 bits only.
int BcdToValue(std::uint8_t bcd);
std::uint8_t ValueToBcd(int value);

// Year minus 2000, month (1 to 12), day, hour, minute, second, each in BCD.
using ClockField = std::array<std::uint8_t, 6>;

// The local time of `deviceTime` (seconds of CTime). The two digits of the year reach from 2000 to 2099: a time before
// or after goes out as the first or the last second of that range, so that a counter never gets a date that is none.
ClockField EncodeClockField(std::uint32_t deviceTime);

// The `deviceTime` that a field stands for as local time, the platform deciding on summer time. Fields are not checked:
// out of range they are carried over as the calendar does, and what it can't represent becomes 0.
std::uint32_t DecodeClockField(std::span<const std::uint8_t, 6> field);

// Bit 7 is set for English, bit 6 for IN, bit 5 for SD detect NO; bits 4 to 0 are the SD period. Bits 7 and 6 thus run
// the other way round from the fields of the record. Decoding touches these four fields alone.
std::uint8_t EncodeSettingsByte(const CounterRecord& record);
void DecodeSettingsByte(std::uint8_t settings, CounterRecord& record);

// Complete frames, checksum included. `address` is a counter's, or allCountersAddress.
std::array<std::uint8_t, 5> BuildPollRequest(std::uint8_t address);
std::array<std::uint8_t, 5> BuildReadSettingsRequest(std::uint8_t address);
std::array<std::uint8_t, 5> BuildClearRequest(std::uint8_t address);
std::array<std::uint8_t, 6> BuildSetAddressRequest(std::uint8_t address, std::uint8_t newAddress);

// Takes `deviceTime` of the record.
std::array<std::uint8_t, 11> BuildSetClockRequest(std::uint8_t address, const CounterRecord& settings);

// Takes `deviceTime`, the low 8 bits of `sensitivity`, and the four fields of the settings byte. `address` of the
// record plays no part: the counter that is to obey is told by the argument.
std::array<std::uint8_t, 19> BuildWriteSettingsRequest(std::uint8_t address, const CounterRecord& settings);

// Fills `address`, `deviceTime`, the three counts and `extraByte`; the settings stay. False, with the record untouched,
// when there are fewer bytes than a status record has. Start byte, end byte and checksum are the search's business.
bool DecodeStatusRecord(const std::uint8_t* bytes, int length, CounterRecord& record);

// Fills `address`, `deviceTime`, `sensitivity` and the fields of the settings byte; the counts stay. False as above.
bool DecodeSettingsRecord(const std::uint8_t* bytes, int length, CounterRecord& record);

struct Acknowledgement {
    int address = 0;         // of the counter that answers, the byte taken as signed; after Set address the new one
    std::uint8_t status = 0; // 0: carried out; anything else: refused
};

Acknowledgement DecodeAcknowledgement(std::span<const std::uint8_t, acknowledgementLength> bytes);

// Finds the records of one length in what a read gave, in order, and hands each to `visit` as a
// std::span<const std::uint8_t, recordLength> into `reply`. The reply may open with noise, hold several records and end
// in a torn one. A record found is stepped over whole, so records never overlap; anything else is stepped over byte by
// byte, with no jump to the next start byte, since a good record may begin anywhere inside a spoilt one.
template <int recordLength, class Visitor>
void SearchRecords(std::span<const std::uint8_t> reply, Visitor&& visit);

template <int recordLength, class Visitor>
void SearchRecords(std::span<const std::uint8_t> reply, Visitor&& visit) {
    constexpr std::size_t length = recordLength;
    constexpr std::size_t checksumAt = length - 2;
    static_assert(recordLength >= 4);

    const auto bodySum = [](const std::uint8_t* record) {
        unsigned sum = 0;
        for (std::size_t i = 1; i < checksumAt; ++i) sum += record[i];
        return sum;
    };

    if (reply.size() < length) return;
    const std::uint8_t* record = reply.data();
    const std::uint8_t* const last = record + (reply.size() - length);
    // The sum moves along with the position, one byte in and one out, so that a reply full of start and end bytes costs
    // no more than any other.
    unsigned sum = bodySum(record);
    while (true) {
        // One test of all three conditions: taken apart, noise made of start and end bytes would defeat the processor's
        // branch prediction at every step.
        const bool found = (record[0] == frameStart) & (record[length - 1] == frameEnd) &
                           (record[checksumAt] == static_cast<std::uint8_t>(sum));
        if (found) {
            visit(std::span<const std::uint8_t, length>(record, length));
            if (static_cast<std::size_t>(last - record) < length) return;
            record += length;
            sum = bodySum(record);
        } else {
            if (record == last) return;
            sum += record[checksumAt];
            sum -= record[1];
            ++record;
        }
    }
}
