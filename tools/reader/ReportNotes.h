// What a report's numbers lack.
#pragma once

#include <string>
#include <vector>

#include "reader/ReportFigures.h"
#include "reader/ReportWords.h"

// Sentences in HTML, the weightiest first; empty if nothing is missing.
std::vector<std::string> MissingNotes(const CReportFigures& figures, std::uint64_t unreadable, ReportLanguage language);
