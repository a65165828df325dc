#include "reader/LogCommand.h"

#include <cstdlib>
#include <vector>

#include "reader/LogDecoder.h"
#include "reader/SharedFile.h"
#include "reader/SheetText.h"

namespace {

constexpr std::size_t pieceSize = 0x40000; // bytes

class CLogRows : public CLogSink {
public:
    explicit CLogRows(const RowFormat& rowFormat) : format(rowFormat), text(RowHeader(rowFormat)) {}

    void TakeTrace(const LineTrace& trace) override {
        auto& known = settings.at(static_cast<std::size_t>(trace.address));
        if (trace.request == RequestCode::ReadSettings) {
            if (trace.judgement.record) known = trace.judgement.record;
            return;
        }
        const ReplyJudgement& judgement = trace.judgement;
        AppendRow(text, {trace.time, trace.address, judgement.answer, judgement.record, known}, format);
    }
    void TakeClear(std::int32_t) override {}
    void TakeMove(std::int32_t) override {}

    // Whether all that there is could be written.
    bool Flush(const TextSink& out) {
        const bool written = text.empty() || out(text);
        text.clear();
        return written;
    }

private:
    RowFormat format;
    std::string text;
    std::array<std::optional<CounterRecord>, 256> settings; // by address
};

class CLogSheet : public CLogSink {
public:
    void TakeTrace(const LineTrace& trace) override { sheet.Take(trace); }
    void TakeClear(std::int32_t address) override { sheet.TakeClear(address); }
    void TakeMove(std::int32_t address) override { sheet.TakeMove(address); }

    CLineSheet sheet;
};

// Feeds the log to the decoder; `afterPiece` says whether to go on. Words if the log can't be read.
template <class AfterPiece>
std::string ReadLog(const std::string& path, CLogDecoder& decoder, AfterPiece afterPiece) {
    CSharedFile file;
    std::string error;
    if (!file.Open(path, error)) return error;
    std::vector<char> piece(pieceSize);
    bool goesOn = true;
    while (goesOn) {
        const std::size_t got = file.Read(piece, error);
        if (got == 0) break;
        decoder.Feed({piece.data(), got});
        goesOn = afterPiece();
    }
    if (error.empty() && decoder.Lines() > 0 && decoder.UnreadableLines() == decoder.Lines()) return "no traffic log";
    return error;
}

int ConcludeLog(const LogOptions& options, const std::string& error, std::uint64_t unreadable, const TextSink& err) {
    if (!error.empty()) {
        err(options.path + ": " + error);
        return 1;
    }
    if (unreadable > 0) err(options.path + ": lines left out that are none of a log: " + std::to_string(unreadable));
    return 0;
}

} // namespace

int RunLog(const LogOptions& options, const TextSink& out, const TextSink& err) {
#ifndef _WIN32
    // Without a zone in the environment the C library looks at the zone's file anew for each clock that is decoded,
    // which takes longer than all else.
    ::setenv("TZ", ":/etc/localtime", 0); // NOLINT(concurrency-mt-unsafe): there is one thread
#endif
    CLogRows rows(options.format);
    CLogSheet summary;
    CLogDecoder decoder(options.summary ? static_cast<CLogSink&>(summary) : rows, SystemZoneOffset);
    bool written = true;
    const std::string error = ReadLog(options.path, decoder, [&] {
        // Not even the column names of a file that turns out to be no log.
        const bool isLog = decoder.UnreadableLines() < decoder.Lines();
        if (isLog && !options.summary) written = rows.Flush(out);
        return written;
    });
    if (error.empty() && options.summary) written = out(SheetText(summary.sheet, options.path));
    if (error.empty() && !options.summary && written) written = rows.Flush(out); // the header of an empty log
    const int result = ConcludeLog(options, error, decoder.UnreadableLines(), err);
    return written ? result : 1;
}
