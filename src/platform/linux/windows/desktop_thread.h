// The one thread that listens to the desktop: X11, Wayland and D-Bus. It sleeps until one of them
// has something to say.
//
// Thread:  submit() and call() on any; call() not from the thread itself's tasks.
// Owner:   the program makes one before, and destroys it after, whatever lives on it.
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

    // Runs the work on the thread, later, in order. Its context is the thread's default one there,
    // so what is subscribed within reports there, too.
    void submit(std::function<void()> work);

    // The same, and waits for it.
    void call(const std::function<void()>& work);

    GMainContext* context() const;

    // What is being waited for; no longer when it goes, which may be in the function that it calls.
    // To be made, used and destroyed on the thread.
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

    // Calls the function whenever the descriptor can be read, or its other end has gone.
    Watch watch(int descriptor, std::function<void()> readable);

    // Calls the function once, when that much time has passed.
    Watch after(std::chrono::milliseconds delay, std::function<void()> due);

private:
    struct State;

    Watch attach(GSource* source, int (*function)(void*), std::function<void()> work);

    std::unique_ptr<State> state;
};

} // namespace glidemap
