// Tells when the user opens the program again while it runs, from the Finder or by Spotlight: the
// system then starts nothing, and sends it an Apple event instead.
//
// It takes the place of the handler that the application object installs for itself while it
// launches, so it must be made after that, once the event loop runs. Two of them would take the
// event from each other.
//
// Thread:  the main thread, which the system calls on, too.
// Owner:   the program makes one. It may be destroyed while it tells; the system calls no more once
//          it has gone.
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
