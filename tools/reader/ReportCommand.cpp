#include "reader/ReportCommand.h"

#include <vector>

#include "reader/OutputFile.h"
#include "reader/ReportPage.h"
#include "reader/ReportReader.h"
#include "reader/SharedFile.h"

namespace {

// The file's name without its folders.
std::string_view NameOfPath(std::string_view path) {
    const std::size_t separator = path.find_last_of("/\\");
    return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

// Words if the file can't be read.
std::string ReadRows(const std::string& path, CReportReader& reader) {
    constexpr std::size_t size = 0x40000; // bytes
    CSharedFile file;
    std::string error;
    if (!file.Open(path, error)) return error;
    std::vector<char> piece(size);
    while (const std::size_t got = file.Read(piece, error)) reader.Feed({piece.data(), got});
    reader.Finish();
    if (error.empty() && !reader.Figures().Span()) return "no readings in it";
    return error;
}

} // namespace

int RunReport(const ReportOptions& options, const TextSink& out, const TextSink& err) {
    // Also by the name under which the page is written first.
    const bool writesFile = !options.output.empty();
    if (writesFile && (IsSameFile(options.path, options.output) || IsSameFile(options.path, options.output + ".new"))) {
        err(options.output + ": the page would take the place of its rows");
        return 1;
    }
    CReportReader reader;
    std::string error = ReadRows(options.path, reader);
    if (!error.empty()) {
        err(options.path + ": " + error);
        return 1;
    }
    const std::string page =
        ReportPage(reader.Figures(), NameOfPath(options.path), reader.Unreadable(), options.language);
    if (options.output.empty()) return out(page) ? 0 : 1;
    if (ReplaceWholeFile(options.output, page, error)) return 0;
    err(options.output + ": " + error);
    return 1;
}
