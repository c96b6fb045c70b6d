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
    using WithBus = std::function<void(DesktopBus* bus)>;

    struct Line {
        std::unique_ptr<DesktopBus> bus;
        bool outOfOrder = false; // opening failed; do not retry
    };

    Line& line(Bus bus) { return lines[bus == Bus::system ? 0 : 1]; }

    static void withBus(const std::shared_ptr<BusRequest>& request, Bus bus, WithBus then);
    void opened(Bus bus, std::unique_ptr<DesktopBus> result, const WithBus& then);

    bool calledOff = false;
    std::array<Line, 2> lines;
    Cancellable cancellable{g_cancellable_new()};
    std::shared_ptr<GCancellable> openingAttempt; // null while no bus is being opened
    std::vector<Source> timers;
    struct Watch {
        DesktopBus* bus;
        unsigned subscription;
    };
    std::vector<Watch> watches;
};

void BusRequest::State::withBus(const std::shared_ptr<BusRequest>& request, Bus bus, WithBus then) {
    State& state = *request->state;
    Line& line = state.line(bus);
    const auto address = line.outOfOrder ? std::nullopt : busAddress(bus);
    if (line.bus || !address) {
        then(line.bus.get());
        return;
    }
    const std::shared_ptr<GCancellable> attempt = Cancellable(g_cancellable_new());
    state.openingAttempt = attempt;
    const std::shared_ptr<GSource> limit =
        startTimer(request->patienceOfAStep, [attempt] { g_cancellable_cancel(attempt.get()); });
    DesktopBus::open(*address, attempt.get(),
                     [request, bus, limit, then = std::move(then)](auto opened) {
                         request->state->opened(bus, std::move(opened), then);
                     });
}

void BusRequest::State::opened(Bus bus, std::unique_ptr<DesktopBus> result, const WithBus& then) {
    openingAttempt.reset();
    Line& opened = line(bus);
    opened.bus = std::move(result);
    opened.outOfOrder = !opened.bus;
    if (opened.outOfOrder) {
        logLine("services", "the ", bus == Bus::system ? "system" : "session",
                " bus did not reply");
    }
    if (!calledOff) {
        then(opened.bus.get());
    }
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
    const auto ask = [=, self = shared_from_this(), then = std::move(then)](DesktopBus* bus) {
        if (bus == nullptr) {
            then({.serviceMissing = true, .busIsOpen = false});
            return;
        }
        bus->call({{method.service, method.path, method.interface},
                   method.name,
                   ifNotRunning,
                   patience,
                   self->state->cancellable.get()},
                  held.get(), [=](GVariant* values, const GError* error) {
                      if (error != nullptr) {
                          logLine("services", method.service, " ", method.name, ": ",
                                  error->message);
                      }
                      if (!self->state->calledOff) {
                          then({values, isServiceMissing(error), isTimeout(error)});
                      }
                  });
    };
    State::withBus(shared_from_this(), method.bus, ask);
}

void BusRequest::call(const BusMethod& method, GVariant* arguments, Then then) {
    call(method, arguments, patienceOfAStep, IfNotRunning::leave, std::move(then));
}

void BusRequest::watch(const Signal& signal, std::function<void(GVariant*)> onSignal) {
    DesktopBus* const bus = state->line(signal.bus).bus.get();
    const unsigned subscription =
        bus->subscribe({signal.service, "", signal.interface, signal.name,
                        signal.firstArgument != nullptr ? signal.firstArgument : ""},
                       [onSignal = std::move(onSignal)](const std::string&, GVariant* values) {
                           onSignal(values);
                       });
    state->watches.push_back({bus, subscription});
}

void BusRequest::watchProperties(Bus bus, const char* service, const char* interface,
                                 Function changed) {
    watch({bus, service, "org.freedesktop.DBus.Properties", "PropertiesChanged", interface},
          [changed = std::move(changed)](GVariant* /*values*/) { changed(); });
}

void BusRequest::stopWaiting() {
    state->timers.clear();
    for (const State::Watch& watch : std::exchange(state->watches, {})) {
        watch.bus->unsubscribe(watch.subscription);
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
        g_cancellable_cancel(state->openingAttempt.get());
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
