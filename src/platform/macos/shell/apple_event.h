// Calls a function when the system sends the program an Apple event:
//
//   reopen   the user opens the running program again, from the Finder or Spotlight; no process starts
//   quit     the program must quit: logout, shutdown, or a request from another program
//
// The handler replaces the application object's own handler, which is installed during the launch.
// Therefore, create this object only after the event loop has started. Create only one object for
// each kind of event, because a second one would replace the handler of the first.
//
// Thread:  the main thread, for calls and for callbacks.
// Owner:   the program creates one for each kind. The callback may destroy the object. Afterwards,
//          the callback is not called any more.
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
