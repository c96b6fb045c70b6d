// Records events of all threads in order.
#pragma once

#include "kit/patience.h"

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::test {

class Journal {
public:
    using Lines = std::vector<std::string>;

    void add(std::string line) {
        const std::lock_guard lock(mutex);
        written.push_back(std::move(line));
        more.notify_all();
    }

    void clear() {
        const std::lock_guard lock(mutex);
        written.clear();
    }

    Lines lines() const {
        const std::lock_guard lock(mutex);
        return written;
    }

    // Only a failing test reaches the timeout.
    bool waitForAny(const Lines& awaited) {
        std::unique_lock lock(mutex);
        return more.wait_for(lock, patience, [&] {
            return std::find_first_of(written.begin(), written.end(), awaited.begin(),
                                      awaited.end()) != written.end();
        });
    }
    bool waitForCount(const std::string& line, long count) {
        std::unique_lock lock(mutex);
        return more.wait_for(lock, patience, [&] {
            return std::count(written.begin(), written.end(), line) >= count;
        });
    }
    bool waitFor(const std::string& line) { return waitForCount(line, 1); }

private:
    mutable std::mutex mutex;
    std::condition_variable more;
    Lines written;
};

} // namespace glidemap::test
