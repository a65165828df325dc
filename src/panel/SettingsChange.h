// Which of a counter's settings a user has changed, and the ranges in which the panel's edits keep them.
#pragma once

#include <cstdint>

#include "link/CounterRecord.h"

// What an Update has to send. Write settings carries the clock as well, so a changed clock alone wants Set clock.
struct SettingsChange {
    bool writeSettings = false;
    bool setClock = false;
    bool setAddress = false;
};

SettingsChange CompareSettings(const CounterRecord& former, const CounterRecord& wanted);

struct ValueRange {
    std::int32_t lowest;
    std::int32_t highest;

    std::int32_t Clamp(std::int32_t value) const { return value < lowest ? lowest : value > highest ? highest : value; }
};

inline constexpr ValueRange sensitivityRange{0, 250};
inline constexpr ValueRange sdPeriodRange{4, 31};
inline constexpr ValueRange addressRange{0, 255};
