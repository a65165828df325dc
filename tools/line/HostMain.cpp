// quorvane-line: the simulated counter line on a pseudo-terminal or a serial device of the host.
//
// One thread that sleeps until there is input, a control line, a signal, or a byte is due.
#include <poll.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <exception>
#include <memory>
#include <span>
#include <string>

#include "framework/Time.h"
#include "line/ControlInput.h"
#include "line/LineOptions.h"
#include "line/LineRunner.h"
#include "line/PseudoTerminal.h"
#include "port/SerialDevice.h"
#include "port/StandardStreams.h"
#include "port/StopSignals.h"

namespace {

void Say(const std::string& text) {
    std::printf("%s\n", text.c_str());
    std::fflush(stdout);
}

int Complain(const std::string& text) {
    std::fprintf(stderr, "quorvane-line: %s\n", text.c_str());
    return 1;
}

const LineProgram program{"quorvane-line",
                          {{"--link", "PATH", "symbolic link to the pseudo-terminal; goes away at the end"},
                           {"--device", "PATH", "an existing serial device instead of a pseudo-terminal"},
                           {"--control", "PATH", "FIFO for control lines, besides standard input"}}};

std::unique_ptr<CDescriptorPort> MakePort(LineOptions& options) {
    const std::string& device = options.own["--device"];
    if (device.empty()) return std::make_unique<CPseudoTerminal>(options.own["--link"]);
    return std::make_unique<CSerialDevice>(device, options.configuration.baudRate);
}

class CHostFrontEnd {
public:
    explicit CHostFrontEnd(LineOptions& options)
        : port(MakePort(options)), runner(options, CTime::Now().GetLocalFields(), SteadyLineTime(), *port, Say) {}

    bool Start(const LineOptions& options, std::string& error) {
        inputs[0].UseStandardInput();
        const auto fifo = options.own.find("--control");
        if (fifo != options.own.end() && !inputs[1].UseFifo(fifo->second, error)) return false;
        return runner.Start(options.wirePath, error);
    }

    void Run() {
        bool goOn = true;
        while (goOn) {
            Sleep();
            if (hasInput[3]) return;
            if (hasInput[0]) runner.Receive(SteadyLineTime());
            for (std::size_t at = 0; at < inputs.size(); ++at) {
                if (!hasInput[at + 1]) continue;
                for (const std::string& text : inputs[at].ReadLines()) {
                    goOn = runner.Obey(text, SteadyLineTime()) && goOn;
                }
            }
            runner.Speak(SteadyLineTime());
        }
    }

private:
    // Until something happens; then `hasInput` tells where.
    void Sleep() {
        std::array<pollfd, 4> sources{{{port->Descriptor(), POLLIN, 0},
                                       {inputs[0].Descriptor(), POLLIN, 0},
                                       {inputs[1].Descriptor(), POLLIN, 0},
                                       {stop.Descriptor(), POLLIN, 0}}};
        timespec wait{};
        const auto due = runner.NextDue();
        if (due) {
            const auto left = std::max(*due - SteadyLineTime(), LineTime(0)).count();
            wait.tv_sec = static_cast<time_t>(left / 1'000'000);
            wait.tv_nsec = static_cast<long>(left % 1'000'000 * 1000);
        }
        const int ready = ppoll(sources.data(), sources.size(), due ? &wait : nullptr, nullptr);
        for (std::size_t at = 0; at < sources.size(); ++at) hasInput[at] = ready > 0 && sources[at].revents != 0;
    }

    CStopSignals stop;
    std::unique_ptr<CDescriptorPort> port;
    CLineRunner runner;
    std::array<CControlInput, 2> inputs; // standard input and the FIFO
    std::array<bool, 4> hasInput{};      // the port, both of them, and the end
};

int RunLine(std::span<const char* const> arguments) {
    LineOptions options;
    std::string error;
    if (!ParseLineOptions(arguments, program, options, error)) return Complain(error);
    if (!options.help.empty()) {
        Say(options.help);
        return 0;
    }
    CHostFrontEnd host(options);
    if (!host.Start(options, error)) return Complain(error);
    host.Run();
    return 0;
}

} // namespace

int main(int argumentCount, char** arguments) {
    OpenStandardStreams();
    try {
        return RunLine({arguments, static_cast<std::size_t>(argumentCount)});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "quorvane-line: %s\n", failure.what());
    }
    return 1;
}
