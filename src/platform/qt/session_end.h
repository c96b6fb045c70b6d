// Ends the program when the session manager ends the session, or when Qt receives another request
// to quit. The user is not asked, and session managers are asked not to restart the program:
// starting at login is the user's choice.
//
// Thread:  the main thread, while the application object exists.
// Owner:   the program.
// Errors:  none.
#pragma once

#include <functional>
#include <memory>

namespace glidemap {

class SessionEnd {
public:
    explicit SessionEnd(std::function<void()> onRequest);
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;
    ~SessionEnd();

private:
    class Listener;
    std::unique_ptr<Listener> listener;
};

} // namespace glidemap
