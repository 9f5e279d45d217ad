#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "TerminationSignals.h"

namespace vtr {

namespace {

volatile std::sig_atomic_t writingEnd = -1;

/// May do no more than what is safe at any moment of the program.
extern "C" void TellOfSignal(int /*signal*/) {
    const int before = errno;
    (void)!write(writingEnd, "", 1);
    errno = before;
}

}  // namespace

int CatchTerminationSignals() {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return -1;
    writingEnd = ends[1];
    for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
        struct sigaction action {};
        if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue;
        action = {};
        action.sa_handler = &TellOfSignal;
        action.sa_flags = SA_RESTART;
        sigaction(signal, &action, nullptr);
    }
    return ends[0];
}

}  // namespace vtr
