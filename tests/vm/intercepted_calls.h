// Calls a test's functions when the driver calls the kernel. Thus a finger can touch a touchpad
// exactly before a grab, or while the driver waits for its next event. This file's ioctl() and
// ppoll() replace those of the C library, also for the driver that the test loads.
//
//   InterceptedCalls calls;
//   calls.atNext(InterceptedCalls::Call::grab, [&] { hand.down(1); }, [] {});
//   filter.switchOn(true);
//
// Thread:  a test's; the functions are called on the driver's thread.
// Owner:   a test; one at a time.
// Errors:  wait() returns false after a time-out.
#pragma once

#include <functional>

namespace glidemap::test {

class InterceptedCalls {
public:
    using Action = std::function<void()>;

    // The driver's calls that concern a grab. Before a release, the driver requests the slots.
    enum class Call { grab, requestSlots, release };

    InterceptedCalls();
    InterceptedCalls(const InterceptedCalls&) = delete;
    InterceptedCalls& operator=(const InterceptedCalls&) = delete;
    ~InterceptedCalls();

    // At the next call of this kind: runs `before` just before the kernel's call, and `later`
    // before the same thread waits for its next event.
    void atNext(Call call, Action before, Action later);

    // Waits until both functions have returned. Returns false after a time-out.
    bool wait() const;
};

} // namespace glidemap::test
