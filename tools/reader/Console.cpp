// Lines for the user.
#include "reader/Console.h"

#include "reader/ConsoleStreams.h"

namespace {

constexpr std::string_view overwriteLine = "\r\x1b[K";

} // namespace

bool CConsole::Write(std::string_view text) {
    ShowProgress("");
    std::string error;
    if (WriteToStream(ConsoleStream::Output, text, error)) return true;
    if (!error.empty()) Complain("standard output: " + error);
    return false;
}

void CConsole::Complain(std::string_view text) {
    ShowProgress("");
    std::string ignored;
    ++complaints;
    WriteToStream(ConsoleStream::Error, std::string("quorvane-read: ").append(text).append("\n"), ignored);
}

void CConsole::ShowProgress(std::string_view text) {
    if (text.empty() && !hasProgress) return;
    if (!IsTerminal(ConsoleStream::Error)) return;
    std::string ignored;
    hasProgress = !text.empty();
    WriteToStream(ConsoleStream::Error, std::string(overwriteLine).append(text), ignored);
}

bool CConsole::CanRedraw() const {
    return IsTerminal(ConsoleStream::Output);
}
