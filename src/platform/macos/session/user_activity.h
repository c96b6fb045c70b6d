// While this object exists, the system does not slow the program down when no window is visible
// (App Nap). The machine may still go to sleep.
//
// Thread:  any.
// Owner:   the object whose work must not be delayed.
// Errors:  none.
#pragma once

#include <memory>

namespace glidemap {

class UserActivity {
public:
    // The system's tools show `reason` in their lists of activities.
    explicit UserActivity(const char* reason);
    UserActivity(const UserActivity&) = delete;
    UserActivity& operator=(const UserActivity&) = delete;
    ~UserActivity();

private:
    struct Token;

    std::unique_ptr<Token> token;
};

} // namespace glidemap
