// Ends the program when the desktop asks it to: a session manager at the end of the session, or
// whoever else the toolkit listens to. Nothing is asked of the user, and no session starts the
// program again by itself: launch at login is the user's own choice.
//
// Thread:  the main thread, within the application object's life.
// Owner:   the program makes one.
// Errors:  none.
#pragma once

#include <functional>
#include <memory>

namespace glidemap {

class SessionEnd {
public:
    explicit SessionEnd(std::function<void()> asked);
    SessionEnd(const SessionEnd&) = delete;
    SessionEnd& operator=(const SessionEnd&) = delete;
    ~SessionEnd();

private:
    class Listener;
    std::unique_ptr<Listener> listener;
};

} // namespace glidemap
