// quorvane-read, on Windows QuorvaneRead.exe: the reader as a program.
#include <exception>
#include <string_view>

#include "reader/ReaderOptions.h"

#ifdef _WIN32
#include "framework/SystemLibrary.h"
#else
#include "port/StandardStreams.h"
#endif

namespace {

// Carries out each kind of command; gives the exit code.
class CRunning {
public:
    explicit CRunning(CConsole& standard) : console(standard) {}

    int operator()(const ReaderMistake& mistake) const {
        console.Complain(mistake.words);
        return 1;
    }
    int operator()(const ReaderText& shown) const { return console.Write(shown.text) ? 0 : 1; }
    int operator()(const PortsOptions& options) const { return RunPorts(options, console); }
    int operator()(const CountsOptions& options) const { return RunCounts(options, console); }
    int operator()(const CheckOptions& options) const { return RunCheck(options, console); }
    int operator()(const LogOptions& options) const { return RunLog(options, Out(), Complaint()); }
    int operator()(const ReportOptions& options) const { return RunReport(options, Out(), Complaint()); }

private:
    TextSink Out() const {
        return [this](std::string_view text) { return console.Write(text); };
    }
    TextSink Complaint() const {
        return [this](std::string_view text) {
            console.Complain(text);
            return true;
        };
    }

    CConsole& console;
};

} // namespace

int main(int argumentCount, char** arguments) {
#ifdef _WIN32
    KeepToSystemLibraries();
#else
    OpenStandardStreams();
#endif
    CConsole console;
    try {
        return std::visit(CRunning(console), ParseReaderCommand({arguments, static_cast<std::size_t>(argumentCount)}));
    } catch (const std::exception& failure) {
        console.Complain(failure.what());
    }
    return 1;
}
