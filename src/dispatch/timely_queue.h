// Submits actions to the main thread, drops actions that wait too long, and detects a stalled main
// thread.
//
//   submit ──▶ main queue ──▶ started within two seconds: runs
//                        └──▶ started later: dropped, because another window may have the focus
//
// A stalled main thread is detected only while a task waits. Without a waiting task the stall has
// no effect, so no thread wakes up to check.
//
// Units:   seconds of a monotonic clock.
// Thread:  any.
// Owner:   the dispatcher. Waiting tasks may outlive it.
// Errors:  none. A task that the main queue discards no longer counts as waiting.
#pragma once

#include "core/main_queue.h"

#include <chrono>
#include <functional>
#include <memory>

namespace glidemap {

class TimelyQueue {
public:
    using Time = std::chrono::steady_clock::time_point;
    using Clock = std::function<Time()>; // called on any thread

    // If nothing happens for this long, the user clicks again. Clicks must then reach the desktop.
    static constexpr std::chrono::seconds stalledAfter{1};

    // After this long, the user may have switched to another window.
    static constexpr std::chrono::seconds maxWait{2};

    enum class IfLate { run, drop };

    TimelyQueue(std::shared_ptr<MainQueue> queue, Clock now);

    void submit(IfLate ifLate, std::function<void()> work);

    // Returns whether a task has waited for a second or longer.
    bool isStalled() const;

private:
    class Waiting;
    struct Submitted;

    std::shared_ptr<MainQueue> queue;
    Clock now;
    std::shared_ptr<Waiting> waiting;
};

} // namespace glidemap
