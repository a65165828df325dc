// What is known of one counter: its clock, its settings and its counts. Plain data, copied by value.
#pragma once

#include <cstdint>

// Addresses on the line: 0 to 5 for one counter, 255 for all of them at once.
inline constexpr int counterCount = 6;
inline constexpr std::uint8_t allCountersAddress = 0xFF;

struct CounterRecord {
    // The counter's clock as local time, in the seconds of CTime; 0: no representable date.
    std::uint32_t deviceTime = 0;
    std::int32_t language = 0;    // 0 English, 1 Chinese
    std::int32_t direction = 0;   // 0 IN, 1 OUT
    std::int32_t sdDetect = 0;    // 0 YES, 1 NO
    std::int32_t sdPeriod = 0;    // 0 to 31
    std::int32_t address = 0;     // 0 to 5 in the table; up to 255 in an address field
    std::int32_t sensitivity = 0; // 0 to 255 on the wire
    std::int32_t inCount = 0;     // people counted in, 0 to 65535
    std::int32_t outCount = 0;    // people counted out, 0 to 65535
    std::int32_t extraCount = 0;  // a third count of the status record, stored unread
    std::int32_t extraByte = 0;   // one further byte of the status record, stored unread

    bool operator==(const CounterRecord&) const = default;
};
