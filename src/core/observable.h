// Notifies observers before and after an object's published state changes.
//
// The notification carries no value: an observer re-reads the state that it shows. Observers may
// subscribe and unsubscribe at any time, even during a notification; after unsubscribing, an
// observer is not notified again.
//
// Thread:  the main thread.
// Owner:   the observed object owns the Observable; each observer owns its Subscription,
//          whose destructor unsubscribes. A subscription may outlive the observed object.
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
