// The command line of the reader.
#pragma once

#include <span>
#include <string>
#include <variant>

#include "reader/CountsCommand.h"
#include "reader/LogCommand.h"
#include "reader/PortsCommand.h"
#include "reader/ReportCommand.h"

// What is to be shown, and nothing done: the help.
struct ReaderText {
    std::string text;
};
// Why nothing can be done.
struct ReaderMistake {
    std::string words;
};

using ReaderCommand =
    std::variant<ReaderMistake, ReaderText, PortsOptions, CountsOptions, CheckOptions, LogOptions, ReportOptions>;

// `arguments` with the program's file name in front.
ReaderCommand ParseReaderCommand(std::span<const char* const> arguments);
