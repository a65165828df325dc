#include "reader/ReportPage.h"

#include <algorithm>
#include <chrono>

#include "reader/BarChart.h"
#include "reader/HtmlText.h"
#include "reader/ReportNotes.h"
#include "reader/ReportStyle.h"

namespace {

constexpr std::size_t mostBars = 31, mostCounters = 12;

class CReportPage {
public:
    CReportPage(const CReportFigures& shown, ReportLanguage inLanguage)
        : figures(shown), language(inLanguage), words(WordsOf(inLanguage)), firstDay(shown.Days().begin()->first),
          lastDay(shown.Days().rbegin()->first) {}

    std::string Html(std::string_view source, std::uint64_t unreadable) {
        AppendHead();
        AppendHours();
        AppendDays();
        html += "<section class=\"pair\">";
        AppendMissing(unreadable);
        AppendCounters();
        html += "</section>\n";
        std::uint64_t readings = 0;
        for (const auto& [address, counter] : figures.Counters()) readings += counter.readings;
        html += FillIn("<footer>{0}</footer>\n", {FillIn(words.source, {HtmlText(source), GroupedNumber(readings)})});
        return html + "</body></html>\n";
    }

private:
    void AppendHead();
    void AppendHours();
    void AppendDays();
    void AppendCounters();
    void AppendMissing(std::uint64_t unreadable);
    void AppendSection(std::string_view heading, std::string_view remark, std::string_view nameHead,
                       std::span<const BarPair> pairs);
    std::size_t DayCount() const { return static_cast<std::size_t>(lastDay - firstDay + 1); }
    std::string_view PrintedSize() const;
    std::vector<BarPair> DayPairs() const;
    std::vector<BarPair> MonthPairs() const;

    const CReportFigures& figures;
    ReportLanguage language;
    const ReportWords& words;
    std::int64_t firstDay, lastDay;
    std::string html;
};

// Of the letters, so that all fits on one sheet.
std::string_view CReportPage::PrintedSize() const {
    const auto [first, last] = figures.AskedHours();
    const std::size_t lines = static_cast<std::size_t>(last - first) + std::min(DayCount(), mostBars) +
                              std::min(figures.Counters().size(), mostCounters);
    return lines <= 26 ? "15px" : lines <= 40 ? "13px" : "11px";
}

void CReportPage::AppendHead() {
    html += FillIn(
        "<!DOCTYPE html>\n<html lang=\"{0}\" style=\"--print:{2}\"><head><meta charset=\"utf-8\"><title>{1}</title>\n",
        {words.languageTag, words.title, PrintedSize()});
    html += R"(<meta name="viewport" content="width=device-width,initial-scale=1">)";
    html.append("<style>\n").append(ReportStyle()).append("</style></head>\n<body>");
    html += FillIn("<header><div><h1>{0}</h1>", {words.title});
    html += "<p class=\"period\">" + DateText(firstDay, language);
    if (lastDay != firstDay) html += " – " + DateText(lastDay, language);
    html += "</p></div>\n<dl class=\"totals\">";
    html += FillIn("<div><dt>{0}</dt><dd>{1}</dd></div>", {words.in, GroupedNumber(figures.Total().in)});
    html += FillIn("<div><dt>{0}</dt><dd>{1}</dd></div>", {words.out, GroupedNumber(figures.Total().out)});
    html += "</dl></header>\n";
}

void CReportPage::AppendSection(std::string_view heading, std::string_view remark, std::string_view nameHead,
                                std::span<const BarPair> pairs) {
    html += FillIn("<section><h2>{0}", {heading});
    if (!remark.empty()) html += FillIn("<small>{0}</small>", {remark});
    html += "</h2>\n<div class=\"pair\">" + ChartHtml(pairs, heading, words) + TableHtml(pairs, nameHead, words);
    html += "</div></section>\n";
}

void CReportPage::AppendHours() {
    const auto [first, last] = figures.AskedHours();
    std::vector<BarPair> pairs;
    for (int hour = first; hour <= last; ++hour) {
        const std::string name = TimeText(hour * 3600LL);
        pairs.push_back({std::to_string(hour), name, figures.Hours().at(static_cast<std::size_t>(hour))});
    }
    const std::size_t dayCount = figures.Days().size();
    AppendSection(words.byHour, dayCount > 1 ? FillIn(words.ofAllDays, {GroupedNumber(dayCount)}) : "", words.hour,
                  pairs);
}

std::vector<BarPair> CReportPage::DayPairs() const {
    std::vector<BarPair> pairs;
    // Days without readings too: a gap is to be seen.
    for (std::int64_t day = firstDay; day <= lastDay; ++day) {
        const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(day))};
        const auto people = figures.Days().find(day);
        pairs.push_back({std::to_string(static_cast<unsigned>(date.day())), ShortDateText(day, language),
                         people == figures.Days().end() ? PeopleSum{} : people->second});
    }
    return pairs;
}

std::vector<BarPair> CReportPage::MonthPairs() const {
    std::vector<BarPair> pairs;
    for (const auto& [day, people] : figures.Days()) {
        const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(day))};
        const std::string name = MonthText(day, language);
        if (pairs.empty() || pairs.back().name != name) {
            pairs.push_back({std::to_string(static_cast<unsigned>(date.month())), name, {}});
        }
        pairs.back().people.in += people.in;
        pairs.back().people.out += people.out;
    }
    return pairs;
}

void CReportPage::AppendDays() {
    const bool byDay = DayCount() <= mostBars;
    const std::vector<BarPair> all = byDay ? DayPairs() : MonthPairs();
    const std::size_t left = all.size() > mostBars ? all.size() - mostBars : 0;
    const std::string remark = left > 0 ? FillIn(words.furtherRows, {GroupedNumber(left)}) : "";
    AppendSection(byDay ? words.byDay : words.byMonth, remark, byDay ? words.day : words.month,
                  std::span(all).subspan(left));
}

void CReportPage::AppendMissing(std::uint64_t unreadable) {
    html += FillIn("<div><h2>{0}</h2><ul class=\"missing\">", {words.missing});
    const std::vector<std::string> notes = MissingNotes(figures, unreadable, language);
    for (const std::string& note : notes) html += "<li>" + note + "</li>\n";
    if (notes.empty()) html += FillIn("<li>{0}</li>", {words.nothingMissing});
    html += "</ul></div>\n";
}

void CReportPage::AppendCounters() {
    html += FillIn("<div><h2>{0}</h2>\n<table><thead><tr><th scope=\"col\">{1}</th>", {words.counters, words.counter});
    for (const std::string_view head : {words.in, words.out, words.answered}) {
        html += FillIn(R"(<th scope="col">{0}</th>)", {head});
    }
    html += "</tr></thead><tbody>\n";
    std::size_t shown = 0;
    for (const auto& [address, counter] : figures.Counters()) {
        if (++shown > mostCounters) break;
        html += FillIn(R"(<tr><th scope="row">{0}</th><td>{1}</td>)",
                       {std::to_string(address), GroupedNumber(counter.people.In())});
        html += FillIn("<td>{0}</td><td>{1}</td></tr>\n",
                       {GroupedNumber(counter.people.Out()), ShareText(counter.answered, counter.readings)});
    }
    html += "</tbody></table>";
    if (const std::size_t all = figures.Counters().size(); all > mostCounters) {
        html += FillIn("<p>{0}</p>", {FillIn(words.furtherRows, {GroupedNumber(all - mostCounters)})});
    }
    html += "</div>\n";
}

} // namespace

std::string ReportPage(const CReportFigures& figures, std::string_view source, std::uint64_t unreadable,
                       ReportLanguage language) {
    return CReportPage(figures, language).Html(source, unreadable);
}
