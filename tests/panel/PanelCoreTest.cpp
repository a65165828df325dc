// The panel's texts and comparisons.
#include <string>
#include <tuple>

#include <gtest/gtest.h>

#include "panel/ResultText.h"
#include "panel/SettingsChange.h"
#include "panel/TrafficText.h"
#include "Records.h"

namespace {

TEST(ResultText, ListsThoseThatDidItAndThoseThatRefused) {
    const std::tuple<Bytes, std::string, std::vector<std::int32_t>> rows[] = {
        {Line({Spoilt(Answer(0, 0)), {'n', 'o', 'i', 's', 'e'}}), "", {}},
        {Answer(7, 0), "Device 7 done", {7}},
        {Line({Answer(0, 0), Answer(1, 0), Answer(1, 0)}), "Device 0, 1, 1 done", {0, 1, 1}},
        {Line({Answer(5, 0xFF), Answer(2, 1)}), "Device 5, 2 refused", {}},
        {Line({Answer(2, 1), {0x02}, Answer(1, 0), Answer(3, 0)}), "Device 1, 3 done; Device 2 refused", {1, 3}},
        {Line({Answer(9, 0), Answer(255, 0), Answer(128, 1)}), "Device 9, -1 done; Device -128 refused", {9, -1}},
    };
    for (const auto& [reply, text, obeyed] : rows) {
        const ResultPhrases phrases{"Device", " done", " refused"};
        std::vector<std::int32_t> accepted;
        const ResultText result = GatherResults(reply, phrases, [&](int address) { accepted.push_back(address); });
        EXPECT_EQ(result.Join(phrases), text);
        EXPECT_EQ(accepted, obeyed) << text;
    }
}

TEST(SettingsChange, EachFieldAloneAndWithTheClock) {
    using R = CounterRecord;
    for (const auto field : {&R::sensitivity, &R::language, &R::direction, &R::sdDetect, &R::sdPeriod, &R::address,
                             &R::inCount, &R::outCount}) {
        const bool isAddress = field == &R::address, isCount = field == &R::inCount || field == &R::outCount;
        for (const std::uint32_t clock : {5U, 6U}) {
            for (const std::int32_t before : {0, 1, 2}) {
                CounterRecord former{.deviceTime = 5}, wanted{.deviceTime = clock};
                former.*field = before, wanted.*field = 1;
                const SettingsChange change = CompareSettings(former, wanted);
                EXPECT_EQ(change.writeSettings, before != 1 && !isAddress && !isCount);
                EXPECT_EQ(change.setClock, clock == 6 && !change.writeSettings);
                EXPECT_EQ(change.setAddress, before != 1 && isAddress);
            }
        }
    }
}

TEST(SettingsChange, ValuesAreKeptInTheirRange) {
    EXPECT_TRUE(sdPeriodRange.Clamp(3) == 4 && sdPeriodRange.Clamp(5) == 5 && sdPeriodRange.Clamp(32) == 31);
}

TEST(TrafficText, BytesLinesAndTotals) {
    EXPECT_EQ(FormatTotals("TX:", 1234567, "RX:", 2147483647), "TX:1234567    RX:2147483647");
    EXPECT_EQ(FormatHexBytes(Bytes{0x00, 0x0A, 0x9F, 0xFF, 0x81}), "00 0a 9f ff 81 ");
    EXPECT_EQ(FormatLogLine(CTime(recordTime), "TX-->02 "), "2012/03/04 05:06:07: TX-->02 ");
}

} // namespace
