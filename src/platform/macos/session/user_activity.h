// While it exists, prevents the system from slowing the program down when no window is visible (App
// Nap). The system may still sleep.
//
// Thread:  any.
// Owner:   the object whose work must not be delayed.
// Errors:  none.
#pragma once

#include <memory>

namespace glidemap {

class UserActivity {
public:
    // The system shows `reason` to users who check what keeps their computer busy.
    explicit UserActivity(const char* reason);
    UserActivity(const UserActivity&) = delete;
    UserActivity& operator=(const UserActivity&) = delete;
    ~UserActivity();

private:
    struct Token;

    std::unique_ptr<Token> token;
};

} // namespace glidemap
