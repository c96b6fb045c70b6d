// Notices touchpads that come, and rights of access that are given, while the program runs.
//
//   udev: a touchpad or uinput is there, with its access list ─┐
//   a node's rights have changed without udev ─────────────────┴─▶ changed, once for all of a moment
//
// Thread:  made and destroyed on the main thread, where `changed` is called, too. What happens after
//          it was made is told. Between two events it sleeps on the desktop thread.
// Owner:   the program. Nothing is called once it is gone.
// Errors:  none; what cannot be watched is not.
#pragma once

#include "core/main_queue.h"
#include "platform/linux/windows/desktop_thread.h"

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
    std::shared_ptr<std::function<void()>> told; // what the main queue's tasks hold weakly
    std::shared_ptr<OnDesktopThread> watch;      // used and destroyed there
};

} // namespace glidemap
