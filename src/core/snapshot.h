// A value that one thread replaces and others read whole.
//
// Readers get the value as it stood at one moment and may keep it; they never see half of a change
// and never hold a writer up for longer than it takes to copy a pointer. A mutex held for
// nanoseconds rather than an atomic shared pointer: GCC 12's is reported by the thread sanitizer,
// rightly, and Apple's library has none.
//
// Thread:  any.
#pragma once

#include <memory>
#include <mutex>
#include <utility>

namespace glidemap {

template <typename Value>
class Snapshot {
public:
    explicit Snapshot(Value value = {})
        : current(std::make_shared<const Value>(std::move(value))) {}

    std::shared_ptr<const Value> get() const {
        const std::lock_guard lock(mutex);
        return current;
    }

    void set(Value value) {
        auto next = std::make_shared<const Value>(std::move(value));
        const std::lock_guard lock(mutex);
        current.swap(next);
    }

private:
    mutable std::mutex mutex;
    std::shared_ptr<const Value> current;
};

} // namespace glidemap
