// A virtual clock with a serial queue, a main queue and delayed work. All of them advance only on
// request.
//
// A test or the replay tool advances the time. For each record of a recording:
//
//   time.advanceTo(t);     runs delayed items due by then, each with the clock at its deadline
//   push the record        the submitted tasks stay in the queues
//   time.runSubmitted();   runs these tasks: first the serial queue, then the main queue
//
// After the last record: time.runRemaining().
//
// Units:   seconds in the time of the records. The uptime is that time plus 1000 s, so that a
//          recording that starts at 0 does not appear to start right after boot. Deadlines are
//          stored in the time of the records, because adding 1000 s would lose precision.
// Thread:  one, for everything.
// Owner:   the code that advances the time. The engine shares the ports, which may outlive this
//          object.
// Errors:  none; a time that is infinite or not a number leaves the clock unchanged.
#pragma once

#include "core/delayed_work.h"
#include "core/main_queue.h"
#include "core/serial_queue.h"
#include "core/uptime_clock.h"

#include <memory>

namespace glidemap {

class VirtualTime {
public:
    static constexpr double uptimeAtZero = 1000;

    VirtualTime();
    VirtualTime(const VirtualTime&) = delete;
    VirtualTime& operator=(const VirtualTime&) = delete;
    ~VirtualTime();

    std::shared_ptr<UptimeClock> clock() const;
    std::shared_ptr<SerialQueue> queue() const;
    std::shared_ptr<MainQueue> mainQueue() const;
    std::shared_ptr<DelayedWork> delayedWork() const;

    // Runs the submitted tasks, then each delayed item with a deadline at or before `time`,
    // including items that other items schedule. Items run in the order of their deadlines; items
    // with equal deadlines run in the order of scheduling. Then sets the clock to `time`, even if
    // that is earlier than before: a record may contain such a time.
    void advanceTo(double time);

    // Runs the tasks in the serial queue, then those in the main queue, and repeats this until both
    // queues are empty.
    void runSubmitted();

    // Runs all remaining delayed items as advanceTo() does, and leaves the clock at the last
    // deadline.
    void runRemaining();

    double now() const;

    // Returns the time at which the next delayed item is due, or infinity if none is scheduled.
    double nextDeadline() const;

private:
    class Clock;
    class Tasks;
    class Queue;
    class Main;
    class Delayed;

    void runNextDelayed();

    std::shared_ptr<Clock> _clock;
    std::shared_ptr<Queue> _queue;
    std::shared_ptr<Main> _mainQueue;
    std::shared_ptr<Delayed> _delayedWork;
    bool isRunning = false;
};

} // namespace glidemap
