// quorvane-line: the simulated counter line on a pseudo-terminal or a serial device of the host.
//
// One thread that sleeps until there is input, a control line, a signal, or a byte is due.
#include <poll.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <span>
#include <string>
#include <utility>

#include "framework/Time.h"
#include "line/ControlInput.h"
#include "line/HostPort.h"
#include "line/LineOptions.h"
#include "line/LineRunner.h"

namespace {

volatile sig_atomic_t stopAsked = 0;

void AskToStop(int /*signal*/) {
    stopAsked = 1;
}

// The signals that end the program stay blocked but while it sleeps, so none slips in between the test and the sleep.
sigset_t BlockStopSignals() {
    sigset_t stopSignals;
    sigset_t before;
    sigemptyset(&stopSignals);
    struct sigaction action {};
    action.sa_handler = AskToStop;
    for (const int number : std::array{SIGINT, SIGTERM, SIGHUP}) {
        sigaddset(&stopSignals, number);
        sigaction(number, &action, nullptr);
    }
    pthread_sigmask(SIG_BLOCK, &stopSignals, &before);
    signal(SIGPIPE, SIG_IGN);
    return before;
}

void Say(const std::string& text) {
    std::printf("%s\n", text.c_str());
    std::fflush(stdout);
}

int Complain(const std::string& text) {
    std::fprintf(stderr, "quorvane-line: %s\n", text.c_str());
    return 1;
}

void ShowHelp() {
    std::printf("quorvane-line: people counters on a simulated serial line\n"
                "  --link PATH        symbolic link to the pseudo-terminal; goes away at the end\n"
                "  --device PATH      an existing serial device instead of a pseudo-terminal\n"
                "  --control PATH     FIFO for control lines, besides standard input\n"
                "%s",
                DescribeLineOptions().c_str());
}

class CHostFrontEnd {
public:
    CHostFrontEnd(const LineOptions& options, HostPortPlace place)
        : port(std::move(place)), runner(options, CTime::Now().GetLocalFields(), SteadyLineTime(), port, Say) {}

    bool Start(const LineOptions& options, std::string& error) {
        inputs[0].UseStandardInput();
        const auto fifo = options.own.find("--control");
        if (fifo != options.own.end() && !inputs[1].UseFifo(fifo->second, error)) return false;
        return runner.Start(options.wirePath, error);
    }

    void Run(const sigset_t& whileAsleep) {
        bool goOn = true;
        while (stopAsked == 0 && goOn) {
            Sleep(whileAsleep);
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
    void Sleep(const sigset_t& whileAsleep) {
        std::array<pollfd, 3> sources{
            {{port.Descriptor(), POLLIN, 0}, {inputs[0].Descriptor(), POLLIN, 0}, {inputs[1].Descriptor(), POLLIN, 0}}};
        timespec wait{};
        const auto due = runner.NextDue();
        if (due) {
            const auto left = std::max(*due - SteadyLineTime(), LineTime(0)).count();
            wait.tv_sec = static_cast<time_t>(left / 1'000'000);
            wait.tv_nsec = static_cast<long>(left % 1'000'000 * 1000);
        }
        const int ready = ppoll(sources.data(), sources.size(), due ? &wait : nullptr, &whileAsleep);
        for (std::size_t at = 0; at < sources.size(); ++at) hasInput[at] = ready > 0 && sources[at].revents != 0;
    }

    CHostPort port;
    CLineRunner runner;
    std::array<CControlInput, 2> inputs; // standard input and the FIFO
    std::array<bool, 3> hasInput{};      // the port and both of them
};

} // namespace

int main(int argumentCount, char** arguments) {
    LineOptions options;
    std::string error;
    const std::span<const char* const> all(arguments, static_cast<std::size_t>(argumentCount));
    if (!ParseLineOptions(all.subspan(1), {"--link", "--device", "--control"}, options, error)) return Complain(error);
    if (options.help) {
        ShowHelp();
        return 0;
    }
    const HostPortPlace place{options.own["--link"], options.own["--device"], options.configuration.baudRate};
    const sigset_t whileAsleep = BlockStopSignals();
    CHostFrontEnd host(options, place);
    if (!host.Start(options, error)) return Complain(error);
    host.Run(whileAsleep);
    return 0;
}
