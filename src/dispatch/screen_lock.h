// Port: the system's own way to lock the screen immediately.
//
// Thread:  the main thread.
// Errors:  returned as values.
#pragma once

#include <functional>

namespace glidemap {

class ScreenLock {
public:
    ScreenLock() = default;
    ScreenLock(const ScreenLock&) = delete;
    ScreenLock& operator=(const ScreenLock&) = delete;
    virtual ~ScreenLock() = default;

    // Looks for the lock function, once per run at the first call. Returns false if the system has
    // none.
    virtual bool find() = 0;

    // Does not block. If the system refuses, calls `otherwise` once, on the main thread.
    virtual void lock(std::function<void()> otherwise) = 0;
};

} // namespace glidemap
