#include "reader/ReadingRow.h"

#include <algorithm>
#include <charconv>
#include <chrono>

#include "reader/ReadingText.h"

namespace {

constexpr std::array<std::string_view, 5> neededColumns{"time", "address", "in", "out", "answer"};
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF"; // spreadsheets begin a file with it

// A decimal number of digits alone.
std::optional<std::int32_t> NumberOf(std::string_view digits, std::int32_t highest) {
    std::int32_t value = 0;
    const char* const end = digits.data() + digits.size();
    const auto [stop, failed] = std::from_chars(digits.data(), end, value);
    if (failed != std::errc() || stop != end || value < 0 || value > highest) return std::nullopt;
    return value;
}

// Takes figures and separators from the front of a text, and remembers whether all was as it should be.
class CTextReader {
public:
    explicit CTextReader(std::string_view unread) : text(unread) {}

    std::int32_t Number(std::size_t digits, std::int32_t highest) {
        const auto value = text.size() < digits ? std::nullopt : NumberOf(text.substr(0, digits), highest);
        isGood = isGood && value;
        text.remove_prefix(std::min(digits, text.size()));
        return value.value_or(0);
    }
    // The one of `choices` that comes next; 0 if none does.
    char Sign(std::string_view choices) {
        const char next = text.empty() ? '\0' : text.front();
        isGood = isGood && next != '\0' && choices.find(next) != std::string_view::npos;
        text.remove_prefix(text.empty() ? 0 : 1);
        return isGood ? next : '\0';
    }
    // Millionths behind a point, if there is one.
    std::int64_t Fraction() {
        if (!text.starts_with('.')) return 0;
        text.remove_prefix(1);
        std::int64_t value = 0, unit = 100'000;
        for (; !text.empty() && text.front() >= '0' && text.front() <= '9'; text.remove_prefix(1), unit /= 10) {
            value += unit * (text.front() - '0');
        }
        return value;
    }
    bool IsGoodToTheEnd() const { return isGood && text.empty(); }
    bool IsGood() const { return isGood; }

private:
    std::string_view text;
    bool isGood = true;
};

std::int32_t OffsetOf(CTextReader& reader) {
    const char sign = reader.Sign("+-Z");
    if (sign == 'Z' || sign == '\0') return 0;
    const std::int32_t hours = reader.Number(2, 14);
    reader.Sign(":");
    const std::int32_t offset = hours * 3600 + reader.Number(2, 59) * 60;
    return sign == '-' ? -offset : offset;
}

} // namespace

std::optional<Moment> MomentOfText(std::string_view text) {
    CTextReader reader(text);
    const std::chrono::year year(reader.Number(4, 9999));
    reader.Sign("-");
    const std::chrono::month month(static_cast<unsigned>(reader.Number(2, 12)));
    reader.Sign("-");
    const std::chrono::year_month_day date(year, month, std::chrono::day(static_cast<unsigned>(reader.Number(2, 31))));
    reader.Sign("T ");
    const std::chrono::hours hours(reader.Number(2, 23));
    reader.Sign(":");
    const std::chrono::minutes minutes(reader.Number(2, 59));
    reader.Sign(":");
    const std::chrono::seconds seconds(reader.Number(2, 59));
    const std::int64_t fraction = reader.Fraction();
    const std::int32_t offset = OffsetOf(reader);
    if (!reader.IsGoodToTheEnd() || !date.ok()) return std::nullopt;
    const auto wall = std::chrono::sys_seconds(std::chrono::sys_days(date)) + hours + minutes + seconds;
    return Moment{(wall.time_since_epoch().count() - offset) * 1'000'000 + fraction, offset};
}

bool CReadingColumns::TakeHeader(std::span<const std::string> fields) {
    std::array<std::size_t, neededColumns.size()> found{};
    for (std::size_t column = 0; column < found.size(); ++column) {
        const auto place = std::ranges::find_if(fields, [&](std::string_view field) {
            if (field.starts_with(byteOrderMark)) field.remove_prefix(byteOrderMark.size());
            return field == neededColumns.at(column);
        });
        if (place == fields.end()) return false;
        found.at(column) = static_cast<std::size_t>(place - fields.begin());
    }
    places = found;
    known = true;
    return true;
}

std::optional<ReadingRow> CReadingColumns::RowOf(std::span<const std::string> fields) const {
    if (!known || std::ranges::max(places) >= fields.size()) return std::nullopt;
    const auto field = [&](std::size_t column) -> std::string_view { return fields[places.at(column)]; };
    const auto time = MomentOfText(field(0));
    const auto address = NumberOf(field(1), 255);
    const auto answer = AnswerOfWord(field(4));
    if (!time || !address || !answer) return std::nullopt;
    ReadingRow row{*time, *address, *answer, std::nullopt};
    if (row.answer != Answer::Whole) return row;
    const auto in = NumberOf(field(2), 65535), out = NumberOf(field(3), 65535);
    if (!in || !out) return std::nullopt;
    row.counts = CountPair{*in, *out};
    return row;
}
