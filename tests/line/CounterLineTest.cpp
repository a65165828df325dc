// Counters on a simulated line: what they answer, against a model; when they answer; what control lines change.
#include <algorithm>
#include <array>
#include <map>
#include <sstream>

#include <gtest/gtest.h>

#include "line/CounterLine.h"
#include "line/LineControl.h"
#include "line/LineOptions.h"
#include "line/LineWords.h"
#include "support/Hex.h"
#include "support/Seed.h"

namespace {

using namespace std::chrono_literals;

// A line on a time of its own, spoken to in hex: counters 0, 1 and 3 whose clocks start at 2012-07-02 16:21:20, without
// people.
struct LineTest : testing::Test {
    std::string Ask(std::string_view hex) {
        line.Feed(BytesOf(hex), now);
        std::string heard;
        while (const auto due = line.NextDue()) heard += HexOf(line.TakeDue(now = std::max(now, *due))) + ' ';
        return heard.substr(0, heard.find_last_not_of(' ') + 1);
    }
    std::string Control(std::string_view text) { return RunControlLine(line, text, now).text; }
    LineTime now{5'000'000};
    CCounterLine line{LineConfiguration{}, now};
};

std::string HexByte(int value) {
    return HexOf(std::array{static_cast<std::uint8_t>(value)});
}

TEST_F(LineTest, AnswersAsAModelOfItDoes) {
    const unsigned seed = TestSeed();
    SCOPED_TRACE(SeedText(seed));
    std::mt19937 random(seed);
    const auto below = [&](int bound) { return static_cast<int>(random() % static_cast<unsigned>(bound)); };
    struct Counter {
        int address, in, out, settings, sensitivity;
        std::string date;
    };
    std::vector<Counter> counters;
    for (const int address : {0, 1, 3}) counters.push_back({address, 0, 0, 0xE4, 21, "12 07 02 16 21 20"});
    std::map<std::pair<std::string, int>, std::pair<int, int>> faults; // value and count, by kind and address, -1: all
    const auto take = [&](const std::string& kind, int address) {
        for (const int whom : {address, -1}) {
            const auto found = faults.find({kind, whom});
            if (found == faults.end()) continue;
            const int value = found->second.first;
            if (found->second.second-- == 1) faults.erase(found);
            return value;
        }
        return -1;
    };
    const auto spoken = [&](const Counter& counter, int asked, const std::string& body, bool hasClock) {
        std::string whole = HexByte(counter.address) + ' ' + body;
        if (const int address = take("stranger", asked); address >= 0) whole.replace(0, 2, HexByte(address));
        if (hasClock && take("garbledate", asked) >= 0) whole.replace(3, 17, "ff ab 3f f4 6a ff");
        if (hasClock && take("nodate", asked) >= 0) whole.replace(3, 17, "00 00 00 00 00 00");
        auto record = FrameOf(whole);
        if (take("checksum", asked) >= 0) ++record[record.size() - 2];
        const bool twice = take("twice", asked) >= 0;
        const int kept = take("torn", asked);
        if (kept >= 0) record.resize(std::min(record.size(), kept == 0 ? record.size() / 2 : std::size_t(kept)));
        return HexOf(record) + ' ' + (twice ? HexOf(record) + ' ' : "");
    };
    line = CCounterLine({.baudRate = 0, .turnaround = LineTime(0)}, now);
    const std::tuple<std::string, int, int, int> kinds[] = {
        // usual, lowest and highest value
        {"silent", 0, 0, 0},     {"refuse", 1, 1, 255}, {"stranger", 9, 0, 255},
        {"garbledate", 0, 0, 0}, {"nodate", 0, 0, 0},   {"checksum", 0, 0, 0},
        {"twice", 0, 0, 0},      {"torn", 0, 0, 20},    {"echo", 0, 0, 0}};
    constexpr std::array dates{"24 02 29 23 59 59", "99 12 31 00 00 00", "00 01 01 23 59 59", // and such as aren't:
                               "12 00 02 16 21 20", "12 13 02 16 21 20", "12 07 02 24 21 20",
                               "12 07 02 16 60 20", "12 07 02 16 21 60", "12 07 02 16 21 2a",
                               "23 02 29 16 21 20", "a2 07 02 16 21 20", "12 04 31 16 21 20"};
    for (int step = 0; step < 6000 && !HasFailure(); ++step) {
        const int which = below(3), whom = below(3) == 0 ? -1 : counters[static_cast<std::size_t>(which)].address;
        const std::string who = whom < 0 ? "*" : std::to_string(whom);
        const auto& [kind, usual, lowest, highest] = kinds[below(9)];
        const int first = below(65536), second = below(65536);
        const int settings = first % 256, sensitivity = second % 256;
        std::string text;
        switch (below(9)) {
        case 0:
            text = "counts " + who + ' ' + std::to_string(first) + ' ' + std::to_string(second);
            for (Counter& each : counters)
                if (whom < 0 || whom == each.address) each.in = first, each.out = second;
            break;
        case 1:
            text = "settings " + who + (settings & 0x80 ? " language=english" : " language=chinese") +
                   (settings & 0x40 ? " direction=in" : " direction=out") +
                   (settings & 0x20 ? " detect=no" : " detect=yes") + " period=" + std::to_string(settings % 32) +
                   ",sensitivity=" + std::to_string(sensitivity);
            for (Counter& each : counters)
                if (whom < 0 || whom == each.address) each.settings = settings, each.sensitivity = sensitivity;
            break;
        case 2: {
            const int value = highest > 0 && below(2) == 0 ? lowest + below(highest - lowest + 1) : usual;
            const int remaining = below(4);
            text = "fault " + kind + (value != usual ? '=' + std::to_string(value) : "") + ' ' + who +
                   (remaining != 0 ? ' ' + std::to_string(remaining) : "");
            faults[{kind, whom}] = {value, remaining};
            break;
        }
        case 3:
            if (below(4) != 0) break;
            text = who == "*" ? "clear" : "clear " + kind;
            std::erase_if(faults, [&](const auto& each) { return who == "*" || each.first.first == kind; });
            break;
        default: {
            const int newAddress = below(8) == 0 ? 255 : 4 * below(19) + which; // no other counter's
            const auto dated = static_cast<std::size_t>(below(12));
            const int code = std::array{0x81, 0x82, 0x87, 0x88, 0x89, 0x8A}.at(static_cast<std::size_t>(below(6)));
            // Of all at once the addresses stay, or they would speak over each other.
            const int asked = code == 0x89 && whom < 0 ? 77 : whom < 0 ? 255 : whom;
            std::string body = HexByte(asked) + ' ' + HexByte(code);
            if (code == 0x88 || code == 0x8A) body += std::string(" ") + dates.at(dated);
            if (code == 0x88) body += " 00 00 00 00 00 00 " + HexByte(sensitivity) + ' ' + HexByte(settings);
            if (code == 0x89) body += ' ' + HexByte(newAddress);
            auto frame = FrameOf(body);
            const bool spoilt = below(8) == 0;
            if (spoilt) ++*(frame.end() - 1 - below(2));
            std::string expected = !spoilt && take("echo", asked) >= 0 ? HexOf(frame) + ' ' : "";
            for (Counter& each : counters) {
                const int own = each.address;
                if (spoilt || (asked != 255 && asked != own) || take("silent", own) >= 0) continue;
                if (code < 0x83) {
                    const std::string poll = HexByte(each.in / 256) + ' ' + HexByte(each.in % 256) + ' ' +
                                             HexByte(each.out / 256) + ' ' + HexByte(each.out % 256) + " 00 00 00";
                    const std::string set = HexByte(each.sensitivity) + ' ' + HexByte(each.settings);
                    expected += spoken(each, own, each.date + ' ' + (code == 0x81 ? poll : set), true);
                    continue;
                }
                int status = take("refuse", own);
                if (status < 0) status = (code == 0x89 && newAddress == 255) || (code % 2 == 0 && dated > 2);
                if (status == 0 && code == 0x87) each.in = each.out = 0;
                if (status == 0 && code == 0x89) each.address = newAddress;
                if (status == 0 && code % 2 == 0) each.date = dates.at(dated);
                if (status == 0 && code == 0x88) each.settings = settings, each.sensitivity = sensitivity;
                expected += spoken(each, own, HexByte(status), false);
            }
            // In pieces, behind what is no request.
            const char* const garbage[] = {"", "ff 03 13", "02 02", "02 01 88 12", "02 00 00 00 03", "02 00 83 83 03"};
            line.Feed(BytesOf(garbage[below(6)]), now);
            for (const std::uint8_t byte : frame) line.Feed(std::array{byte}, now);
            const std::string heard = HexOf(line.TakeDue(now));
            EXPECT_EQ(heard.empty() ? heard : heard + ' ', expected) << "step " << step << ": " << HexOf(frame);
            line.Feed(LineBytes(19, 0xFF), now); // so that no start of a frame is left
        }
        }
        EXPECT_EQ(Control(text + (step % 2 == 0 ? "\r" : "")), text.empty() ? "" : "ok") << text;
    }
}

// 4800 baud: 2083 us a byte. A request of 5 bytes is heard after 10'415 us, and 1 ms later the reply begins.
TEST_F(LineTest, SpeaksWhenItShould) {
    const struct {
        std::string_view control;
        bool portPaces;
        std::string_view request, due; // microseconds, with the number of bytes if not one
    } rows[] = {
        {"", false, "02 00 87 87 03", "13498 15581 17664 19747 21830"},
        {"", false, "02 00 87 87 03 02 03 87 8a 03",
         "13498 15581 17664 19747 21830 24913 26996 29079 31162 33245"}, // it follows the first request, not both
        {"", true, "02 ff 87 86 03", "1000:5 12415:5 23830:5"},
        {"fault late=200 0", true, "02 00 87 87 03 02 03 87 8a 03", "1000:5 201000:5"}, // who is in time comes first
        {"fault late", true, "02 00 87 87 03", "151000:5"},
        {"fault split=120", true, "02 00 87 87 03", "1000:2 125166:3"},
        {"fault split", false, "02 00 87 87 03", "13498 15581 167664 169747 171830"},
        {"fault latency", false, "02 00 81 81 03", "16000:2 32000:7 48000:8"},
        {"fault latency=5 0", true, "02 00 87 87 03", "5000 10000:3 15000"},
        {"fault echo", false, "02 02 87 89 03", "2083 4166 6249 8332 10415"},
        {"send 02 ff 7", true, "", "0:3"},
        {"fault noise=3 *", true, "02 00 87 87 03", "1000:11"}, // before and after
        {"fault overlong=4", true, "02 00 87 87 03", "1000:9"},
        {"fault overlong", true, "02 00 87 87 03", "1000:25"},
    };
    for (const auto& row : rows) {
        now = 8s; // a multiple of the latency
        line = CCounterLine({}, now);
        line.LeavePaceToPort(row.portPaces);
        EXPECT_TRUE(row.control.empty() || Control(row.control) == "ok") << row.control;
        line.Feed(BytesOf(row.request), now);
        std::string due;
        while (const auto next = line.NextDue()) {
            EXPECT_TRUE(line.TakeDue(*next - 1us).empty());
            const std::size_t count = line.TakeDue(*next).size();
            due += std::to_string((*next - now).count()) + (count == 1 ? " " : ":" + std::to_string(count) + ' ');
        }
        EXPECT_EQ(due, std::string(row.due) + ' ') << row.control << ' ' << row.request;
    }
}

TEST_F(LineTest, CountersSpeakOverEachOtherAndThroughAPulledCable) {
    line = CCounterLine({.addresses = {3, 0, 3}}, now);
    const std::string both = Ask("02 03 87 8a 03"), all = Ask("02 ff 87 86 03");
    EXPECT_TRUE(both.size() == 14 && both != "02 03 00 03 03") << both;
    EXPECT_TRUE(all.size() == 29 && all.ends_with(" 02 00 00 00 03")) << "a turn for each address: " << all;
    Control("fault silent 3 1");
    EXPECT_EQ(Ask("02 03 87 8a 03"), "02 03 00 03 03") << "one of the two is silent";

    line.Feed(BytesOf("02 00 81 81 03"), now);
    EXPECT_EQ(line.TakeDue(now + 25ms).size(), 6U);
    line.Feed(BytesOf("02 00 87"), now);
    EXPECT_TRUE(Control("pull") == "ok" && !line.NextDue()) << "what was under way is lost";
    EXPECT_EQ(Control("send 55") + Ask("02 00 81 81 03"), "ok");
    EXPECT_EQ(Control("plug"), "ok");
    EXPECT_EQ(Ask("87 03"), "") << "the half before the pull is forgotten";
    EXPECT_EQ(Ask("02 00 87 87 03"), "02 00 00 00 03");
}

TEST_F(LineTest, ClocksRunAndPeoplePass) {
    line.Find(0, now)->SetDate({2099, 12, 31, 23, 59, 59}, now);
    EXPECT_EQ(line.Find(0, now)->Date(now + 1s), (CalendarFields{2000, 1, 1, 0, 0, 0}));
    EXPECT_EQ(line.Find(1, now)->Date(now + 24h * 366 + 999ms), (CalendarFields{2013, 7, 3, 16, 21, 20}));
    line.Find(3, now)->SetCounts({.in = 1, .out = 2, .extra = 0xFFFE, .extraByte = 0x7F});
    EXPECT_EQ(Ask("02 03 81 84 03"), "02 03 12 07 02 16 21 20 00 01 00 02 ff fe 7f f4 03");
    EXPECT_EQ(Ask("02 03 87 8a 03 02 03 81 84 03").substr(15), "02 03 12 07 02 16 21 20 00 00 00 00 00 00 7f f4 03");

    line = CCounterLine({.peoplePerMinute = 60, .seed = 7}, now);
    CCounterLine same({.peoplePerMinute = 60, .seed = 7}, now);
    for (int minute = 1; minute <= 100; ++minute)
        for (const CLineCounter& counter : line.Counters(now += 1min))
            EXPECT_GE(counter.Counts().in, counter.Counts().out) << "nobody goes out who didn't come in";
    const LineCounts counts = line.Find(1, now)->Counts();
    EXPECT_NEAR(counts.in + counts.out, 6000, 60);
    EXPECT_TRUE(counts.out > 2000 && counts != line.Find(0, now)->Counts());
    EXPECT_EQ(counts, same.Find(1, now)->Counts()) << "however often it is looked at";
    EXPECT_TRUE(Control("rate * 0") == "ok" && line.Find(1, now + 1h)->Counts() == counts);
    EXPECT_TRUE(Control("rate 1 6000") == "ok" && line.Find(1, now + 1min)->Counts().in > counts.in + 2500);
}

// "text | answer; text | answer".
template <class Check>
void ForEachRow(std::string_view rows, Check check) {
    std::istringstream stream{std::string(rows)};
    for (std::string text, answer; std::getline(stream >> std::ws, text, '|') && std::getline(stream, answer, ';');)
        check(text.substr(0, text.size() - 1), answer.substr(1));
}

TEST_F(LineTest, ControlLinesAnswer) {
    Control("settings 3 language=chinese direction=out detect=yes period=31 sensitivity=255");
    const std::string before = Control("status");
    EXPECT_TRUE(
        before.starts_with("0: 0 in 0 out, 2012-07-02 16:21:20, English IN detect NO period 4 sensitivity 21\n1"));
    EXPECT_TRUE(
        before.ends_with("3: 0 in 0 out, 2012-07-02 16:21:20, Chinese OUT detect YES period 31 sensitivity 255"));
    ForEachRow(
        "fault | no fault in \"\"; fault torm | no such fault: \"torm\"; fault refuse=0 | \"0\" is no number from 1 to "
        "255; fault silent=1 | this fault has no value: \"silent=1\"; fault torn 1 0 | \"0\" is no number from 1 to "
        "1000000; fault torn 1 2 3 | too many words in \"torn 1 2 3 \"; clear torn 1 | write clear [KIND]; counts 2 1 "
        "1 "
        "| no counter has the address 2; counts 0 1 | write counts ADDRESS|* IN OUT; counts 0 65536 1 | \"65536\" is "
        "no "
        "number from 0 to 65535; settings 0 period=32 | \"32\" is no number from 0 to 31; settings * colour=red | "
        "write "
        "settings ADDRESS|* KEY=VALUE...; send 0g | write send HEX...; send | write send HEX...; pull 1 | write pull; "
        "traffic loud | write traffic on|off; launch | no such command: \"launch\";",
        [&](const std::string& text, const std::string& error) {
            EXPECT_EQ(Control(text), "error: " + error) << text;
        });
    EXPECT_EQ(Control("status") + Control("  # a remark"), before);
    EXPECT_TRUE(RunControlLine(line, "traffic on", now).traffic == true &&
                RunControlLine(line, "traffic off", now).traffic == false && RunControlLine(line, "quit", now).quit);
}

TEST(LineOptions, AreTakenOrRefusedWithWords) {
    LineOptions options;
    std::string error;
    const LineProgram program{"line", {}};
    constexpr std::array good{"line",    "--counters", "7",      "--counters", "5,2",     "--rate",    "0",
                              "--fault", "late=20 2",  "--seed", "9",          "--pace",  "port",      "--baud",
                              "0",       "--fault",    "twice",  "--wire",     "/a file", "--traffic", "off"};
    ASSERT_TRUE(ParseLineOptions(good, program, options, error)) << error;
    EXPECT_TRUE(options.wirePath == "/a file" && options.portPaces == true && !options.showsTraffic);
    EXPECT_EQ(options.help, "");
    CCounterLine line = StartLine(options, {2020, 1, 2, 3, 4, 5}, LineTime(0));
    line.Feed(BytesOf("02 ff 87 86 03"), LineTime(0));
    EXPECT_EQ(HexOf(line.TakeDue(10ms)), "02 05 00 05 03 02 05 00 05 03");
    EXPECT_EQ(line.Find(2, 1s)->Date(1s), (CalendarFields{2020, 1, 2, 3, 4, 6}));
    ForEachRow(
        "--pace fast | port or line; --traffic 1 | on or off; --counters 0,1,2,3,4,5,6 | one to six addresses; "
        "--counters 255 | \"255\" is no number from 0 to 254; --counters , | one to six addresses; --rate -1 | "
        "\"-1\" is no number from 0 to 100000; --baud 1000001 | \"1000001\" is no number from 0 to 1000000; "
        "--fault torm | no such fault: \"torm\";",
        [&](const std::string& text, const std::string& wrong) {
            const std::string name = text.substr(0, text.find(' ')), value = text.substr(name.size() + 1);
            EXPECT_FALSE(ParseLineOptions(std::array{"line", name.c_str(), value.c_str()}, program, options, error));
            EXPECT_EQ(error, name + ": " + wrong);
        });
    EXPECT_FALSE(ParseLineOptions(std::array{"line", "--port", "COM2"}, program, options, error));
    ASSERT_TRUE(ParseLineOptions(std::array{"line", "-h"}, program, options, error));
    EXPECT_NE(options.help.find("silent        neither"), std::string::npos);
}

} // namespace
