// Control lines: a table of commands, each with its words.
#include "line/LineControl.h"

#include <array>
#include <charconv>
#include <cstdio>
#include <span>
#include <vector>

#include "line/LineWords.h"

namespace {

using Words = std::span<const std::string_view>;

constexpr std::string_view done = "ok";
constexpr std::string_view badWords; // the answer then is how the command is written

struct Command {
    std::string_view name;
    std::string_view words; // what follows the name
    std::string_view description;
    std::string (*run)(CCounterLine& line, Words words, LineTime now);
};

std::string Fail(const std::string& what) {
    return "error: " + what;
}

// All counters for "*", those at an address for that; for anything else none, and an `error`.
std::vector<CLineCounter*> CountersNamed(CCounterLine& line, std::string_view word, LineTime now, std::string& error) {
    std::vector<CLineCounter*> named;
    const bool all = word == "*";
    const auto address = all ? 0 : ParseLineNumber(word, 0, highestLineAddress, error);
    if (!address) return named;
    for (CLineCounter& counter : line.Counters(now)) {
        if (all || counter.Address() == *address) named.push_back(&counter);
    }
    if (named.empty()) error = "no counter has the address " + std::string(word);
    return named;
}

std::string RunFault(CCounterLine& line, Words words, LineTime /*now*/) {
    std::string text;
    for (const std::string_view word : words) text.append(word).append(" ");
    std::string error;
    const auto fault = ParseLineFault(text, error);
    if (!fault) return Fail(error);
    line.Faults().Add(*fault);
    return std::string(done);
}

std::string RunClear(CCounterLine& line, Words words, LineTime /*now*/) {
    if (words.empty()) {
        line.Faults().Clear();
        return std::string(done);
    }
    const auto kind = LineFaultKindOf(words[0]);
    if (!kind || words.size() > 1) return std::string(badWords);
    line.Faults().Clear(*kind);
    return std::string(done);
}

std::string RunCounts(CCounterLine& line, Words words, LineTime now) {
    if (words.size() != 3) return std::string(badWords);
    std::string error;
    const auto in = ParseLineNumber(words[1], 0, 65535, error);
    const auto out = ParseLineNumber(words[2], 0, 65535, error);
    const auto named = CountersNamed(line, words[0], now, error);
    if (named.empty() || !in || !out) return Fail(error);
    for (CLineCounter* counter : named) {
        LineCounts counts = counter->Counts();
        counts.in = static_cast<std::uint16_t>(*in);
        counts.out = static_cast<std::uint16_t>(*out);
        counter->SetCounts(counts);
    }
    return std::string(done);
}

std::string RunRate(CCounterLine& line, Words words, LineTime now) {
    if (words.size() != 2) return std::string(badWords);
    std::string error;
    const auto rate = ParseLineNumber(words[1], 0, highestLineRate, error);
    const auto named = CountersNamed(line, words[0], now, error);
    if (named.empty() || !rate) return Fail(error);
    for (CLineCounter* counter : named) counter->SetRate(*rate, now);
    return std::string(done);
}

// False if the word is no setting, or the value isn't allowed, which `error` then says.
bool ChangeSetting(LineSettings& settings, std::string_view word, std::string& error) {
    struct Choice {
        std::string_view word;
        bool LineSettings::*flag;
        bool value;
    };
    constexpr std::array<Choice, 6> choices{{{"language=english", &LineSettings::english, true},
                                             {"language=chinese", &LineSettings::english, false},
                                             {"direction=in", &LineSettings::countsIn, true},
                                             {"direction=out", &LineSettings::countsIn, false},
                                             {"detect=yes", &LineSettings::sdDetect, true},
                                             {"detect=no", &LineSettings::sdDetect, false}}};
    for (const Choice& choice : choices) {
        if (word == choice.word) {
            settings.*choice.flag = choice.value;
            return true;
        }
    }
    const auto change = [word, &error](std::string_view key, int highest, std::uint8_t& target) {
        if (!word.starts_with(key)) return false;
        const auto value = ParseLineNumber(word.substr(key.size()), 0, highest, error);
        if (value) target = static_cast<std::uint8_t>(*value);
        return value.has_value();
    };
    return change("period=", 31, settings.sdPeriod) || change("sensitivity=", 255, settings.sensitivity);
}

std::string RunSettings(CCounterLine& line, Words words, LineTime now) {
    if (words.size() < 2) return std::string(badWords);
    std::string error;
    const auto named = CountersNamed(line, words[0], now, error);
    if (named.empty()) return Fail(error);
    for (CLineCounter* counter : named) {
        LineSettings settings = counter->Settings();
        for (const std::string_view word : words.subspan(1)) {
            if (!ChangeSetting(settings, word, error)) return error.empty() ? std::string(badWords) : Fail(error);
        }
        counter->SetSettings(settings);
    }
    return std::string(done);
}

std::string RunPlug(CCounterLine& line, bool plugged, Words words) {
    if (!words.empty()) return std::string(badWords);
    line.SetPlugged(plugged);
    return std::string(done);
}

std::string RunSend(CCounterLine& line, Words words, LineTime now) {
    LineBytes bytes;
    for (const std::string_view word : words) {
        unsigned byte = 0;
        const auto [stop, error] = std::from_chars(word.data(), word.data() + word.size(), byte, 16);
        if (error != std::errc() || stop != word.data() + word.size() || byte > 0xFF) return std::string(badWords);
        bytes.push_back(static_cast<std::uint8_t>(byte));
    }
    if (bytes.empty()) return std::string(badWords);
    line.Send(std::move(bytes), now);
    return std::string(done);
}

std::string RunHelp(CCounterLine& /*line*/, Words /*words*/, LineTime /*now*/) {
    return DescribeControlLines() + "Faults, each with its usual value:\n" + DescribeLineFaults();
}

// For what isn't the line's: it is carried out before, unless its words are wrong.
std::string RunNothing(CCounterLine& /*line*/, Words /*words*/, LineTime /*now*/) {
    return std::string(badWords);
}

constexpr std::array<Command, 12> commands{{
    {"fault", "KIND[=VALUE] [ADDRESS|*] [COUNT]", "a fault for one or all, for the next COUNT replies or for ever",
     RunFault},
    {"clear", "[KIND]", "ends all faults, or those of a kind", RunClear},
    {"counts", "ADDRESS|* IN OUT", "sets the counts", RunCounts},
    {"rate", "ADDRESS|* N", "people per minute from now on", RunRate},
    {"settings", "ADDRESS|* KEY=VALUE...",
     "language=english|chinese direction=in|out detect=yes|no period=0..31 sensitivity=0..255", RunSettings},
    {"send", "HEX...", "speaks these bytes at once", RunSend},
    {"pull", "", "pulls the cable",
     [](CCounterLine& line, Words words, LineTime /*now*/) { return RunPlug(line, false, words); }},
    {"plug", "", "plugs it in again",
     [](CCounterLine& line, Words words, LineTime /*now*/) { return RunPlug(line, true, words); }},
    {"status", "", "shows the counters",
     [](CCounterLine& line, Words /*words*/, LineTime now) { return DescribeCounters(line, now); }},
    {"traffic", "on|off", "shows what passes on the line, or doesn't", RunNothing},
    {"help", "", "shows this", RunHelp},
    {"quit", "", "ends the program", RunNothing},
}};

std::string Usage(const Command& command) {
    std::string text(command.name);
    if (!command.words.empty()) text.append(" ").append(command.words);
    return text;
}

} // namespace

ControlAnswer RunControlLine(CCounterLine& line, std::string_view text, LineTime now) {
    const auto words = SplitLineWords(text);
    if (words.empty() || words[0].starts_with('#')) return {};
    if (words[0] == "quit") return {.text = std::string(done), .quit = true};
    if (words[0] == "traffic" && words.size() == 2 && (words[1] == "on" || words[1] == "off")) {
        return {.text = std::string(done), .traffic = words[1] == "on"};
    }
    for (const Command& command : commands) {
        if (words[0] != command.name) continue;
        std::string answer = command.run(line, Words(words).subspan(1), now);
        if (answer.empty()) answer = Fail("write " + Usage(command));
        return {std::move(answer)};
    }
    return {Fail("no such command: \"" + std::string(words[0]) + "\"")};
}

std::string DescribeControlLines() {
    std::string text;
    for (const Command& command : commands) {
        text.append("  ").append(Usage(command)).append("\n      ").append(command.description).append("\n");
    }
    return text;
}

std::string DescribeCounters(CCounterLine& line, LineTime now) {
    std::string text;
    for (const CLineCounter& counter : line.Counters(now)) {
        const CalendarFields date = counter.Date(now);
        const LineSettings& settings = counter.Settings();
        std::array<char, 160> row{};
        std::snprintf(row.data(), row.size(),
                      "%s%d: %d in %d out, %04d-%02d-%02d %02d:%02d:%02d, %s %s detect %s period %d sensitivity %d",
                      text.empty() ? "" : "\n", counter.Address(), counter.Counts().in, counter.Counts().out, date.year,
                      date.month, date.day, date.hour, date.minute, date.second,
                      settings.english ? "English" : "Chinese", settings.countsIn ? "IN" : "OUT",
                      settings.sdDetect ? "YES" : "NO", settings.sdPeriod, settings.sensitivity);
        text += row.data();
    }
    return text;
}
