// A fake of the system's screen lock. It may be missing, and it refuses when the test calls
// `refuse`.
//
// Thread:  the test's main thread.
#pragma once

#include "dispatch/screen_lock.h"

#include <functional>
#include <utility>

namespace glidemap::kit {

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

} // namespace glidemap::kit
