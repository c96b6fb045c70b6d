// A virtual clock with a serial queue, a main queue and delayed work that advance only on request.
//
// The code that plays records (a test, the replay tool) drives the time. For each record:
//
//   time.advanceTo(t);     runs delayed items due by then, each with the clock at its deadline
//   push the record        tasks that it submits stay in the queues
//   time.runSubmitted();   runs them: first the serial queue, then the main queue
//
// After the last record: time.runRemaining().
//
// Units:   seconds of the records. The uptime is that time plus 1000 s, so that a recording may
//          start at 0 without its first gesture being close to the system's start. Deadlines are
//          kept in the records' time: adding 1000 s first would lose precision.
// Thread:  one, for everything.
// Owner:   the driver of the time; the engine shares the ports, and they may outlive this object.
// Errors:  none; a time that is not a number leaves the clock unchanged.
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
    // including items that other items schedule. Items run in the order of their deadlines; equal
    // deadlines run in the order of scheduling. The clock is then at `time`, even if that is
    // earlier than before: a record may contain such a time, and no item waits for it.
    void advanceTo(double time);

    // Runs the tasks on the serial queue, then those on the main queue, until both are empty.
    void runSubmitted();

    // Runs all remaining delayed items, as advanceTo() would, and leaves the clock at the last
    // deadline.
    void runRemaining();

    double now() const;

    // When the next delayed item is due; infinity if none is scheduled.
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
