#include "reader/SheetText.h"

#include "reader/LineVerdict.h"
#include "reader/ReadingText.h"

namespace {

constexpr std::size_t paperWidth = 80;

std::string RightAligned(std::string_view text, std::size_t width) {
    return std::string(text.size() < width ? width - text.size() : 0, ' ').append(text);
}
std::string RightAligned(std::uint64_t value, std::size_t width) {
    return RightAligned(std::to_string(value), width);
}

std::string SignedSeconds(std::int64_t seconds) {
    std::string text(seconds >= 0 ? 1 : 0, '+');
    return text.append(std::to_string(seconds)).append(" s");
}

std::string LatencyText(const CLatencyHistogram& latencies) {
    std::string text;
    for (const std::int32_t each : {latencies.Least(), latencies.Median(), latencies.Greatest()}) {
        text += RightAligned(latencies.IsEmpty() ? "-" : std::to_string(each), 6);
    }
    return text;
}

void AppendCounter(std::string& text, int address, const AddressFigures& figures) {
    if (figures.Asked() + figures.Count(Answer::NotAsked) == 0) return;
    text += RightAligned(static_cast<std::uint64_t>(address), 7) + RightAligned(figures.Asked(), 9);
    text += RightAligned(ShareText(figures.Count(Answer::Whole), figures.Asked()), 10);
    text += LatencyText(figures.latencies) + RightAligned(figures.spoiltRecords, 9);
    text += RightAligned(figures.strayBytes, 7);
    text += RightAligned(figures.drift ? SignedSeconds(figures.drift->last) : "-", 13);
    text += RightAligned(figures.drift ? SignedSeconds(figures.drift->Change()) : "-", 11) + '\n';
}

void AppendCounters(std::string& text, const CLineSheet& sheet) {
    text += "                           Latency, ms        Spoilt  Stray\n"
            "Address    Asked  Answered   min   med   max  records  bytes        Clock     Change\n";
    int address = 0;
    for (const AddressFigures& each : sheet.Addresses()) AppendCounter(text, address++, each);
}

void AppendPeople(std::string& text, const CLineSheet& sheet) {
    std::string lines;
    for (int address = 0; address < counterCount; ++address) {
        const CPeopleTally& people = sheet.Addresses().at(static_cast<std::size_t>(address)).people;
        const std::uint64_t ambiguous = people.Count(StepKind::Ambiguous);
        const std::uint64_t cleared = people.Count(StepKind::Cleared);
        if (people.Count(StepKind::Plain) + people.Count(StepKind::Wrapped) + cleared + ambiguous == 0) continue;
        lines += RightAligned(static_cast<std::uint64_t>(address), 7) + "  " + std::to_string(people.In()) + " in, " +
                 std::to_string(people.Out()) + " out";
        if (cleared > 0) lines += ", cleared: " + std::to_string(cleared);
        if (ambiguous > 0) lines += ", jumps not counted: " + std::to_string(ambiguous);
        lines += '\n';
    }
    if (!lines.empty()) text += "\nPeople between the first reading and the last\n" + lines;
}

void AppendSettings(std::string& text, const CLineSheet& sheet) {
    std::string lines;
    for (int address = 0; address < counterCount; ++address) {
        const auto& settings = sheet.Addresses().at(static_cast<std::size_t>(address)).settings;
        if (!settings) continue;
        const SettingsWords words = WordsOfSettings(*settings);
        lines.append(RightAligned(static_cast<std::uint64_t>(address), 7)).append("  sensitivity ");
        lines.append(words.sensitivity).append(", language ").append(words.language).append(", direction ");
        lines.append(words.direction).append(", SD detect ").append(words.sdDetect).append(", SD period ");
        lines.append(words.sdPeriod).append("\n");
    }
    if (!lines.empty()) text += "\nSettings\n" + lines;
}

std::string Of(std::uint64_t part, std::uint64_t whole) {
    return part == 0 ? "none" : std::to_string(part) + " of " + std::to_string(whole) + " requests";
}

void AppendLine(std::string& text, const CLineSheet& sheet) {
    std::uint64_t away = 0, disturbed = 0, doubled = 0;
    for (const AddressFigures& each : sheet.Addresses()) {
        away += each.Count(Answer::NotAsked);
        disturbed += each.disturbed;
        doubled += each.doubled;
    }
    text += "\nLine\n";
    text += "  Echo of what is sent        " + Of(sheet.Echoes(), sheet.Requests()) + '\n';
    text += "  Bytes that belong to nobody " + Of(disturbed, sheet.Requests()) + '\n';
    text += "  Two counters on one address " + Of(doubled, sheet.Requests()) + '\n';
    text += "  Answers of others           " + Of(sheet.Untimely(), sheet.Requests()) + '\n';
    text += "  Port away                   " + Of(away, sheet.Requests() + away) + '\n';
}

// The sentence under its number, broken between words.
void AppendWrapped(std::string& text, const std::string& sentence, std::size_t number) {
    std::string line = RightAligned(number, 3) + ".";
    for (std::size_t at = 0; at < sentence.size();) {
        const std::size_t end = std::min(sentence.find(' ', at), sentence.size());
        if (line.size() + 1 + end - at > paperWidth) {
            text += line + '\n';
            line.assign(4, ' ');
        }
        line += ' ' + sentence.substr(at, end - at);
        at = end + 1;
    }
    text += line + '\n';
}

} // namespace

std::string SheetText(const CLineSheet& sheet, std::string_view source) {
    std::string text = "Counter line: " + std::string(source) + '\n';
    if (sheet.Begin()) {
        text += WallText(WallOf(*sheet.Begin()), ' ') + " to " + WallText(WallOf(*sheet.End()), ' ') + ", " +
                std::to_string(sheet.Requests()) + " requests\n\n";
        AppendCounters(text, sheet);
        AppendPeople(text, sheet);
        AppendSettings(text, sheet);
        AppendLine(text, sheet);
    }
    text += "\nVerdict\n";
    std::size_t number = 0;
    for (const std::string& each : JudgeLine(sheet)) AppendWrapped(text, each, ++number);
    return text;
}
