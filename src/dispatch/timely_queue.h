// Hands actions to the main thread, drops those that it takes too late, and tells whether it takes
// any at all.
//
//   submit ──▶ main queue ──▶ taken within two seconds: runs
//                        └──▶ taken later: dropped, for another window may have the focus by then
//
// A hung main thread is noticed by what waits for it, and by nothing else: without a waiting task
// there is nothing to notice, and no thread wakes up to look.
//
// Units:   seconds of a monotonic clock.
// Thread:  any.
// Owner:   the dispatcher. Tasks that still wait may outlive it.
// Errors:  none. A task that the main queue discards counts as waiting no longer.
#pragma once

#include "core/main_queue.h"

#include <chrono>
#include <functional>
#include <memory>

namespace glidemap {

class TimelyQueue {
public:
    using Time = std::chrono::steady_clock::time_point;
    using Clock = std::function<Time()>; // on any thread

    // A person who sees nothing happen for this long clicks again, and expects the desktop to react.
    static constexpr std::chrono::seconds stalledAfter{1};

    // After this long a person has turned to something else, perhaps to another window.
    static constexpr std::chrono::seconds maxWait{2};

    enum class IfLate { run, drop };

    TimelyQueue(std::shared_ptr<MainQueue> mainQueue, Clock clock);

    void submit(IfLate ifLate, std::function<void()> work);

    // Whether a task has been waiting for a second or longer.
    bool isStalled() const;

private:
    class Waiting;
    struct Submitted;

    std::shared_ptr<MainQueue> queue;
    Clock now;
    std::shared_ptr<Waiting> waiting;
};

} // namespace glidemap
