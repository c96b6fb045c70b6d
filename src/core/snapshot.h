// A value that one thread replaces and other threads read as a whole.
//
// A reader gets a complete value, never a partial change, and may keep it. Reading blocks a writer
// only while a pointer is copied. The class uses a mutex, which is held for nanoseconds, instead of
// std::atomic<std::shared_ptr>: the thread sanitizer reports a data race in GCC 12's implementation
// of that type, and Apple's library lacks the type.
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
