#include "platform/virtual/virtual_time.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <map>
#include <utility>
#include <vector>

namespace glidemap {

class VirtualTime::Clock : public UptimeClock {
public:
    double uptime() const override { return now + uptimeAtZero; }

    double now = 0;
};

// Tasks in the order of submission. Their memory is reused.
class VirtualTime::Tasks {
public:
    void add(Task task) { tasks.push_back(std::move(task)); }

    void clear() {
        tasks.clear();
        next = 0;
    }

    // Runs all tasks, including tasks that are added meanwhile. Returns false if there were none.
    bool run() {
        const bool anyWaits = next < tasks.size();
        while (next < tasks.size()) {
            // The task is moved out of the vector, because it may submit others, and the vector may
            // reallocate.
            Task task = std::move(tasks[next]);
            ++next;
            task();
        }
        clear();
        return anyWaits;
    }

private:
    std::vector<Task> tasks;
    std::size_t next = 0;
};

class VirtualTime::Queue : public SerialQueue {
public:
    void submit(Task task) override { tasks.add(std::move(task)); }
    void stop() override { tasks.clear(); }

    Tasks tasks;
};

class VirtualTime::Main : public MainQueue {
public:
    void submit(Task task) override { tasks.add(std::move(task)); }

    Tasks tasks;
};

class VirtualTime::Delayed : public DelayedWork {
public:
    explicit Delayed(std::shared_ptr<const Clock> sharedClock) : clock(std::move(sharedClock)) {}

    void schedule(std::shared_ptr<WorkItem> item, double delay) override {
        const double wait = std::isfinite(delay) ? std::max(delay, 0.0) : 0;
        items.emplace(clock->now + wait, std::move(item));
    }

    void stop() override { items.clear(); }

    double nextDeadline() const {
        return items.empty() ? std::numeric_limits<double>::infinity() : items.begin()->first;
    }

    std::shared_ptr<WorkItem> takeNext() {
        std::shared_ptr<WorkItem> item = std::move(items.begin()->second);
        items.erase(items.begin());
        return item;
    }

private:
    std::shared_ptr<const Clock> clock;
    std::multimap<double, std::shared_ptr<WorkItem>>
        items; // a multimap keeps the insertion order of items with equal deadlines
};

VirtualTime::VirtualTime()
    : _clock(std::make_shared<Clock>()), _queue(std::make_shared<Queue>()),
      _mainQueue(std::make_shared<Main>()), _delayedWork(std::make_shared<Delayed>(_clock)) {}

VirtualTime::~VirtualTime() = default;

std::shared_ptr<UptimeClock> VirtualTime::clock() const {
    return _clock;
}
std::shared_ptr<SerialQueue> VirtualTime::queue() const {
    return _queue;
}
std::shared_ptr<MainQueue> VirtualTime::mainQueue() const {
    return _mainQueue;
}
std::shared_ptr<DelayedWork> VirtualTime::delayedWork() const {
    return _delayedWork;
}

double VirtualTime::now() const {
    return _clock->now;
}
double VirtualTime::nextDeadline() const {
    return _delayedWork->nextDeadline();
}

// Does nothing if called by a running task, for example through advanceTo(). Tasks submitted
// meanwhile run after that task returns.
void VirtualTime::runSubmitted() {
    if (isRunning) {
        return;
    }
    isRunning = true;
    bool anyRan = true;
    while (anyRan) {
        const bool anyOfQueue = _queue->tasks.run();
        anyRan = _mainQueue->tasks.run() || anyOfQueue;
    }
    isRunning = false;
}

void VirtualTime::advanceTo(double time) {
    runSubmitted();
    if (!std::isfinite(time)) {
        return;
    }
    while (nextDeadline() <= time) {
        runNextDelayed();
    }
    _clock->now = time;
}

void VirtualTime::runRemaining() {
    runSubmitted();
    while (std::isfinite(nextDeadline())) {
        runNextDelayed();
    }
}

void VirtualTime::runNextDelayed() {
    _clock->now = nextDeadline();
    _delayedWork->takeNext()->perform();
    runSubmitted();
}

} // namespace glidemap
