#include "reader/CountsCommand.h"

#include <chrono>
#include <memory>

#include "port/PortNames.h"
#include "reader/LineCheck.h"
#include "reader/OutputFile.h"
#include "reader/RoundReader.h"
#include "reader/RoundTargets.h"
#include "reader/SheetText.h"
#include "reader/StoredPort.h"
#include "reader/SystemGround.h"

namespace {

constexpr int failed = 1;
constexpr int someMissing = 2;

// A COM port's name as the system writes it; a path as it is.
std::string PortNameOf(const std::string& word) {
#ifdef _WIN32
    return ComPortName(word).value_or(word);
#else
    return word;
#endif
}

bool StartInquiry(CLineInquiry& inquiry, const std::string& port, CConsole& console) {
    std::string error;
    if (inquiry.Start(error)) return true;
    const bool isQuorvanes = StoredPort() == ComPortNumber(port) && IsQuorvaneRunning();
    console.Complain(error + (isQuorvanes ? "; Quorvane is running, and this is its port" : ""));
    return false;
}

RowFormat RowsOf(const CountsOptions& options) {
    using enum CountsFormat;
    const RowKind kind = options.format == Csv         ? RowKind::Csv
                         : options.format == JsonLines ? RowKind::JsonLines
                                                       : RowKind::Table;
    return {kind, options.withSettings};
}

// Null if the output file can't be written, which is said then.
std::unique_ptr<CRoundTarget> MakeTarget(const CountsOptions& options, CConsole& console) {
    if (IsPipe(options.output)) {
        console.Complain(options.output + " is a pipe; without --output the rows go to standard output");
        return nullptr;
    }
    if (options.format == CountsFormat::Prom) {
        return std::make_unique<CPromTarget>(console, options.output, PortNameOf(options.line.port));
    }
    if (!options.output.empty()) {
        auto file = std::make_unique<CRowFileTarget>(console, RowsOf(options), options.output);
        std::string error;
        if (file->Start(error)) return file;
        console.Complain(error);
        return nullptr;
    }
    const bool isLive = options.format == CountsFormat::Table && options.every && console.CanRedraw();
    if (isLive) return std::make_unique<CLiveTable>(console, options.withSettings);
    return std::make_unique<CRowStream>(console, RowsOf(options));
}

int ExitCodeOf(RoundsResult result) {
    switch (result) {
    case RoundsResult::Answered:
        return 0;
    case RoundsResult::Missing:
        return someMissing;
    case RoundsResult::PortAway:
    case RoundsResult::NoTarget:
        break;
    }
    return failed;
}

} // namespace

int RunCounts(const CountsOptions& options, CConsole& console) {
    const auto target = MakeTarget(options, console);
    if (!target) return failed;
    CSystemGround ground(PortNameOf(options.line.port), options.line.baudRate, console);
    CLineInquiry inquiry(ground, options.line.baudRate);
    if (!StartInquiry(inquiry, PortNameOf(options.line.port), console)) return failed;
    RoundPlan plan{options.line.addresses, options.withSettings, std::nullopt};
    if (options.every) plan.every = std::chrono::seconds(*options.every);
    const RoundsResult result = CRoundReader(ground, inquiry, *target).Run(plan);
    return target->Finish(ground) ? ExitCodeOf(result) : failed;
}

int RunCheck(const CheckOptions& options, CConsole& console) {
    const LineOfCounters& line = options.line;
    const std::string port = PortNameOf(line.port);
    CSystemGround ground(port, line.baudRate, console);
    CLineInquiry inquiry(ground, line.baudRate);
    if (!StartInquiry(inquiry, port, console)) return failed;
    CLineCheck check(ground, inquiry);
    check.Run(line.addresses, std::chrono::seconds(options.seconds), [&](LineTime left) {
        const auto seconds = std::chrono::ceil<std::chrono::seconds>(left).count();
        console.ShowProgress(port + " is checked, " + std::to_string(seconds) + " s to go");
    });
    if (!console.Write(SheetText(check.Sheet(), port)) || inquiry.IsPortAway()) return failed;
    return HaveAllAnswered(check.Sheet(), line.addresses, line.addressesAreGiven) ? 0 : someMissing;
}
