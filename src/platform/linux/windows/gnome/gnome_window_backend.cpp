#include "platform/linux/windows/gnome/gnome_window_backend.h"

#include "platform/linux/desktop/desktop_bus.h"
#include "platform/linux/desktop/environment.h"
#include "platform/linux/windows/gnome/compositor_process.h"
#include "platform/linux/windows/reported_windows.h"

#include <gio/gio.h>

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

namespace glidemap {

namespace {

constexpr const char* shellName = "org.gnome.Shell";
constexpr std::string_view entrySuffix = ".desktop";

BusObject windowsOf(const std::string& owner) {
    return {owner, "/org/glidemap/Windows", "org.glidemap.Windows"};
}

std::string applicationOf(std::string entry, const char* windowClass) {
    if (entry.empty()) {
        return windowClass;
    }
    if (entry.ends_with(entrySuffix)) {
        entry.erase(entry.size() - entrySuffix.size());
    }
    return entry;
}

std::vector<WindowIdentity> identitiesAt(GVariant* message, gsize position) {
    std::vector<WindowIdentity> identities;
    const GlibOwner<GVariant> list(g_variant_get_child_value(message, position));
    GVariantIter windows;
    g_variant_iter_init(&windows, list.get());
    const char* entry = nullptr;
    const char* windowClass = nullptr;
    const char* instance = nullptr;
    const char* title = nullptr;
    std::uint32_t process = 0;
    while (g_variant_iter_next(&windows, "(&s&s&s&su)", &entry, &windowClass, &instance, &title,
                               &process)) {
        const bool known = process > 0 && process <= std::numeric_limits<std::int32_t>::max();
        identities.push_back({applicationOf(entry, windowClass), instance, title,
                              known ? std::optional(static_cast<pid_t>(process)) : std::nullopt});
    }
    return identities;
}

} // namespace

struct GnomeWindowBackend::State {
    WindowListener* listener = nullptr;
    ReportedWindows reported;
    std::unique_ptr<DesktopBus> bus;
    std::string shell; // the shell's unique bus name
    bool isBelieved = false;
    unsigned subscription = 0;
    GlibOwner<GVariant> latest; // the extension's last report

    GlibOwner<GVariant> chosenOf(const WindowChoice& isChosen) const;
    void bringForward(GVariant* windows, std::function<void()> otherwise) const;
    void requestToken(const std::string& entry, std::function<void(const LaunchToken&)> then) const;
    void appeared(const std::string& owner);
    void check(const std::string& owner);
    void vanished();
    void ask(const std::string& owner);
    void receive(GVariant* message);
    void reportNone() {
        latest.reset();
        reported.report(*listener, {}, std::nullopt);
    }
};

// Subscribes before the query, so that no change in between is lost.
void GnomeWindowBackend::State::appeared(const std::string& owner) {
    shell = owner;
    const BusObject windows = windowsOf(owner);
    subscription = bus->subscribe({windows.name, windows.path, windows.interface},
                                  [this, owner](const std::string& signal, GVariant* message) {
                                      if (signal == "Started") {
                                          check(owner);
                                      } else if (signal == "WindowsChanged" && isBelieved) {
                                          receive(message);
                                      } else if (signal == "Stopped") {
                                          reportNone();
                                      }
                                  });
    check(owner);
}

// Verifies the owner of the shell's name, because any program can own that name while the shell
// does not. Called again when the extension reports that it has started: the shell owns the name
// shortly before it serves the display, and loads its extensions after that.
void GnomeWindowBackend::State::check(const std::string& owner) {
    bus->call({"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus"},
              "GetConnectionUnixProcessID", g_variant_new("(s)", owner.c_str()),
              [this, owner](GVariant* values, const GError* error) {
                  if (shell != owner) {
                      return;
                  }
                  std::uint32_t process = 0;
                  if (error == nullptr && g_variant_is_of_type(values, G_VARIANT_TYPE("(u)"))) {
                      g_variant_get(values, "(u)", &process);
                  }
                  const auto compositor = compositorProcess();
                  isBelieved = compositor && static_cast<pid_t>(process) == *compositor;
                  if (isBelieved) {
                      ask(owner);
                  } else {
                      reportNone();
                  }
              });
}

void GnomeWindowBackend::State::vanished() {
    shell.clear();
    isBelieved = false;
    bus->unsubscribe(std::exchange(subscription, 0));
    reportNone();
}

void GnomeWindowBackend::State::ask(const std::string& owner) {
    bus->call(windowsOf(owner), "GetWindows", nullptr,
              [this, owner](GVariant* message, const GError* error) {
                  if (shell != owner) {
                      return;
                  }
                  if (error == nullptr) {
                      receive(message);
                  } else {
                      // The extension may start later, and will then report its windows.
                      reportNone();
                  }
              });
}

void GnomeWindowBackend::State::receive(GVariant* message) {
    if (!g_variant_is_of_type(message, G_VARIANT_TYPE("(a(ssssu)a(ssssu))"))) {
        return;
    }
    latest.reset(g_variant_ref(message));
    const std::vector<WindowIdentity> active = identitiesAt(message, 1);
    reported.report(*listener, identitiesAt(message, 0),
                    active.empty() ? std::nullopt : std::optional(active.front()));
}

// Returns the selected windows in the extension's format, or null if no window is selected.
GlibOwner<GVariant> GnomeWindowBackend::State::chosenOf(const WindowChoice& isChosen) const {
    if (latest == nullptr) {
        return nullptr;
    }
    const std::vector<WindowIdentity> identities = identitiesAt(latest.get(), 0);
    const GlibOwner<GVariant> list(g_variant_get_child_value(latest.get(), 0));
    GVariantBuilder chosen;
    g_variant_builder_init(&chosen, G_VARIANT_TYPE("a(ssssu)"));
    bool any = false;
    for (std::size_t at = 0; at < identities.size(); ++at) {
        if (isChosen(identities[at])) {
            const GlibOwner<GVariant> window(g_variant_get_child_value(list.get(), at));
            g_variant_builder_add_value(&chosen, window.get());
            any = true;
        }
    }
    GlibOwner<GVariant> windows(g_variant_ref_sink(g_variant_builder_end(&chosen)));
    return any ? std::move(windows) : nullptr;
}

// Also calls `otherwise` if the method is missing: after an update, an older version of the
// extension runs until the next login.
void GnomeWindowBackend::State::bringForward(GVariant* windows,
                                             std::function<void()> otherwise) const {
    bus->call(windowsOf(shell), "BringForward", g_variant_new("(@a(ssssu))", windows),
              [refused = std::move(otherwise)](GVariant* values, const GError* /*error*/) {
                  if (!booleanIn(values).value_or(false)) {
                      refused();
                  }
              });
}

// The same token is used for X11 and Wayland programs.
void GnomeWindowBackend::State::requestToken(const std::string& entry,
                                             std::function<void(const LaunchToken&)> then) const {
    bus->call(windowsOf(shell), "TokenForLaunch", g_variant_new("(s)", entry.c_str()),
              [requestToken = std::move(then)](GVariant* values, const GError* error) {
                  const char* token = "";
                  if (error == nullptr && g_variant_is_of_type(values, G_VARIANT_TYPE("(s)"))) {
                      g_variant_get(values, "(&s)", &token);
                  }
                  requestToken({token, token, {}});
              });
}

GnomeWindowBackend::GnomeWindowBackend() : state(std::make_unique<State>()) {}

GnomeWindowBackend::~GnomeWindowBackend() = default;

bool GnomeWindowBackend::start(WindowListener& listener) {
    state->bus = DesktopBus::open();
    if (state->bus == nullptr || !(state->bus->isOwned(shellName) || isCurrentDesktop("GNOME"))) {
        state->bus.reset();
        return false;
    }
    state->listener = &listener;
    state->bus->watchName(
        shellName, [this](const std::string& owner) { state->appeared(owner); },
        [this] { state->vanished(); });
    return true;
}

void GnomeWindowBackend::bringForward(const WindowChoice& isChosen,
                                      std::function<void()> otherwise) {
    const GlibOwner<GVariant> windows = state->isBelieved ? state->chosenOf(isChosen) : nullptr;
    if (windows == nullptr) {
        otherwise();
        return;
    }
    state->bringForward(windows.get(), std::move(otherwise));
}

void GnomeWindowBackend::requestToken(const LaunchedApplication& application,
                                      std::function<void(const LaunchToken&)> then) {
    state->isBelieved ? state->requestToken(application.identifier + ".desktop", std::move(then))
                      : then({});
}

} // namespace glidemap
