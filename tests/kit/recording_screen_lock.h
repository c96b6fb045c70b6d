// A system's lock that is there or not, and that refuses when the test says so.
//
// Thread:  the test's main thread.
#pragma once

#include "dispatch/screen_lock.h"

#include <functional>
#include <utility>

namespace glidemap::kit {

class RecordingScreenLock : public ScreenLock {
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
    std::function<void()> refuse; // what the last lock() was given
};

} // namespace glidemap::kit
