#include "intercepted_calls.h"

#include "deadline.h"

#include <gtest/gtest.h>
#include <linux/input.h>
#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <condition_variable>
#include <csignal>
#include <cstdarg>
#include <ctime>
#include <mutex>
#include <optional>
#include <thread>
#include <utility>

namespace glidemap::test {

namespace {

// The calls for which the test waits, from the grab or the release to the driver's next wait.
struct Expected {
    std::mutex mutex;
    std::condition_variable changed;
    InterceptedCalls::Call call = InterceptedCalls::Call::grab;
    InterceptedCalls::Action before; // null after its call
    InterceptedCalls::Action later;  // null after its call
    std::thread::id driver;          // set by the call of `before`
    bool isDone = true;
};

Expected& expected() {
    static Expected calls;
    return calls;
}

// Returns the kind of the call, if the test can wait for it.
std::optional<InterceptedCalls::Call> callOf(unsigned long request, const void* argument) {
    if (request == EVIOCGRAB) {
        return argument != nullptr ? InterceptedCalls::Call::grab : InterceptedCalls::Call::release;
    }
    const bool isForSlots = _IOC_TYPE(request) == _IOC_TYPE(EVIOCGMTSLOTS(0)) &&
                            _IOC_NR(request) == _IOC_NR(EVIOCGMTSLOTS(0));
    return isForSlots ? std::optional(InterceptedCalls::Call::requestSlots) : std::nullopt;
}

void noticeCall(InterceptedCalls::Call call) {
    Expected& calls = expected();
    InterceptedCalls::Action before;
    {
        const std::lock_guard lock(calls.mutex);
        if (calls.before == nullptr || calls.call != call) {
            return;
        }
        before = std::exchange(calls.before, nullptr);
        calls.driver = std::this_thread::get_id();
    }
    before();
}

void noticeWait() {
    Expected& calls = expected();
    InterceptedCalls::Action later;
    {
        const std::lock_guard lock(calls.mutex);
        if (calls.before != nullptr || calls.later == nullptr ||
            calls.driver != std::this_thread::get_id()) {
            return;
        }
        later = std::exchange(calls.later, nullptr);
    }
    later();
    const std::lock_guard lock(calls.mutex);
    calls.isDone = true;
    calls.changed.notify_all();
}

} // namespace

InterceptedCalls::InterceptedCalls() = default;

InterceptedCalls::~InterceptedCalls() {
    const std::lock_guard lock(expected().mutex);
    expected().before = nullptr;
    expected().later = nullptr;
}

void InterceptedCalls::atNext(Call call, Action before, Action later) {
    const std::lock_guard lock(expected().mutex);
    expected().call = call;
    expected().before = std::move(before);
    expected().later = std::move(later);
    expected().isDone = false;
}

bool InterceptedCalls::wait() const {
    std::unique_lock lock(expected().mutex);
    return expected().changed.wait_until(lock, Deadline().time(), [] { return expected().isDone; });
}

} // namespace glidemap::test

// The driver finds these functions in the dynamic symbol table.
extern "C" [[gnu::visibility("default")]] int ioctl(int file, unsigned long request, ...) noexcept {
    va_list list;
    va_start(list, request);
    void* argument = va_arg(list, void*);
    va_end(list);
    if (const auto call = glidemap::test::callOf(request, argument)) {
        glidemap::test::noticeCall(*call);
    }
    return static_cast<int>(syscall(SYS_ioctl, file, request, argument));
}

extern "C" [[gnu::visibility("default")]] int ppoll(pollfd* files, nfds_t count,
                                                    const timespec* timeout, const sigset_t* mask) {
    glidemap::test::noticeWait();
    timespec left = timeout != nullptr ? *timeout : timespec{}; // the kernel changes its argument
    return static_cast<int>(
        syscall(SYS_ppoll, files, count, timeout != nullptr ? &left : nullptr, mask, _NSIG / 8));
}
