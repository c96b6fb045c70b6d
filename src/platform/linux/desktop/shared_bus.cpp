#include "platform/linux/desktop/shared_bus.h"

#include "platform/linux/desktop/glib_owner.h"

#include <gio/gio.h>

#include <memory>
#include <utility>

namespace glidemap {

namespace {

// An attempt to connect, with its time limit.
struct Attempt {
    explicit Attempt(std::function<void(GDBusConnection*)> given)
        : then(std::move(given)), cancellable(g_cancellable_new()),
          limit(g_timeout_source_new(static_cast<guint>(sharedBusPatience.count()))) {
        g_source_set_callback(limit.get(), cancel, cancellable.get(), nullptr);
        g_source_attach(limit.get(), g_main_context_get_thread_default());
    }
    Attempt(const Attempt&) = delete;
    Attempt& operator=(const Attempt&) = delete;
    ~Attempt() = default;

    static gboolean cancel(gpointer cancellable) {
        g_cancellable_cancel(static_cast<GCancellable*>(cancellable));
        return G_SOURCE_REMOVE;
    }

    const std::function<void(GDBusConnection*)> then;
    const GlibOwner<GCancellable> cancellable;
    const GlibOwner<GSource> limit;
};

// A reference that keeps GIO's connection open. Otherwise GIO would close the connection after each
// launch, and opening a new one takes a millisecond. Used only on the launching thread.
GDBusConnection* kept = nullptr;

void finished(GObject* /*source*/, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<Attempt> attempt(static_cast<Attempt*>(data));
    const GlibOwner<GDBusConnection> bus(g_bus_get_finish(result, nullptr));
    if (bus != nullptr) { // the program handles the session's end, not GIO
        g_dbus_connection_set_exit_on_close(bus.get(), FALSE);
        g_set_object(&kept, bus.get());
    }
    attempt->then(bus.get());
}

} // namespace

void withSharedBus(std::function<void(GDBusConnection* bus)> then) {
    if (kept != nullptr && g_dbus_connection_is_closed(kept) != FALSE) {
        g_clear_object(&kept); // GIO would otherwise return the closed connection again
    }
    auto* const attempt = new Attempt(std::move(then));
    g_bus_get(G_BUS_TYPE_SESSION, attempt->cancellable.get(), finished, attempt);
}

} // namespace glidemap
