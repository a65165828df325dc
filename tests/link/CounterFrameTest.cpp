// Frames byte by byte, the search over hostile buffers, and what the decoders fill and leave alone.
#include "link/CounterFrame.h"

#include <vector>

#include <gtest/gtest.h>

#include "framework/Time.h"

namespace {

using Bytes = std::vector<std::uint8_t>;

const std::uint32_t sampleTime = CTime(CalendarFields{2012, 7, 2, 16, 21, 20}).GetTime();
const Bytes status0{0x02, 0x00, 0x12, 0x07, 0x02, 0x16, 0x21, 0x20, 0x00,
                    0x64, 0x00, 0x32, 0x00, 0x00, 0x00, 0x08, 0x03};
const Bytes settings0{0x02, 0x00, 0x12, 0x07, 0x02, 0x16, 0x21, 0x20, 0x15, 0xE4, 0x6B, 0x03};
const Bytes done2{0x02, 0x02, 0x00, 0x02, 0x03};
const Bytes refused2{0x02, 0x02, 0x01, 0x03, 0x03};

Bytes operator+(Bytes front, const Bytes& back) {
    front.insert(front.end(), back.begin(), back.end());
    return front;
}

Bytes With(Bytes bytes, std::size_t at, std::uint8_t value) {
    bytes[at] = value;
    return bytes;
}

template <int recordLength>
std::vector<int> Found(const Bytes& reply) {
    std::vector<int> positions;
    SearchRecords<recordLength>(reply, [&](std::span<const std::uint8_t, recordLength> record) {
        positions.push_back(static_cast<int>(record.data() - reply.data()));
    });
    return positions;
}

TEST(CounterFrame, RequestsAreExactToTheByte) {
    const CounterRecord settings{.deviceTime = sampleTime, .sdDetect = 1, .sdPeriod = 4, .sensitivity = 0x100 + 21};
    const auto bytes = [](const auto& frame) { return Bytes(frame.begin(), frame.end()); };
    EXPECT_EQ(bytes(BuildPollRequest(0)), (Bytes{0x02, 0x00, 0x81, 0x81, 0x03}));
    EXPECT_EQ(bytes(BuildReadSettingsRequest(5)), (Bytes{0x02, 0x05, 0x82, 0x87, 0x03}));
    EXPECT_EQ(bytes(BuildClearRequest(255)), (Bytes{0x02, 0xFF, 0x87, 0x86, 0x03})); // the sum wraps
    EXPECT_EQ(bytes(BuildSetAddressRequest(255, 3)), (Bytes{0x02, 0xFF, 0x89, 0x03, 0x8B, 0x03}));
    EXPECT_EQ(bytes(BuildSetClockRequest(255, settings)),
              (Bytes{0x02, 0xFF, 0x8A, 0x12, 0x07, 0x02, 0x16, 0x21, 0x20, 0xFB, 0x03}));
    EXPECT_EQ(bytes(BuildWriteSettingsRequest(255, settings)),
              (Bytes{0x02, 0xFF, 0x88, 0x12, 0x07, 0x02, 0x16, 0x21, 0x20, 0, 0, 0, 0, 0, 0, 0x15, 0xE4, 0xF2, 0x03}));
}

TEST(CounterFrame, ClockFieldsCarryLocalTime) {
    const ClockField sample{0x12, 0x07, 0x02, 0x16, 0x21, 0x20};
    EXPECT_EQ(EncodeClockField(sampleTime), sample);
    EXPECT_EQ(DecodeClockField(sample), sampleTime);
    // Two digits of a year reach no further than a century, and nothing but a date may go out.
    EXPECT_EQ(EncodeClockField(0), (ClockField{0x00, 0x01, 0x01, 0x00, 0x00, 0x00}));
    EXPECT_EQ(EncodeClockField(0xFFFFFFFF), (ClockField{0x99, 0x12, 0x31, 0x23, 0x59, 0x59}));
    // What comes in may be no BCD and no date: the calendar carries on, or gives up with 0.
    EXPECT_EQ(DecodeClockField(ClockField{0x12, 0x12, 0x3F, 0x16, 0x21, 0x20}),
              CTime(CalendarFields{2012, 12, 45, 16, 21, 20}).GetTime());
    EXPECT_EQ(DecodeClockField(ClockField{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}), 0U);
}

TEST(CounterFrame, SettingsByteBothWays) {
    const struct {
        CounterRecord record;
        std::uint8_t byte;
    } rows[] = {{{.sdDetect = 1, .sdPeriod = 4}, 0xE4},
                {{.language = 1, .direction = 1, .sdPeriod = 31}, 0x1F},
                {{.language = 1}, 0x40},
                {{.direction = 1, .sdPeriod = 16}, 0x90}};
    for (const auto& row : rows) {
        CounterRecord decoded;
        DecodeSettingsByte(row.byte, decoded);
        EXPECT_EQ(decoded, row.record) << int{row.byte};
        EXPECT_EQ(EncodeSettingsByte(row.record), row.byte);
    }
    // Values that no control offers.
    EXPECT_EQ(EncodeSettingsByte({.language = 2, .direction = -1, .sdDetect = 2, .sdPeriod = 0x3F}), 0x1F);
}

TEST(CounterFrame, DecodersFillTheirOwnFieldsOnly) {
    const CounterRecord before{.language = 7, .sdPeriod = 7, .sensitivity = 7, .inCount = 7, .extraByte = 7};

    Bytes status = With(With(status0, 1, 0xFF), 14, 0xC8);
    status[8] = 0x01, status[9] = 0x80, status[11] = 0xFF, status[12] = 0xFF, status[13] = 0xFE;
    CounterRecord record = before, expected = before;
    expected.address = 255, expected.deviceTime = sampleTime, expected.inCount = 384, expected.outCount = 255;
    expected.extraCount = 65534, expected.extraByte = 200;
    EXPECT_TRUE(DecodeStatusRecord(status.data(), 17, record));
    EXPECT_EQ(record, expected);

    record = expected = before;
    expected.deviceTime = sampleTime, expected.sensitivity = 200, expected.sdPeriod = 4;
    expected.language = expected.direction = 0, expected.sdDetect = 1;
    EXPECT_TRUE(DecodeSettingsRecord(With(settings0, 8, 200).data(), 12, record));
    EXPECT_EQ(record, expected);

    record = before;
    EXPECT_FALSE(DecodeStatusRecord(status.data(), 16, record));
    EXPECT_FALSE(DecodeSettingsRecord(settings0.data(), 11, record));
    EXPECT_EQ(record, before);
}

TEST(CounterFrame, SearchFindsWhatTheLineBrought) {
    const Bytes torn(status0.begin(), status0.end() - 1);
    const Bytes half(status0.begin(), status0.begin() + 9);
    const struct {
        const char* name;
        Bytes reply;
        std::vector<int> expected;
    } rows[] = {
        {"nothing", {}, {}},
        {"torn", torn, {}},
        {"after start bytes", Bytes(17, 0x02) + status0, {17}},
        {"back to back, torn end", status0 + status0 + torn, {0, 17}},
        {"wrong start", With(status0, 0, 0x03), {}},
        {"wrong body", With(status0, 9, 0x65), {}},
        {"wrong checksum", With(status0, 15, 0x09), {}},
        {"wrong end", With(status0, 16, 0x02), {}},
        {"begins inside a spoilt one", half + status0, {9}},
        {"of another kind", settings0 + settings0, {}},
    };
    for (const auto& row : rows) EXPECT_EQ(Found<17>(row.reply), row.expected) << row.name;
    EXPECT_EQ(Found<12>(settings0 + Bytes{0x03} + settings0), (std::vector{0, 13}));
    EXPECT_EQ(Found<5>(done2 + Bytes{0x02, 0x02} + refused2), (std::vector{0, 7}));
    // Two that overlap: the first takes its bytes, so the second isn't there.
    const Bytes overlapping{0x02, 0x00, 0x02, 0x02, 0x03, 0x05, 0x03};
    EXPECT_EQ(Found<5>(overlapping + done2), (std::vector{0, 7}));
    EXPECT_EQ(Found<5>(Bytes(overlapping.begin() + 2, overlapping.end())), std::vector{0});
}

} // namespace
