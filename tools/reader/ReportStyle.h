// The style sheet of a report: calm, with the colours of the program's pictures; on a screen, a telephone and a sheet
// of A4.
#pragma once

#include <string_view>

std::string_view ReportStyle();
