// Fuzzes the way from a CSV text to a page: in one piece or byte by byte, it is the same page.
#include <cstdlib>

#include "support/TokenText.h"
#include "reader/ReportPage.h"
#include "reader/ReportReader.h"

namespace {

constexpr std::string_view csvTokens[] = {"time,address,in,out,clock,answer\r\n",
                                          "2026-11-26T10:00:00.000+01:00,0,",
                                          "2026-10-25T02:59:59+02:00,1,",
                                          "65535,0,",
                                          "3,9,",
                                          ",,",
                                          ",ok\r\n",
                                          ",silent\n",
                                          "\"",
                                          "\n",
                                          "2036-11-01T00:00:00Z,",
                                          "ok"};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string csv(csvTokens[0]);
    csv += TokenText({data, size}, csvTokens);
    CReportReader whole, pieces;
    whole.Feed(csv);
    whole.Finish();
    for (const char& each : csv) pieces.Feed({&each, 1});
    pieces.Finish();
    if (whole.Figures().Span().has_value() != pieces.Figures().Span().has_value()) std::abort();
    if (!whole.Figures().Span()) return 0;
    const auto page = [&](const CReportReader& reader) {
        return ReportPage(reader.Figures(), csv, reader.Unreadable(), ReportLanguage::Chinese);
    };
    if (page(whole) != page(pieces)) std::abort();
    return 0;
}
