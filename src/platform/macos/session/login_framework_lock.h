// Locks the screen by the function that the system's own menu uses, in its private login framework.
//
// Thread:  the main thread.
// Owner:   the program makes one for the action runner.
// Errors:  find() answers false where the framework or the function is missing. What the function
//          answers is nobody's business; the system has always locked by then.
#pragma once

#include "dispatch/screen_lock.h"

#include <string>

namespace glidemap {

class LoginFrameworkLock : public ScreenLock {
public:
    static constexpr const char* systemsFramework =
        "/System/Library/PrivateFrameworks/login.framework/login";

    explicit LoginFrameworkLock(std::string framework = systemsFramework);

    bool find() override;
    void lock(std::function<void()> otherwise) override;

private:
    using LockScreenImmediate = int (*)();

    const std::string path;
    LockScreenImmediate lockScreen = nullptr; // the framework is never closed
};

} // namespace glidemap
