#include "platform/linux/desktop/desktop_thread.h"

#include "platform/linux/desktop/glib_owner.h"
#include "platform/linux/thread_setup.h"

#include <gio/gio.h>
#include <glib-unix.h>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

namespace glidemap {

namespace {

gboolean runOnce(gpointer work) {
    (*static_cast<std::function<void()>*>(work))();
    return G_SOURCE_REMOVE;
}

void forget(gpointer work) {
    delete static_cast<std::function<void()>*>(work);
}

gboolean notifyReadable(gint /*descriptor*/, GIOCondition /*condition*/, gpointer readable) {
    // The callback may destroy its own watch. This is safe, because GLib keeps the function alive
    // until it returns.
    (*static_cast<std::function<void()>*>(readable))();
    return G_SOURCE_CONTINUE;
}

} // namespace

// Tasks are stored in our own queue and protected by a mutex, because the thread sanitizer cannot
// see the synchronization inside GLib.
struct DesktopThread::State {
    GlibOwner<GMainContext> context{g_main_context_new()};
    GlibOwner<GMainLoop> loop{g_main_loop_new(context.get(), FALSE)};
    std::thread thread;
    std::mutex mutex;
    std::deque<std::function<void()>> waiting;

    void add(std::function<void()> work) {
        const std::lock_guard lock(mutex);
        waiting.push_back(std::move(work));
    }

    std::function<void()> takeFirst() {
        const std::lock_guard lock(mutex);
        std::function<void()> first = std::move(waiting.front());
        waiting.pop_front();
        return first;
    }

    static gboolean runFirst(gpointer state) {
        static_cast<State*>(state)->takeFirst()();
        return G_SOURCE_REMOVE;
    }
};

DesktopThread::DesktopThread() : state(std::make_unique<State>()) {
    state->thread = std::thread([this] {
        nameThread("glidemap-desktop");
        g_main_context_push_thread_default(state->context.get());
        g_main_loop_run(state->loop.get());
        g_main_context_pop_thread_default(state->context.get());
    });
}

DesktopThread::~DesktopThread() {
    submit([this] { g_main_loop_quit(state->loop.get()); });
    state->thread.join();
}

GMainContext* DesktopThread::context() const {
    return state->context.get();
}

void DesktopThread::submit(std::function<void()> work) {
    GSource* const source = g_idle_source_new();
    g_source_set_priority(source, G_PRIORITY_DEFAULT);
    g_source_set_callback(source, State::runFirst, state.get(), nullptr);
    state->add(std::move(work));
    g_source_attach(source, context());
    g_source_unref(source); // the context owns it
}

void DesktopThread::call(const std::function<void()>& work) {
    std::mutex mutex;
    std::condition_variable finished;
    bool done = false;
    submit([&] {
        work();
        const std::lock_guard lock(mutex);
        done = true;
        finished.notify_one();
    });
    std::unique_lock lock(mutex);
    finished.wait(lock, [&] { return done; });
}

DesktopThread::Watch DesktopThread::attach(GSource* source, GSourceFunc function,
                                           std::function<void()> work) const {
    Watch watch(source);
    g_source_set_callback(source, function, new std::function<void()>(std::move(work)), forget);
    g_source_attach(source, context());
    return watch;
}

DesktopThread::Watch DesktopThread::watch(int descriptor, std::function<void()> readable) {
    return attach(
        g_unix_fd_source_new(descriptor, static_cast<GIOCondition>(G_IO_IN | G_IO_HUP | G_IO_ERR)),
        G_SOURCE_FUNC(notifyReadable), std::move(readable));
}

DesktopThread::Watch DesktopThread::after(std::chrono::milliseconds delay,
                                          std::function<void()> due) {
    return attach(g_timeout_source_new(static_cast<guint>(delay.count())), runOnce, std::move(due));
}

} // namespace glidemap
