// What a traffic log says, in whatever pieces it comes.
#include "reader/LogDecoder.h"

#include <gtest/gtest.h>

namespace {

class CLogNotes : public CLogSink {
public:
    void TakeTrace(const LineTrace& trace) override {
        const auto& record = trace.judgement.record;
        text += MomentText(trace.time) + (trace.request == RequestCode::Poll ? " poll " : " settings ");
        text += std::to_string(trace.address) + ' ' + std::string(AnswerWord(trace.judgement.answer));
        if (record) text += ' ' + std::to_string(record->inCount) + '/' + std::to_string(record->sensitivity);
        text += '\n';
    }
    void TakeClear(std::int32_t address) override { text += "clear " + std::to_string(address) + '\n'; }
    void TakeMove(std::int32_t address) override { text += "move " + std::to_string(address) + '\n'; }

    std::string text;
};

// Of Berlin in 2026.
std::int32_t BerlinOffset(std::int64_t utc) {
    return utc >= 1'774'746'000 && utc < 1'792'890'000 ? 7200 : 3600;
}

std::string NotesOf(std::string_view log, std::size_t pieceSize, std::uint64_t unreadable) {
    CLogNotes notes;
    CLogDecoder decoder(notes, BerlinOffset);
    for (std::size_t at = 0; at < log.size(); at += pieceSize) decoder.Feed(log.substr(at, pieceSize));
    EXPECT_EQ(decoder.UnreadableLines(), unreadable) << log;
    return notes.text;
}

struct LogCase {
    std::string log, notes;
    std::uint64_t unreadable = 0;
};

void ExpectNotes(std::span<const LogCase> cases) {
    for (const LogCase& each : cases) {
        for (const std::size_t pieceSize : {std::size_t{1}, std::size_t{7}, each.log.size()}) {
            EXPECT_EQ(NotesOf(each.log, pieceSize, each.unreadable), each.notes) << each.log << pieceSize;
        }
    }
}

TEST(LogDecoder, PairsRequestsWithWhatCame) {
    const std::string second = "2026/11/26 10:00:00: ", row = "2026-11-26T10:00:00.000+01:00 ";
    const std::string poll = second + "TX-->02 00 81 81 03 \r\n";
    const std::string status = second + "RX-->02 00 12 07 02 16 21 20 00 64 00 32 00 00 00 08 03 \r\n";
    const std::string nothing = second + "RX-->\r\n";
    const std::string acknowledged = second + "RX-->02 00 00 00 03 02 02 00 02 03 02 05 01 06 03 \r\n";
    const LogCase cases[] = {
        {poll + status, row + "poll 0 ok 100/0\n"},
        {poll + nothing, row + "poll 0 silent\n"},
        {poll + poll + nothing, row + "poll 0 not_asked\n" + row + "poll 0 silent\n"},
        {poll, ""}, // its answer isn't there yet
        {poll + second + "RX-->02 00 12 0", ""},
        {poll + second + "RX-->02 00 12\r\n", row + "poll 0 spoilt\n"},
        {second + "TX-->02 00 82 82 03 \n" + second + "RX-->02 00 12 07 02 16 21 20 15 e4 6b 03\n",
         row + "settings 0 ok 0/21\n"},
        {second + "TX-->02 ff 87 86 03 \r\n" + acknowledged, "clear 0\nclear 2\n"},
        {second + "TX-->02 ff 89 02 8a 03 \r\n" + acknowledged, "move 0\nmove 2\n"},
        {second + "TX-->02 ff 8a 12 07 02 16 21 20 fb 03 \r\n" + acknowledged + status, ""},
        {second + "TX-->02 00 81 82 03 \r\n" + status, ""}, // no request: its checksum is wrong
        {status + "\r\n" + poll + std::string(5000, '0') + "\n" + status, "", 1},
        {poll + std::string(1, '\0') + "\n" + nothing + poll + status, row + "poll 0 ok 100/0\n", 1},
        {second + "RX--> 02\n" + second + "TX-->0g \n" + second + "XX-->\n" + second + "RX-->020081\n" +
             "2026/02/29 10:00:00: RX-->\n2026/11/26 24:00:00: RX-->\n2026/11/26 10:00\n",
         "", 7},
    };
    ExpectNotes(cases);
}

TEST(LogDecoder, TellsTheRepeatedHourByTheOrderOfLines) {
    const auto logOf = [](std::initializer_list<const char*> times) {
        std::string log;
        for (const std::string time : times) log += time + ": TX-->02 00 81 81 03 \r\n" + time + ": RX-->\r\n";
        return log;
    };
    const auto notesOf = [](std::initializer_list<const char*> times) {
        std::string notes;
        for (const std::string time : times) notes += time + " poll 0 silent\n";
        return notes;
    };
    const LogCase cases[] = {
        {logOf({"2026/10/25 01:59:59", "2026/10/25 02:00:00", "2026/10/25 02:59:59", "2026/10/25 02:59:50",
                "2026/10/25 02:00:00", "2026/10/25 02:59:59", "2026/10/25 02:59:59", "2026/10/25 03:00:00"}),
         notesOf({"2026-10-25T01:59:59.000+02:00", "2026-10-25T02:00:00.000+02:00", "2026-10-25T02:59:59.000+02:00",
                  "2026-10-25T02:59:50.000+02:00", "2026-10-25T02:00:00.000+01:00", "2026-10-25T02:59:59.000+01:00",
                  "2026-10-25T02:59:59.000+01:00", "2026-10-25T03:00:00.000+01:00"})},
        {logOf({"2026/10/25 02:30:00"}), notesOf({"2026-10-25T02:30:00.000+02:00"})}, // it begins there
        {logOf({"2026/03/29 01:59:59", "2026/03/29 02:30:00", "2026/03/29 03:00:00"}),
         notesOf({"2026-03-29T01:59:59.000+01:00", "2026-03-29T03:30:00.000+02:00", "2026-03-29T03:00:00.000+02:00"})}};
    ExpectNotes(cases);
}

} // namespace
