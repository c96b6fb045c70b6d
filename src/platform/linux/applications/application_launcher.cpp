#include "platform/linux/applications/application_launcher.h"

#include "core/log.h"
#include "platform/linux/applications/process_launch.h"
#include "platform/linux/desktop/desktop_bus.h"

#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace glidemap {

namespace {

// A launch request, which the callbacks share.
struct Launch {
    GlibOwner<GDesktopAppInfo> entry;
    std::string url; // the URL to open; empty to launch the application itself
    LaunchToken token;
};

bool canBeActivated(GDesktopAppInfo* entry) {
    return g_desktop_app_info_get_boolean(entry, "DBusActivatable") != FALSE;
}

// Returns the bus name of an entry: "org.example.App" for
// "/usr/share/applications/org.example.App.desktop". Returns an empty string if that is not a valid
// bus name.
std::string busNameOf(GDesktopAppInfo* entry) {
    const char* const path = g_desktop_app_info_get_filename(entry);
    if (path == nullptr) {
        return "";
    }
    std::string name = *takeText(g_path_get_basename(path));
    constexpr std::string_view ending = ".desktop";
    if (name.ends_with(ending)) {
        name.erase(name.size() - ending.size());
    }
    return g_dbus_is_name(name.c_str()) != FALSE && name.front() != ':' ? name : "";
}

std::string objectPathOf(const std::string& busName) {
    std::string path = "/" + busName;
    std::replace(path.begin(), path.end(), '.', '/');
    std::replace(path.begin(), path.end(), '-', '_');
    return path;
}

// Whether the call has certainly failed. After a time-out, the service may still handle the call,
// and launching a second process would be wrong.
bool wasNotReached(const GError* error) {
    return g_error_matches(error, G_IO_ERROR, G_IO_ERROR_TIMED_OUT) == FALSE &&
           g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_NO_REPLY) == FALSE &&
           g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_TIMEOUT) == FALSE &&
           g_error_matches(error, G_DBUS_ERROR, G_DBUS_ERROR_TIMED_OUT) == FALSE;
}

GVariant* platformData(const LaunchToken& token) {
    GVariantBuilder data;
    g_variant_builder_init(&data, G_VARIANT_TYPE_VARDICT);
    if (!token.startupID.empty()) {
        g_variant_builder_add(&data, "{sv}", "desktop-startup-id",
                              g_variant_new_string(token.startupID.c_str()));
    }
    if (!token.activationToken.empty()) {
        g_variant_builder_add(&data, "{sv}", "activation-token",
                              g_variant_new_string(token.activationToken.c_str()));
    }
    return g_variant_builder_end(&data);
}

void activate(const std::shared_ptr<DesktopBus>& bus, const std::string& name,
              const std::shared_ptr<Launch>& launch) {
    constexpr std::chrono::seconds patience{25}; // the usual time limit of D-Bus
    const std::array<const char*, 2> urls = {launch->url.c_str(), nullptr};
    const bool isPlain = launch->url.empty();
    GVariant* const data = platformData(launch->token);
    GVariant* const arguments =
        isPlain ? g_variant_new("(@a{sv})", data) : g_variant_new("(^as@a{sv})", urls.data(), data);
    bus->call({{name, objectPathOf(name), "org.freedesktop.Application"},
               isPlain ? "Activate" : "Open",
               IfNotRunning::start,
               patience},
              arguments, [bus, launch](GVariant* /*values*/, const GError* error) {
                  if (error == nullptr) {
                      return;
                  }
                  logLine("services", "an application was not activated: ", error->message);
                  if (wasNotReached(error)) {
                      startProcess(launch->entry.get(), launch->url, launch->token);
                  }
              });
}

// Only D-Bus activation waits for the bus; a process is started without the bus.
void begin(GlibOwner<GDesktopAppInfo> entry, const std::string& url, const LaunchToken& token) {
    const std::string name = canBeActivated(entry.get()) ? busNameOf(entry.get()) : "";
    if (name.empty()) {
        startProcess(entry.get(), url, token);
        return;
    }
    const auto launch = std::make_shared<Launch>(Launch{std::move(entry), url, token});
    DesktopBus::withShared([name, launch](const std::shared_ptr<DesktopBus>& bus) {
        if (bus != nullptr) {
            activate(bus, name, launch);
        } else {
            startProcess(launch->entry.get(), launch->url, launch->token);
        }
    });
}

} // namespace

bool acceptsLaunchToken(GDesktopAppInfo* entry) {
    return canBeActivated(entry) ||
           g_desktop_app_info_get_boolean(entry, G_KEY_FILE_DESKTOP_KEY_STARTUP_NOTIFY) != FALSE;
}

void launchApplication(GDesktopAppInfo* entry, const LaunchToken& token) {
    if (g_desktop_app_info_get_is_hidden(entry) == FALSE) { // a hidden entry counts as deleted
        begin(GlibOwner<GDesktopAppInfo>(G_DESKTOP_APP_INFO(g_object_ref(entry))), "", token);
    }
}

void launchApplication(const std::string& url) {
    const auto path = takeText(g_filename_from_uri(url.c_str(), nullptr, nullptr));
    if (!path) {
        return;
    }
    const GlibOwner<GDesktopAppInfo> entry(g_desktop_app_info_new_from_filename(path->c_str()));
    if (entry == nullptr) {
        logLine("services", "no program to start in ", url);
        return;
    }
    launchApplication(entry.get(), {});
}

void launchHandler(const std::string& url) {
    const auto scheme = takeText(g_uri_parse_scheme(url.c_str()));
    if (!scheme) {
        return;
    }
    GlibOwner<GAppInfo> handler(g_app_info_get_default_for_uri_scheme(scheme->c_str()));
    if (handler != nullptr && G_IS_DESKTOP_APP_INFO(handler.get())) {
        begin(GlibOwner<GDesktopAppInfo>(G_DESKTOP_APP_INFO(handler.release())), url, {});
    } else { // usually a file URL: the type of the file selects the handler
        g_app_info_launch_default_for_uri_async(url.c_str(), nullptr, nullptr, nullptr, nullptr);
    }
}

} // namespace glidemap
