// Port: the system's own way to lock the screen at once.
//
// Thread:  the main thread.
// Errors:  as answers.
#pragma once

#include <functional>

namespace glidemap {

class ScreenLock {
public:
    ScreenLock() = default;
    ScreenLock(const ScreenLock&) = delete;
    ScreenLock& operator=(const ScreenLock&) = delete;
    virtual ~ScreenLock() = default;

    // Looks for it, once per run at the first use. False if the system has none.
    virtual bool find() = 0;

    // Does not wait. Where the system turns out to refuse, `otherwise` is called, on the main
    // thread, once.
    virtual void lock(std::function<void()> otherwise) = 0;
};

} // namespace glidemap
