// Frames byte by byte, the clock over its century, and search and decoders over hostile buffers.
#include "FrameChecks.h"

#include <gtest/gtest.h>

#include "support/Hex.h"
#include "support/Seed.h"

namespace {

TEST(CounterFrame, SearchAndDecodersHoldForWhateverTheLineBrings) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    const auto below = [&](unsigned bound) { return static_cast<unsigned>(random() % bound); };
    std::size_t found = 0;
    for (int round = 0; round < 3000 && !testing::Test::HasFailure(); ++round) {
        std::vector<std::uint8_t> reply;
        for (unsigned piece = below(9); piece > 0; --piece) {
            std::vector<std::uint8_t> bytes(below(2) == 0 ? below(4) : std::array{5U, 12U, 17U}.at(below(3)));
            const bool isNarrow = below(2) == 0; // made of start and end bytes, and of sums that these give
            for (auto& byte : bytes) byte = static_cast<std::uint8_t>(isNarrow ? below(5) : below(256));
            if (bytes.size() > 4) {
                bytes.front() = frameStart, bytes.back() = frameEnd;
                SetFrameChecksum(bytes.data(), static_cast<int>(bytes.size()));
                if (below(3) == 0) ++bytes[below(static_cast<unsigned>(bytes.size()))];
                if (below(3) == 0) bytes.resize(below(static_cast<unsigned>(bytes.size())));
            }
            reply.insert(reply.end(), bytes.begin(), bytes.end());
        }
        found += CheckReply(reply, [&](bool holds, const char* what) {
            if (!holds) ADD_FAILURE() << what << ": " << HexOf(reply);
        });
    }
    EXPECT_GT(found, 1000U) << "too little to find";
}

TEST(CounterFrame, RequestsAreExactToTheByte) {
    const std::uint32_t time = CTime(CalendarFields{2012, 7, 2, 16, 21, 20}).GetTime();
    const CounterRecord settings{.deviceTime = time, .sdDetect = 1, .sdPeriod = 4, .sensitivity = 0x100 + 21};
    EXPECT_EQ(HexOf(BuildPollRequest(0)), "02 00 81 81 03");
    EXPECT_EQ(HexOf(BuildReadSettingsRequest(5)), "02 05 82 87 03");
    EXPECT_EQ(HexOf(BuildClearRequest(255)), "02 ff 87 86 03"); // the sum wraps
    EXPECT_EQ(HexOf(BuildSetAddressRequest(255, 3)), "02 ff 89 03 8b 03");
    EXPECT_EQ(HexOf(BuildSetClockRequest(255, settings)), "02 ff 8a 12 07 02 16 21 20 fb 03");
    EXPECT_EQ(HexOf(BuildWriteSettingsRequest(255, settings)),
              "02 ff 88 12 07 02 16 21 20 00 00 00 00 00 00 15 e4 f2 03");
    // Values that no control offers.
    EXPECT_EQ(EncodeSettingsByte({.language = 2, .direction = -1, .sdDetect = 2, .sdPeriod = 0x3F}), 0x1F);
}

TEST(CounterFrame, ChecksumsOfAnyLengthCoverWhatLiesBetween) {
    constexpr std::array after{"10 20 f0 40 50", "10 20 f0 40 50", "10 20 f0 40 50",
                               "10 00 f0 40 50", "10 20 20 40 50", "10 20 f0 10 50"};
    for (int length = 0; length <= 5; ++length) {
        std::array<std::uint8_t, 5> frame{0x10, 0x20, 0xF0, 0x40, 0x50};
        EXPECT_FALSE(CheckFrameChecksum(frame.data(), length)) << length;
        SetFrameChecksum(frame.data(), length);
        EXPECT_TRUE(HexOf(frame) == after[static_cast<std::size_t>(length)] &&
                    CheckFrameChecksum(frame.data(), length) == (length > 2));
    }
}

TEST(CounterFrame, ClocksGoOutAsDatesOfTheirCentury) {
    const std::pair<CalendarFields, const char*> edges[] = {
        {{1970, 1, 2, 0, 0, 0}, "00 01 01 00 00 00"},    {{1999, 12, 31, 23, 59, 59}, "00 01 01 00 00 00"},
        {{2000, 6, 2, 3, 4, 5}, "00 06 02 03 04 05"},    {{2000, 1, 1, 0, 0, 1}, "00 01 01 00 00 01"},
        {{2099, 6, 29, 23, 58, 7}, "99 06 29 23 58 07"}, {{2099, 12, 31, 23, 59, 58}, "99 12 31 23 59 58"},
        {{2100, 1, 1, 0, 0, 0}, "99 12 31 23 59 59"},    {{2024, 2, 30, 12, 34, 56}, "24 03 01 12 34 56"}};
    for (const auto& [date, sent] : edges) EXPECT_EQ(HexOf(EncodeClockField(CTime(date).GetTime())), sent);
    for (std::uint32_t time = 946'800'000; time < 4'102'000'000; time += 86'400 * 13 + 4567) {
        const ClockField field = EncodeClockField(time);
        EXPECT_EQ(HexOf(field), CTime(time).Format("%y %m %d %H %M %S"));
        EXPECT_EQ(CTime(DecodeClockField(field)).GetLocalFields(), CTime(time).GetLocalFields());
    }
    EXPECT_EQ(DecodeClockField(ClockField{0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}), 0U) << "no date that there is";
}

} // namespace
