#include "reader/ReportWords.h"

#include <array>
#include <chrono>

namespace {

constexpr ReportWords englishWords{
    .languageTag = "en",
    .title = "People in and out",
    .in = "In",
    .out = "Out",
    .total = "Total",
    .byHour = "By hour",
    .ofAllDays = "{0} days together",
    .byDay = "By day",
    .byMonth = "By month",
    .hour = "Hour",
    .day = "Day",
    .month = "Month",
    .counters = "Counters",
    .counter = "Counter",
    .answered = "Answered",
    .chart = "{0}: bars of the people in and out. The table beside them has the numbers.",
    .missing = "What is missing",
    .nothingMissing = "Nothing: every counter answered in every hour, and every step could be counted.",
    .counterHours = "Hours without an answer by counter: {0}.",
    .counterHour = "no. {0}: {1}",
    .hours = "Hours in which no counter answered: {0} ({1}).",
    .furtherTimes = "and {0} more times",
    .furtherRows = "{0} more, not shown",
    .jumps = "Jumps of a count that may be a clearing, another counter or a long pause: {0}. They are not counted.",
    .cleared = "Counters cleared: {0}. Who passed after the last reading before a clearing is not counted.",
    .withoutHour = "Passed in pauses of more than an hour: {0} in, {1} out. They are in the totals, but in no hour.",
    .withoutDay = "Passed in pauses of more than a day: {0} in, {1} out. They are in the totals, but in no day.",
    .outOfOrder = "Readings older than the one before: {0}. Counting begins anew there.",
    .unreadable = "Rows that are no readings, and were left out: {0}.",
    .source = "From {0}, {1} readings.",
};

constexpr ReportWords chineseWords{
    .languageTag = "zh-CN",
    .title = "进出人数",
    .in = "进",
    .out = "出",
    .total = "合计",
    .byHour = "按小时",
    .ofAllDays = "{0} 天合计",
    .byDay = "按天",
    .byMonth = "按月",
    .hour = "时间",
    .day = "日期",
    .month = "月份",
    .counters = "计数器",
    .counter = "地址",
    .answered = "应答",
    .chart = "{0}：进出人数柱形图。旁边的表格列出数字。",
    .missing = "缺少的数据",
    .nothingMissing = "无：每个计数器每小时都有应答，全部变化均已计入。",
    .counterHours = "各计数器没有应答的小时数：{0}。",
    .counterHour = "{0} 号：{1}",
    .hours = "没有计数器应答的小时数：{0}（{1}）。",
    .furtherTimes = "另有 {0} 段",
    .furtherRows = "另有 {0} 行未显示",
    .jumps = "无法判断的计数跳变（可能是清零、更换计数器或长时间停顿）：{0} 次，未计入。",
    .cleared = "计数器清零：{0} 次。清零前最后一次读数之后通过的人未计入。",
    .withoutHour = "在超过一小时的停顿中通过：进 {0}，出 {1}。计入合计，但不计入任何小时。",
    .withoutDay = "在超过一天的停顿中通过：进 {0}，出 {1}。计入合计，但不计入任何一天。",
    .outOfOrder = "早于前一行的读数：{0} 个。从该处重新开始计算。",
    .unreadable = "不是读数而被略过的行：{0}。",
    .source = "来源：{0}，{1} 个读数。",
};

constexpr std::array<std::string_view, 12> englishMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                         "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::array<std::string_view, 7> englishWeekdays{"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
constexpr std::array<std::string_view, 7> chineseWeekdays{"日", "一", "二", "三", "四", "五", "六"};

struct DateWords {
    std::string year, day, monthNumber;
    std::string_view month, weekday;
};

DateWords DateWordsOf(std::int64_t day, ReportLanguage language) {
    const std::chrono::sys_days moment{std::chrono::days(day)};
    const std::chrono::year_month_day date(moment);
    const auto month = static_cast<unsigned>(date.month());
    const unsigned weekday = std::chrono::weekday(moment).c_encoding();
    return {std::to_string(static_cast<int>(date.year())), std::to_string(static_cast<unsigned>(date.day())),
            std::to_string(month), englishMonths.at(month - 1),
            (language == ReportLanguage::English ? englishWeekdays : chineseWeekdays).at(weekday)};
}

std::int64_t DayOfWall(WallSeconds wall) {
    return std::chrono::floor<std::chrono::days>(std::chrono::seconds(wall)).count();
}

} // namespace

const ReportWords& WordsOf(ReportLanguage language) {
    return language == ReportLanguage::English ? englishWords : chineseWords;
}

std::string FillIn(std::string_view text, std::initializer_list<std::string_view> values) {
    std::string filled;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isPlace = text[at] == '{' && at + 2 < text.size() && text[at + 2] == '}';
        if (isPlace)
            filled += *(values.begin() + (text[at + 1] - '0'));
        else
            filled += text[at];
        if (isPlace) at += 2;
    }
    return filled;
}

std::string GroupedNumber(std::uint64_t value) {
    std::string text = std::to_string(value);
    for (std::size_t at = text.size(); at > 3;) text.insert(at -= 3, 1, ',');
    return text;
}

std::string DateText(std::int64_t day, ReportLanguage language) {
    const DateWords words = DateWordsOf(day, language);
    return language == ReportLanguage::English ? ShortDateText(day, language) + ' ' + words.year
                                               : words.year + "年" + ShortDateText(day, language);
}

std::string ShortDateText(std::int64_t day, ReportLanguage language) {
    const DateWords words = DateWordsOf(day, language);
    if (language == ReportLanguage::English) return FillIn("{0} {1} {2}", {words.weekday, words.day, words.month});
    return FillIn("{0}月{1}日 周{2}", {words.monthNumber, words.day, words.weekday});
}

std::string MonthText(std::int64_t day, ReportLanguage language) {
    const DateWords words = DateWordsOf(day, language);
    if (language == ReportLanguage::English) return FillIn("{0} {1}", {words.month, words.year});
    return FillIn("{0}年{1}月", {words.year, words.monthNumber});
}

std::string DateTimeText(WallSeconds wall, ReportLanguage language) {
    const DateWords words = DateWordsOf(DayOfWall(wall), language);
    const std::string time = TimeText(wall);
    if (language == ReportLanguage::English) return FillIn("{0} {1} {2}", {words.day, words.month, time});
    return FillIn("{0}月{1}日 {2}", {words.monthNumber, words.day, time});
}

std::string TimeText(WallSeconds wall) {
    return WallText(wall).substr(11, 5);
}
