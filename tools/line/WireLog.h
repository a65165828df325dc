// What passes on the line, written down chunk by chunk with the time at which it was seen.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "framework/FileStream.h"
#include "port/LineTime.h"

enum class WireDirection : char {
    FromProgram = '>',
    ToProgram = '<',
};

// " 02 00 81": a blank and two digits for each byte.
std::string HexOfBytes(std::span<const std::uint8_t> bytes);

// "1234567 > 02 00 81 81 03" and a line end: microseconds, direction, bytes.
std::string WireLogLine(WireDirection direction, std::span<const std::uint8_t> bytes, LineTime now);

class CWireLog {
public:
    // Starts the file anew. False if that can't be done; then nothing is logged.
    bool Open(const std::string& path);

    // Written through to the file at once. Does nothing without a file or without bytes. False if it can't be written:
    // then it ends here, so that no line is missing in its middle.
    bool Note(WireDirection direction, std::span<const std::uint8_t> bytes, LineTime now);

private:
    CFileStream file;
};
