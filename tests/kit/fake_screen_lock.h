// A fake screen lock. The test sets whether it exists, and calls `refuse` to make it refuse.
//
// Thread:  the test's main thread.
#pragma once

#include "dispatch/screen_lock.h"

#include <functional>
#include <utility>

namespace glidemap::test {

class FakeScreenLock : public ScreenLock {
public:
    bool find() override {
        ++timesLookedFor;
        return exists;
    }

    void lock(std::function<void()> otherwise) override {
        ++timesLocked;
        refuse = std::move(otherwise);
    }

    bool exists = true;
    int timesLookedFor = 0;
    int timesLocked = 0;
    std::function<void()> refuse; // the callback passed to the last lock()
};

} // namespace glidemap::test
