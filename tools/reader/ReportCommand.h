// The command `report`: rows in CSV as one page for a browser.
#pragma once

#include <string>

#include "reader/ReportWords.h"
#include "reader/TextSink.h"

struct ReportOptions {
    std::string path;   // of the CSV file
    std::string output; // path of the page, which is replaced in one step; empty: `out` gets it
    ReportLanguage language = ReportLanguage::English;
};

// `out` gets the whole page at once, `err` one line without its end if something is wrong. Gives the exit code: 0, or 1
// if the file can't be read or has no readings, or the page could not be written or would replace that file.
int RunReport(const ReportOptions& options, const TextSink& out, const TextSink& err);
