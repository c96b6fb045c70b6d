// Port: locks the screen immediately, through a function of the system.
//
// Thread:  the main thread.
// Errors:  find() returns false; lock() calls `otherwise`.
#pragma once

#include <functional>

namespace glidemap {

class ScreenLock {
public:
    ScreenLock() = default;
    ScreenLock(const ScreenLock&) = delete;
    ScreenLock& operator=(const ScreenLock&) = delete;
    virtual ~ScreenLock() = default;

    // Returns false if the system has no lock function.
    virtual bool find() = 0;

    // Does not block. If the system refuses, `otherwise` is called once, on the main thread.
    virtual void lock(std::function<void()> otherwise) = 0;
};

} // namespace glidemap
