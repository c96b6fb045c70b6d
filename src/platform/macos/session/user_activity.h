// While one exists, the system does not slow the program down for showing no window (App Nap), and may still sleep.
//
// Thread:  any.
// Owner:   the object whose work the user waits for.
// Errors:  none.
#pragma once

#include <memory>

namespace glidemap {

class UserActivity {
public:
    // The reason is for people who look for what keeps their computer busy.
    explicit UserActivity(const char* reason);
    UserActivity(const UserActivity&) = delete;
    UserActivity& operator=(const UserActivity&) = delete;
    ~UserActivity();

private:
    struct Token;

    std::unique_ptr<Token> token;
};

} // namespace glidemap
