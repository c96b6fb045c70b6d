#include "platform/linux/shell/portal_appearance.h"

#include "platform/linux/desktop/bus_address.h"
#include "platform/linux/desktop/desktop_bus.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/desktop/glib_owner.h"
#include "platform/linux/shell/appearance_values.h"
#include "platform/linux/shell/compositing.h"

#include <gio/gio.h>

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace glidemap {

namespace {

const BusObject portal{"org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                       "org.freedesktop.portal.Settings"};

// `settings` maps the keys of the group to their values.
void takeGroup(AppearanceValues& values, const char* group, GVariant* settings) {
    GVariantIter each;
    g_variant_iter_init(&each, settings);
    const char* key = nullptr;
    GVariant* value = nullptr;
    while (g_variant_iter_loop(&each, "{&sv}", &key, &value) != FALSE) {
        values.take(group, key, value);
    }
}

std::optional<AppearanceValues> valuesIn(GVariant* answer) {
    if (answer == nullptr || !g_variant_is_of_type(answer, G_VARIANT_TYPE("(a{sa{sv}})"))) {
        return std::nullopt;
    }
    AppearanceValues values;
    const GlibOwner<GVariant> groups(g_variant_get_child_value(answer, 0));
    GVariantIter each;
    g_variant_iter_init(&each, groups.get());
    const char* group = nullptr;
    GVariant* settings = nullptr;
    while (g_variant_iter_loop(&each, "{&s@a{sv}}", &group, &settings) != FALSE) {
        takeGroup(values, group, settings);
    }
    return values;
}

} // namespace

// Holds the settings for the main thread.
class PortalAppearance::Settings : public AppearanceSettings {
public:
    std::optional<ColorScheme> colorScheme() const override { return appearance.colorScheme; }
    bool reducesMotion() const override { return appearance.reducesMotion; }
    bool composites() const override { return compositing.composites(); }
    Observable& changes() override { return observers; }

    void show(const Appearance& now) {
        observers.announceWillChange();
        appearance = now;
        observers.announceDidChange();
    }

private:
    Appearance appearance;
    mutable RecentCompositing compositing;
    Observable observers;
};

// Communicates with the portal. It lives on the desktop thread.
class PortalAppearance::Listener : public std::enable_shared_from_this<Listener> {
public:
    using Notify = std::function<void(const Appearance&)>;

    explicit Listener(Notify function) : notify(std::move(function)) {}
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() { gone.set_value(); }

    std::future<void> hasGone() { return gone.get_future(); }

    void begin();
    void end();

private:
    void listen();
    void read();
    void onSignal(const std::string& signal, GVariant* arguments);
    void notifyIfNew();

    const Notify notify;
    std::promise<void> gone;
    GlibOwner<GCancellable> opening{g_cancellable_new()};
    bool ended = false;
    std::unique_ptr<DesktopBus> bus;
    AppearanceValues values;
    Appearance reported;
};

void PortalAppearance::Listener::begin() {
    const auto address = busAddress(Bus::session);
    if (!address) {
        return;
    }
    DesktopBus::open(*address, opening.get(),
                     [self = shared_from_this()](std::unique_ptr<DesktopBus> opened) {
                         if (opened != nullptr && !self->ended) {
                             self->bus = std::move(opened);
                             self->listen();
                         }
                     });
}

// Subscribes before reading, so that no change in between is lost.
void PortalAppearance::Listener::listen() {
    bus->subscribe(
        {portal.name, portal.path, portal.interface},
        [this](const std::string& signal, GVariant* arguments) { onSignal(signal, arguments); });
    bus->watchName(
        portal.name.c_str(), [this](const std::string& /*owner*/) { read(); }, [] {});
}

void PortalAppearance::Listener::read() {
    GVariant* const groups = g_variant_new_strv(AppearanceValues::groups.data(), -1);
    bus->call(portal, "ReadAll", g_variant_new_tuple(&groups, 1),
              [this](GVariant* answer, const GError* /*error*/) {
                  values = valuesIn(answer).value_or(values);
                  notifyIfNew();
              });
}

void PortalAppearance::Listener::onSignal(const std::string& signal, GVariant* arguments) {
    if (signal != "SettingChanged" || !g_variant_is_of_type(arguments, G_VARIANT_TYPE("(ssv)"))) {
        return;
    }
    const char* group = nullptr;
    const char* key = nullptr;
    GVariant* inner = nullptr;
    g_variant_get(arguments, "(&s&sv)", &group, &key, &inner);
    const GlibOwner<GVariant> value(inner);
    values.take(group, key, value.get());
    notifyIfNew();
}

// Does not wake the main thread for settings that do not affect the appearance.
void PortalAppearance::Listener::notifyIfNew() {
    if (const Appearance now = values.appearance(); now != reported) {
        reported = now;
        notify(now);
    }
}

void PortalAppearance::Listener::end() {
    ended = true;
    g_cancellable_cancel(opening.get());
    bus.reset();
}

PortalAppearance::PortalAppearance(DesktopThread& thread, MainQueue& queue)
    : desktop(thread), reported(std::make_shared<Settings>()) {
    listener = std::make_shared<Listener>(
        [&queue, weak = std::weak_ptr(reported)](const Appearance& appearance) {
            queue.submit([weak, appearance] {
                if (const auto settings = weak.lock()) {
                    settings->show(appearance);
                }
            });
        });
    listenerHasGone = listener->hasGone();
    desktop.submit([begun = listener] { begun->begin(); });
}

PortalAppearance::~PortalAppearance() {
    desktop.submit([last = std::move(listener)] { last->end(); });
    listenerHasGone.wait();
}

std::shared_ptr<AppearanceSettings> PortalAppearance::settings() const {
    return reported;
}

} // namespace glidemap
