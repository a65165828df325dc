// Signals as input.
#include "port/StopSignals.h"

#include <sys/signalfd.h>

#include <array>
#include <csignal>

CStopSignals::CStopSignals() {
    sigset_t set;
    sigemptyset(&set);
    for (const int number : std::array{SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction present {};
        sigaction(number, nullptr, &present);
        if (present.sa_handler != SIG_IGN) sigaddset(&set, number);
    }
    pthread_sigmask(SIG_BLOCK, &set, nullptr);
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
    signals = CDescriptor(signalfd(-1, &set, SFD_CLOEXEC));
}
