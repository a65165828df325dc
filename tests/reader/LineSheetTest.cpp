// People between two readings, and what is said of a line.
#include "reader/LineSheet.h"

#include <gtest/gtest.h>

#include "framework/Time.h"
#include "reader/LineVerdict.h"
#include "reader/LocalTimeline.h"
#include "reader/SheetText.h"

namespace {

TEST(CountSteps, TellWrappedFromClearedAsFarAsTheCountsAllow) {
    using enum StepKind;
    const struct {
        CountPair before, after;
        bool cleared;
        CountStep step;
    } cases[] = {
        {{10, 20}, {10, 25}, false, {{0, 5}, Plain}},
        {{0, 0}, {49151, 0}, false, {{49151, 0}, Plain}},
        {{0, 0}, {49152, 0}, false, {{0, 0}, Ambiguous}}, // another counter
        {{65535, 20}, {0, 20}, false, {{1, 0}, Wrapped}},
        {{20, 49152}, {30, 16383}, false, {{10, 32767}, Wrapped}},
        {{20, 49151}, {30, 16383}, false, {{0, 0}, Ambiguous}},
        {{20, 65535}, {30, 16384}, false, {{0, 0}, Ambiguous}},
        {{500, 400}, {3, 0}, false, {{3, 0}, Cleared}},
        {{65000, 400}, {3, 1}, false, {{3, 1}, Cleared}},
        {{65000, 64000}, {3, 1}, false, {{0, 0}, Ambiguous}}, // wrapped both, or cleared
        {{500, 0}, {3, 2}, false, {{3, 2}, Cleared}},
        {{500, 1}, {3, 2}, false, {{0, 0}, Ambiguous}},
        {{40000, 40000}, {30000, 30000}, false, {{0, 0}, Ambiguous}},
        {{1, 1}, {40000, 2}, true, {{40000, 2}, Cleared}},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(StepBetween(each.before, each.after, each.cleared), each.step)
            << each.before.in << ' ' << each.before.out;
        const auto turned = [](CountPair pair) { return CountPair{pair.out, pair.in}; };
        EXPECT_EQ(StepBetween(turned(each.before), turned(each.after), each.cleared),
                  (CountStep{turned(each.step.people), each.step.kind}));
    }
}

LineTrace TraceOf(std::int32_t address, Answer answer, std::int64_t second, std::int32_t count, std::int64_t ahead) {
    LineTrace trace{.time = {second * 1'000'000, 0}, .address = address, .latency = {}, .judgement = {}};
    trace.time.offset = SystemZoneOffset(second);
    trace.judgement.answer = answer;
    if (answer == Answer::Whole) {
        const auto clock = static_cast<std::uint32_t>(second + ahead);
        trace.judgement.record = CounterRecord{.deviceTime = clock, .address = address, .inCount = count};
    }
    return trace;
}

TEST(LineSheet, SaysOnOnePageWhatThereIs) {
    CLineSheet sheet;
    const std::int64_t start = CTime(CalendarFields{2026, 11, 26, 10, 0, 0}).GetTime();
    for (int round = 0; round < 10; ++round) {
        LineTrace trace = TraceOf(0, Answer::Whole, start + round, 65530 + round, 3 + round / 5);
        trace.latency = std::array{5, 600, 6, 7, 8, 9, 10, 11, 12, 13}.at(static_cast<std::size_t>(round));
        if (round > 5) trace.judgement.record->inCount -= 65536;
        sheet.Take(trace);
        sheet.Take(TraceOf(5, Answer::Silent, start + round, 0, 0));
    }
    LineTrace trace = TraceOf(0, Answer::Whole, start + 10, 0, 0);
    trace.request = RequestCode::ReadSettings;
    trace.judgement.record->sensitivity = 21;
    trace.judgement.hasEcho = true;
    sheet.Take(trace);
    trace.judgement = {.answer = Answer::Spoilt, .record = {}, .strayBytes = 7, .spoiltRecords = 1, .others = {}};
    trace.address = 3;
    trace.request = RequestCode::Poll;
    sheet.Take(trace);
    sheet.Take(TraceOf(5, Answer::NotAsked, start + 60, 0, 0));
    EXPECT_EQ(SheetText(sheet, "COM3"), R"(Counter line: COM3
2026-11-26 10:00:00 to 2026-11-26 10:01:00, 22 requests

                           Latency, ms        Spoilt  Stray
Address    Asked  Answered   min   med   max  records  bytes        Clock     Change
      0       10   100.0 %     5     9   600        0      0         +4 s       +1 s
      3        1     0.0 %     -     -     -        1      7            -          -
      5       10     0.0 %     -     -     -        0      0            -          -

People between the first reading and the last
      0  9 in, 0 out

Settings
      0  sensitivity 21, language en, direction in, SD detect yes, SD period 0

Line
  Echo of what is sent        1 of 22 requests
  Bytes that belong to nobody 1 of 22 requests
  Two counters on one address none
  Answers of others           none
  Port away                   1 of 23 requests

Verdict
  1. The port was away at times. Look first at the plug and driver of the serial
     adapter.
  2. Address 3: mostly spoilt answers. Look whether two counters have the
     address, then at the plug and cable there.
  3. What is sent comes back too. Counts are not affected; look whether the
     adapter's echo can be switched off.
  4. Address 5: silent. If a counter should be there, look at its power and its
     address.
)");
}

TEST(LineVerdict, BeginsWithWhatToLookAtFirst) {
    const LineTrace sound = TraceOf(1, Answer::Whole, 1'000'000'000, 5, 0),
                    silent = TraceOf(2, Answer::Silent, 0, 0, 0);
    LineTrace noise = TraceOf(2, Answer::Spoilt, 0, 0, 0), echo = silent,
              doubled = TraceOf(3, Answer::Doubled, 0, 0, 0);
    noise.judgement.strayBytes = 3;
    echo.judgement.hasEcho = true;
    LineTrace disturbed = sound, slow = sound, off = TraceOf(1, Answer::Whole, 1'000'000'000, 5, -61), untimely = sound;
    disturbed.judgement.strayBytes = 1;
    slow.latency = 90;
    untimely.judgement.others = {2};
    const std::pair<std::vector<LineTrace>, const char*> cases[] = {
        {{}, "Nothing was asked"},
        {{TraceOf(1, Answer::NotAsked, 0, 0, 0)}, "Nothing was asked"},
        {{silent}, "No counter answers. Look first at the counters' power"},
        {{silent, noise}, "Bytes come, but no record is whole. Look first at the port's speed"},
        {{echo}, "No counter answers; only what is sent"},
        {{sound, silent}, "The line is sound."},
        {{doubled, noise, sound}, "Address 3: two counters on it."},
        {{sound, noise}, "Address 2: mostly spoilt"},
        {{sound, TraceOf(1, Answer::Silent, 0, 0, 0)}, "Address 1: some polls without an answer"},
        {{disturbed, TraceOf(2, Answer::Whole, 0, 0, 0)}, "Address 1: bytes that belong to nobody"},
        {{slow}, "Address 1: late answers"},
        {{off}, "Address 1: a clock"},
        {{untimely}, "Some answers come after their time"}};
    for (const auto& [traces, begin] : cases) {
        CLineSheet sheet;
        for (const LineTrace& each : traces) sheet.Take(each);
        EXPECT_EQ(JudgeLine(sheet).front().substr(0, std::string_view(begin).size()), begin);
    }
    CLineSheet rarely;
    for (int round = 0; round < 200; ++round) rarely.Take(sound);
    rarely.Take(TraceOf(1, Answer::Silent, 0, 0, 0));
    EXPECT_EQ(JudgeLine(rarely).front(), "The line is sound.");
}

} // namespace
