// Readings as rows: a table to look at, CSV for a spreadsheet, JSON lines for a program.
//
// Every reading is a row. Where there are no counts, their places are empty (in JSON `null`), never 0.
#pragma once

#include <string>

#include "reader/Reading.h"

enum class RowKind : std::uint8_t {
    Table,    // aligned by blanks, lines end in LF
    Csv,      // as in RFC 4180: commas, lines end in CRLF. No field here needs quotes
    JsonLines // an object a line, lines end in LF
};

struct RowFormat {
    RowKind kind = RowKind::Table;
    bool withSettings = false; // the columns of the settings too
};

// The line of column names with its line end; empty for JSON lines, whose objects name their members.
std::string RowHeader(const RowFormat& format);

// How every text of such rows begins: by the header, or by what all of them have in front.
std::string RowFront(const RowFormat& format);

// Adds the reading's line with its line end to `text`.
void AppendRow(std::string& text, const Reading& reading, const RowFormat& format);
