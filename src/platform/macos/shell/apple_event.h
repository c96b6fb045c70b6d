// Calls back when the system sends the program an Apple event:
//
//   reopen   the user opens the program again while it runs, from the Finder or by Spotlight. The system then starts nothing.
//   quit     the program must end: the user logs out or shuts the computer down, or another program asks.
//
// It takes the place of the handler that the application object installs for itself while it
// launches, so it must be made after that, once the event loop runs. Two of a kind would take the
// event from each other.
//
// Thread:  the main thread, which the system calls on, too.
// Owner:   the program makes one of each kind. It may be destroyed during its callback; the system calls no more
//          once it has gone.
// Errors:  none.
#pragma once

#include <functional>
#include <memory>

namespace glidemap {

class AppleEvent {
public:
    enum class Kind { reopen, quit };

    AppleEvent(Kind kind, std::function<void()> onEvent);
    AppleEvent(const AppleEvent&) = delete;
    AppleEvent& operator=(const AppleEvent&) = delete;
    ~AppleEvent();

private:
    struct Handler;

    std::unique_ptr<Handler> handler;
};

} // namespace glidemap
