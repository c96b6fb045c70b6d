#include "platform/linux/desktop/bus_request.h"

#include "core/log.h"
#include "platform/linux/desktop/glib_owner.h"

#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace glidemap {

namespace {

using Connection = GlibOwner<GDBusConnection>;
using Cancellable = GlibOwner<GCancellable>;
using Source = GlibOwner<GSource>;

using Function = std::function<void()>;

void forgetFunction(gpointer function) {
    delete static_cast<Function*>(function);
}

gboolean runOnce(gpointer function) {
    (*static_cast<Function*>(function))();
    return G_SOURCE_REMOVE;
}

// Starts a timer on the calling thread. Destroying the returned source stops the timer.
Source startTimer(std::chrono::milliseconds delay, Function function) {
    Source timer(g_timeout_source_new(static_cast<guint>(delay.count())));
    g_source_set_callback(timer.get(), runOnce, new Function(std::move(function)), forgetFunction);
    g_source_attach(timer.get(), g_main_context_get_thread_default());
    return timer;
}

bool isServiceMissing(const GError* error) {
    return g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_SERVICE_UNKNOWN) ||
           g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_NAME_HAS_NO_OWNER);
}

bool isTimeout(const GError* error) {
    return g_error_matches(error, G_IO_ERROR, G_IO_ERROR_TIMED_OUT) ||
           g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_NO_REPLY);
}

} // namespace

struct BusRequest::State {
    using WithBus = std::function<void(GDBusConnection* connection)>;
    using SignalHandler = std::function<void(GVariant* values)>;

    // The user data of GIO's callbacks. It keeps the transaction alive until the callbacks have
    // run.
    struct Opening {
        std::shared_ptr<BusRequest> request;
        Bus bus;
        WithBus then;
        Cancellable attempt;
        Source limit;
    };
    struct Call {
        std::shared_ptr<BusRequest> request;
        Then then;
        BusMethod method;
    };
    struct Line {
        Connection connection;
        bool outOfOrder = false; // the bus could not be opened; do not retry
    };

    Line& line(Bus bus) { return lines[bus == Bus::system ? 0 : 1]; }

    static void withBus(const std::shared_ptr<BusRequest>& request, Bus bus, WithBus then);
    static void opened(GObject* source, GAsyncResult* result, gpointer opening);
    static void answered(GObject* connection, GAsyncResult* result, gpointer call);
    static void signalled(GDBusConnection* connection, const char* sender, const char* path,
                          const char* interface, const char* signal, GVariant* values,
                          gpointer onSignal);

    bool calledOff = false;
    std::array<Line, 2> lines;
    Cancellable cancellable{g_cancellable_new()};
    GCancellable* openingAttempt = nullptr;
    std::vector<Source> timers;
    struct Watch {
        GDBusConnection* connection;
        guint subscription;
    };
    std::vector<Watch> watches;
};

void BusRequest::State::withBus(const std::shared_ptr<BusRequest>& request, Bus bus, WithBus then) {
    State& state = *request->state;
    Line& line = state.line(bus);
    const auto address = line.outOfOrder ? std::nullopt : busAddress(bus);
    if (line.connection || !address) {
        then(line.connection.get());
        return;
    }
    auto* const opening =
        new Opening{request, bus, std::move(then), Cancellable(g_cancellable_new()), nullptr};
    GCancellable* const attempt = opening->attempt.get();
    state.openingAttempt = attempt;
    opening->limit =
        startTimer(request->patienceOfAStep, [attempt] { g_cancellable_cancel(attempt); });
    constexpr auto flags =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    g_dbus_connection_new_for_address(address->c_str(), flags, nullptr, attempt, opened, opening);
}

void BusRequest::State::opened(GObject* /*source*/, GAsyncResult* result, gpointer opening) {
    const std::unique_ptr<Opening> held(static_cast<Opening*>(opening));
    State& state = *held->request->state;
    state.openingAttempt = nullptr;
    Line& line = state.line(held->bus);
    line.connection.reset(g_dbus_connection_new_for_address_finish(result, nullptr));
    line.outOfOrder = !line.connection;
    if (line.outOfOrder) {
        logLine("services", "the ", held->bus == Bus::system ? "system" : "session",
                " bus did not reply");
    }
    if (!state.calledOff) {
        held->then(line.connection.get());
    }
}

void BusRequest::State::answered(GObject* connection, GAsyncResult* result, gpointer call) {
    const std::unique_ptr<Call> held(static_cast<Call*>(call));
    GError* failure = nullptr;
    const GlibOwner<GVariant> values(
        g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, &failure));
    const GlibOwner<GError> error(failure);
    if (error != nullptr) {
        logLine("services", held->method.service, " ", held->method.name, ": ", error->message);
    }
    if (!held->request->state->calledOff) {
        held->then({values.get(), isServiceMissing(error.get()), isTimeout(error.get())});
    }
}

void BusRequest::State::signalled(GDBusConnection* /*connection*/, const char* /*sender*/,
                                  const char* /*path*/, const char* /*interface*/,
                                  const char* /*signal*/, GVariant* values, gpointer onSignal) {
    const SignalHandler copy =
        *static_cast<SignalHandler*>(onSignal); // copied, because the callback may end the watch
    copy(values);
}

BusRequest::BusRequest(Milliseconds stepPatience)
    : patienceOfAStep(stepPatience), state(std::make_unique<State>()) {}

BusRequest::~BusRequest() {
    stopWaiting();
}

void BusRequest::call(const BusMethod& method, GVariant* arguments, Milliseconds patience,
                      IfNotRunning ifNotRunning, Then then) {
    const std::shared_ptr<GVariant> held(
        GlibOwner<GVariant>(arguments != nullptr ? g_variant_ref_sink(arguments) : nullptr));
    const auto flags = ifNotRunning == IfNotRunning::start ? G_DBUS_CALL_FLAGS_NONE
                                                           : G_DBUS_CALL_FLAGS_NO_AUTO_START;
    const auto ask = [=, self = shared_from_this(),
                      then = std::move(then)](GDBusConnection* connection) {
        if (connection == nullptr) {
            then({.serviceMissing = true, .busIsOpen = false});
            return;
        }
        g_dbus_connection_call(connection, method.service, method.path, method.interface,
                               method.name, held.get(), nullptr, flags,
                               static_cast<int>(patience.count()), self->state->cancellable.get(),
                               State::answered, new State::Call{self, then, method});
    };
    State::withBus(shared_from_this(), method.bus, ask);
}

void BusRequest::call(const BusMethod& method, GVariant* arguments, Then then) {
    call(method, arguments, patienceOfAStep, IfNotRunning::leave, std::move(then));
}

void BusRequest::watch(const Signal& signal, std::function<void(GVariant*)> onSignal) {
    GDBusConnection* const connection = state->line(signal.bus).connection.get();
    const guint subscription = g_dbus_connection_signal_subscribe(
        connection, signal.service, signal.interface, signal.name, nullptr, signal.firstArgument,
        G_DBUS_SIGNAL_FLAGS_NONE, State::signalled, new State::SignalHandler(std::move(onSignal)),
        [](gpointer held) { delete static_cast<State::SignalHandler*>(held); });
    state->watches.push_back({connection, subscription});
}

void BusRequest::watchProperties(Bus bus, const char* service, const char* interface,
                                 Function changed) {
    watch({bus, service, "org.freedesktop.DBus.Properties", "PropertiesChanged", interface},
          [changed = std::move(changed)](GVariant* /*values*/) { changed(); });
}

void BusRequest::stopWaiting() {
    state->timers.clear();
    for (const State::Watch& watch : std::exchange(state->watches, {})) {
        g_dbus_connection_signal_unsubscribe(watch.connection, watch.subscription);
    }
}

void BusRequest::after(Milliseconds delay, Function then) {
    state->timers.push_back(
        startTimer(delay, [self = shared_from_this(), then = std::move(then)] { then(); }));
}

void BusRequest::cancel() {
    state->calledOff = true;
    stopWaiting();
    g_cancellable_cancel(state->cancellable.get());
    if (state->openingAttempt != nullptr) {
        g_cancellable_cancel(state->openingAttempt);
    }
}

// The number of unfinished transactions.
struct BusRequests::Open {
    std::mutex mutex;
    std::condition_variable fewer;
    int count = 0;

    void change(int by) {
        const std::lock_guard lock(mutex);
        count += by;
        fewer.notify_all();
    }
    void waitForNone() {
        std::unique_lock lock(mutex);
        fewer.wait(lock, [this] { return count == 0; });
    }
};

BusRequests::BusRequests(DesktopThread& thread) : desktop(thread), open(std::make_shared<Open>()) {}

BusRequests::~BusRequests() {
    for (const auto& weak : started) {
        desktop.submit([weak] {
            if (const auto request = weak.lock()) {
                request->cancel();
            }
        });
    }
    open->waitForNone();
}

void BusRequests::start(std::shared_ptr<BusRequest> request) {
    open->change(1);
    request->counted = std::shared_ptr<void>(nullptr, [held = open](void*) { held->change(-1); });
    std::erase_if(started, [](const auto& earlier) { return earlier.expired(); });
    started.push_back(request);
    desktop.submit([held = std::move(request)] { held->begin(); });
}

} // namespace glidemap
