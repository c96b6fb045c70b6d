// Reports when the user opens the running program again, from the Finder or Spotlight. The system
// then starts no process but sends an Apple event.
//
// This handler replaces the one that the application object installs while it launches, so create
// it after that, when the event loop runs. Create only one: a second would replace the first.
//
// Thread:  the main thread, which the system also calls on.
// Owner:   the program. The callback may destroy it; the system makes no calls after its
//          destruction.
// Errors:  none.
#pragma once

#include <functional>
#include <memory>

namespace glidemap {

class ReopenEvent {
public:
    explicit ReopenEvent(std::function<void()> onReopen);
    ReopenEvent(const ReopenEvent&) = delete;
    ReopenEvent& operator=(const ReopenEvent&) = delete;
    ~ReopenEvent();

private:
    struct Handler;

    std::unique_ptr<Handler> handler;
};

} // namespace glidemap
