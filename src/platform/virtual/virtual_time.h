// Time as data: a clock, a serial queue, a main queue and delayed work that stand still until they
// are moved on.
//
// Whoever plays records (a test, the replay tool) is the driver of time. For each record:
//
//   time.advanceTo(t);     delayed items due by then run, each with the clock at its own deadline
//   push the record        whatever it submits to the queues waits
//   time.runSubmitted();   and runs here: the serial queue in order, then what it gave the main one
//
// and once the records are over, time.runRemaining().
//
// Units:   seconds of the records. The uptime is that time plus 1000 s, so that a recording may
//          start at 0 and its first gesture is still a long way from the start of the system.
//          Deadlines are kept in the records' time: adding the 1000 s first would cost digits.
// Thread:  one, for everything.
// Owner:   the driver of time; the ports are shared with the engine and may outlive it.
// Errors:  a time that is no number leaves the clock where it is.
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

    // Runs what has been submitted, then every delayed item with a deadline at or before `time`: in
    // the order of the deadlines, equal ones as they were scheduled, those that items schedule
    // included. The clock then stands at `time`, also when that is earlier than before: a record
    // may claim it, and nothing waits for a time that has been.
    void advanceTo(double time);

    // Runs the tasks on the serial queue, then those on the main queue, until both are empty.
    void runSubmitted();

    // Runs every delayed item that is left, as advanceTo() would, and leaves the clock at the last
    // deadline.
    void runRemaining();

    double now() const;

    // When the next delayed item is due; never (infinity) if none waits.
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
