#include "dispatch/timely_queue.h"

#include <mutex>
#include <set>
#include <utility>

namespace glidemap {

// The submission times of the tasks that the main thread has not started.
class TimelyQueue::Waiting {
public:
    using Place = std::multiset<Time>::iterator;

    Place add(Time time) {
        const std::lock_guard lock(mutex);
        return since.insert(time);
    }

    void remove(Place place) {
        const std::lock_guard lock(mutex);
        since.erase(place);
    }

    bool isAnyOlderThan(Time time) const {
        const std::lock_guard lock(mutex);
        return !since.empty() && *since.begin() <= time;
    }

private:
    mutable std::mutex mutex;
    std::multiset<Time> since;
};

// The task counts as waiting until this object is destroyed: just before the task runs, or when the
// main queue discards it.
struct TimelyQueue::Submitted {
    Submitted(std::shared_ptr<Waiting> waiting, Time time, IfLate ifLate,
              std::function<void()> work)
        : waiting(std::move(waiting)), place(this->waiting->add(time)), time(time), ifLate(ifLate),
          work(std::move(work)) {}
    Submitted(const Submitted&) = delete;
    Submitted& operator=(const Submitted&) = delete;
    ~Submitted() { waiting->remove(place); }

    std::shared_ptr<Waiting> waiting;
    Waiting::Place place;
    Time time;
    IfLate ifLate;
    std::function<void()> work;
};

TimelyQueue::TimelyQueue(std::shared_ptr<MainQueue> queue, Clock now)
    : queue(std::move(queue)), now(std::move(now)), waiting(std::make_shared<Waiting>()) {}

// An action may run a nested event loop, which processes other tasks. A task therefore counts as
// started before it runs.
void TimelyQueue::submit(IfLate ifLate, std::function<void()> work) {
    queue->submit([submitted = std::make_unique<Submitted>(waiting, now(), ifLate, std::move(work)),
                   clock = now]() mutable {
        const bool isLate = clock() - submitted->time > maxWait;
        const std::function<void()> task =
            isLate && submitted->ifLate == IfLate::drop ? nullptr : std::move(submitted->work);
        submitted.reset();
        if (task) {
            task();
        }
    });
}

bool TimelyQueue::isStalled() const {
    return waiting->isAnyOlderThan(now() - stalledAfter);
}

} // namespace glidemap
