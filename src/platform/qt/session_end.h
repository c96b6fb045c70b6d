// Ends the program when the session ends, or when Qt receives another request to quit. The user is
// not asked for confirmation. The session manager is asked never to restart the program, because a
// user setting determines whether the program starts at login.
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
