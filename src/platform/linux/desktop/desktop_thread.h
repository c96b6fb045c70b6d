// The thread that communicates with the desktop over X11, Wayland and D-Bus. It sleeps until an
// event arrives.
//
// Thread:  submit() and call() on any thread; call() must not be used in a task on the thread
//          itself.
// Owner:   the program. It must outlive all objects that live on the thread.
// Errors:  none.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

using GMainContext = struct _GMainContext;
using GSource = struct _GSource;

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

    // A registered callback. Destroying the watch removes the callback, which may also destroy its
    // own watch. Create, use and destroy watches on the desktop thread.
    class Watch {
    public:
        Watch();
        Watch(Watch&& other) noexcept;
        Watch& operator=(Watch&& other) noexcept;
        ~Watch();

    private:
        friend class DesktopThread;
        struct Source;
        explicit Watch(std::unique_ptr<Source> watched);
        std::unique_ptr<Source> source;
    };

    // Calls the function whenever the descriptor is readable or the peer has closed it.
    Watch watch(int descriptor, std::function<void()> readable);

    // Calls the function once, after the delay.
    Watch after(std::chrono::milliseconds delay, std::function<void()> due);

private:
    struct State;

    Watch attach(GSource* source, int (*function)(void*), std::function<void()> work);

    std::unique_ptr<State> state;
};

} // namespace glidemap
