#include "reader/ReadingFormat.h"

#include <array>

#include "reader/ReadingText.h"

namespace {

enum class Kind : std::uint8_t { Word, Number };

struct Column {
    std::string_view name;
    int width; // in a table; negative: flush left
    Kind kind;
};

constexpr std::size_t readingColumns = 6;
constexpr std::array<Column, 11> columns{{{"time", -23, Kind::Word},
                                          {"address", 7, Kind::Number},
                                          {"in", 6, Kind::Number},
                                          {"out", 6, Kind::Number},
                                          {"clock", -19, Kind::Word},
                                          {"answer", -9, Kind::Word},
                                          {"sensitivity", 11, Kind::Number},
                                          {"language", -8, Kind::Word},
                                          {"direction", -9, Kind::Word},
                                          {"sd_detect", -9, Kind::Word},
                                          {"sd_period", 9, Kind::Number}}};

std::size_t ColumnsOf(const RowFormat& format) {
    return format.withSettings ? columns.size() : readingColumns;
}

using Cells = std::array<std::string, columns.size()>;

// What stands in the columns; empty where there is nothing.
Cells CellsOf(const Reading& reading, bool forTable) {
    Cells cells;
    cells[0] = MomentText(reading.time);
    if (forTable) {
        // To look at: without the offset, and a blank in place of the T.
        cells[0].resize(cells[0].size() - 6);
        cells[0][10] = ' ';
    }
    cells[1] = std::to_string(reading.address);
    if (const auto& status = reading.status) {
        cells[2] = std::to_string(status->inCount);
        cells[3] = std::to_string(status->outCount);
        if (const auto wall = WallOfClock(status->deviceTime)) cells[4] = WallText(*wall, forTable ? ' ' : 'T');
    }
    cells[5] = AnswerWord(reading.answer);
    if (reading.settings) {
        const SettingsWords words = WordsOfSettings(*reading.settings);
        cells[6] = words.sensitivity;
        cells[7] = words.language;
        cells[8] = words.direction;
        cells[9] = words.sdDetect;
        cells[10] = words.sdPeriod;
    }
    return cells;
}

void AppendAligned(std::string& line, std::string_view cell, int width) {
    const auto wanted = static_cast<std::size_t>(width < 0 ? -width : width);
    const std::size_t blanks = cell.size() < wanted ? wanted - cell.size() : 0;
    if (width > 0) line.append(blanks, ' ');
    line += cell;
    if (width < 0) line.append(blanks, ' ');
}

void AppendTableLine(std::string& text, const auto& cells, std::size_t count) {
    for (std::size_t at = 0; at < count; ++at) {
        if (at > 0) text += "  ";
        AppendAligned(text, cells[at], columns[at].width);
    }
    text.erase(text.find_last_not_of(' ') + 1);
    text += '\n';
}

void AppendCsvLine(std::string& text, const auto& cells, std::size_t count) {
    for (std::size_t at = 0; at < count; ++at) {
        if (at > 0) text += ',';
        text += cells[at];
    }
    text += "\r\n";
}

void AppendObject(std::string& text, const Cells& cells, std::size_t count) {
    char before = '{';
    for (std::size_t at = 0; at < count; ++at) {
        const bool quoted = columns[at].kind == Kind::Word && !cells[at].empty();
        text += before;
        text.append("\"").append(columns[at].name).append(quoted ? "\":\"" : "\":");
        text += cells[at].empty() ? "null" : cells[at];
        if (quoted) text += '"';
        before = ',';
    }
    text += "}\n";
}

} // namespace

std::string RowHeader(const RowFormat& format) {
    std::array<std::string_view, columns.size()> names;
    for (std::size_t at = 0; at < columns.size(); ++at) names[at] = columns[at].name;
    std::string text;
    if (format.kind == RowKind::Table) AppendTableLine(text, names, ColumnsOf(format));
    if (format.kind == RowKind::Csv) AppendCsvLine(text, names, ColumnsOf(format));
    return text;
}

std::string RowFront(const RowFormat& format) {
    return format.kind == RowKind::JsonLines ? R"({"time":)" : RowHeader(format);
}

void AppendRow(std::string& text, const Reading& reading, const RowFormat& format) {
    const Cells cells = CellsOf(reading, format.kind == RowKind::Table);
    const std::size_t count = ColumnsOf(format);
    if (format.kind == RowKind::Table) AppendTableLine(text, cells, count);
    if (format.kind == RowKind::Csv) AppendCsvLine(text, cells, count);
    if (format.kind == RowKind::JsonLines) AppendObject(text, cells, count);
}
