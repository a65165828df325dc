// What a reply makes of the table of counters, and the panel's texts.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Records.h"
#include "panel/CounterTable.h"
#include "panel/ResultText.h"
#include "panel/SettingsChange.h"
#include "panel/TrafficText.h"

namespace {

// Sets of addresses are written as their digits: "13" is 1 and 3.
CCounterTable::Flags FlagsOf(const std::string& addresses) {
    CCounterTable::Flags flags{};
    for (const char address : addresses) flags[static_cast<std::size_t>(address - '0')] = true;
    return flags;
}

CCounterTable TableWith(const std::string& known, std::int32_t selected) {
    CCounterTable table;
    table.seen.fill(true); // of an earlier reply
    table.known = FlagsOf(known);
    table.selected = selected;
    return table;
}

TEST(CounterTable, StatusReplies) {
    const struct {
        const char* name;
        Bytes reply;
        const char* known;
        std::int32_t selected;
        const char* seen;
        std::int32_t selectedAfter;
        bool strangerSeen;
    } rows[] = {{"the first counter", Status(3), "", -1, "3", 3, true},
                {"a known one", Status(3), "3", 3, "3", 3, false},
                {"a known one is not selected by answering", Status(3), "3", -1, "3", -1, false},
                {"a stranger beside the selected one", Status(1), "3", 3, "1", 3, true},
                {"of two strangers the first", Line({Status(4), Status(1)}), "", -1, "14", 4, true},
                {"doubled", Line({Status(5), Status(5)}), "", -1, "5", 5, true},
                {"silence", {}, "3", 3, "", 3, false},
                {"torn", Torn(Status(3)), "", -1, "", -1, false},
                {"noise", Line({{2, 3}, Spoilt(Status(3)), Torn(Status(1)), Status(0), {2}}), "", -1, "0", 0, true},
                {"beyond the table", Line({Status(6), Status(128), Status(255)}), "", -1, "", -1, false},
                {"of the other kind", Line({Settings(3), Settings(3)}), "", -1, "", -1, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        CCounterTable table = TableWith(row.known, row.selected);
        const auto outcome = table.TakeStatusReply(row.reply);
        EXPECT_EQ(table.seen, FlagsOf(row.seen));
        EXPECT_EQ(table.known, FlagsOf(row.known));
        EXPECT_EQ(table.selected, row.selectedAfter);
        EXPECT_EQ(outcome.strangerSeen, row.strangerSeen);
        EXPECT_EQ(outcome.firstSelected, row.selected != row.selectedAfter);
    }
}

TEST(CounterTable, EachReplyFillsItsOwnFields) {
    CCounterTable table = TableWith("3", 3);
    CounterRecord& entry = table.records[3];
    entry = {.language = 1, .direction = 1, .sdDetect = 1, .sdPeriod = 9, .address = 5, .sensitivity = 77};
    table.TakeStatusReply(Line({Status(3, 98, 1), Status(3, 99, 2)})); // the later one counts
    EXPECT_EQ(entry, (CounterRecord{RecordTime(), 1, 1, 1, 9, 3, 77, 99, 2, 33, 0x44}));

    entry.address = 5;
    entry.deviceTime = 0;
    table.TakeSettingsReply(Line({Settings(6), Spoilt(Settings(2)), Settings(3, 200, 0xDF), Torn(Settings(4))}));
    EXPECT_EQ(entry, (CounterRecord{RecordTime(), 0, 0, 0, 31, 5, 200, 99, 2, 33, 0x44}));
    EXPECT_EQ(table.seen, FlagsOf("3"));
    for (const std::size_t other : {0, 1, 2, 4, 5}) EXPECT_EQ(table.records[other], CounterRecord());

    table.TakeSettingsReply({});
    ASSERT_TRUE(table.SettlePresence(3));
    EXPECT_EQ(entry.inCount, 99); // an entry outlives its counter
}

TEST(CounterTable, PresenceIsSettledForTheAskedAddressAlone) {
    const struct {
        const char *name, *seen, *known;
        std::int32_t selected, asked;
        const char* knownAfter; // null: nothing changes
        std::int32_t selectedAfter;
    } rows[] = {{"a newcomer", "3", "1", 1, 3, "13", 1},
                {"gone, others stay", "", "13", 3, 3, "1", 3},
                {"the last one gone", "", "3", 3, 3, "", -1},
                {"present as before", "3", "3", 3, 3, nullptr, 3},
                {"somebody else answered", "4", "2", 2, 2, "", -1},
                {"the sixth", "012345", "01234", 0, 5, "012345", 0},
                {"all counters at once", "012345", "1", 1, -1, nullptr, 1},
                {"beyond the table", "012345", "1", 1, 6, nullptr, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        CCounterTable table = TableWith(row.known, row.selected);
        table.seen = FlagsOf(row.seen);
        EXPECT_EQ(table.SettlePresence(row.asked), row.knownAfter != nullptr);
        EXPECT_EQ(table.known, FlagsOf(row.knownAfter != nullptr ? row.knownAfter : row.known));
        std::string shown;
        for (std::size_t i = 0; i < static_cast<std::size_t>(table.shownCount); ++i)
            shown += std::to_string(table.shownAddresses[i]);
        EXPECT_EQ(shown, row.knownAfter != nullptr ? row.knownAfter : "");
        EXPECT_EQ(table.selected, row.selectedAfter);
    }
}

TEST(ResultText, ListsThoseThatDidItAndThoseThatRefused) {
    const struct {
        Bytes reply;
        std::string text;
        std::vector<std::int32_t> accepted;
    } rows[] = {
        {Torn(Answer(0, 0)), "", {}},
        {Line({Spoilt(Answer(0, 0)), {'n', 'o', 'i', 's', 'e'}}), "", {}},
        {Line({Answer(0, 0), Answer(1, 0), Answer(1, 0)}), "Device 0, 1, 1 done", {0, 1, 1}},
        {Line({Answer(5, 0xFF), Answer(2, 1)}), "Device 5, 2 refused", {}},
        {Line({Answer(2, 1), {0x02}, Answer(1, 0), Answer(3, 0)}), "Device 1, 3 done; Device 2 refused", {1, 3}},
        {Line({Answer(9, 0), Answer(255, 0), Answer(128, 1)}), "Device 9, -1 done; Device -128 refused", {9, -1}},
    };
    for (const auto& row : rows) {
        const ResultPhrases phrases{"Device", " done", " refused"};
        std::vector<std::int32_t> accepted;
        const ResultText result = GatherResults(row.reply, phrases, [&](int address) { accepted.push_back(address); });
        EXPECT_EQ(result.Join(phrases), row.text);
        EXPECT_EQ(accepted, row.accepted) << row.text;
    }
}

TEST(SettingsChange, OneChangedSettingWritesAllAndTheClock) {
    for (const auto field : {&CounterRecord::sensitivity, &CounterRecord::language, &CounterRecord::direction,
                             &CounterRecord::sdDetect, &CounterRecord::sdPeriod}) {
        CounterRecord wanted{.deviceTime = 1};
        wanted.*field = 1;
        const SettingsChange change = CompareSettings({}, wanted);
        EXPECT_TRUE(change.writeSettings && !change.setClock && !change.setAddress);
    }
}

TEST(TrafficText, BytesLinesAndTotals) {
    EXPECT_EQ(FormatHexBytes({}), "");
    EXPECT_EQ(FormatHexBytes(Bytes{0x00, 0x0A, 0x9F, 0xFF}), "00 0a 9f ff ");
    EXPECT_EQ(FormatLogLine(CTime(RecordTime()), "TX-->02 "), "2012/03/04 05:06:07: TX-->02 ");
    EXPECT_EQ(FormatTotals("TX:", 0, "RX:", 42), "TX:     0    RX:    42");
    EXPECT_EQ(FormatTotals("TX:", 1234567, "RX:", 2147483647), "TX:1234567    RX:2147483647");
}

} // namespace
