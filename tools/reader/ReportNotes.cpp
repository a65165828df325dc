#include "reader/ReportNotes.h"

namespace {

constexpr std::size_t mostTimes = 6; // that are named

// "26 Nov 13:00–15:00; 27 Nov 09:00–28 Nov 10:00; and 3 more times"
std::string TimesText(const std::vector<HourRun>& runs, ReportLanguage language) {
    constexpr WallSeconds day = 86'400;
    std::string text;
    for (std::size_t at = 0; at < runs.size() && at < mostTimes; ++at) {
        const auto [begin, end] = runs[at];
        const bool sameDay = begin / day == (end - 1) / day;
        text += (at > 0 ? "; " : "") + DateTimeText(begin, language) + "–";
        const bool atMidnight = sameDay && end % day == 0;
        text += atMidnight ? "24:00" : sameDay ? TimeText(end) : DateTimeText(end, language);
    }
    if (runs.size() > mostTimes) {
        text += "; " + FillIn(WordsOf(language).furtherTimes, {GroupedNumber(runs.size() - mostTimes)});
    }
    return text;
}

// "no. 2: 5; no. 3: 744": counters, and the hours in which they didn't answer.
std::string SilentCountersText(const CReportFigures& figures, const ReportWords& words) {
    std::string text;
    for (const auto& [address, counter] : figures.Counters()) {
        const std::uint64_t hours = counter.hours.Count();
        if (hours == 0) continue;
        if (!text.empty()) text += "; ";
        text += FillIn(words.counterHour, {std::to_string(address), GroupedNumber(hours)});
    }
    return text;
}

} // namespace

std::vector<std::string> MissingNotes(const CReportFigures& figures, std::uint64_t unreadable,
                                      ReportLanguage language) {
    const ReportWords& words = WordsOf(language);
    std::vector<std::string> notes;
    const auto note = [&](std::string_view text, std::uint64_t count) {
        if (count > 0) notes.push_back(FillIn(text, {GroupedNumber(count)}));
    };
    const auto notePeople = [&](std::string_view text, const PeopleSum& people) {
        if (!people.IsEmpty()) notes.push_back(FillIn(text, {GroupedNumber(people.in), GroupedNumber(people.out)}));
    };
    const std::vector<HourRun> runs = figures.MissingHours();
    std::uint64_t hours = 0;
    for (const HourRun& run : runs) hours += static_cast<std::uint64_t>(run.end - run.begin) / 3600;
    if (hours > 0) notes.push_back(FillIn(words.hours, {GroupedNumber(hours), TimesText(runs, language)}));
    const std::string silent = SilentCountersText(figures, words);
    // Of a single counter the note above says it all.
    if (!silent.empty() && figures.Counters().size() > 1) notes.push_back(FillIn(words.counterHours, {silent}));
    note(words.jumps, figures.Count(StepKind::Ambiguous));
    note(words.cleared, figures.Count(StepKind::Cleared));
    notePeople(words.withoutHour, figures.WithoutHour());
    notePeople(words.withoutDay, figures.WithoutDay());
    note(words.outOfOrder, figures.OutOfOrder());
    note(words.unreadable, unreadable);
    return notes;
}
