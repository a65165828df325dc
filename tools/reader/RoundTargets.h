// The places that rows of `counts` can go to.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "reader/Console.h"
#include "reader/ReadingFormat.h"
#include "reader/RoundReader.h"
#include "reader/RowFile.h"

// Rows on standard output, each as soon as it is known.
class CRowStream final : public CRoundTarget {
public:
    CRowStream(CConsole& readerConsole, RowFormat rowFormat);

    bool TakeReading(const Reading& reading) override;
    bool EndRound(std::span<const Reading>, bool) override { return true; }

private:
    CConsole& console;
    RowFormat format;
    std::string text; // the header before the first row
};

// A table on a terminal, redrawn in place with each round.
class CLiveTable final : public CRoundTarget {
public:
    CLiveTable(CConsole& readerConsole, bool withSettings);

    bool TakeReading(const Reading&) override { return true; }
    bool EndRound(std::span<const Reading> round, bool isWhole) override;

private:
    CConsole& console;
    RowFormat format;
    std::size_t drawn = 0;      // lines of the table that stands there
    std::size_t complaints = 0; // when it was drawn
};

// What can't be written now, and that it can be again, each said once.
class CWritingTrouble {
public:
    explicit CWritingTrouble(CConsole& readerConsole) : console(readerConsole) {}

    // `lost` rows had to be given up for it.
    void Tell(bool written, const std::string& error, std::size_t lost = 0);
    void GiveUp(std::size_t waiting);
    bool IsThere() const { return isThere; }
    bool AnyLost() const { return anyLost; }

private:
    CConsole& console;
    std::size_t lostRows = 0;
    bool isThere = false, anyLost = false;
};

// Rows added to a file, a round at a time.
class CRowFileTarget final : public CRoundTarget {
public:
    CRowFileTarget(CConsole& readerConsole, RowFormat rowFormat, const std::string& path);

    // Whether rows can be written, be it later for another program that has the file. False with words in `error`.
    bool Start(std::string& error);
    bool TakeReading(const Reading&) override { return true; }
    // True whatever the disk does: a later round may have better luck.
    bool EndRound(std::span<const Reading> round, bool isWhole) override;
    // Tries for half a minute, or once if the program is to end.
    bool Finish(CReaderGround& ground) override;

private:
    bool Append(std::string_view rows);

    RowFormat format;
    CRowFile file;
    CWritingTrouble trouble;
};

// The last whole round as a file for a collector, or on standard output. If not even the first round could be written,
// that is the end.
class CPromTarget final : public CRoundTarget {
public:
    CPromTarget(CConsole& readerConsole, std::string filePath, std::string portName);

    bool TakeReading(const Reading&) override { return true; }
    bool EndRound(std::span<const Reading> round, bool isWhole) override;
    bool Finish(CReaderGround&) override { return !trouble.IsThere(); }

private:
    CConsole& console;
    std::string path; // empty: standard output
    std::string port;
    CWritingTrouble trouble;
    bool anyWritten = false;
};
