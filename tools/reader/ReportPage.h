// A report as one page of HTML that needs nothing else: no script, no file, no net.
#pragma once

#include <string>
#include <string_view>

#include "reader/ReportFigures.h"
#include "reader/ReportWords.h"

// `figures` have one reading at least. `source` is the name of the file that the figures are of; `unreadable` the
// number of its rows that were left out. By day where no more than 31 days are to be shown, else by month, of which it
// shows the last 31.
std::string ReportPage(const CReportFigures& figures, std::string_view source, std::uint64_t unreadable,
                       ReportLanguage language);
