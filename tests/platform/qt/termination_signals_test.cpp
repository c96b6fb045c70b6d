#include "application.h"
#include "kit/patience.h"
#include "platform/qt/termination_signals.h"

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>

namespace glidemap {
namespace {

using test::Application;

// Runs a child and returns its exit status: 7 if its event loop ended after a termination request,
// 8 if without one. If a signal terminated the child, returns 128 plus the signal.
int programThat(void (*doesWhenRunning)(), void (*doesWhenAsked)()) {
    const pid_t child = fork();
    if (child == 0) {
        alarm(test::patience.count()); // terminates a child that receives no signal
        Application application;
        bool asked = false;
        const TerminationSignals ending([&] {
            asked = true;
            doesWhenAsked();
        });
        QMetaObject::invokeMethod(QCoreApplication::instance(), doesWhenRunning,
                                  Qt::QueuedConnection);
        application.run();
        _exit(asked ? 7 : 8);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

TEST(TerminationSignalsTest, EachTerminationSignalEndsTheEventLoop) {
    EXPECT_EQ(programThat([] { kill(getpid(), SIGTERM); }, Application::quit), 7);
    EXPECT_EQ(programThat([] { kill(getpid(), SIGINT); }, Application::quit), 7);
    EXPECT_EQ(programThat([] { kill(getpid(), SIGHUP); }, Application::quit), 7);
}

TEST(TerminationSignalsTest, SecondSignalTerminatesAHangingProgram) {
    EXPECT_EQ(programThat([] { kill(getpid(), SIGTERM); }, [] { kill(getpid(), SIGTERM); }),
              128 + SIGTERM);
}

// Runs a child that hangs after the termination request, with a time limit of 50 ms. Returns the
// child's exit status.
int hangingProgram(const std::function<void(const TerminationSignals&)>& end) {
    const pid_t child = fork();
    if (child == 0) {
        Application application;
        const TerminationSignals ending([] {}, std::chrono::milliseconds(50));
        end(ending);
        while (true) {
            pause();
        }
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

TEST(TerminationSignalsTest, TimeLimitTerminatesAHangingProgram) {
    EXPECT_EQ(hangingProgram([](const auto&) { kill(getpid(), SIGTERM); }), EXIT_SUCCESS);
    EXPECT_EQ(hangingProgram([](const auto& ending) { ending.limitEnd(); }), EXIT_SUCCESS);
}

TEST(TerminationSignalsTest, TimeLimitAppliesEvenAfterTerminationSignalsIsDestroyed) {
    EXPECT_EQ(hangingProgram([](const auto&) {
                  const TerminationSignals inner([] {}, std::chrono::milliseconds(50));
                  inner.limitEnd();
              }),
              EXIT_SUCCESS);
}

// A time limit uses the same timer as alarm(), so it would replace the long alarm that
// programThat() sets in the child.
TEST(TerminationSignalsTest, SignalStartsNoTimerWithoutATimeLimit) {
    EXPECT_EQ(programThat([] { kill(getpid(), SIGTERM); },
                          [] {
                              constexpr unsigned longerThanAnyLimit = 10;
                              alarm(0) > longerThanAnyLimit ? Application::quit() : abort();
                          }),
              7);
}

TEST(TerminationSignalsTest, IgnoredSignalStaysIgnored) {
    const auto before = std::signal(SIGINT, SIG_IGN);
    EXPECT_EQ(programThat(
                  [] {
                      kill(getpid(), SIGINT);
                      Application::quit();
                  },
                  Application::quit),
              8);
    std::signal(SIGINT, before);
}

TEST(TerminationSignalsTest, LaunchedProgramHasDefaultSignals) {
    EXPECT_EQ(programThat(
                  [] {
                      char name[] = "sleep";
                      char time[] = "1000";
                      char* words[] = {name, time, nullptr};
                      pid_t launched = -1;
                      posix_spawnp(&launched, name, nullptr, nullptr, words, nullptr);
                      kill(launched, SIGTERM);
                      int status = 0;
                      waitpid(launched, &status, 0);
                      WIFSIGNALED(status) ? Application::quit() : abort();
                  },
                  Application::quit),
              8);
}

void ignoreSignal(int /*signal*/) {}

TEST(TerminationSignalsTest, DestructionRestoresTheHandlers) {
    const auto before = std::signal(SIGTERM, ignoreSignal);
    {
        Application application;
        const TerminationSignals ending([] {});
    }
    EXPECT_EQ(std::signal(SIGTERM, before), ignoreSignal);
}

} // namespace
} // namespace glidemap
