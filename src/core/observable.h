// Tells observers that an object's published state is about to change, and that it has.
//
// An observer re-reads what it shows; the announcement carries no value. Subscriptions may be made
// and released at any time, from within an announcement too: an observer released while one is
// under way is not called any more.
//
// Thread:  one, the main thread.
// Owner:   the observed object holds the Observable; each observer holds its Subscription, which
// unsubscribes when it
//          goes. A subscription may outlive the observed object.
#pragma once

#include <functional>
#include <memory>

namespace glidemap {

class Observable;

class [[nodiscard]] Subscription {
public:
    Subscription() = default;
    void release() { entry.reset(); }

private:
    friend class Observable;
    struct Entry {
        std::function<void()> willChange;
        std::function<void()> didChange;
    };
    explicit Subscription(std::shared_ptr<Entry> held) : entry(std::move(held)) {}

    std::shared_ptr<Entry> entry;
};

class Observable {
public:
    Observable();
    Observable(const Observable&) = delete;
    Observable& operator=(const Observable&) = delete;
    ~Observable();

    // Either function may be empty.
    Subscription subscribe(std::function<void()> willChange, std::function<void()> didChange = {});

    void announceWillChange();
    void announceDidChange();

private:
    struct Entries;
    void announce(std::function<void()> Subscription::Entry::*which);

    std::unique_ptr<Entries> entries;
};

} // namespace glidemap
