// Checksum, clock field, settings byte, the six requests and the decoders of the replies. The byte numbers are those of
// the counters' wire protocol.
#include "link/CounterFrame.h"

#include <algorithm>

#include "framework/Time.h"

namespace {

constexpr std::uint8_t english = 0x80;
constexpr std::uint8_t directionIn = 0x40;
constexpr std::uint8_t sdDetectNo = 0x20;
constexpr std::uint8_t sdPeriodMask = 0x1F;

constexpr int firstYear = 2000;
constexpr int lastYear = 2099;

std::uint8_t BodySum(const std::uint8_t* frame, int length) {
    unsigned sum = 0;
    for (int i = 1; i < length - 2; ++i) sum += frame[i];
    return static_cast<std::uint8_t>(sum);
}

// A request whose body is still zero and whose checksum is still missing.
template <std::size_t length>
std::array<std::uint8_t, length> LayOutRequest(std::uint8_t address, RequestCode code) {
    std::array<std::uint8_t, length> frame{};
    frame[0] = frameStart;
    frame[1] = address;
    frame[2] = static_cast<std::uint8_t>(code);
    frame[length - 1] = frameEnd;
    return frame;
}

template <std::size_t length>
std::array<std::uint8_t, length> Sealed(std::array<std::uint8_t, length> frame) {
    SetFrameChecksum(frame.data(), static_cast<int>(length));
    return frame;
}

int HighByteFirst(const std::uint8_t* bytes) {
    return bytes[0] << 8 | bytes[1];
}

std::span<const std::uint8_t, 6> ClockFieldOf(const std::uint8_t* record) {
    return std::span<const std::uint8_t, 6>(record + 2, 6);
}

} // namespace

void SetFrameChecksum(std::uint8_t* frame, int length) {
    if (length > 2) frame[length - 2] = BodySum(frame, length);
}

bool CheckFrameChecksum(const std::uint8_t* frame, int length) {
    return length > 2 && frame[length - 2] == BodySum(frame, length);
}

int BcdToValue(std::uint8_t bcd) {
    return (bcd >> 4) * 10 + (bcd & 0x0F);
}

std::uint8_t ValueToBcd(int value) {
    return static_cast<std::uint8_t>(value / 10 * 16 + value % 10);
}

ClockField EncodeClockField(std::uint32_t deviceTime) {
    CalendarFields local = CTime(deviceTime).GetLocalFields();
    if (local.year < firstYear) local = {firstYear, 1, 1, 0, 0, 0};
    if (local.year > lastYear) local = {lastYear, 12, 31, 23, 59, 59};
    return {ValueToBcd(local.year - firstYear), ValueToBcd(local.month), ValueToBcd(local.day), ValueToBcd(local.hour),
            ValueToBcd(local.minute),           ValueToBcd(local.second)};
}

std::uint32_t DecodeClockField(std::span<const std::uint8_t, 6> field) {
    const CalendarFields local{firstYear + BcdToValue(field[0]),
                               BcdToValue(field[1]),
                               BcdToValue(field[2]),
                               BcdToValue(field[3]),
                               BcdToValue(field[4]),
                               BcdToValue(field[5])};
    return CTime(local).GetTime();
}

std::uint8_t EncodeSettingsByte(const CounterRecord& record) {
    int settings = record.sdPeriod & sdPeriodMask;
    if (record.language == 0) settings |= english;
    if (record.direction == 0) settings |= directionIn;
    if (record.sdDetect == 1) settings |= sdDetectNo;
    return static_cast<std::uint8_t>(settings);
}

void DecodeSettingsByte(std::uint8_t settings, CounterRecord& record) {
    record.language = (settings & english) != 0 ? 0 : 1;
    record.direction = (settings & directionIn) != 0 ? 0 : 1;
    record.sdDetect = (settings & sdDetectNo) != 0 ? 1 : 0;
    record.sdPeriod = settings & sdPeriodMask;
}

std::array<std::uint8_t, 5> BuildPollRequest(std::uint8_t address) {
    return Sealed(LayOutRequest<5>(address, RequestCode::Poll));
}

std::array<std::uint8_t, 5> BuildReadSettingsRequest(std::uint8_t address) {
    return Sealed(LayOutRequest<5>(address, RequestCode::ReadSettings));
}

std::array<std::uint8_t, 5> BuildClearRequest(std::uint8_t address) {
    return Sealed(LayOutRequest<5>(address, RequestCode::ClearCounts));
}

std::array<std::uint8_t, 6> BuildSetAddressRequest(std::uint8_t address, std::uint8_t newAddress) {
    auto frame = LayOutRequest<6>(address, RequestCode::SetAddress);
    frame[3] = newAddress;
    return Sealed(frame);
}

std::array<std::uint8_t, 11> BuildSetClockRequest(std::uint8_t address, const CounterRecord& settings) {
    auto frame = LayOutRequest<11>(address, RequestCode::SetClock);
    std::ranges::copy(EncodeClockField(settings.deviceTime), frame.begin() + 3);
    return Sealed(frame);
}

std::array<std::uint8_t, 19> BuildWriteSettingsRequest(std::uint8_t address, const CounterRecord& settings) {
    auto frame = LayOutRequest<19>(address, RequestCode::WriteSettings);
    std::ranges::copy(EncodeClockField(settings.deviceTime), frame.begin() + 3);
    // The protocol leaves bytes 9 to 14 zero.
    frame[15] = static_cast<std::uint8_t>(settings.sensitivity);
    frame[16] = EncodeSettingsByte(settings);
    return Sealed(frame);
}

bool DecodeStatusRecord(const std::uint8_t* bytes, int length, CounterRecord& record) {
    if (length < statusRecordLength) return false;
    record.address = bytes[1];
    record.deviceTime = DecodeClockField(ClockFieldOf(bytes));
    record.inCount = HighByteFirst(bytes + 8);
    record.outCount = HighByteFirst(bytes + 10);
    record.extraCount = HighByteFirst(bytes + 12);
    record.extraByte = bytes[14];
    return true;
}

bool DecodeSettingsRecord(const std::uint8_t* bytes, int length, CounterRecord& record) {
    if (length < settingsRecordLength) return false;
    record.address = bytes[1];
    record.deviceTime = DecodeClockField(ClockFieldOf(bytes));
    record.sensitivity = bytes[8];
    DecodeSettingsByte(bytes[9], record);
    return true;
}

Acknowledgement DecodeAcknowledgement(std::span<const std::uint8_t, acknowledgementLength> bytes) {
    return {static_cast<std::int8_t>(bytes[1]), bytes[2]};
}
