// Frames as they stand on the line, laid out byte by byte.
#pragma once

#include <cstdint>
#include <vector>

#include "framework/Time.h"
#include "support/Hex.h"

using Bytes = std::vector<std::uint8_t>;

// What the clock of every record here says, in seconds.
inline const std::uint32_t recordTime = CTime(CalendarFields{2012, 3, 4, 5, 6, 7}).GetTime();

// The three kinds of records. In a status record, whose counts stay below 256 here, the third count is 33 and the extra
// byte 0x44. The settings byte 0xE5 stands for English, IN, NO and a period of 5.
inline Bytes Status(std::uint8_t address, std::uint8_t in = 0, std::uint8_t out = 0) {
    return Frame({address, 0x12, 3, 4, 5, 6, 7, 0, in, 0, out, 0, 33, 0x44});
}
inline Bytes Settings(std::uint8_t address, std::uint8_t sensitivity = 21, std::uint8_t settingsByte = 0xE5) {
    return Frame({address, 0x12, 3, 4, 5, 6, 7, sensitivity, settingsByte});
}
inline Bytes Answer(std::uint8_t address, std::uint8_t status) {
    return Frame({address, status});
}

// Everything that one read may find on the line.
inline Bytes Line(std::initializer_list<Bytes> parts) {
    Bytes line;
    for (const Bytes& part : parts) line.insert(line.end(), part.begin(), part.end());
    return line;
}
inline Bytes Torn(Bytes record) {
    record.pop_back();
    return record;
}
inline Bytes Spoilt(Bytes record) {
    record[1] ^= 1; // no longer what the checksum was made of
    return record;
}
