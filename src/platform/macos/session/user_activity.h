// Keeps the system from slowing the program down while it shows no window (App Nap), during its
// life. The system may still sleep.
//
// Thread:  any.
// Owner:   the object whose work the user waits for.
// Errors:  none.
#pragma once

#include <memory>

namespace glidemap {

class UserActivity {
public:
    // The system shows the reason to users who check what keeps their computer busy.
    explicit UserActivity(const char* reason);
    UserActivity(const UserActivity&) = delete;
    UserActivity& operator=(const UserActivity&) = delete;
    ~UserActivity();

private:
    struct Token;

    std::unique_ptr<Token> token;
};

} // namespace glidemap
