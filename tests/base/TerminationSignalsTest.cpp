#include <gmock/gmock.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

#include "TerminationSignals.h"

namespace vtr {
namespace {

/// Whether a signal can be read of within a second.
bool IsTold(int descriptor) {
    pollfd asked{descriptor, POLLIN, 0};
    char byte = 1;
    return poll(&asked, 1, 1000) == 1 && read(descriptor, &byte, 1) == 1;
}

/// The status with which a process ends that does this: signals are caught for good.
int StatusOf(const std::function<int()> &work) {
    const pid_t child = fork();
    if (child == 0)
        _exit(work());
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

TEST(TerminationSignals, EachIsToldAndEndsNothing) {
    EXPECT_EQ(StatusOf([] {
                  const int descriptor = CatchTerminationSignals();
                  for (const int signal : {SIGTERM, SIGHUP, SIGINT, SIGTERM})
                      if (raise(signal) != 0 || !IsTold(descriptor))
                          return 1;
                  return 0;
              }),
              0);
}

TEST(TerminationSignals, AnyNumberAtOnceHoldsNobodyUp) {
    EXPECT_EQ(StatusOf([] {
                  const int descriptor = CatchTerminationSignals();
                  for (int i = 0; i < 100000; ++i)
                      raise(SIGTERM);
                  return IsTold(descriptor) ? 0 : 1;
              }),
              0);
}

// As nohup does, and a shell with what it starts in the background.
TEST(TerminationSignals, OneThatWasIgnoredStaysSo) {
    EXPECT_EQ(StatusOf([] {
                  signal(SIGHUP, SIG_IGN);
                  const int descriptor = CatchTerminationSignals();
                  raise(SIGHUP);
                  pollfd asked{descriptor, POLLIN, 0};
                  return poll(&asked, 1, 0);
              }),
              0);
}

TEST(TerminationSignals, OthersEndTheProcessAsEver) {
    EXPECT_EQ(StatusOf([] {
                  CatchTerminationSignals();
                  return raise(SIGUSR1);
              }),
              SIGUSR1);
}

}  // namespace
}  // namespace vtr
