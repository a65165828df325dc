// The figures of a report from the text of a CSV file, in pieces of any size.
#pragma once

#include "reader/CsvReader.h"
#include "reader/ReportFigures.h"

class CReportReader {
public:
    CReportReader() = default;
    CReportReader(const CReportReader&) = delete; // the rows come back to it
    CReportReader& operator=(const CReportReader&) = delete;

    void Feed(std::string_view piece) { csv.Feed(piece); }
    void Finish() { csv.Finish(); }

    const CReportFigures& Figures() const { return figures; }
    // Rows that are no readings; those before the first header too.
    std::uint64_t Unreadable() const { return unreadable; }

private:
    void TakeRow(std::span<const std::string> fields) {
        if (columns.TakeHeader(fields)) return;
        const auto row = columns.RowOf(fields);
        if (!row || !figures.Take(*row)) ++unreadable;
    }

    CReadingColumns columns;
    CReportFigures figures;
    std::uint64_t unreadable = 0;
    CCsvReader csv{[this](std::span<const std::string> fields) { TakeRow(fields); }};
};
