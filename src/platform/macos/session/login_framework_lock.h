// Locks the screen with the function that the system's own menu uses. The function is part of the
// private login framework.
//
// Thread:  the main thread.
// Owner:   the program creates one for the action runner.
// Errors:  find() returns false if the framework or the function is missing. The result of the
//          system's function is ignored, because the screen is locked when the function returns.
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
    LockScreenImmediate lockScreen = nullptr; // the framework is never unloaded
};

} // namespace glidemap
