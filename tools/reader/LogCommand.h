// The command `log`: a traffic log as rows, or as the sheet of the line.
#pragma once

#include <string>

#include "reader/ReadingFormat.h"
#include "reader/TextSink.h"

struct LogOptions {
    std::string path; // of a Quorvane.log or a copy
    RowFormat format{RowKind::Csv, false};
    bool summary = false; // the sheet in place of the rows
};

// Reads to the end that the log has by then. A row has the settings that were last read of its counter before it.
// `out` gets rows or sheet, `err` one line without its end if something is wrong. Gives the exit code: 0, or 1 if the
// log can't be read, is no log, or the output could not be written.
int RunLog(const LogOptions& options, const TextSink& out, const TextSink& err);
