// The thread that communicates with the desktop over X11, Wayland and D-Bus. It sleeps until an
// event arrives.
//
// Thread:  submit() and call() on any thread; call() must not be used in a task on the thread
//          itself.
// Owner:   the program. It must outlive all objects that live on the thread.
// Errors:  none.
#pragma once

#include "platform/linux/desktop/glib_owner.h"

#include <chrono>
#include <functional>
#include <memory>

namespace glidemap {

class DesktopThread {
public:
    DesktopThread();
    DesktopThread(const DesktopThread&) = delete;
    DesktopThread& operator=(const DesktopThread&) = delete;
    ~DesktopThread();

    // Queues a task. Tasks run in order. During a task, the thread's context is the thread-default
    // GLib context, so GLib delivers notifications on this thread.
    void submit(std::function<void()> work);

    // Like submit(), but waits until the task has run.
    void call(const std::function<void()>& work);

    GMainContext* context() const;

    // A registered callback, cancelled when the watch is destroyed. The callback may destroy its
    // own watch. Create, use and destroy watches on this thread.
    using Watch = GlibOwner<GSource>;

    // Calls the function whenever the descriptor is readable or the peer has closed it.
    Watch watch(int descriptor, std::function<void()> readable);

    // Calls the function once, after the delay.
    Watch after(std::chrono::milliseconds delay, std::function<void()> due);

private:
    struct State;

    Watch attach(GSource* source, int (*function)(void*), std::function<void()> work) const;

    std::unique_ptr<State> state;
};

} // namespace glidemap
