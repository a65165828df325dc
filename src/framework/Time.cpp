#include "framework/Time.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <limits>

namespace {

// The two runtimes spell the 64-bit, thread-safe calendar calls differently; these are the only places that know.
#ifdef _WIN32
// By itself the runtime reads the zone once, at its first use; who travels sets another while the program runs.
std::int64_t SecondsFromLocal(std::tm& fields) {
    _tzset();
    return _mktime64(&fields);
}
bool BreakDown(std::int64_t seconds, std::tm& fields) {
    _tzset();
    const __time64_t value = seconds;
    return _localtime64_s(&fields, &value) == 0;
}
#else
std::int64_t SecondsFromLocal(std::tm& fields) {
    return std::mktime(&fields);
}
bool BreakDown(std::int64_t seconds, std::tm& fields) {
    const std::time_t value = seconds;
    return localtime_r(&value, &fields) != nullptr;
}
#endif

// Far beyond any date that the count can hold, and small enough for the sums that the runtimes do with an int.
constexpr int largestField = 1'000'000'000;

bool IsWithinReach(const CalendarFields& fields) {
    const std::array values{fields.year, fields.month, fields.day, fields.hour, fields.minute, fields.second};
    return std::ranges::all_of(values, [](int value) { return value >= -largestField && value <= largestField; });
}

} // namespace

CTime::CTime(const CalendarFields& local, int daylightSaving) {
    if (!IsWithinReach(local)) return;
    std::tm fields{};
    fields.tm_year = local.year - 1900;
    fields.tm_mon = local.month - 1;
    fields.tm_mday = local.day;
    fields.tm_hour = local.hour;
    fields.tm_min = local.minute;
    fields.tm_sec = local.second;
    fields.tm_isdst = daylightSaving;
    const std::int64_t count = SecondsFromLocal(fields);
    if (count >= 0 && count <= std::numeric_limits<std::uint32_t>::max()) seconds = static_cast<std::uint32_t>(count);
}

CTime CTime::Now() {
    return CTime(static_cast<std::uint32_t>(std::time(nullptr)));
}

CalendarFields CTime::GetLocalFields() const {
    std::tm fields{};
    if (!BreakDown(seconds, fields)) return {};
    return {fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour, fields.tm_min, fields.tm_sec};
}

std::string CTime::Format(const char* format) const {
    std::tm fields{};
    if (!BreakDown(seconds, fields)) return {};
    std::array<char, 256> text{};
    return std::string(text.data(), std::strftime(text.data(), text.size(), format, &fields));
}
