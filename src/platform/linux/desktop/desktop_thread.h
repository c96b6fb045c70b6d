// The thread that listens to the desktop: X11, Wayland and D-Bus. It sleeps until an event arrives.
//
// Thread:  submit() and call() on any thread; call() must not run in the thread's own tasks.
// Owner:   the program. It outlives everything that lives on the thread.
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

    // Runs the task later, in order. The thread's context is the default one during the task, so
    // GLib subscriptions report on this thread.
    void submit(std::function<void()> work);

    // Like submit(), but waits until the task has run.
    void call(const std::function<void()>& work);

    GMainContext* context() const;

    // A registered callback, cancelled on destruction. The callback may destroy its own watch.
    // Create, use and destroy it on the thread.
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

    // Calls the function whenever the descriptor becomes readable or its peer has closed it.
    Watch watch(int descriptor, std::function<void()> readable);

    // Calls the function once, after the delay.
    Watch after(std::chrono::milliseconds delay, std::function<void()> due);

private:
    struct State;

    Watch attach(GSource* source, int (*function)(void*), std::function<void()> work);

    std::unique_ptr<State> state;
};

} // namespace glidemap
