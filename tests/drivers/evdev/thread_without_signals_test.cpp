#include "drivers/evdev/thread_without_signals.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace glidemap::test {
namespace {

bool isBlocked(int signal) {
    sigset_t blocked;
    pthread_sigmask(SIG_SETMASK, nullptr, &blocked);
    return sigismember(&blocked, signal) == 1;
}

TEST(ThreadWithoutSignals, BlocksSignalsInTheThreadButNotInItsCreator) {
    bool blockedThere = false;
    threadWithoutSignals([&] { blockedThere = isBlocked(SIGTERM) && isBlocked(SIGINT); }).join();
    EXPECT_TRUE(blockedThere);
    EXPECT_FALSE(isBlocked(SIGTERM));
}

// Blocked signals would be worse than a missing thread: no signal could terminate the program.
TEST(ThreadWithoutSignals, RestoresTheCreatorsSignalMaskIfTheThreadCannotStart) {
    struct CannotBeMoved {
        CannotBeMoved() = default;
        CannotBeMoved(CannotBeMoved&& /*other*/) { throw std::runtime_error("no room"); }
        void operator()() const {}
    };
    EXPECT_THROW(threadWithoutSignals(CannotBeMoved()), std::runtime_error);
    EXPECT_FALSE(isBlocked(SIGTERM));
}

} // namespace
} // namespace glidemap::test
