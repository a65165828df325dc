// Rows on their way out.
#include "reader/RoundTargets.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "reader/OutputFile.h"
#include "reader/PromFormat.h"

namespace {

// A virus scanner and a backup have let go of a file by then.
constexpr LineTime patience = std::chrono::seconds(30), tryInterval = std::chrono::milliseconds(500);

} // namespace

CRowStream::CRowStream(CConsole& readerConsole, RowFormat rowFormat)
    : console(readerConsole), format(rowFormat), text(RowHeader(rowFormat)) {}

bool CRowStream::TakeReading(const Reading& reading) {
    AppendRow(text, reading, format);
    return console.Write(std::exchange(text, {}));
}

CLiveTable::CLiveTable(CConsole& readerConsole, bool withSettings)
    : console(readerConsole), format{RowKind::Table, withSettings} {}

bool CLiveTable::EndRound(std::span<const Reading> round, bool isWhole) {
    if (!isWhole) return true;
    // Below a message the table begins anew, or it would go up into it.
    if (complaints != console.Complaints()) drawn = 0;
    complaints = console.Complaints();
    std::string rows = RowHeader(format);
    for (const Reading& reading : round) AppendRow(rows, reading, format);
    // No line is to take two on a narrow terminal, and none keeps the end of a longer one.
    std::string text = "\x1b[?7l";
    if (drawn > 0) text += "\x1b[" + std::to_string(drawn) + "A";
    for (const char each : rows) text += each == '\n' ? std::string("\x1b[K\n") : std::string(1, each);
    text += "\x1b[?7h";
    drawn = static_cast<std::size_t>(std::ranges::count(rows, '\n'));
    return console.Write(text);
}

void CWritingTrouble::Tell(bool written, const std::string& error, std::size_t lost) {
    lostRows += lost;
    anyLost = anyLost || lost > 0;
    if (!written && !isThere) console.Complain(error + "; it is tried again");
    if (written && isThere) {
        console.Complain("the output is written again; rows that are missing: " + std::to_string(lostRows));
        lostRows = 0;
    }
    isThere = !written;
}

void CWritingTrouble::GiveUp(std::size_t waiting) {
    console.Complain("the output is given up; rows that are missing: " + std::to_string(lostRows + waiting));
}

CRowFileTarget::CRowFileTarget(CConsole& readerConsole, RowFormat rowFormat, const std::string& path)
    : format(rowFormat), file(path, RowHeader(rowFormat), RowFront(rowFormat)), trouble(readerConsole) {}

bool CRowFileTarget::Start(std::string& error) {
    const bool written = file.Append("", error);
    if (!written && !file.IsHeld()) return false;
    trouble.Tell(written, error);
    return true;
}

bool CRowFileTarget::Append(std::string_view rows) {
    std::string error;
    const bool written = file.Append(rows, error);
    trouble.Tell(written, error, file.TakeLost());
    return written;
}

bool CRowFileTarget::EndRound(std::span<const Reading> round, bool) {
    std::string rows;
    for (const Reading& reading : round) AppendRow(rows, reading, format);
    Append(rows);
    return true;
}

bool CRowFileTarget::Finish(CReaderGround& ground) {
    const LineTime end = ground.Now() + patience;
    while (trouble.IsThere() && !Append("")) {
        if (ground.Now() < end && ground.Rest(ground.Now() + tryInterval)) continue;
        trouble.GiveUp(file.Waiting());
        return false;
    }
    return !trouble.AnyLost();
}

CPromTarget::CPromTarget(CConsole& readerConsole, std::string filePath, std::string portName)
    : console(readerConsole), path(std::move(filePath)), port(std::move(portName)), trouble(readerConsole) {}

bool CPromTarget::EndRound(std::span<const Reading> round, bool isWhole) {
    // Without those that were not asked any more it would look as if they had gone.
    if (!isWhole) return true;
    const std::string text = PromText(round, port);
    if (path.empty()) return console.Write(text);
    std::string error;
    const bool written = ReplaceWholeFile(path, text, error);
    error.insert(0, path + ": ");
    if (!written && !anyWritten) {
        // One that never could be written is rather misspelt than full.
        console.Complain(error);
        return false;
    }
    trouble.Tell(written, error);
    return anyWritten = true;
}
