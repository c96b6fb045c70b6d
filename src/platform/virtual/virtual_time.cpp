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

class VirtualTime::Queue : public SerialQueue {
public:
    void submit(Task task) override { tasks.push_back(std::move(task)); }

    void stop() override {
        tasks.clear();
        next = 0;
    }

    void run() {
        if (isRunning) {
            return; // a task that moves time on: its followers run after it
        }
        isRunning = true;
        while (next < tasks.size()) {
            // Taken out first: the task may submit more and so move its own storage.
            Task task = std::move(tasks[next]);
            ++next;
            task();
        }
        tasks.clear();
        next = 0;
        isRunning = false;
    }

private:
    std::vector<Task> tasks; // emptied after every run, its memory kept
    std::size_t next = 0;
    bool isRunning = false;
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
        items; // equal deadlines stay in the order of insertion
};

VirtualTime::VirtualTime()
    : _clock(std::make_shared<Clock>()), _queue(std::make_shared<Queue>()),
      _delayedWork(std::make_shared<Delayed>(_clock)) {}

VirtualTime::~VirtualTime() = default;

std::shared_ptr<UptimeClock> VirtualTime::clock() const {
    return _clock;
}
std::shared_ptr<SerialQueue> VirtualTime::queue() const {
    return _queue;
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

void VirtualTime::runSubmitted() {
    _queue->run();
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
