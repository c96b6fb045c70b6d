// Notifies of new touchpads and of newly granted access rights while the program runs.
//
//   udev: a touchpad or uinput exists, and its ACL is set ──┐
//   a node's permissions have changed without udev ─────────┴─▶ changed, once per burst
//
// Thread:  the main thread creates and destroys the watch, and calls `changed`. Events since the
//          construction are reported. The desktop thread waits for events without polling.
// Owner:   the program. `changed` is not called after destruction.
// Errors:  none; a source that cannot be watched is skipped.
#pragma once

#include "core/main_queue.h"
#include "platform/linux/desktop/desktop_thread.h"

#include <functional>
#include <memory>

namespace glidemap {

class InputDeviceWatch {
public:
    InputDeviceWatch(DesktopThread& desktop, std::shared_ptr<MainQueue> mainQueue,
                     std::function<void()> changed);
    InputDeviceWatch(const InputDeviceWatch&) = delete;
    InputDeviceWatch& operator=(const InputDeviceWatch&) = delete;
    ~InputDeviceWatch();

private:
    class OnDesktopThread;

    DesktopThread& desktop;
    std::shared_ptr<std::function<void()>> onChange; // tasks in the main queue hold weak references
    std::shared_ptr<OnDesktopThread> watch;          // used and destroyed on the desktop thread
};

} // namespace glidemap
